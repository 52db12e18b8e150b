#pragma once

#include <string>
#include <string_view>

namespace SQL {

/// What is no character (wrong UTF-8, an unpaired surrogate) is U+FFFD in the other encoding.
std::wstring wideFromUtf8(std::string_view text);
std::string utf8FromWide(std::wstring_view text);
bool isUtf8(std::string_view text) noexcept;
/// With U+FFFD for each byte that is wrong.
std::string repairedUtf8(std::string_view text);

/// The most bytes, up to a limit, after which a character of the text ends.
std::size_t cutUtf8(std::string_view text, std::size_t limit) noexcept;

} // namespace SQL
