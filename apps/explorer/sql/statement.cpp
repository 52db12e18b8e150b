#include "sql/statement.h"

#include "sql/text.h"

#include <algorithm>
#include <limits>
#include <sqlite3.h>
#include <utility>

namespace SQL {

namespace {

Error::Kind kindOf(int code)
{
    if (code == SQLITE_CANTOPEN_ISDIR)
        return Error::Kind::NotFound;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
        return Error::Kind::Busy;
    case SQLITE_CONSTRAINT:
        return Error::Kind::Constraint;
    case SQLITE_INTERRUPT:
        return Error::Kind::Cancelled;
    case SQLITE_READONLY:
        return Error::Kind::ReadOnly;
    case SQLITE_CORRUPT:
        return Error::Kind::Corrupt;
    case SQLITE_NOTADB:
        return Error::Kind::NotADatabase;
    case SQLITE_FULL:
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG:
        return Error::Kind::Full;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return Error::Kind::NotReadable;
    default:
        return Error::Kind::Other;
    }
}

/// From "UNIQUE constraint failed: orders.number, orders.year". The name of the table is the same
/// before each column and may hold any character, the names of columns as well: what is meant is
/// guessed where they hold a point or a comma.
std::vector<std::string> columnsNamedBy(const std::string& message)
{
    std::vector<std::string> columns;
    const std::size_t colon = message.find(" constraint failed: ");
    if (colon == std::string::npos
        || !(message.starts_with("UNIQUE") || message.starts_with("NOT NULL")))
        return columns;
    std::string rest = message.substr(colon + sizeof " constraint failed: " - 1);
    const std::string table = rest.substr(0, rest.find('.') + 1);
    if (table.empty())
        return columns;
    for (std::size_t at = 0; at < rest.size();) {
        const std::size_t next = rest.find(", " + table, at);
        const std::size_t begin = std::min(at + table.size(), rest.size());
        columns.push_back(rest.substr(begin, next == std::string::npos ? next : next - begin));
        at = next == std::string::npos ? rest.size() : next + 2;
    }
    return columns;
}

} // namespace

Error errorOf(sqlite3* handle, int code)
{
    const Error::Kind kind = kindOf(code);
    const bool isOfHandle = handle && sqlite3_extended_errcode(handle) == code;
    std::string message = isOfHandle ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    if (kind == Error::Kind::Busy)
        message += ": somebody else uses the file, try again";
    if (code == SQLITE_READONLY_ROLLBACK || code == SQLITE_READONLY_RECOVERY)
        message += ": a crash has left changes half made, which are undone when it is opened for"
                   " writing";
    Error error(kind, message);
    if (isOfHandle)
        error.setPosition(sqlite3_error_offset(handle));
    if (kind == Error::Kind::Constraint)
        error.setColumns(columnsNamedBy(message));
    return error;
}

CancelScope::CancelScope(Database& database, const CancelToken& token)
    : m_database(database),
      m_before(std::exchange(database.m_token, &token))
{
    if (!token.isCancelled())
        return;
    m_database.m_token = m_before;
    throw Error(Error::Kind::Cancelled, "cancelled");
}

CancelScope::~CancelScope() { m_database.m_token = m_before; }

Statement::Statement(Database& database, std::string_view sql) : m_database(&database)
{
    std::size_t used = 0;
    *this = Statement(database, sql, used);
}

Statement::Statement(Database& database, std::string_view text, std::size_t& used)
    : m_database(&database)
{
    const auto size = std::min<std::size_t>(text.size(), std::numeric_limits<int>::max() - 1);
    const char* end = nullptr;
    const int code = sqlite3_prepare_v3(database.handle(), text.data(), static_cast<int>(size), 0,
                                        &m_handle, &end);
    if (code != SQLITE_OK)
        fail(code);
    used = static_cast<std::size_t>(end - text.data());
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
    if (m_handle)
        m_database->noteTransaction();
}

Statement::Statement(Statement&& other) noexcept
    : m_database(other.m_database),
      m_handle(std::exchange(other.m_handle, nullptr))
{}

Statement& Statement::operator=(Statement&& other) noexcept
{
    std::swap(m_database, other.m_database);
    std::swap(m_handle, other.m_handle);
    return *this;
}

bool Statement::step()
{
    const int code = sqlite3_step(m_handle);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        fail(code);
    reset();
    return false;
}

void Statement::run()
{
    while (step()) {
    }
}

void Statement::reset() noexcept
{
    sqlite3_reset(m_handle);
    m_database->noteTransaction();
}

void Statement::fail(int code)
{
    Error error = errorOf(m_database->handle(), code);
    if (m_handle)
        reset();
    throw error;
}

Statement& Statement::bind(int parameter, const Value& value)
{
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<std::int64_t>(&value))
        code = sqlite3_bind_int64(m_handle, parameter, *whole);
    else if (const auto* number = std::get_if<double>(&value))
        code = sqlite3_bind_double(m_handle, parameter, *number);
    else if (const auto* text = std::get_if<std::string>(&value))
        code = sqlite3_bind_text64(m_handle, parameter, text->data(), text->size(), SQLITE_STATIC,
                                   SQLITE_UTF8);
    else if (const auto* blob = std::get_if<Blob>(&value))
        code = sqlite3_bind_blob64(m_handle, parameter, blob->bytes.data(), blob->bytes.size(),
                                   SQLITE_STATIC);
    else
        code = sqlite3_bind_null(m_handle, parameter);
    if (code != SQLITE_OK)
        fail(code);
    return *this;
}

Statement& Statement::bind(int parameter, std::int64_t value)
{
    return bind(parameter, Value(value));
}

Statement& Statement::bindText(int parameter, std::string_view text)
{
    const int code = sqlite3_bind_text64(m_handle, parameter, text.data(), text.size(),
                                         SQLITE_TRANSIENT, SQLITE_UTF8);
    if (code != SQLITE_OK)
        fail(code);
    return *this;
}

Statement& Statement::bindColumn(int parameter, const Statement& row, int column)
{
    const int code =
        sqlite3_bind_value(m_handle, parameter, sqlite3_column_value(row.m_handle, column));
    if (code != SQLITE_OK)
        fail(code);
    return *this;
}

int Statement::columnCount() const noexcept { return sqlite3_column_count(m_handle); }

std::string Statement::columnName(int column) const
{
    const char* name = sqlite3_column_name(m_handle, column);
    return name ? name : "";
}

std::string Statement::declaredType(int column) const
{
    const char* type = sqlite3_column_decltype(m_handle, column);
    return type ? type : "";
}

bool Statement::isNullAt(int column) const noexcept
{
    return sqlite3_column_type(m_handle, column) == SQLITE_NULL;
}

std::int64_t Statement::integer(int column) const noexcept
{
    return sqlite3_column_int64(m_handle, column);
}

std::string_view Statement::bytes(int column) const noexcept
{
    // Text is asked for as such first: a file in UTF-16 has it converted.
    const void* data = sqlite3_column_type(m_handle, column) == SQLITE_BLOB
                           ? sqlite3_column_blob(m_handle, column)
                           : sqlite3_column_text(m_handle, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_handle, column));
    return data ? std::string_view(static_cast<const char*>(data), size) : std::string_view();
}

std::string Statement::text(int column) const { return std::string(bytes(column)); }

Value Statement::value(int column) const
{
    return cell(column, std::numeric_limits<std::size_t>::max()).value;
}

Cell Statement::cell(int column, std::size_t limit) const
{
    Cell cell;
    switch (sqlite3_column_type(m_handle, column)) {
    case SQLITE_INTEGER:
        cell.value = std::int64_t(integer(column));
        break;
    case SQLITE_FLOAT:
        cell.value = sqlite3_column_double(m_handle, column);
        break;
    case SQLITE_TEXT: {
        const std::string_view all = bytes(column);
        cell.size = static_cast<std::int64_t>(all.size());
        cell.value = std::string(all.substr(0, cutUtf8(all, limit)));
        cell.isCut = all.size() > limit;
        break;
    }
    case SQLITE_BLOB: {
        const std::string_view all = bytes(column);
        cell.size = static_cast<std::int64_t>(all.size());
        cell.value = Blob{std::string(all.substr(0, limit))};
        cell.isCut = all.size() > limit;
        break;
    }
    default:
        break;
    }
    return cell;
}

std::vector<Value> Statement::values() const
{
    std::vector<Value> values;
    const int count = columnCount();
    values.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column)
        values.push_back(value(column));
    return values;
}

bool Statement::isReadOnly() const noexcept { return sqlite3_stmt_readonly(m_handle) != 0; }

} // namespace SQL
