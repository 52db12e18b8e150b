#include "voxi2/modelview/propertytype.h"

#include "propertytypedata.h"

#include <algorithm>
#include <utility>

namespace VOXI {

// Made --------------------------------------------------------------------------------------------

PropertyType::PropertyType()
{
    static const auto group = std::make_shared<const Data>();
    m_data = group;
}

PropertyType::PropertyType(Data data) : m_data(std::make_shared<const Data>(std::move(data))) {}

PropertyType PropertyType::boolean()
{
    static const PropertyType type(Data{.kind = PropertyKind::Bool});
    return type;
}

PropertyType PropertyType::integer(long long least, long long greatest, long long step)
{
    const auto [low, high] = std::minmax(least, greatest);
    return PropertyType(Data{.kind = PropertyKind::Integer,
                             .leastInteger = low,
                             .greatestInteger = high,
                             .integerStep = std::max(step, 1LL)});
}

PropertyType PropertyType::decimal(double least, double greatest, double step, int decimals)
{
    constexpr double Most = std::numeric_limits<double>::max();
    // Written so that what is no number is no bound.
    const double low = least >= -Most ? std::min(least, Most) : -Most;
    const double high = greatest <= Most ? std::max(greatest, -Most) : Most;
    return PropertyType(Data{.kind = PropertyKind::Double,
                             .leastDouble = std::min(low, high),
                             .greatestDouble = std::max(low, high),
                             .doubleStep = step > 0 && step <= Most ? step : 1,
                             .decimals = std::clamp(decimals, -1, 17)});
}

PropertyType PropertyType::text()
{
    static const PropertyType type(Data{.kind = PropertyKind::Text});
    return type;
}

PropertyType PropertyType::multilineText()
{
    static const PropertyType type(Data{.kind = PropertyKind::MultilineText});
    return type;
}

PropertyType PropertyType::enumeration(std::vector<PropertyChoice> choices)
{
    return PropertyType(Data{.kind = PropertyKind::Enumeration, .choices = std::move(choices)});
}

PropertyType PropertyType::flags(std::vector<PropertyChoice> choices)
{
    return PropertyType(Data{.kind = PropertyKind::Flags, .choices = std::move(choices)});
}

PropertyType PropertyType::color()
{
    static const PropertyType type(Data{.kind = PropertyKind::Color});
    return type;
}

PropertyType PropertyType::font()
{
    static const PropertyType type(Data{.kind = PropertyKind::Font});
    return type;
}

PropertyType PropertyType::file(FileDialogMode mode, std::vector<FileFilter> filters)
{
    return PropertyType(
        Data{.kind = PropertyKind::File, .fileMode = mode, .fileFilters = std::move(filters)});
}

PropertyType PropertyType::date()
{
    static const PropertyType type(Data{.kind = PropertyKind::Date});
    return type;
}

PropertyType PropertyType::user(TypeInfo type)
{
    return type.isValid() ? PropertyType(Data{.kind = PropertyKind::User, .type = type})
                          : PropertyType();
}

// What it is --------------------------------------------------------------------------------------

PropertyKind PropertyType::kind() const noexcept { return m_data->kind; }
long long PropertyType::leastInteger() const noexcept { return m_data->leastInteger; }
long long PropertyType::greatestInteger() const noexcept { return m_data->greatestInteger; }
long long PropertyType::integerStep() const noexcept { return m_data->integerStep; }
double PropertyType::leastDouble() const noexcept { return m_data->leastDouble; }
double PropertyType::greatestDouble() const noexcept { return m_data->greatestDouble; }
double PropertyType::doubleStep() const noexcept { return m_data->doubleStep; }
const std::vector<PropertyChoice>& PropertyType::choices() const noexcept
{
    return m_data->choices;
}
FileDialogMode PropertyType::fileMode() const noexcept { return m_data->fileMode; }
const std::vector<FileFilter>& PropertyType::fileFilters() const noexcept
{
    return m_data->fileFilters;
}

} // namespace VOXI
