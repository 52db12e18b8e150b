#pragma once

#include "voxi_util/voxi_util_export.h"

#include <string>
#include <string_view>

namespace VOXI {

/// What the bytes of a narrow text mean.
enum class NarrowTextEncoding { Latin1, Utf8 };

/// The encoding of narrow texts in this process; Latin-1 unless somebody set another, as `QtHost`
/// does: UTF-8 unless it is told otherwise.
VOXI_UTIL_EXPORT NarrowTextEncoding narrowTextEncoding() noexcept;

/// Chooses the encoding, before the first text is converted. Returns whether it is now the chosen
/// one: once it is locked it does not change any more. Any thread.
VOXI_UTIL_EXPORT bool setNarrowTextEncoding(NarrowTextEncoding encoding) noexcept;

/// Fixes the encoding for the rest of the process; texts already converted keep their meaning.
VOXI_UTIL_EXPORT void lockNarrowTextEncoding() noexcept;

/// Reads a narrow text in the process's encoding. Characters of value 0 pass through; in UTF-8
/// invalid bytes become U+FFFD.
VOXI_UTIL_EXPORT std::wstring wideFromNarrow(std::string_view text);

/// Writes a narrow text in the process's encoding. In Latin-1 a character above U+00FF becomes '?',
/// one for each of its UTF-16 units; in UTF-8 a lone surrogate becomes U+FFFD.
VOXI_UTIL_EXPORT std::string narrowFromWide(std::wstring_view text);

/// Joins surrogate pairs where wchar_t is wide enough. Lone surrogates pass through, so that any
/// UTF-16 text survives the way there and back.
VOXI_UTIL_EXPORT std::wstring wideFromUtf16(std::u16string_view text);

/// The reverse of wideFromUtf16; what is no Unicode character at all becomes U+FFFD.
VOXI_UTIL_EXPORT std::u16string utf16FromWide(std::wstring_view text);

/// Always UTF-8; lone surrogates become U+FFFD.
VOXI_UTIL_EXPORT std::string utf8FromWide(std::wstring_view text);

/// Always UTF-8; each ill-formed sequence becomes one U+FFFD.
VOXI_UTIL_EXPORT std::wstring wideFromUtf8(std::string_view text);

} // namespace VOXI
