#pragma once

#include "sql/database.h"
#include "sql/value.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace SQL {

/// What an editor needs to know of a reader: how a row is named in SQL.
class EditableRows
{
public:
    using Key = std::vector<Value>;

    virtual ~EditableRows() = default;
    EditableRows(const EditableRows&) = delete;
    EditableRows& operator=(const EditableRows&) = delete;

    /// Of the table, quoted.
    virtual std::string tableSql() const = 0;
    /// The columns that name a row, quoted.
    virtual const std::vector<std::string>& keyNames() const = 0;
    /// None for a number without a row, as far as that is known.
    virtual std::optional<Key> keyOf(unsigned row) = 0;
    virtual unsigned rowOf(const Key& key) = 0;

    /// A row has got another key, and keeps its number; until the transaction is rolled back.
    void changeKey(const Key& from, const Key& to);
    std::size_t keyChanges() const noexcept { return m_changes.size(); }
    /// Undoes the last ones, and leaves so many.
    void undoKeyChanges(std::size_t left);

protected:
    explicit EditableRows(Database& database);

    virtual void applyKey(const Key& from, const Key& to) = 0;
    /// To be called before keys are used: a transaction may have ended.
    void updateKeys();

private:
    Database& m_editedDatabase;
    std::size_t m_transaction; // the number that it has or will have
    std::vector<std::pair<Key, Key>> m_changes;
};

/// `"a" = ?1 AND "b" = ?2`, with parameters from the given one.
std::string keyCondition(const std::vector<std::string>& names, std::size_t firstParameter = 1);

} // namespace SQL
