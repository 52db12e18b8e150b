#pragma once

#include "sql/value.h"

#include <string>
#include <string_view>

namespace SQL {

/// In double quotes. Throws an `Error` for a name with a NUL, which no SQL text can hold.
std::string quoteName(std::string_view name);

/// As SQL reads it again exactly: text with a NUL or wrong UTF-8 as a cast of its bytes, infinite
/// numbers as 9e999.
std::string quoteValue(const Value& value);

} // namespace SQL
