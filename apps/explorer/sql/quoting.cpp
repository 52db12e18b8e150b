#include "sql/quoting.h"

#include "sql/error.h"
#include "sql/text.h"

#include <cmath>

namespace SQL {

namespace {

std::string quoted(std::string_view text, char quote)
{
    std::string result(1, quote);
    result.reserve(text.size() + 2);
    for (char each : text) {
        if (each == quote)
            result += quote;
        result += each;
    }
    return result += quote;
}

} // namespace

std::string quoteName(std::string_view name)
{
    if (name.find('\0') != std::string_view::npos)
        throw Error(Error::Kind::Other, "a name with a NUL byte cannot be used in SQL");
    return quoted(name, '"');
}

std::string quoteValue(const Value& value)
{
    if (isNull(value))
        return "NULL";
    if (const auto* number = std::get_if<double>(&value); number && !std::isfinite(*number))
        return std::isnan(*number) ? "NULL" : *number > 0 ? "9e999" : "-9e999";
    const auto* text = std::get_if<std::string>(&value);
    if (!text)
        return textOf(value);
    if (text->find('\0') != std::string::npos || !isUtf8(*text))
        return "CAST(" + bytesText(*text) + " AS TEXT)";
    return quoted(*text, '\'');
}

} // namespace SQL
