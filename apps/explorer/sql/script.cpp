#include "sql/script.h"

#include "sql/copiedreader.h"
#include "sql/statement.h"
#include "sql/tokens.h"

#include <algorithm>
#include <array>
#include <sqlite3.h>
#include <string_view>
#include <utility>

namespace SQL {

namespace {

/// Of the first word of a statement; empty when it begins with none.
std::string_view firstWord(std::string_view sql, LineTokens& tokens)
{
    tokens = tokenize(sql.substr(0, 1000));
    for (const Token& token : tokens.tokens)
        if (token.kind != TokenKind::Comment && token.kind != TokenKind::Operator)
            return sql.substr(token.begin, token.length);
    return {};
}

/// Whether it changes something, and may do so inside of a transaction.
bool isChange(const Statement& statement, std::string_view sql)
{
    constexpr std::array<const char*, 9> Others = {
        "BEGIN", "COMMIT", "END", "ROLLBACK", "PRAGMA", "VACUUM", "SAVEPOINT", "ATTACH", "DETACH"};
    if (statement.isReadOnly())
        return false;
    LineTokens tokens;
    const std::string word(firstWord(sql, tokens));
    return std::none_of(Others.begin(), Others.end(), [&](const char* other) {
        return sqlite3_stricmp(word.c_str(), other) == 0;
    });
}

class ScriptRunner
{
public:
    ScriptRunner(Database& database, const std::string& sql, const ScriptOptions& options,
                 const CancelToken& token)
        : m_database(database),
          m_sql(sql),
          m_options(options),
          m_token(token)
    {}

    /// None at the end.
    std::optional<StatementResult> next()
    {
        StatementResult result;
        result.begin = skipSpace(m_at);
        if (result.begin >= m_sql.size())
            return {};
        const auto start = std::chrono::steady_clock::now();
        std::size_t used = 0;
        try {
            const CancelScope scope(m_database, m_token);
            Statement statement = prepare(result.begin, used);
            result.sql = m_sql.substr(result.begin, used);
            if (statement.isNull())
                return {}; // only comments are left
            run(statement, result);
        } catch (Error& error) {
            if (result.sql.empty())
                result.sql = m_sql.substr(result.begin);
            if (error.position() >= 0)
                error.setPosition(error.position() + static_cast<int>(result.begin));
            result.error = std::move(error);
        }
        m_at = result.begin + used;
        result.duration = std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now() - start);
        return result;
    }

private:
    std::size_t skipSpace(std::size_t at) const
    {
        return std::min(m_sql.find_first_not_of(" \t\r\n\f;", at), m_sql.size());
    }

    Statement prepare(std::size_t begin, std::size_t& used)
    {
        const std::string_view rest = std::string_view(m_sql).substr(begin);
        if (rest.front() == '\0')
            throw Error(Error::Kind::Other, "there is a NUL byte in the text");
        return Statement(m_database, rest, used);
    }

    void run(Statement& statement, StatementResult& result)
    {
        const bool wasOpen = m_database.isInTransaction();
        const bool isFirst = !wasOpen && m_options.isHeldOpen && isChange(statement, result.sql);
        if (isFirst)
            m_database.begin();
        const std::int64_t before = sqlite3_total_changes64(m_database.handle());
        try {
            if (statement.columnCount() > 0)
                copyRows(statement, result);
            else
                statement.run();
        } catch (const Error& error) {
            if (isFirst)
                m_database.rollBack();
            if (!wasOpen || m_database.isInTransaction())
                throw;
            Error said(error.kind(),
                       std::string(error.what()) + " (all that was not committed is rolled back)");
            said.setColumns(error.columns());
            throw said;
        }
        result.changes = sqlite3_total_changes64(m_database.handle()) - before;
    }

    void copyRows(Statement& statement, StatementResult& result)
    {
        std::vector<ColumnInfo> columns;
        for (int i = 0; i < statement.columnCount(); ++i) {
            columns.emplace_back().name = statement.columnName(i);
            columns.back().type = statement.declaredType(i);
        }
        auto rows = std::make_shared<CopiedReader>(m_database, std::move(columns));
        result.rows = rows;
        while (statement.step()) {
            result.isLimited = rows->copied() >= m_options.rowLimit;
            if (!result.isLimited)
                rows->add(statement);
            else if (statement.isReadOnly())
                return; // others have something to do at their end
            result.rowCount = rows->copied();
        }
    }

    Database& m_database;
    const std::string& m_sql;
    const ScriptOptions& m_options;
    const CancelToken& m_token;
    std::size_t m_at = 0;
};

} // namespace

std::vector<StatementResult> runScript(Database& database, const std::string& sql,
                                       const ScriptOptions& options, const CancelToken& token,
                                       const std::function<void(const StatementResult&)>& observer)
{
    std::vector<StatementResult> results;
    ScriptRunner runner(database, sql, options, token);
    while (auto result = runner.next()) {
        results.push_back(std::move(*result));
        if (observer)
            observer(results.back());
        if (results.back().error)
            break;
    }
    return results;
}

} // namespace SQL
