#include "sql/tablereader.h"

#include "sql/quoting.h"
#include "sql/statement.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace SQL {

namespace {

/// The database has a limit for columns of a result, and some take two.
constexpr std::size_t ColumnsAtOnce = 500;

} // namespace

TableReader::TableReader(Database& database, ObjectName name, std::vector<ColumnInfo> columns,
                         const std::vector<std::string>& names, std::vector<std::string> keyNames)
    : RowReader(database, std::move(name)),
      EditableRows(database),
      m_table(quoteName(m_name.database) + "." + quoteName(m_name.name)),
      m_keyNames(std::move(keyNames))
{
    m_columns = std::move(columns);
    std::transform(names.begin(), names.end(), std::back_inserter(m_quotedNames),
                   [](const std::string& each) { return quoteName(each); });
}

std::uint64_t TableReader::count(const CancelToken& token)
{
    const Value count = m_database->scalar("SELECT count(*) FROM " + m_table, token);
    return static_cast<std::uint64_t>(std::get<std::int64_t>(count));
}

std::vector<RowReader::Row> TableReader::read(const std::vector<unsigned>& numbers,
                                              const std::vector<std::size_t>& columns,
                                              std::size_t limit, const CancelToken& token)
{
    const CancelScope scope(*m_database, token);
    std::vector<Row> rows;
    rows.reserve(numbers.size());
    for (unsigned number : numbers)
        rows.push_back({number, false, {}});
    for (std::size_t at = 0; at == 0 || at < columns.size(); at += ColumnsAtOnce) {
        const auto begin = columns.begin() + static_cast<std::ptrdiff_t>(at);
        const auto size = std::min(columns.size() - at, ColumnsAtOnce);
        readBlock(rows, {begin, begin + static_cast<std::ptrdiff_t>(size)}, limit);
    }
    return rows;
}

void TableReader::forEach(const RowOrder& order,
                          const std::function<bool(const std::vector<Value>&)>& sink,
                          const CancelToken& token)
{
    const CancelScope scope(*m_database, token);
    const OrderSql sql = sqlOf(order);
    Statement statement(*m_database,
                        "SELECT " + joined(m_quotedNames) + " FROM " + m_table + sql.clauses);
    sql.bindTo(statement);
    while (statement.step() && sink(statement.values())) {
    }
}

} // namespace SQL
