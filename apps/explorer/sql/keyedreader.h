#pragma once

#include "sql/editablerows.h"
#include "sql/ordersql.h"
#include "sql/rowreader.h"
#include "sql/statement.h"

namespace SQL {

/// Rows of a table without row ids, found by their primary keys. Which number a key has is kept in
/// a scratch database, where its row id is the number.
class KeyedReader : public RowReader, public EditableRows
{
public:
    KeyedReader(Database& database, ObjectName name, std::vector<ColumnInfo> columns);

    bool isEditable() const override { return true; }
    std::unique_ptr<RowListing> list(const RowOrder& order, const CancelToken& token) override;
    std::uint64_t count(const CancelToken& token) override;
    std::vector<Row> read(const std::vector<unsigned>& rows,
                          const std::vector<std::size_t>& columns, std::size_t limit,
                          const CancelToken& token) override;
    Value cell(unsigned row, std::size_t column, const CancelToken& token) override;
    std::string bytes(unsigned row, std::size_t column, std::int64_t offset,
                      std::size_t size) override;
    void forEach(const RowOrder& order, const std::function<bool(const std::vector<Value>&)>& sink,
                 const CancelToken& token) override;

    std::string tableSql() const override { return m_table; }
    const std::vector<std::string>& keyNames() const override { return m_keyNames; }
    std::optional<Key> keyOf(unsigned row) override;
    unsigned rowOf(const Key& key) override;

private:
    void applyKey(const Key& from, const Key& to) override;
    class Listing;

    OrderSql sqlOf(const RowOrder& order) const;
    unsigned numberOf(const Key& key);
    unsigned numberFrom(const Statement& row);
    void readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                   std::size_t limit);

    std::string m_table;
    std::vector<std::string> m_quotedNames;
    std::vector<std::string> m_keyNames;
    std::unique_ptr<Database> m_scratch;
    Statement m_insert;
    Statement m_find;
};

} // namespace SQL
