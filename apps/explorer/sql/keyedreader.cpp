#include "sql/keyedreader.h"

#include "sql/quoting.h"

#include <algorithm>
#include <map>
#include <utility>

namespace SQL {

namespace {

std::vector<std::string> namesOf(const std::vector<ColumnInfo>& columns)
{
    std::vector<std::string> names;
    for (const ColumnInfo& column : columns)
        names.push_back(column.name);
    return names;
}

/// Quoted, in the order of the key.
std::vector<std::string> keyNamesOf(const std::vector<ColumnInfo>& columns)
{
    std::map<int, std::string> keys;
    for (const ColumnInfo& column : columns) {
        if (column.primaryKey > 0)
            keys[column.primaryKey] = quoteName(column.name);
    }
    std::vector<std::string> names;
    for (const auto& [place, quoted] : keys)
        names.push_back(quoted);
    return names;
}

} // namespace

/// The statement stays open, and the table locked for writers, until all keys are there.
class KeyedReader::Listing : public RowListing
{
public:
    Listing(KeyedReader& reader, const RowOrder& order, const CancelToken& token)
        : m_reader(reader),
          m_order(reader.sqlOf(order)),
          m_statement(*reader.m_database, "SELECT " + joined(reader.m_keyNames) + " FROM "
                                              + reader.m_table + m_order.clauses),
          m_token(token)
    {
        m_order.bindTo(m_statement);
    }

    std::vector<unsigned> next(std::size_t most) override
    {
        std::vector<unsigned> rows;
        if (m_isDone || most == 0)
            return rows;
        const CancelScope scope(*m_reader.m_database, m_token);
        m_isDone = true; // should it fail
        while (rows.size() < most && m_statement.step())
            rows.push_back(m_reader.numberFrom(m_statement));
        m_isDone = rows.size() < most;
        return rows;
    }
    bool isDone() const noexcept override { return m_isDone; }

private:
    KeyedReader& m_reader;
    const OrderSql m_order;
    Statement m_statement;
    const CancelToken m_token;
    bool m_isDone = false;
};

KeyedReader::KeyedReader(Database& database, ObjectName name,
                         const std::vector<ColumnInfo>& columns)
    : TableReader(database, std::move(name), columns, namesOf(columns), keyNamesOf(columns)),
      m_scratch(Database::scratch())
{
    std::vector<std::string> copies;
    std::vector<std::string> parameters;
    for (std::size_t i = 0; i < m_keyNames.size(); ++i) {
        copies.push_back("k" + std::to_string(i));
        parameters.push_back("?" + std::to_string(i + 1));
    }
    const std::string all = joined(copies);
    m_scratch->execute("CREATE TABLE keys(" + all + ", UNIQUE(" + all + "))");
    m_insert =
        Statement(*m_scratch, "INSERT INTO keys VALUES(" + joined(parameters) + ") ON CONFLICT("
                                  + all + ") DO UPDATE SET k0 = k0 RETURNING rowid");
    m_find = Statement(*m_scratch, "SELECT " + all + " FROM keys WHERE rowid = ?1");
}

OrderSql KeyedReader::sqlOf(const RowOrder& order) const
{
    // Without a sorting the table stands in the order of its key anyway, be it a descending one.
    const bool isSorted = order.column < m_columns.size() || order.isDescending;
    return orderSql(order, m_columns, m_quotedNames,
                    isSorted ? m_keyNames : std::vector<std::string>());
}

unsigned KeyedReader::numberFrom(const Statement& row)
{
    for (int i = 0; i < row.columnCount(); ++i)
        m_insert.bindColumn(i + 1, row, i);
    m_insert.step();
    const auto number = static_cast<unsigned>(m_insert.integer(0));
    m_insert.reset();
    return number;
}

std::unique_ptr<RowListing> KeyedReader::list(const RowOrder& order, const CancelToken& token)
{
    updateKeys();
    return std::make_unique<Listing>(*this, order, token);
}

void KeyedReader::readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                            std::size_t limit)
{
    std::vector<std::string> cells;
    for (std::size_t column : columns)
        cells.push_back(column < m_columns.size() ? m_quotedNames[column] : "NULL");
    Statement statement(*m_database, "SELECT " + (cells.empty() ? "1" : joined(cells)) + " FROM "
                                         + m_table + " WHERE " + keyCondition(m_keyNames));
    for (Row& row : rows) {
        const std::optional<Key> key = keyOf(row.number);
        if (!key)
            continue;
        for (std::size_t i = 0; i < key->size(); ++i)
            statement.bind(static_cast<int>(i + 1), (*key)[i]);
        row.isThere = statement.step();
        for (std::size_t i = 0; row.isThere && i < columns.size(); ++i)
            row.cells.push_back(statement.cell(static_cast<int>(i), limit));
        statement.reset();
    }
}

Value KeyedReader::cell(unsigned row, std::size_t column, const CancelToken& token)
{
    auto rows = read({row}, {column}, static_cast<std::size_t>(-1), token);
    return rows[0].isThere ? std::move(rows[0].cells[0].value) : Value();
}

std::string KeyedReader::bytes(unsigned row, std::size_t column, std::int64_t offset,
                               std::size_t size)
{
    return partOf(cell(row, column, {}), offset, size);
}

std::optional<EditableRows::Key> KeyedReader::keyOf(unsigned row)
{
    updateKeys();
    m_find.bind(1, std::int64_t(row));
    std::optional<Key> key;
    if (m_find.step())
        key = m_find.values();
    m_find.reset();
    return key;
}

unsigned KeyedReader::rowOf(const Key& key)
{
    updateKeys();
    return numberOf(key);
}

unsigned KeyedReader::numberOf(const Key& key)
{
    for (std::size_t i = 0; i < key.size(); ++i)
        m_insert.bind(static_cast<int>(i + 1), key[i]);
    m_insert.step();
    const auto number = static_cast<unsigned>(m_insert.integer(0));
    m_insert.reset();
    return number;
}

void KeyedReader::applyKey(const Key& from, const Key& to)
{
    const unsigned number = numberOf(from);
    // A row that had the key, as it was known, has gone.
    std::vector<std::string> names;
    std::vector<std::string> settings;
    for (std::size_t i = 0; i < to.size(); ++i) {
        names.push_back("k" + std::to_string(i));
        settings.push_back(names.back() + " = ?" + std::to_string(i + 1));
    }
    Statement remove(*m_scratch, "DELETE FROM keys WHERE " + keyCondition(names));
    Statement change(*m_scratch, "UPDATE keys SET " + joined(settings)
                                     + " WHERE rowid = " + std::to_string(number));
    for (Statement* statement : {&remove, &change}) {
        for (std::size_t i = 0; i < to.size(); ++i)
            statement->bind(static_cast<int>(i + 1), to[i]);
        statement->run();
    }
}

} // namespace SQL
