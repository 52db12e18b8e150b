// The part of PropertyType that is about values and their texts.

#include "propertytexts.h"
#include "propertytypedata.h"
#include "voxi2/kernel/translation.h"
#include "voxi_util/color.h"
#include "voxi_util/textencoding.h"
#include "voxi_util/vxfont.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>

namespace VOXI {

namespace {

template <class T>
const T* as(const any& value)
{
    return std::any_cast<T>(&value);
}

template <class... T>
std::optional<long long> integerFrom(const any& value)
{
    std::optional<long long> result;
    const auto take = [&](auto number) {
        if (std::in_range<long long>(number))
            result = static_cast<long long>(number);
    };
    ((as<T>(value) ? take(*as<T>(value)) : void()), ...);
    return result;
}

std::optional<long long> integerOf(const any& value)
{
    return integerFrom<signed char, unsigned char, short, unsigned short, int, unsigned, long,
                       unsigned long, long long, unsigned long long>(value);
}

std::optional<double> doubleOf(const any& value)
{
    if (const auto* number = as<double>(value))
        return *number;
    if (const auto* number = as<float>(value))
        return *number;
    if (const auto number = integerOf(value))
        return static_cast<double>(*number);
    return {};
}

std::optional<std::wstring> textFrom(const any& value)
{
    if (const auto* text = as<std::wstring>(value))
        return *text;
    if (const auto* text = as<std::string>(value))
        return wideFromNarrow(*text);
    if (const auto* text = as<const char*>(value))
        return AnyText(*text).toWide();
    if (const auto* text = as<const wchar_t*>(value))
        return AnyText(*text).toWide();
    if (const auto* text = as<std::u8string>(value))
        return AnyText(*text).toWide();
    return {};
}

template <class T>
any onlyIf(bool isValid, const T& value)
{
    return isValid ? any(value) : any();
}

bool isChoice(const std::vector<PropertyChoice>& choices, long long value)
{
    return std::ranges::any_of(choices, [=](const auto& each) { return each.value == value; });
}

bool areFlags(const std::vector<PropertyChoice>& choices, long long value)
{
    long long known = 0;
    for (const PropertyChoice& choice : choices)
        known |= choice.value;
    return (value & ~known) == 0;
}

template <class T>
bool same(const any& a, const any& b)
{
    const T* const x = as<T>(a);
    const T* const y = as<T>(b);
    return x && y && *x == *y;
}

} // namespace

PropertyType PropertyType::of(const any& value)
{
    if (as<bool>(value))
        return boolean();
    if (integerOf(value))
        return integer();
    if (doubleOf(value))
        return decimal();
    if (textFrom(value))
        return text();
    if (as<Color>(value))
        return color();
    if (as<VXFont>(value))
        return font();
    if (as<std::filesystem::path>(value))
        return file();
    if (as<std::chrono::year_month_day>(value))
        return date();
    return user(TypeInfo::of(value));
}

any PropertyType::initialValue() const
{
    using std::chrono::year, std::chrono::January, std::chrono::day;
    switch (m_data->kind) {
    case PropertyKind::Bool:
        return false;
    case PropertyKind::Integer:
        return std::clamp(0LL, m_data->leastInteger, m_data->greatestInteger);
    case PropertyKind::Double:
        return std::clamp(0.0, m_data->leastDouble, m_data->greatestDouble);
    case PropertyKind::Text:
    case PropertyKind::MultilineText:
        return std::wstring();
    case PropertyKind::Enumeration:
        return m_data->choices.empty() ? any() : any(m_data->choices.front().value);
    case PropertyKind::Flags:
        return 0LL;
    case PropertyKind::Color:
        return Color();
    case PropertyKind::Font:
        return VXFont();
    case PropertyKind::File:
        return std::filesystem::path();
    case PropertyKind::Date:
        return year(1970) / January / day(1);
    case PropertyKind::Group:
    case PropertyKind::User:
        break;
    }
    return {};
}

any PropertyType::accepted(const any& value) const
{
    const Data& d = *m_data;
    switch (d.kind) {
    case PropertyKind::Bool:
        return onlyIf(as<bool>(value), value);
    case PropertyKind::Integer: {
        const auto number = integerOf(value);
        return onlyIf(number && *number >= d.leastInteger && *number <= d.greatestInteger,
                      number.value_or(0));
    }
    case PropertyKind::Double: {
        const auto number = doubleOf(value);
        return onlyIf(number && *number >= d.leastDouble && *number <= d.greatestDouble,
                      number.value_or(0));
    }
    case PropertyKind::Text:
    case PropertyKind::MultilineText: {
        const auto text = textFrom(value);
        return text ? any(*text) : any();
    }
    case PropertyKind::Enumeration: {
        const auto number = integerOf(value);
        return onlyIf(number && isChoice(d.choices, *number), number.value_or(0));
    }
    case PropertyKind::Flags: {
        const auto number = integerOf(value);
        return onlyIf(number && areFlags(d.choices, *number), number.value_or(0));
    }
    case PropertyKind::Color:
        return onlyIf(as<Color>(value), value);
    case PropertyKind::Font:
        return onlyIf(as<VXFont>(value), value);
    case PropertyKind::File:
        if (const auto text = textFrom(value))
            return std::filesystem::path(utf8FromWide(*text));
        return onlyIf(as<std::filesystem::path>(value), value);
    case PropertyKind::Date: {
        const auto* const date = as<std::chrono::year_month_day>(value);
        return onlyIf(date && date->ok(), value);
    }
    case PropertyKind::User:
        return onlyIf(TypeInfo::of(value) == d.type, value);
    case PropertyKind::Group:
        break;
    }
    return {};
}

std::wstring PropertyType::textOfKept(const any& kept) const
{
    using namespace PropertyTexts;
    if (!kept.has_value())
        return {};
    switch (m_data->kind) {
    case PropertyKind::Bool:
        return *as<bool>(kept) ? L"true" : L"false";
    case PropertyKind::Integer:
        return ofInteger(*as<long long>(kept));
    case PropertyKind::Double:
        return ofDouble(*as<double>(kept), m_data->decimals);
    case PropertyKind::Text:
        return *as<std::wstring>(kept);
    case PropertyKind::MultilineText:
        return escaped(*as<std::wstring>(kept));
    case PropertyKind::Enumeration:
        return std::ranges::find(m_data->choices, *as<long long>(kept), &PropertyChoice::value)
            ->name;
    case PropertyKind::Flags:
        return ofFlags(m_data->choices, *as<long long>(kept));
    case PropertyKind::Color:
        return wideFromUtf8(as<Color>(kept)->toText());
    case PropertyKind::Font:
        return ofFont(*as<VXFont>(kept));
    case PropertyKind::File:
        return wideFromUtf8(as<std::filesystem::path>(kept)->native());
    case PropertyKind::Date:
        return ofDate(*as<std::chrono::year_month_day>(kept));
    case PropertyKind::User:
        return m_data->type.convertToUString(kept);
    case PropertyKind::Group:
        break;
    }
    return {};
}

any PropertyType::valueOf(const std::wstring& text) const
{
    using namespace PropertyTexts;
    switch (m_data->kind) {
    case PropertyKind::Bool:
        return TypeInfo::of<bool>().convertFromUString(text);
    case PropertyKind::Integer:
        return accepted(TypeInfo::of<long long>().convertFromUString(text));
    case PropertyKind::Double:
        return accepted(TypeInfo::of<double>().convertFromUString(text));
    case PropertyKind::Text:
        return text;
    case PropertyKind::MultilineText:
        return unescaped(text);
    case PropertyKind::Enumeration: {
        const auto found = std::ranges::find(m_data->choices, text, &PropertyChoice::name);
        return found == m_data->choices.end() ? any() : any(found->value);
    }
    case PropertyKind::Flags:
        return toAny(flagsFrom(m_data->choices, text));
    case PropertyKind::Color:
        return toAny(Color::fromText(utf8FromWide(text)));
    case PropertyKind::Font:
        return toAny(fontFrom(text));
    case PropertyKind::File:
        return accepted(text);
    case PropertyKind::Date:
        return toAny(dateFrom(text));
    case PropertyKind::User:
        return m_data->type.convertFromUString(text);
    case PropertyKind::Group:
        break;
    }
    return {};
}

bool PropertyType::areEqual(const any& a, const any& b) const
{
    switch (m_data->kind) {
    case PropertyKind::Group:
        return true;
    case PropertyKind::User:
        return textOf(a) == textOf(b);
    default:
        return same<bool>(a, b) || same<long long>(a, b) || same<double>(a, b)
               || same<std::wstring>(a, b) || same<Color>(a, b) || same<VXFont>(a, b)
               || same<std::filesystem::path>(a, b) || same<std::chrono::year_month_day>(a, b);
    }
}

std::wstring PropertyType::wish() const
{
    const Data& d = *m_data;
    switch (d.kind) {
    case PropertyKind::Integer:
        return translated("A whole number from %1 to %2 is wanted.",
                          {std::to_wstring(d.leastInteger), std::to_wstring(d.greatestInteger)});
    case PropertyKind::Double:
        return translated("A number from %1 to %2 is wanted.",
                          {PropertyTexts::ofDouble(d.leastDouble, -1),
                           PropertyTexts::ofDouble(d.greatestDouble, -1)});
    case PropertyKind::Bool:
        return translated("\"true\" or \"false\" is wanted.");
    case PropertyKind::Enumeration:
    case PropertyKind::Flags:
        return translated("That is no choice.");
    case PropertyKind::Color:
        return translated("A colour is wanted, as \"#ff8000\" or \"#ff8000ff\".");
    case PropertyKind::Font:
        return translated("A font is wanted, as \"Sans Serif, 9, bold, italic, underline\".");
    case PropertyKind::Date:
        return translated("A date is wanted, as \"2026-11-22\".");
    case PropertyKind::User:
        return translated("This is no %1.", {wideFromUtf8(d.type.name())});
    default:
        return {};
    }
}

} // namespace VOXI
