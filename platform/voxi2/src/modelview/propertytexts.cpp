#include "propertytexts.h"

#include "voxi_util/textencoding.h"
#include "voxi_util/typeinfo.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

namespace VOXI::PropertyTexts {

namespace {

std::wstring trimmed(const std::wstring& text)
{
    const auto first = text.find_first_not_of(L' ');
    return first == std::wstring::npos
               ? std::wstring()
               : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::vector<std::wstring> parts(const std::wstring& text, wchar_t separator)
{
    std::vector<std::wstring> result;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        result.push_back(trimmed(text.substr(start, end - start)));
        if (end == std::wstring::npos)
            return result;
        start = end + 1;
    }
}

void append(std::wstring& text, const std::wstring& part, const wchar_t* separator)
{
    if (!text.empty())
        text += separator;
    text += part;
}

std::optional<int> numberFrom(const std::wstring& text)
{
    const any value = TypeInfo::of<int>().convertFromUString(text);
    const int* const number = std::any_cast<int>(&value);
    return number ? std::optional(*number) : std::nullopt;
}

struct NamedWeight
{
    const wchar_t* m_name;
    int m_weight;
};
constexpr NamedWeight Weights[] = {{L"light", VXFont::Light},
                                   {L"normal", VXFont::Normal},
                                   {L"demibold", VXFont::DemiBold},
                                   {L"bold", VXFont::Bold},
                                   {L"black", VXFont::Black}};
constexpr std::wstring_view WeightPrefix = L"weight ";

std::wstring ofWeight(int weight)
{
    const auto* const found = std::ranges::find(Weights, weight, &NamedWeight::m_weight);
    return found == std::end(Weights) ? std::wstring(WeightPrefix) + std::to_wstring(weight)
                                      : found->m_name;
}

bool applyWeight(VXFont& font, const std::wstring& part)
{
    const auto* const found =
        std::ranges::find(Weights, std::wstring_view(part), &NamedWeight::m_name);
    if (found != std::end(Weights)) {
        font.setWeight(found->m_weight);
        return true;
    }
    if (!part.starts_with(WeightPrefix))
        return false;
    const auto weight = numberFrom(part.substr(WeightPrefix.size()));
    if (!weight || *weight < 0 || *weight > 99)
        return false;
    font.setWeight(*weight);
    return true;
}

bool applyToFont(VXFont& font, const std::wstring& part)
{
    if (part == L"italic")
        font.setStyle(FontStyle::Italic);
    else if (part == L"oblique")
        font.setStyle(FontStyle::Oblique);
    else if (part == L"underline")
        font.setUnderline(true);
    else if (const auto size = numberFrom(part); size && *size > 0 && font.pointSize() == 0)
        font.setPointSize(*size);
    else
        return applyWeight(font, part);
    return true;
}

} // namespace

std::wstring ofInteger(long long value)
{
    std::array<char, 24> buffer{};
    char* const end = buffer.data() + buffer.size();
    return std::wstring(buffer.data(), std::to_chars(buffer.data(), end, value).ptr);
}

std::wstring ofDouble(double value, int decimals)
{
    std::array<char, 400> buffer{};
    char* const end = buffer.data() + buffer.size();
    const auto written =
        decimals < 0 ? std::to_chars(buffer.data(), end, value)
                     : std::to_chars(buffer.data(), end, value, std::chars_format::fixed, decimals);
    return std::wstring(buffer.data(), written.ptr);
}

std::wstring escaped(const std::wstring& text)
{
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t each : text) {
        if (each == L'\n')
            result += L"\\n";
        else if (each == L'\\')
            result += L"\\\\";
        else
            result += each;
    }
    return result;
}

std::wstring unescaped(const std::wstring& text)
{
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t next = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (text[i] != L'\\' || (next != L'n' && next != L'\\')) {
            result += text[i];
            continue;
        }
        result += next == L'n' ? L'\n' : L'\\';
        ++i;
    }
    return result;
}

std::wstring ofFlags(const std::vector<PropertyChoice>& choices, long long value)
{
    std::wstring text;
    for (const PropertyChoice& choice : choices) {
        if (choice.value != 0 && (value & choice.value) == choice.value)
            append(text, choice.name, L" | ");
    }
    return text;
}

std::optional<long long> flagsFrom(const std::vector<PropertyChoice>& choices,
                                   const std::wstring& text)
{
    long long value = 0;
    if (trimmed(text).empty())
        return value;
    for (const std::wstring& part : parts(text, L'|')) {
        const auto found = std::ranges::find(choices, part, &PropertyChoice::name);
        if (found == choices.end())
            return {};
        value |= found->value;
    }
    return value;
}

std::wstring ofFont(const VXFont& font)
{
    std::wstring text = wideFromNarrow(font.family());
    if (font.pointSize() > 0)
        append(text, std::to_wstring(font.pointSize()), L", ");
    if (font.weight() != VXFont::Normal)
        append(text, ofWeight(font.weight()), L", ");
    if (font.style() != FontStyle::Normal)
        append(text, font.style() == FontStyle::Italic ? L"italic" : L"oblique", L", ");
    if (font.underline())
        append(text, L"underline", L", ");
    return text;
}

std::optional<VXFont> fontFrom(const std::wstring& text)
{
    VXFont font;
    bool isFirst = true;
    for (const std::wstring& part : parts(text, L',')) {
        // What stands first and is nothing else is the family.
        if (part.empty() ? !isFirst : !applyToFont(font, part)) {
            if (!isFirst)
                return {};
            font.setFamily(narrowFromWide(part));
        }
        isFirst = false;
    }
    return font;
}

std::wstring ofDate(std::chrono::year_month_day date)
{
    const auto padded = [](long long number, std::size_t width) {
        const std::wstring digits = std::to_wstring(number < 0 ? -number : number);
        const std::size_t zeros = width > digits.size() ? width - digits.size() : 0;
        return (number < 0 ? L"-" : L"") + std::wstring(zeros, L'0') + digits;
    };
    return padded(static_cast<int>(date.year()), 4) + L'-'
           + padded(static_cast<unsigned>(date.month()), 2) + L'-'
           + padded(static_cast<unsigned>(date.day()), 2);
}

std::optional<std::chrono::year_month_day> dateFrom(const std::wstring& text)
{
    using namespace std::chrono;
    const bool isNegative = text.starts_with(L'-');
    const std::vector<std::wstring> fields = parts(isNegative ? text.substr(1) : text, L'-');
    if (fields.size() != 3)
        return {};
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto number = numberFrom(fields[i]);
        if (!number || *number < 0 || *number > (i == 0 ? 32767 : 99))
            return {};
        numbers[i] = *number;
    }
    const year_month_day date = year(isNegative ? -numbers[0] : numbers[0])
                                / month(static_cast<unsigned>(numbers[1]))
                                / day(static_cast<unsigned>(numbers[2]));
    return date.ok() ? std::optional(date) : std::nullopt;
}

} // namespace VOXI::PropertyTexts
