#pragma once

#include "sql/rowreader.h"

#include <memory>
#include <utility>
#include <vector>

namespace SQL {

/// Changes rows of a table, inside the transaction of its database, which the first change begins.
/// `Database::commit` and `rollBack` end it for all editors; those and SQL that ends it are
/// noticed.
///
/// Each change is a savepoint of its own: one that fails throws the database's message and leaves
/// all others. On the database's thread.
class TableEditor
{
public:
    /// Throws when the rows cannot be changed.
    explicit TableEditor(std::shared_ptr<RowReader> reader);
    ~TableEditor();

    /// `Error::columns` names the columns of a constraint. When the column is (of) the row's key,
    /// the row keeps its number.
    void setCell(unsigned row, std::size_t column, const Value& value);
    /// What is not given has its default. Returns the row's number.
    unsigned insertRow(const std::vector<std::pair<std::size_t, Value>>& cells = {});
    /// All or none. Rows that are not there are passed over.
    void deleteRows(const std::vector<unsigned>& rows, const CancelToken& token = {});

    struct ChangedCell
    {
        unsigned row;
        std::size_t column;

        friend auto operator<=>(const ChangedCell&, const ChangedCell&) = default;
    };
    /// What is not yet committed, each in order and once. A cell of an inserted row is no changed
    /// one.
    std::vector<ChangedCell> changedCells() const;
    std::vector<unsigned> insertedRows() const;
    std::vector<unsigned> deletedRows() const;
    bool isChanged(unsigned row, std::size_t column) const;
    bool isInserted(unsigned row) const;
    bool hasChanges() const;

private:
    class Changes;
    std::shared_ptr<RowReader> m_reader;
    std::unique_ptr<Changes> m_changes;
};

} // namespace SQL
