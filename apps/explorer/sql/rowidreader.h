#pragma once

#include "sql/rownumbers.h"
#include "sql/statement.h"
#include "sql/tablereader.h"

#include <optional>

namespace SQL {

/// Rows of a table with row ids.
class RowIdReader : public TableReader
{
public:
    /// How a table is read.
    struct Source
    {
        std::vector<ColumnInfo> columns;
        std::vector<std::string> names; ///< of the columns in the table, not quoted
        std::string id;                 ///< the column of the row ids, quoted
        bool isEditable = true;
        bool isSeekable = true; ///< rows after an id are found quickly
    };

    RowIdReader(Database& database, ObjectName name, Source source);

    /// The name by which a table's row ids go, quoted; none when they cannot be got at.
    static std::optional<std::string> idName(Database& database, const ObjectName& table,
                                             const std::vector<ColumnInfo>& columns);

    bool isEditable() const override { return m_isEditable; }
    std::unique_ptr<RowListing> list(const RowOrder& order, const CancelToken& token) override;
    Value cell(unsigned row, std::size_t column, const CancelToken& token) override;
    std::string bytes(unsigned row, std::size_t column, std::int64_t offset,
                      std::size_t size) override;

    std::optional<Key> keyOf(unsigned row) override;
    unsigned rowOf(const Key& key) override;

private:
    void applyKey(const Key& from, const Key& to) override;
    std::optional<std::int64_t> idOf(unsigned row);
    bool isSortedByHand(const std::string& sql);
    void readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                   std::size_t limit) override;
    OrderSql sqlOf(const RowOrder& order) const override;
    Statement& statementFor(const std::vector<std::size_t>& columns);
    std::optional<std::string> seekBytes(std::int64_t id, std::size_t column, std::int64_t offset,
                                         std::size_t size);

    std::vector<std::string> m_names; // as the database has them
    bool m_isEditable;
    bool m_isSeekable;
    RowNumbers m_numbers;
    // What a view asks for is mostly the same again.
    std::vector<std::size_t> m_lastColumns;
    Statement m_last;
};

} // namespace SQL
