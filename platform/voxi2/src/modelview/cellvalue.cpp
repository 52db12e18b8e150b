#include "voxi2/modelview/cellvalue.h"

#include <cwchar>
#include <optional>

namespace VOXI {

namespace {

template <class... Number>
std::optional<long double> numberAs(const any& value)
{
    std::optional<long double> result;
    const auto take = [&](const auto* number) {
        if (number)
            result = static_cast<long double>(*number);
        return number != nullptr;
    };
    static_cast<void>((take(std::any_cast<Number>(&value)) || ...));
    return result;
}

std::optional<long double> numberOf(const any& value)
{
    return numberAs<int, double, bool, long long, unsigned, long, unsigned long, unsigned long long,
                    float, short, unsigned short, char, signed char, unsigned char>(value);
}

} // namespace

std::wstring CellValue::textU() const { return TypeInfo::of(m_value).convertToUString(m_value); }

bool CellValue::toBool() const
{
    if (const auto number = numberOf(m_value))
        return *number != 0;
    const std::wstring text = textU();
    return !text.empty() && text != L"0" && text != L"false";
}

std::weak_ordering CellValue::compare(const CellValue& a, const CellValue& b)
{
    const auto texts = [](const std::wstring& one, const std::wstring& other) {
        return std::wcscoll(one.c_str(), other.c_str()) <=> 0;
    };
    const auto* const textA = std::any_cast<std::wstring>(&a.m_value);
    const auto* const textB = std::any_cast<std::wstring>(&b.m_value);
    if (textA && textB)
        return texts(*textA, *textB);
    if (a.isEmpty() || b.isEmpty())
        return b.isEmpty() <=> a.isEmpty();
    const auto numberA = numberOf(a.m_value);
    const auto numberB = numberOf(b.m_value);
    if (numberA && numberB) {
        // What is no number comes first, so that all have an order.
        const bool isNumberA = *numberA == *numberA;
        const bool isNumberB = *numberB == *numberB;
        if (!isNumberA || !isNumberB)
            return isNumberA <=> isNumberB;
        return *numberA < *numberB   ? std::weak_ordering::less
               : *numberB < *numberA ? std::weak_ordering::greater
                                     : std::weak_ordering::equivalent;
    }
    if (numberA || numberB)
        return numberB.has_value() <=> numberA.has_value();
    return texts(a.textU(), b.textU());
}

} // namespace VOXI
