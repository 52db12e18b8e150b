#include "sql/copiedreader.h"

#include "sql/ordersql.h"
#include "sql/quoting.h"

#include <algorithm>
#include <utility>

namespace SQL {

/// The rows in the order in which they are copied, which is that of their numbers.
class CopiedReader::Listing : public RowListing
{
public:
    Listing(CopiedReader& reader, const CancelToken& token) : m_reader(reader), m_token(token) {}

    std::vector<unsigned> next(std::size_t most) override
    {
        std::vector<unsigned> rows;
        if (m_isDone)
            return rows;
        m_reader.copyUpTo(m_next + most, m_token);
        while (rows.size() < most && m_next < m_reader.m_copied)
            rows.push_back(static_cast<unsigned>(++m_next));
        m_isDone = m_reader.m_isComplete && m_next >= m_reader.m_copied;
        return rows;
    }
    bool isDone() const noexcept override { return m_isDone; }

private:
    CopiedReader& m_reader;
    const CancelToken m_token;
    std::uint64_t m_next = 0;
    bool m_isDone = false;
};

CopiedReader::CopiedReader(Database& database, ObjectName name, std::vector<ColumnInfo> columns)
    : RowReader(database, std::move(name)),
      m_isOfStatement(false)
{
    m_columns = std::move(columns);
    begin();
}

CopiedReader::CopiedReader(Database& database, std::vector<ColumnInfo> columns)
    : RowReader(database, {"", ""}),
      m_isOfStatement(true)
{
    m_columns = std::move(columns);
    begin();
    m_isBegun = m_isComplete = true;
}

void CopiedReader::begin()
{
    m_source = {};
    m_insert = {};
    m_copy.reset();
    m_scratch = Database::scratch();
    m_isBegun = m_isComplete = false;
    m_copied = 0;

    RowIdReader::Source source{m_columns, {}, "rowid"};
    std::vector<std::string> parameters;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        source.names.push_back("c" + std::to_string(i));
        parameters.push_back("?");
    }
    m_scratch->execute("CREATE TABLE copy(" + joined(source.names) + ")");
    m_insert = Statement(*m_scratch, "INSERT INTO copy VALUES(" + joined(parameters) + ")");
    m_copy =
        std::make_unique<RowIdReader>(*m_scratch, ObjectName{"main", "copy"}, std::move(source));
}

void CopiedReader::add(const Statement& row)
{
    const int count = std::min(row.columnCount(), static_cast<int>(m_columns.size()));
    for (int column = 0; column < count; ++column)
        m_insert.bindColumn(column + 1, row, column);
    m_insert.run();
    ++m_copied;
}

void CopiedReader::copyUpTo(std::uint64_t rows, const CancelToken& token)
{
    const CancelScope scope(*m_database, token);
    if (!std::exchange(m_isBegun, true))
        m_source = Statement(*m_database, "SELECT * FROM " + quoteName(m_name.database) + "."
                                              + quoteName(m_name.name));
    try {
        while (!m_isComplete && m_copied < rows) {
            m_isComplete = !m_source.step();
            if (!m_isComplete)
                add(m_source);
        }
    } catch (const Error&) {
        begin(); // what follows would not fit what is there
        throw;
    }
    if (m_isComplete)
        m_source = {};
}

std::unique_ptr<RowListing> CopiedReader::list(const RowOrder& order, const CancelToken& token)
{
    const bool isNatural =
        order.column >= m_columns.size() && !order.isDescending
        && std::all_of(order.filters.begin(), order.filters.end(),
                       [](const ColumnFilter& filter) { return filter.text.empty(); });
    if (isNatural)
        return std::make_unique<Listing>(*this, token);
    copyAll(token);
    return m_copy->list(order, token);
}

std::uint64_t CopiedReader::count(const CancelToken& token)
{
    copyAll(token);
    return m_copied;
}

std::vector<RowReader::Row> CopiedReader::read(const std::vector<unsigned>& rows,
                                               const std::vector<std::size_t>& columns,
                                               std::size_t limit, const CancelToken& token)
{
    return m_copy->read(rows, columns, limit, token);
}

Value CopiedReader::cell(unsigned row, std::size_t column, const CancelToken& token)
{
    return m_copy->cell(row, column, token);
}

std::string CopiedReader::bytes(unsigned row, std::size_t column, std::int64_t offset,
                                std::size_t size)
{
    return m_copy->bytes(row, column, offset, size);
}

void CopiedReader::forEach(const RowOrder& order,
                           const std::function<bool(const std::vector<Value>&)>& sink,
                           const CancelToken& token)
{
    copyAll(token);
    m_copy->forEach(order, sink, token);
}

void CopiedReader::refresh()
{
    if (!m_isOfStatement)
        begin();
}

} // namespace SQL
