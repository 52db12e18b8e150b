#include "voxi_util/textencoding.h"

#include <atomic>
#include <cstddef>
#include <type_traits>

namespace VOXI {
namespace {

constexpr char32_t replacement = 0xfffd;

// The encoding and its lock in one word, so that a set and a lock cannot cross.
constexpr unsigned utf8Bit = 1;
constexpr unsigned lockedBit = 2;
std::atomic<unsigned> encodingState{0};

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xd800 && c < 0xdc00; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xdc00 && c < 0xe000; }

/// Takes the next character; joins a surrogate pair, gives a lone surrogate as it is. Serves
/// UTF-16 and wide texts alike, since a wide text may hold pairs even where wchar_t has 32 bits.
template <class Char>
char32_t takeCharacter(std::basic_string_view<Char> text, std::size_t& position)
{
    using Unsigned = std::conditional_t<sizeof(Char) == 2, char16_t, char32_t>;
    const char32_t first = static_cast<Unsigned>(text[position++]);
    if (isHighSurrogate(first) && position < text.size()) {
        const char32_t second = static_cast<Unsigned>(text[position]);
        if (isLowSurrogate(second)) {
            ++position;
            return 0x10000 + ((first - 0xd800) << 10) + (second - 0xdc00);
        }
    }
    return first > 0x10ffff ? replacement : first;
}

template <class Char>
void appendUtf16(std::basic_string<Char>& text, char32_t c)
{
    if (c >= 0x10000) {
        text += static_cast<Char>(0xd800 + ((c - 0x10000) >> 10));
        text += static_cast<Char>(0xdc00 + ((c - 0x10000) & 0x3ff));
    } else {
        text += static_cast<Char>(c);
    }
}

void appendWide(std::wstring& text, char32_t c)
{
    if constexpr (sizeof(wchar_t) == 2)
        appendUtf16(text, c);
    else
        text += static_cast<wchar_t>(c);
}

void appendUtf8(std::string& text, char32_t c)
{
    const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xc0 | c >> 6);
        put(0x80 | (c & 0x3f));
    } else if (c < 0x10000) {
        put(0xe0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3f));
        put(0x80 | (c & 0x3f));
    } else {
        put(0xf0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3f));
        put(0x80 | (c >> 6 & 0x3f));
        put(0x80 | (c & 0x3f));
    }
}

/// Takes the next character of a UTF-8 text; of an ill-formed sequence it takes as much as could
/// have begun a good one, at least a byte.
char32_t takeUtf8(std::string_view text, std::size_t& position)
{
    const auto lead = static_cast<unsigned char>(text[position++]);
    if (lead < 0x80)
        return lead;
    if (lead < 0xc2 || lead > 0xf4)
        return replacement;
    const int followers = lead < 0xe0 ? 1 : lead < 0xf0 ? 2 : 3;
    // The second byte has narrower bounds after some leads: no overlong forms, no surrogates,
    // nothing above U+10FFFF.
    unsigned low = lead == 0xe0 ? 0xa0 : lead == 0xf0 ? 0x90 : 0x80;
    unsigned high = lead == 0xed ? 0x9f : lead == 0xf4 ? 0x8f : 0xbf;
    char32_t c = lead & (0x3fu >> followers);
    for (int i = 0; i < followers; ++i) {
        if (position == text.size())
            return replacement;
        const auto byte = static_cast<unsigned char>(text[position]);
        if (byte < low || byte > high)
            return replacement;
        ++position;
        c = c << 6 | (byte & 0x3fu);
        low = 0x80;
        high = 0xbf;
    }
    return c;
}

std::wstring wideFromLatin1(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (const char c : text)
        wide += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return wide;
}

std::string latin1FromWide(std::wstring_view text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = takeCharacter(text, i);
        if (c <= 0xff)
            narrow += static_cast<char>(c);
        else
            narrow.append(c < 0x10000 ? 1 : 2, '?');
    }
    return narrow;
}

} // namespace

NarrowTextEncoding narrowTextEncoding() noexcept
{
    return encodingState.load(std::memory_order_relaxed) & utf8Bit ? NarrowTextEncoding::Utf8
                                                                   : NarrowTextEncoding::Latin1;
}

bool setNarrowTextEncoding(NarrowTextEncoding encoding) noexcept
{
    const unsigned wanted = encoding == NarrowTextEncoding::Utf8 ? utf8Bit : 0;
    unsigned state = encodingState.load(std::memory_order_relaxed);
    while (!(state & lockedBit)) {
        if (encodingState.compare_exchange_weak(state, wanted, std::memory_order_relaxed))
            return true;
    }
    return (state & utf8Bit) == wanted;
}

void lockNarrowTextEncoding() noexcept
{
    encodingState.fetch_or(lockedBit, std::memory_order_relaxed);
}

std::wstring wideFromNarrow(std::string_view text)
{
    return narrowTextEncoding() == NarrowTextEncoding::Utf8 ? wideFromUtf8(text)
                                                            : wideFromLatin1(text);
}

std::string narrowFromWide(std::wstring_view text)
{
    return narrowTextEncoding() == NarrowTextEncoding::Utf8 ? utf8FromWide(text)
                                                            : latin1FromWide(text);
}

std::wstring wideFromUtf16(std::u16string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
        appendWide(wide, takeCharacter(text, i));
    return wide;
}

std::u16string utf16FromWide(std::wstring_view text)
{
    std::u16string utf16;
    utf16.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
        appendUtf16(utf16, takeCharacter(text, i));
    return utf16;
}

std::string utf8FromWide(std::wstring_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = takeCharacter(text, i);
        appendUtf8(utf8, isHighSurrogate(c) || isLowSurrogate(c) ? replacement : c);
    }
    return utf8;
}

std::wstring wideFromUtf8(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
        appendWide(wide, takeUtf8(text, i));
    return wide;
}

} // namespace VOXI
