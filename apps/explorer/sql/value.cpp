#include "sql/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace SQL {

namespace {

std::string textOfNumber(double number)
{
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number).ptr;
    std::string text(buffer, end);
    // So that it is no whole number when it is read again.
    if (std::isfinite(number) && text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view Space = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(Space);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(Space) + 1 - begin);
}

template <class Number>
std::optional<Number> parse(std::string_view text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Number number{};
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || fault != std::errc() || end != text.data() + text.size())
        return {};
    return number;
}

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char small = static_cast<char>(digit | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

std::optional<Blob> parseBytes(std::string_view text)
{
    if (text.size() < 3 || (text[0] | 0x20) != 'x' || text[1] != '\'' || text.back() != '\''
        || text.size() % 2 == 0)
        return {};
    Blob blob;
    for (std::size_t at = 2; at + 1 < text.size(); at += 2) {
        const int high = hexDigit(text[at]);
        const int low = hexDigit(text[at + 1]);
        if (high < 0 || low < 0)
            return {};
        blob.bytes += static_cast<char>(high << 4 | low);
    }
    return blob;
}

/// Whether the type asks for text, by the rules that the database has for declared types.
bool isTextType(const std::string& type)
{
    return type.find("INT") == std::string::npos
           && (type.find("CHAR") != std::string::npos || type.find("CLOB") != std::string::npos
               || type.find("TEXT") != std::string::npos);
}

} // namespace

std::optional<Value> numberFromText(std::string_view text)
{
    text = trimmed(text);
    if (const auto whole = parse<std::int64_t>(text))
        return Value(*whole);
    if (const auto number = parse<double>(text); number && std::isfinite(*number))
        return Value(*number);
    return {};
}

std::string bytesText(std::string_view bytes)
{
    constexpr char Digits[] = "0123456789abcdef";
    std::string text = "x'";
    text.reserve(bytes.size() * 2 + 3);
    for (char each : bytes) {
        const auto byte = static_cast<unsigned char>(each);
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text += '\'';
}

std::string textOf(const Value& value)
{
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        return std::to_string(*whole);
    if (const auto* number = std::get_if<double>(&value))
        return textOfNumber(*number);
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* blob = std::get_if<Blob>(&value))
        return bytesText(blob->bytes);
    return {};
}

Value valueFromText(const std::string& text, const std::string& declaredType)
{
    std::string type = declaredType;
    std::transform(type.begin(), type.end(), type.begin(),
                   [](char each) { return each >= 'a' && each <= 'z' ? char(each - 32) : each; });
    if (isTextType(type))
        return text;
    if (type.empty() || type.find("BLOB") != std::string::npos)
        if (auto blob = parseBytes(trimmed(text)))
            return std::move(*blob);
    return numberFromText(text).value_or(Value(text));
}

} // namespace SQL
