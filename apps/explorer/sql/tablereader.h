#pragma once

#include "sql/editablerows.h"
#include "sql/ordersql.h"
#include "sql/rowreader.h"

#include <string>
#include <vector>

namespace SQL {

/// Rows of a table, each of them found by its key.
class TableReader : public RowReader, public EditableRows
{
public:
    std::uint64_t count(const CancelToken& token) override;
    std::vector<Row> read(const std::vector<unsigned>& rows,
                          const std::vector<std::size_t>& columns, std::size_t limit,
                          const CancelToken& token) override;
    void forEach(const RowOrder& order, const std::function<bool(const std::vector<Value>&)>& sink,
                 const CancelToken& token) override;

    std::string tableSql() const override { return m_table; }
    const std::vector<std::string>& keyNames() const override { return m_keyNames; }

protected:
    /// `names` are those of the columns in the table, not quoted; the keys' names are.
    TableReader(Database& database, ObjectName name, std::vector<ColumnInfo> columns,
                const std::vector<std::string>& names, std::vector<std::string> keyNames);

    /// Fills in the cells of a few hundred columns.
    virtual void readBlock(std::vector<Row>& rows, const std::vector<std::size_t>& columns,
                           std::size_t limit) = 0;
    /// By what all rows are read that an order has.
    virtual OrderSql sqlOf(const RowOrder& order) const = 0;

    std::string m_table; // quoted, as the next
    std::vector<std::string> m_quotedNames;
    std::vector<std::string> m_keyNames;
};

} // namespace SQL
