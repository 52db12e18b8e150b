#pragma once

#include "sql/database.h"
#include "sql/value.h"

#include <string>
#include <string_view>
#include <vector>

struct sqlite3_stmt;

namespace SQL {

/// What runs on a database in this scope is stopped by the token.
class CancelScope
{
public:
    CancelScope(Database& database, const CancelToken& token);
    ~CancelScope();
    CancelScope(const CancelScope&) = delete;
    CancelScope& operator=(const CancelScope&) = delete;

private:
    Database& m_database;
    const CancelToken* m_before;
};

/// One prepared statement. Columns are counted from 0, parameters from 1.
class Statement
{
public:
    Statement() = default;
    Statement(Database& database, std::string_view sql);
    /// The first statement of a text; `used` says how much of the text that is. Null (`isNull`)
    /// when there is only space or a comment.
    Statement(Database& database, std::string_view text, std::size_t& used);
    ~Statement();
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;

    bool isNull() const noexcept { return !m_handle; }
    /// Whether there is a row; throws.
    bool step();
    /// Until there are no more rows.
    void run();
    void reset() noexcept;

    /// The value must live until the next binding or the statement's end.
    Statement& bind(int parameter, const Value& value);
    Statement& bind(int parameter, std::int64_t value);
    Statement& bindText(int parameter, std::string_view text);
    Statement& bindColumn(int parameter, const Statement& row, int column);

    int columnCount() const noexcept;
    std::string columnName(int column) const;
    std::string declaredType(int column) const;
    bool isNullAt(int column) const noexcept;
    std::int64_t integer(int column) const noexcept;
    std::string text(int column) const;
    Value value(int column) const;
    Cell cell(int column, std::size_t limit) const;
    /// Of the whole row.
    std::vector<Value> values() const;
    bool isReadOnly() const noexcept;

private:
    [[noreturn]] void fail(int code);
    std::string_view bytes(int column) const noexcept;

    Database* m_database = nullptr;
    sqlite3_stmt* m_handle = nullptr;
};

/// What a result code means; the message is the database's own.
Error errorOf(sqlite3* handle, int code);

} // namespace SQL
