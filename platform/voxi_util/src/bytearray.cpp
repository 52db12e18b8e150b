#include "voxi_util/bytearray.h"

#include <cstdint>

namespace VOXI {
namespace {

constexpr std::string_view base64Digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// -1 when the character is no digit.
int base64Value(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

/// -1 when the character is no digit.
int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

} // namespace

std::string ByteArray::toBase64() const
{
    std::string text;
    text.reserve((m_bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < m_bytes.size(); i += 3) {
        const std::size_t count = m_bytes.size() - i < 3 ? m_bytes.size() - i : 3;
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (k < count ? static_cast<unsigned char>(m_bytes[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? base64Digits[group >> (18 - 6 * k) & 0x3fu] : '=';
    }
    return text;
}

std::optional<ByteArray> ByteArray::fromBase64(std::string_view text)
{
    if (text.size() % 4 == 0) {
        for (int padding = 0; padding < 2 && text.ends_with('='); ++padding)
            text.remove_suffix(1);
    }
    if (text.size() % 4 == 1)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    std::uint32_t pending = 0;
    unsigned bits = 0;
    for (const char c : text) {
        const int value = base64Value(c);
        if (value < 0)
            return std::nullopt;
        pending = (pending << 6 | static_cast<std::uint32_t>(value)) & 0xfffu;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(pending >> bits & 0xffu);
        }
    }
    return ByteArray(std::move(bytes));
}

std::string ByteArray::toHex() const
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(m_bytes.size() * 2);
    for (const char c : m_bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4];
        text += digits[byte & 0xfu];
    }
    return text;
}

std::optional<ByteArray> ByteArray::fromHex(std::string_view text)
{
    if (text.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = hexValue(text[i]);
        const int low = hexValue(text[i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes += static_cast<char>(high << 4 | low);
    }
    return ByteArray(std::move(bytes));
}

} // namespace VOXI
