#pragma once

#include "document.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

#include <functional>
#include <map>
#include <string>

namespace explorer {

/// The tree of what a file holds: databases, tables and views with their columns, indexes and
/// triggers.
class SchemaPane
{
public:
    explicit SchemaPane(VOXI::VXObject2* parent);

    VOXI::VXPanel2* panel() const noexcept { return m_panel; }
    VOXI::VXTreeView2* tree() const noexcept { return m_tree; }

    void show(const FileContents& contents);
    void clear();
    /// Of the first table, for a file that has just been opened; an empty name when there is none.
    const SQL::ObjectName& firstTable() const noexcept { return m_firstTable; }
    void select(const SQL::ObjectName& table);

    /// The user wants to see the rows of a table or view.
    std::function<void(const SQL::ObjectName&)> onTableChosen;

private:
    void addDatabase(const SQL::DatabaseInfo& info, const std::vector<TableDetails>& tables);
    void addTable(unsigned group, const TableDetails& table);
    unsigned addGroup(unsigned parent, const char* title, std::size_t count);

    VOXI::VXPanel2* const m_panel;
    VOXI::VXTreeModel2* const m_model;
    VOXI::VXTreeView2* const m_tree;
    std::map<unsigned, SQL::ObjectName> m_tables; ///< by their rows
    SQL::ObjectName m_firstTable;
};

} // namespace explorer
