#include "schemapane.h"

#include "icons.h"
#include "sql/text.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/controls/vxedit2.h"

#include <algorithm>

namespace explorer {

using namespace VOXI;

namespace {

/// Of tables with thousands only so many are worth a row.
constexpr std::size_t MostColumns = 500;

CellUIData entry(const std::string& name, Picture picture, const std::string& tip = {})
{
    CellUIData cell(SQL::wideFromUtf8(name));
    cell.setIcon(icon(picture));
    return tip.empty() ? cell : cell.setToolTip(SQL::wideFromUtf8(tip));
}

CellUIData detail(const std::string& text)
{
    return CellUIData(SQL::wideFromUtf8(text)).setForeground(Color(120, 126, 138));
}

} // namespace

SchemaPane::SchemaPane(VXObject2* parent)
    : m_panel(new VXPanel2(parent)),
      m_model(new VXTreeModel2({"Name", "Type"}, m_panel)),
      m_tree(new VXTreeView2(m_panel))
{
    m_tree->setObjectName("schema");
    m_tree->setViewModel(m_model);
    m_tree->setUniformRowHeights(true);
    m_tree->setColumnWidth(1, 170);
    m_tree->setSelectionBehavior(SelectionBehavior::Rows);
    m_tree->setSelectionMode(SelectionMode::Single);
    auto* const search = new VXEdit2(m_panel);
    search->setObjectName("schema-search");
    search->setPlaceholder("Search");
    search->setClearButtonVisible(true);
    auto* const rows = new VXBoxLayout2(m_panel, Direction::TopToBottom);
    rows->setMargins({4, 4, 4, 4});
    rows->setSpacing(4);
    rows->addWidget(search);
    rows->addWidget(m_tree, 1);

    search->textEdited().connect(m_panel, [this](const VXEditTextEvent2& event) {
        m_model->setFilterText(event.newText());
        if (!event.newText().empty())
            m_tree->expandAll();
    });
    const auto choose = [this](unsigned row) {
        if (const auto found = m_tables.find(row); found != m_tables.end() && onTableChosen)
            onTableChosen(found->second);
    };
    m_tree->selectionChanged().connect(m_panel, [choose](const VXViewSelectionChangeEvent2& event) {
        if (const std::vector<unsigned> chosen = event.rows(); !chosen.empty())
            choose(chosen.front());
    });
    m_tree->cellActivated().connect(
        m_panel, [choose](const VXViewCellEvent2& event) { choose(event.row()); });
}

void SchemaPane::show(const FileContents& contents)
{
    clear();
    for (const auto& [info, tables] : contents.databases)
        addDatabase(info, tables);
}

void SchemaPane::clear()
{
    m_model->clear();
    m_tables.clear();
    m_firstTable = {};
}

void SchemaPane::select(const SQL::ObjectName& table)
{
    for (const auto& [row, name] : m_tables) {
        if (name == table) {
            m_tree->setActiveCell({row, 1, nullptr});
            m_tree->clearSelection();
            m_tree->selectRows({row});
        }
    }
}

void SchemaPane::addDatabase(const SQL::DatabaseInfo& info, const std::vector<TableDetails>& tables)
{
    const unsigned top = m_model->appendRow(0, {entry(info.name, Picture::Sample, info.file)});
    const std::pair<SQL::ObjectKind, const char*> kinds[] = {
        {SQL::ObjectKind::Table, "Tables"},
        {SQL::ObjectKind::View, "Views"},
        {SQL::ObjectKind::Index, "Indexes"},
        {SQL::ObjectKind::Trigger, "Triggers"}};
    for (const auto& [kind, title] : kinds) {
        const auto isOfKind = [kind = kind](const TableDetails& each) {
            return each.object.kind == kind;
        };
        const auto count = std::count_if(tables.begin(), tables.end(), isOfKind);
        if (count == 0)
            continue;
        const unsigned group = addGroup(top, title, static_cast<std::size_t>(count));
        for (const TableDetails& table : tables) {
            if (isOfKind(table))
                addTable(group, table);
        }
        if (kind == SQL::ObjectKind::Table || kind == SQL::ObjectKind::View)
            m_tree->setRowExpanded(group, true);
    }
    m_tree->setRowExpanded(top, true);
}

void SchemaPane::addTable(unsigned group, const TableDetails& table)
{
    const SQL::SchemaObject& object = table.object;
    if (object.kind == SQL::ObjectKind::Index || object.kind == SQL::ObjectKind::Trigger) {
        const bool isIndex = object.kind == SQL::ObjectKind::Index;
        m_model->appendRow(group, {entry(object.name.name,
                                         isIndex ? Picture::Index : Picture::Trigger, object.sql),
                                   detail("of " + object.table)});
        return;
    }
    const bool isView = object.kind == SQL::ObjectKind::View;
    const unsigned row =
        m_model->appendRow(group, {entry(object.name.name, isView ? Picture::View : Picture::Table,
                                         table.failure.empty() ? object.sql : table.failure),
                                   detail(!table.failure.empty()  ? "fails"
                                          : object.isVirtual      ? "virtual"
                                          : object.isWithoutRowId ? "no row ids"
                                                                  : "")});
    m_tables[row] = object.name;
    if (m_firstTable.name.empty() && !object.isSystem)
        m_firstTable = object.name;
    const std::size_t shown = std::min(table.columns.size(), MostColumns);
    for (std::size_t i = 0; i < shown; ++i) {
        const SQL::ColumnInfo& column = table.columns[i];
        m_model->appendRow(
            row, {entry(column.name, column.primaryKey > 0 ? Picture::Key : Picture::Column),
                  detail(column.type + (column.isNotNull ? " not null" : ""))});
    }
    if (shown < table.columns.size())
        m_model->appendRow(row, {"and " + std::to_string(table.columns.size() - shown) + " more"});
}

unsigned SchemaPane::addGroup(unsigned parent, const char* title, std::size_t count)
{
    return m_model->appendRow(parent, {CellUIData(title).setBold(), detail(std::to_string(count))});
}

} // namespace explorer
