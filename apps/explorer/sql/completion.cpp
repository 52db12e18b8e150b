#include "sql/completion.h"

#include "sql/quoting.h"
#include "sql/text.h"
#include "sql/tokens.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <sqlite3.h>
#include <string_view>

namespace SQL {

namespace {

constexpr std::size_t MostCandidates = 500;

bool isSame(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && sqlite3_strnicmp(a.data(), b.data(), int(a.size())) == 0;
}

/// Letters beyond ASCII are compared as they are, as the database does it.
bool beginsWith(std::string_view name, std::string_view prefix)
{
    return name.size() >= prefix.size() && isSame(name.substr(0, prefix.size()), prefix);
}

bool isPlainName(const std::string& name)
{
    const LineTokens tokens = tokenize(std::string_view(name));
    return tokens.tokens.size() == 1 && tokens.tokens[0].kind == TokenKind::Identifier
           && tokens.tokens[0].length == name.size()
           && std::string_view("\"`[").find(name[0]) == std::string_view::npos;
}

/// What a token names: without its quotes.
std::string unquoted(std::string_view token)
{
    if (token.empty() || std::string_view("\"`[").find(token[0]) == std::string_view::npos)
        return std::string(token);
    const char end = token[0] == '[' ? ']' : token[0];
    std::string name;
    for (std::size_t at = 1; at < token.size(); ++at) {
        if (token[at] == end && (at + 1 == token.size() || token[at + 1] != end))
            break;
        at += token[at] == end ? 1 : 0;
        name += token[at];
    }
    return name;
}

class Completer
{
public:
    Completer(std::string_view text, std::size_t position, const Catalog& catalog)
        : m_text(text),
          m_position(std::min(position, text.size())),
          m_catalog(catalog),
          m_tokens(tokenize(text).tokens)
    {
        m_result.begin = m_position;
    }

    Completions run()
    {
        if (!findWord())
            return m_result;
        cutStatement();
        findTables();
        if (m_word > 0 && word(m_word - 1) == ".") {
            if (m_word > 1)
                addMembersOf(unquoted(word(m_word - 2)));
            return m_result;
        }
        if (!wantsTable())
            for (const auto& [alias, table] : m_named)
                addColumns(*table);
        for (const Catalog::Table& table : m_catalog.tables)
            add(table.name.name, CandidateKind::Table, table.name.database);
        addDatabases();
        if (!m_prefix.empty() && !m_isQuoted)
            for (std::string_view keyword : keywords())
                if (beginsWith(keyword, m_prefix))
                    append({std::string(keyword), CandidateKind::Keyword, ""});
        return m_result;
    }

private:
    std::string_view word(std::size_t token) const
    {
        return m_text.substr(m_tokens[token].begin, m_tokens[token].length);
    }
    bool isName(std::size_t token) const
    {
        return token < m_tokens.size() && m_tokens[token].kind == TokenKind::Identifier;
    }

    /// The token that the position is in or behind; false where nothing is to be completed.
    bool findWord()
    {
        while (m_word < m_tokens.size()
               && m_tokens[m_word].begin + m_tokens[m_word].length < m_position)
            ++m_word;
        if (m_word == m_tokens.size() || m_tokens[m_word].begin >= m_position)
            return true;
        const Token& token = m_tokens[m_word];
        switch (token.kind) {
        case TokenKind::Operator:
            ++m_word;
            return true;
        case TokenKind::Identifier:
        case TokenKind::Keyword:
            break;
        default:
            return false;
        }
        m_hasWord = true;
        m_result.begin = token.begin;
        const std::string_view typed = m_text.substr(token.begin, m_position - token.begin);
        m_isQuoted = unquoted(typed) != typed;
        m_prefix = unquoted(typed);
        return true;
    }

    /// Leaves the tokens of the statement around the word, and no comments.
    void cutStatement()
    {
        std::vector<Token> tokens;
        std::size_t index = 0;
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (i == m_word)
                index = tokens.size();
            if (word(i) == ";") {
                if (i >= m_word)
                    break;
                tokens.clear();
            } else if (m_tokens[i].kind != TokenKind::Comment) {
                tokens.push_back(m_tokens[i]);
            }
        }
        m_word = m_word < m_tokens.size() ? std::min(index, tokens.size()) : tokens.size();
        m_tokens = std::move(tokens);
    }

    const Catalog::Table* find(std::string_view name) const
    {
        for (const Catalog::Table& table : m_catalog.tables)
            if (isSame(table.name.name, name))
                return &table;
        return nullptr;
    }

    /// Each name in the statement that is one of a table, with the alias that follows it.
    void findTables()
    {
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (!isName(i) || (m_hasWord && i == m_word))
                continue;
            const std::string name = unquoted(word(i));
            const Catalog::Table* table = find(name);
            if (!table)
                continue;
            m_named.emplace(name, table);
            const bool hasAs = i + 1 < m_tokens.size() && isSame(word(i + 1), "AS");
            const std::size_t alias = i + (hasAs ? 2 : 1);
            if (isName(alias) && !(m_hasWord && alias == m_word))
                m_named.emplace(unquoted(word(alias)), table);
        }
    }

    bool wantsTable() const
    {
        constexpr std::array<std::string_view, 5> Before = {"FROM", "JOIN", "INTO", "UPDATE",
                                                            "TABLE"};
        return m_word > 0 && std::any_of(Before.begin(), Before.end(), [&](std::string_view each) {
                   return isSame(word(m_word - 1), each);
               });
    }

    void addMembersOf(const std::string& name)
    {
        for (const auto& [alias, table] : m_named)
            if (isSame(alias, name))
                addColumns(*table);
        for (const Catalog::Table& table : m_catalog.tables)
            if (isSame(table.name.database, name))
                add(table.name.name, CandidateKind::Table, table.name.database);
    }

    void addColumns(const Catalog::Table& table)
    {
        for (const std::string& column : table.columns)
            add(column, CandidateKind::Column, table.name.name);
    }

    void addDatabases()
    {
        std::set<std::string> databases;
        for (const Catalog::Table& table : m_catalog.tables)
            if (databases.insert(table.name.database).second)
                add(table.name.database, CandidateKind::Database, "");
    }

    void add(const std::string& name, CandidateKind kind, const std::string& detail)
    {
        const bool isUsable = !name.empty() && name.find('\0') == std::string::npos;
        if (isUsable && beginsWith(name, m_prefix))
            append({m_isQuoted || !isPlainName(name) ? quoteName(name) : name, kind, detail});
    }

    void append(Candidate candidate)
    {
        const bool isNew = m_seen.insert({candidate.text, candidate.detail}).second;
        if (isNew && m_result.candidates.size() < MostCandidates)
            m_result.candidates.push_back(std::move(candidate));
    }

    const std::string_view m_text;
    const std::size_t m_position;
    const Catalog& m_catalog;
    std::vector<Token> m_tokens;
    std::size_t m_word = 0; // the token that is being typed, or would stand at the position
    bool m_hasWord = false;
    bool m_isQuoted = false;
    std::string m_prefix;
    std::multimap<std::string, const Catalog::Table*> m_named;
    std::set<std::pair<std::string, std::string>> m_seen;
    Completions m_result;
};

} // namespace

Catalog catalogOf(Database& database)
{
    Catalog catalog;
    for (const DatabaseInfo& info : database.databases())
        for (const SchemaObject& object : database.schema(info.name).objects) {
            if (object.kind != ObjectKind::Table && object.kind != ObjectKind::View)
                continue;
            Catalog::Table& table = catalog.tables.emplace_back();
            table.name = object.name;
            try {
                for (const ColumnInfo& column : database.columns(object.name))
                    table.columns.push_back(column.name);
            } catch (const Error&) {
                // A view that fails may still be named, to be dropped.
            }
        }
    return catalog;
}

Completions complete(const std::string& text, std::size_t position, const Catalog& catalog)
{
    return Completer(text, position, catalog).run();
}

Completions complete(const std::wstring& text, std::size_t position, const Catalog& catalog)
{
    const std::wstring_view before =
        std::wstring_view(text).substr(0, std::min(position, text.size()));
    const std::string narrow = utf8FromWide(text);
    Completions result = complete(narrow, utf8FromWide(before).size(), catalog);
    result.begin = wideFromUtf8(std::string_view(narrow).substr(0, result.begin)).size();
    return result;
}

} // namespace SQL
