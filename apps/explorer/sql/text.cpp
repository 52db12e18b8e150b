#include "sql/text.h"

#include <algorithm>

namespace SQL {

namespace {

constexpr char32_t Replacement = 0xFFFD;

struct Decoded
{
    char32_t character;
    std::size_t length;
    bool isRight;
};

/// The character that a text which is not empty begins with; a wrong byte stands for one.
Decoded decode(std::string_view text) noexcept
{
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byte(0);
    if (first < 0x80)
        return {first, 1, true};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return {Replacement, 1, false};
    char32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0) != 0x80)
            return {Replacement, 1, false};
        character = character << 6 | (byte(at) & 0x3FU);
    }
    const bool isTooLong = (length == 3 && character < 0x800)
                           || (length == 4 && (character < 0x10000 || character > 0x10FFFF));
    if (isTooLong || (character >= 0xD800 && character < 0xE000))
        return {Replacement, 1, false};
    return {character, length, true};
}

void append(std::string& text, char32_t character)
{
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
        character = Replacement;
    if (character < 0x80) {
        add(character);
        return;
    }
    if (character < 0x800) {
        add(0xC0 | character >> 6);
    } else if (character < 0x10000) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
    }
    add(0x80 | (character & 0x3F));
}

} // namespace

std::wstring wideFromUtf8(std::string_view text)
{
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const Decoded next = decode(text);
        wide += static_cast<wchar_t>(next.character);
        text.remove_prefix(next.length);
    }
    return wide;
}

std::string utf8FromWide(std::wstring_view text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (wchar_t character : text)
        append(narrow, static_cast<char32_t>(character));
    return narrow;
}

bool isUtf8(std::string_view text) noexcept
{
    while (!text.empty()) {
        const Decoded next = decode(text);
        if (!next.isRight)
            return false;
        text.remove_prefix(next.length);
    }
    return true;
}

std::string repairedUtf8(std::string_view text)
{
    std::string repaired;
    repaired.reserve(text.size());
    while (!text.empty()) {
        const Decoded next = decode(text);
        append(repaired, next.character);
        text.remove_prefix(next.length);
    }
    return repaired;
}

std::size_t cutUtf8(std::string_view text, std::size_t limit) noexcept
{
    if (text.size() <= limit)
        return text.size();
    std::size_t end = limit;
    // A character has no more than three bytes behind its first one.
    for (; end > 0 && limit - end < 3; --end)
        if ((static_cast<unsigned char>(text[end]) & 0xC0) != 0x80)
            return end;
    return (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80 ? end : limit;
}

} // namespace SQL
