#include "sql/rowidreader.h"

#include "sql/numbersort.h"
#include "sql/quoting.h"
#include "sql/rowidlistings.h"

#include <algorithm>
#include <memory>
#include <sqlite3.h>

namespace SQL {

namespace {

/// Whether the declared type lets numbers be expected; others are found all the same.
bool isOfNumbers(const std::string& type)
{
    for (const char* part : {"%INT%", "%REAL%", "%FLOA%", "%DOUB%", "%NUM%", "%DEC%"})
        if (sqlite3_strlike(part, type.c_str(), 0) == 0)
            return true;
    return false;
}

bool isSameName(const std::string& a, const char* b) { return sqlite3_stricmp(a.c_str(), b) == 0; }

} // namespace

RowIdReader::RowIdReader(Database& database, ObjectName name, Source source)
    : TableReader(database, std::move(name), std::move(source.columns), source.names,
                  {std::move(source.id)}),
      m_names(std::move(source.names)),
      m_isEditable(source.isEditable),
      m_isSeekable(source.isSeekable)
{}

std::optional<std::string> RowIdReader::idName(Database& database, const ObjectName& table,
                                               const std::vector<ColumnInfo>& columns)
{
    const std::string from = " FROM " + quoteName(table.database) + "." + quoteName(table.name);
    for (const char* name : {"rowid", "_rowid_", "oid"}) {
        if (std::any_of(columns.begin(), columns.end(),
                        [&](const ColumnInfo& column) { return isSameName(column.name, name); }))
            continue;
        try {
            Statement(database, std::string("SELECT ") + name + from);
            return name;
        } catch (const Error&) {
            return {}; // the table has none, or is one that cannot be read at all
        }
    }
    return {};
}

std::optional<std::int64_t> RowIdReader::idOf(unsigned row)
{
    updateKeys();
    return m_numbers.idOf(row);
}

std::unique_ptr<RowListing> RowIdReader::list(const RowOrder& order, const CancelToken& token)
{
    updateKeys();
    const bool isSorted = order.column < m_columns.size() || order.isDescending;
    const OrderSql sql =
        orderSql(order, m_columns, m_quotedNames,
                 isSorted || m_isSeekable ? m_keyNames : std::vector<std::string>());
    const std::string& id = m_keyNames.front();
    if (!isSorted && !sql.hasFilter && m_isSeekable)
        return std::make_unique<GrowingRowIds>(*m_database, m_table, id, m_numbers, token);
    const std::string sorted = "SELECT " + id + " FROM " + m_table + sql.clauses;
    if (order.column < m_columns.size() && isOfNumbers(m_columns[order.column].type)
        && isSortedByHand(sorted)) {
        const OrderSql unsorted =
            orderSql({RowOrder::Natural, false, order.filters}, m_columns, m_quotedNames, {});
        return std::make_unique<NumberSortedRowIds>(
            *m_database,
            NumberSortedRowIds::Statements{"SELECT " + m_quotedNames[order.column] + ", " + id
                                               + " FROM " + m_table + unsorted.clauses,
                                           sorted},
            order.isDescending, sql, m_numbers, token);
    }
    return std::make_unique<SelectedRowIds>(*m_database, Statement(*m_database, sorted), sql,
                                            m_numbers, token);
}

/// Whether the database has no index that gives the rows in their order.
bool RowIdReader::isSortedByHand(const std::string& sql)
{
    Statement plan(*m_database, "EXPLAIN QUERY PLAN " + sql);
    bool isSorted = false;
    while (plan.step())
        isSorted |= plan.text(3).starts_with("USE TEMP B-TREE");
    return isSorted;
}

/// For each column its value, unless it is a blob over the limit; and the size of such a blob. Both
/// are told without reading the blob.
Statement& RowIdReader::statementFor(const std::vector<std::size_t>& columns)
{
    if (!m_last.isNull() && columns == m_lastColumns)
        return m_last;
    std::vector<std::string> cells;
    for (std::size_t column : columns) {
        if (column >= m_columns.size()) {
            cells.insert(cells.end(), {"NULL", "NULL"});
            continue;
        }
        const std::string& name = m_quotedNames[column];
        const std::string isLarge = "typeof(" + name + ") = 'blob' AND length(" + name + ") > ?2";
        cells.push_back("CASE WHEN " + isLarge + " THEN NULL ELSE " + name + " END");
        cells.push_back("CASE WHEN " + isLarge + " THEN length(" + name + ") END");
    }
    m_last = Statement(*m_database, "SELECT " + (cells.empty() ? "1" : joined(cells)) + " FROM "
                                        + m_table + " WHERE " + m_keyNames.front()
                                        + " = ?1 AND ?2 >= 0");
    m_lastColumns = columns;
    return m_last;
}

void RowIdReader::readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                            std::size_t limit)
{
    Statement& statement = statementFor(columns);
    for (Row& row : rows) {
        const std::optional<std::int64_t> id = idOf(row.number);
        if (!id)
            continue;
        statement.bind(1, *id).bind(2, static_cast<std::int64_t>(limit));
        row.isThere = statement.step();
        for (std::size_t i = 0; row.isThere && i < columns.size(); ++i) {
            const int at = static_cast<int>(2 * i);
            Cell& cell = row.cells.emplace_back(statement.cell(at, limit));
            if (statement.isNullAt(at + 1))
                continue;
            cell.size = statement.integer(at + 1);
            cell.isCut = true;
            cell.value = Blob{bytes(row.number, columns[i], 0, limit)};
        }
        statement.reset();
    }
}

Value RowIdReader::cell(unsigned row, std::size_t column, const CancelToken& token)
{
    const std::optional<std::int64_t> id = idOf(row);
    if (!id || column >= m_columns.size())
        return {};
    const CancelScope scope(*m_database, token);
    Statement statement(*m_database, "SELECT " + m_quotedNames[column] + " FROM " + m_table
                                         + " WHERE " + m_keyNames.front() + " = ?1");
    return statement.bind(1, *id).step() ? statement.value(0) : Value();
}

std::optional<std::string> RowIdReader::seekBytes(std::int64_t id, std::size_t column,
                                                  std::int64_t offset, std::size_t size)
{
    sqlite3_blob* opened = nullptr;
    const int code =
        sqlite3_blob_open(m_database->handle(), m_name.database.c_str(), m_name.name.c_str(),
                          m_names[column].c_str(), id, 0, &opened);
    const std::unique_ptr<sqlite3_blob, decltype(&sqlite3_blob_close)> blob(opened,
                                                                            &sqlite3_blob_close);
    if (code != SQLITE_OK)
        return {}; // a number, a generated column, a virtual table ...
    const std::int64_t all = sqlite3_blob_bytes(blob.get());
    const std::int64_t begin = std::clamp<std::int64_t>(offset, 0, all);
    std::string bytes(std::min(size, static_cast<std::size_t>(all - begin)), '\0');
    const int read = sqlite3_blob_read(blob.get(), bytes.data(), static_cast<int>(bytes.size()),
                                       static_cast<int>(begin));
    if (read != SQLITE_OK)
        throw errorOf(m_database->handle(), read);
    return bytes;
}

std::string RowIdReader::bytes(unsigned row, std::size_t column, std::int64_t offset,
                               std::size_t size)
{
    const std::optional<std::int64_t> id = idOf(row);
    if (!id || column >= m_columns.size())
        return {};
    // A text of a file in UTF-16 is not kept as we give it.
    if (m_database->hasUtf8())
        if (auto bytes = seekBytes(*id, column, offset, size))
            return *bytes;
    return partOf(cell(row, column, {}), offset, size);
}

OrderSql RowIdReader::sqlOf(const RowOrder& order) const
{
    return orderSql(order, m_columns, m_quotedNames, m_keyNames);
}

std::optional<EditableRows::Key> RowIdReader::keyOf(unsigned row)
{
    const std::optional<std::int64_t> id = idOf(row);
    return id ? std::optional(Key{*id}) : std::nullopt;
}

unsigned RowIdReader::rowOf(const Key& key)
{
    updateKeys();
    return m_numbers.numberOf(std::get<std::int64_t>(key.front()));
}

void RowIdReader::applyKey(const Key& from, const Key& to)
{
    m_numbers.rename(std::get<std::int64_t>(from.front()), std::get<std::int64_t>(to.front()));
}

} // namespace SQL
