#include "sql/tableeditor.h"

#include "sql/editablerows.h"
#include "sql/ordersql.h"
#include "sql/quoting.h"
#include "sql/statement.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace SQL {

/// What is not yet committed.
class TableEditor::Changes
{
public:
    Changes(Database& database, EditableRows& rows)
        : m_database(database),
          m_rows(rows),
          m_transaction(database.endedTransactions())
    {}

    EditableRows& rows() noexcept { return m_rows; }

    /// Forgets what a transaction, which has ended by now, has taken along.
    void update()
    {
        if (m_database.endedTransactions() == m_transaction)
            return;
        m_cells.clear();
        m_inserted.clear();
        m_deleted.clear();
        m_transaction = m_database.endedTransactions();
    }

    /// Does something in a savepoint of its own, inside the transaction.
    void edit(const std::function<void()>& change)
    {
        update();
        const bool isFirst = !m_database.isInTransaction();
        m_database.begin();
        const std::size_t keyChanges = m_rows.keyChanges();
        try {
            m_database.execute("SAVEPOINT explorer_edit");
            change();
            m_database.execute("RELEASE explorer_edit");
        } catch (...) {
            undo(isFirst, keyChanges);
            throw;
        }
    }

    std::set<ChangedCell> m_cells;
    std::set<unsigned> m_inserted;
    std::set<unsigned> m_deleted;

private:
    /// Some faults have ended the transaction already, and all changes with it.
    void undo(bool isFirst, std::size_t keyChanges)
    {
        if (!m_database.isInTransaction()) {
            update();
            return;
        }
        m_rows.undoKeyChanges(keyChanges);
        if (isFirst)
            m_database.rollBack();
        else
            m_database.execute("ROLLBACK TO explorer_edit; RELEASE explorer_edit");
        update();
    }

    Database& m_database;
    EditableRows& m_rows;
    std::size_t m_transaction; // the number that ours has or will have
};

namespace {

int parameterAfter(const std::vector<std::string>& names)
{
    return static_cast<int>(names.size()) + 1;
}

void bindKey(Statement& statement, const EditableRows::Key& key)
{
    for (std::size_t i = 0; i < key.size(); ++i)
        statement.bind(static_cast<int>(i + 1), key[i]);
}

} // namespace

TableEditor::TableEditor(std::shared_ptr<RowReader> reader) : m_reader(std::move(reader))
{
    auto* rows = dynamic_cast<EditableRows*>(m_reader.get());
    if (!rows || !m_reader->isEditable())
        throw Error(Error::Kind::ReadOnly, "the rows of this cannot be changed");
    m_changes = std::make_unique<Changes>(m_reader->database(), *rows);
}

TableEditor::~TableEditor() = default;

void TableEditor::setCell(unsigned row, std::size_t column, const Value& value)
{
    EditableRows& rows = m_changes->rows();
    m_changes->update();
    const auto key = rows.keyOf(row);
    if (!key || column >= m_reader->columns().size())
        throw Error(Error::Kind::Other, "there is no such cell");
    m_changes->edit([&] {
        const int parameter = parameterAfter(rows.keyNames());
        Statement update(m_reader->database(), "UPDATE " + rows.tableSql() + " SET "
                                                   + quoteName(m_reader->columns()[column].name)
                                                   + " = ?" + std::to_string(parameter) + " WHERE "
                                                   + keyCondition(rows.keyNames()) + " RETURNING "
                                                   + joined(rows.keyNames()));
        bindKey(update, *key);
        update.bind(parameter, value);
        if (!update.step())
            throw Error(Error::Kind::Other,
                        "the row was not changed: it is not there any more, or a trigger kept it");
        const EditableRows::Key newKey = update.values();
        update.run();
        rows.changeKey(*key, newKey);
    });
    if (!m_changes->m_inserted.contains(row))
        m_changes->m_cells.insert({row, column});
}

unsigned TableEditor::insertRow(const std::vector<std::pair<std::size_t, Value>>& cells)
{
    EditableRows& rows = m_changes->rows();
    std::vector<std::string> names;
    std::vector<std::string> parameters;
    for (const auto& [column, value] : cells) {
        if (column >= m_reader->columns().size())
            throw Error(Error::Kind::Other, "there is no such column");
        names.push_back(quoteName(m_reader->columns()[column].name));
        parameters.push_back("?" + std::to_string(names.size()));
    }
    const std::string values = cells.empty()
                                   ? " DEFAULT VALUES"
                                   : " (" + joined(names) + ") VALUES (" + joined(parameters) + ")";
    unsigned row = 0;
    m_changes->edit([&] {
        Statement insert(m_reader->database(), "INSERT INTO " + rows.tableSql() + values
                                                   + " RETURNING " + joined(rows.keyNames()));
        for (std::size_t i = 0; i < cells.size(); ++i)
            insert.bind(static_cast<int>(i + 1), cells[i].second);
        if (!insert.step())
            throw Error(Error::Kind::Other, "the row was not inserted: a trigger kept it");
        const EditableRows::Key key = insert.values();
        insert.run();
        row = rows.rowOf(key);
    });
    m_changes->m_deleted.erase(row);
    m_changes->m_inserted.insert(row);
    return row;
}

void TableEditor::deleteRows(const std::vector<unsigned>& numbers, const CancelToken& token)
{
    EditableRows& rows = m_changes->rows();
    std::vector<unsigned> deleted;
    m_changes->edit([&] {
        // Not in a scope: a statement that is stopped while it changes something would have the
        // database roll back the whole transaction.
        Statement remove(m_reader->database(), "DELETE FROM " + rows.tableSql() + " WHERE "
                                                   + keyCondition(rows.keyNames())
                                                   + " RETURNING 1");
        for (unsigned number : numbers) {
            if (token.isCancelled())
                throw Error(Error::Kind::Cancelled, "cancelled");
            const auto key = rows.keyOf(number);
            if (!key)
                continue;
            bindKey(remove, *key);
            if (!remove.step())
                continue;
            remove.run(); // to its end, where foreign keys are looked at
            deleted.push_back(number);
        }
    });
    for (unsigned number : deleted) {
        auto& cells = m_changes->m_cells;
        cells.erase(cells.lower_bound({number, 0}),
                    cells.upper_bound({number, static_cast<std::size_t>(-1)}));
        if (m_changes->m_inserted.erase(number) == 0)
            m_changes->m_deleted.insert(number);
    }
}

std::vector<TableEditor::ChangedCell> TableEditor::changedCells() const
{
    m_changes->update();
    return {m_changes->m_cells.begin(), m_changes->m_cells.end()};
}

std::vector<unsigned> TableEditor::insertedRows() const
{
    m_changes->update();
    return {m_changes->m_inserted.begin(), m_changes->m_inserted.end()};
}

std::vector<unsigned> TableEditor::deletedRows() const
{
    m_changes->update();
    return {m_changes->m_deleted.begin(), m_changes->m_deleted.end()};
}

bool TableEditor::isChanged(unsigned row, std::size_t column) const
{
    m_changes->update();
    return m_changes->m_cells.contains({row, column});
}

bool TableEditor::isInserted(unsigned row) const
{
    m_changes->update();
    return m_changes->m_inserted.contains(row);
}

bool TableEditor::hasChanges() const
{
    m_changes->update();
    return !(m_changes->m_cells.empty() && m_changes->m_inserted.empty()
             && m_changes->m_deleted.empty());
}

} // namespace SQL
