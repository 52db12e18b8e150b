#include "sql/editablerows.h"

#include "sql/ordersql.h"

namespace SQL {

EditableRows::EditableRows(Database& database)
    : m_editedDatabase(database),
      m_transaction(database.endedTransactions())
{}

void EditableRows::changeKey(const Key& from, const Key& to)
{
    if (from == to)
        return;
    updateKeys();
    applyKey(from, to);
    m_changes.emplace_back(from, to);
}

void EditableRows::undoKeyChanges(std::size_t left)
{
    for (; m_changes.size() > left; m_changes.pop_back())
        applyKey(m_changes.back().second, m_changes.back().first);
}

void EditableRows::updateKeys()
{
    if (m_editedDatabase.endedTransactions() == m_transaction)
        return;
    if (!m_editedDatabase.wasCommitted(m_transaction))
        undoKeyChanges(0);
    m_changes.clear();
    m_transaction = m_editedDatabase.endedTransactions();
}

std::string keyCondition(const std::vector<std::string>& names, std::size_t firstParameter)
{
    std::vector<std::string> conditions;
    for (const std::string& name : names)
        conditions.push_back(name + " = ?" + std::to_string(firstParameter++));
    return joined(conditions, " AND ");
}

} // namespace SQL
