#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace SQL {

/// Bytes that are no text.
struct Blob
{
    std::string bytes;

    friend bool operator==(const Blob&, const Blob&) = default;
};

/// What a cell holds: NULL, a whole number, a number, a text (UTF-8 as it stands in the file, which
/// may be wrong, with NUL bytes), or bytes.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

inline bool isNull(const Value& value) noexcept
{
    return std::holds_alternative<std::monostate>(value);
}

/// What is read of a cell to be shown in a row.
struct Cell
{
    /// Of texts and bytes no more than was asked for, texts cut between characters.
    Value value;
    /// How many bytes the whole text or blob has; 0 for the others.
    std::int64_t size = 0;
    /// Whether `value` is not all of it.
    bool isCut = false;
};

/// As text: NULL is empty, bytes are `x'0102'`, numbers are such that they are read the same again.
std::string textOf(const Value& value);

/// `x'0102'`
std::string bytesText(std::string_view bytes);
/// The number that all of a text is, space around it aside.
std::optional<Value> numberFromText(std::string_view text);

/// What a user typed, as a column of the declared type would have it: a number when it reads as one
/// and the type asks for one (INTEGER, REAL, NUMERIC ..., or none), `x'0102'` as bytes where the
/// type is BLOB; otherwise the text.
Value valueFromText(const std::string& text, const std::string& declaredType);

} // namespace SQL
