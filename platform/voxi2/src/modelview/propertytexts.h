#pragma once

#include "voxi2/modelview/propertytype.h"
#include "voxi_util/vxfont.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace VOXI::PropertyTexts {

std::wstring ofInteger(long long value);

/// As short as it reads back the same, or with so many decimals.
std::wstring ofDouble(double value, int decimals);

/// Line breaks as `\n`, backslashes doubled; and back, where other backslashes stand for
/// themselves.
std::wstring escaped(const std::wstring& text);
std::wstring unescaped(const std::wstring& text);

/// The names with " | " between them. Flags of which only a part is set are left out.
std::wstring ofFlags(const std::vector<PropertyChoice>& choices, long long value);
std::optional<long long> flagsFrom(const std::vector<PropertyChoice>& choices,
                                   const std::wstring& text);

/// "family, size, weight, style"; what is not wished for is left out.
std::wstring ofFont(const VXFont& font);
std::optional<VXFont> fontFrom(const std::wstring& text);

std::wstring ofDate(std::chrono::year_month_day date);
/// Only what is a day of the calendar.
std::optional<std::chrono::year_month_day> dateFrom(const std::wstring& text);

template <class T>
any toAny(const std::optional<T>& value)
{
    return value ? any(*value) : any();
}

} // namespace VOXI::PropertyTexts
