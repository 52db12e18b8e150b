#pragma once

#include "sql/statement.h"
#include "sql/tablereader.h"

namespace SQL {

/// Rows of a table without row ids, found by their primary keys. Which number a key has is kept in
/// a scratch database, where its row id is the number.
class KeyedReader : public TableReader
{
public:
    KeyedReader(Database& database, ObjectName name, const std::vector<ColumnInfo>& columns);

    bool isEditable() const override { return true; }
    std::unique_ptr<RowListing> list(const RowOrder& order, const CancelToken& token) override;
    Value cell(unsigned row, std::size_t column, const CancelToken& token) override;
    std::string bytes(unsigned row, std::size_t column, std::int64_t offset,
                      std::size_t size) override;

    std::optional<Key> keyOf(unsigned row) override;
    unsigned rowOf(const Key& key) override;

private:
    void applyKey(const Key& from, const Key& to) override;
    class Listing;

    unsigned numberOf(const Key& key);
    unsigned numberFrom(const Statement& row);
    void readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                   std::size_t limit) override;
    OrderSql sqlOf(const RowOrder& order) const override;

    std::unique_ptr<Database> m_scratch;
    Statement m_insert;
    Statement m_find;
};

} // namespace SQL
