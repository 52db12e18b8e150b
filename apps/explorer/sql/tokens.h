#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace SQL {

enum class TokenKind { Keyword, String, Number, Comment, Identifier, Operator, Variable };

/// A part of a line, in units of the text that was given. Between tokens is space.
struct Token
{
    std::size_t begin = 0;
    std::size_t length = 0;
    TokenKind kind = TokenKind::Identifier;

    friend bool operator==(const Token&, const Token&) = default;
};

/// What a line begins within: what its predecessor has left open. A line that ends in the state
/// that it ended in before needs no colouring of those after it.
enum class LineState { None, Comment, String, DoubleQuoted, Backquoted, Bracketed };

struct LineTokens
{
    std::vector<Token> tokens;
    LineState state = LineState::None; ///< for the next line
};

/// Of one line, or of any text. Any thread.
LineTokens tokenize(std::string_view line, LineState state = LineState::None);
LineTokens tokenize(std::wstring_view line, LineState state = LineState::None);

/// All keywords, in capitals and in order.
const std::vector<std::string_view>& keywords();

} // namespace SQL
