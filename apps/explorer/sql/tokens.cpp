#include "sql/tokens.h"

#include <algorithm>
#include <array>
#include <string>

namespace SQL {

namespace {

template <class Char>
bool isDigit(Char each)
{
    return each >= '0' && each <= '9';
}

template <class Char>
bool isLetter(Char each)
{
    const bool isAscii = (each >= 'a' && each <= 'z') || (each >= 'A' && each <= 'Z');
    return isAscii || each == '_' || static_cast<std::make_unsigned_t<Char>>(each) >= 0x80;
}

template <class Char>
bool isSpace(Char each)
{
    return each == ' ' || (each >= '\t' && each <= '\r');
}

/// A quote that is open: what ends it.
struct Quote
{
    LineState state;
    char begin;
    char end;
    TokenKind kind;
};

constexpr std::array<Quote, 4> Quotes = {
    {{LineState::String, '\'', '\'', TokenKind::String},
     {LineState::DoubleQuoted, '"', '"', TokenKind::Identifier},
     {LineState::Backquoted, '`', '`', TokenKind::Identifier},
     {LineState::Bracketed, '[', ']', TokenKind::Identifier}}};

template <class Char>
class Tokenizer
{
public:
    using Text = std::basic_string_view<Char>;

    Tokenizer(Text line, LineState state) : m_line(line) { m_result.state = state; }

    LineTokens run()
    {
        continueOpen();
        while (m_at < m_line.size()) {
            if (isSpace(m_line[m_at]))
                ++m_at;
            else
                next();
        }
        return std::move(m_result);
    }

private:
    Char peek(std::size_t ahead = 0) const
    {
        return m_at + ahead < m_line.size() ? m_line[m_at + ahead] : Char(0);
    }

    void add(std::size_t begin, TokenKind kind)
    {
        if (m_at > begin)
            m_result.tokens.push_back({begin, m_at - begin, kind});
    }

    void continueOpen()
    {
        if (m_result.state == LineState::Comment)
            readComment(0, 0);
        for (const Quote& quote : Quotes)
            if (m_result.state == quote.state)
                readQuoted(0, quote);
    }

    void next()
    {
        const std::size_t begin = m_at;
        const Char first = peek();
        if (first == '-' && peek(1) == '-') {
            m_at = std::min(m_line.find(Char('\n'), m_at), m_line.size());
            add(begin, TokenKind::Comment);
            return;
        }
        if (first == '/' && peek(1) == '*') {
            readComment(begin, 2);
            return;
        }
        if ((first == 'x' || first == 'X') && peek(1) == '\'') {
            m_at += 2;
            readQuoted(begin, Quotes[0]);
            return;
        }
        for (const Quote& quote : Quotes)
            if (first == Char(quote.begin)) {
                ++m_at;
                readQuoted(begin, quote);
                return;
            }
        readPlain(begin, first);
    }

    void readPlain(std::size_t begin, Char first)
    {
        if (isDigit(first) || (first == '.' && isDigit(peek(1)))) {
            readNumber();
            add(begin, TokenKind::Number);
        } else if (isLetter(first)) {
            skipWord();
            add(begin, isKeyword(m_line.substr(begin, m_at - begin)) ? TokenKind::Keyword
                                                                     : TokenKind::Identifier);
        } else if (first == '?' || first == ':' || first == '@' || first == '$') {
            ++m_at;
            skipWord();
            add(begin, TokenKind::Variable);
        } else {
            ++m_at;
            add(begin, TokenKind::Operator);
        }
    }

    void skipWord()
    {
        while (m_at < m_line.size() && (isLetter(peek()) || isDigit(peek()) || peek() == '$'))
            ++m_at;
    }

    void readNumber()
    {
        const bool isHex = peek() == '0' && (peek(1) | 0x20) == 'x';
        for (++m_at; m_at < m_line.size(); ++m_at) {
            const Char each = peek();
            const bool isSign =
                !isHex && (each == '+' || each == '-') && (m_line[m_at - 1] | 0x20) == 'e';
            if (!isDigit(each) && !isLetter(each) && each != '.' && !isSign)
                return;
        }
    }

    void readComment(std::size_t begin, std::size_t skipped)
    {
        constexpr std::array<Char, 2> End = {Char('*'), Char('/')};
        const std::size_t end = m_line.find(End.data(), m_at + skipped, End.size());
        const bool isOpen = end == Text::npos;
        m_at = isOpen ? m_line.size() : end + End.size();
        m_result.state = isOpen ? LineState::Comment : LineState::None;
        add(begin, TokenKind::Comment);
    }

    /// From behind the quote that opens; one that stands twice is part of what is quoted.
    void readQuoted(std::size_t begin, const Quote& quote)
    {
        m_result.state = quote.state;
        for (; m_at < m_line.size(); ++m_at) {
            if (peek() != Char(quote.end))
                continue;
            if (peek(1) == Char(quote.end) && quote.begin == quote.end) {
                ++m_at;
                continue;
            }
            ++m_at;
            m_result.state = LineState::None;
            break;
        }
        add(begin, quote.kind);
    }

    static bool isKeyword(Text word)
    {
        if (word.size() > 20)
            return false;
        std::string capitals;
        for (Char each : word) {
            if (static_cast<std::make_unsigned_t<Char>>(each) >= 0x80)
                return false;
            capitals += static_cast<char>(each >= 'a' && each <= 'z' ? each - 32 : each);
        }
        const auto& all = keywords();
        return std::binary_search(all.begin(), all.end(), std::string_view(capitals));
    }

    const Text m_line;
    std::size_t m_at = 0;
    LineTokens m_result;
};

} // namespace

LineTokens tokenize(std::string_view line, LineState state)
{
    return Tokenizer<char>(line, state).run();
}

LineTokens tokenize(std::wstring_view line, LineState state)
{
    return Tokenizer<wchar_t>(line, state).run();
}

} // namespace SQL
