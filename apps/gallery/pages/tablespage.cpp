#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/controls/vxspinbox2.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <memory>

namespace gallery {

using namespace VOXI;

namespace {

enum Column : unsigned { Name = 1, Done, Count, Kind, Link, Open };

void fill(VXTableModel2& model)
{
    const CellUIData done = CellUIData(true).setReadOnly(false).setRenderer(CellRenderer::CheckBox);
    const CellUIData count = CellUIData(0).setReadOnly(false).setAlignment(
        AlignmentFlag::Right | AlignmentFlag::VCenter);
    const CellUIData kind = CellUIData("").setRenderer(CellRenderer::ComboBox);
    const CellUIData open = CellUIData("Open").setReadOnly(false).setRenderer(CellRenderer::Button);
    const std::vector<std::string> planets{"Mercury", "Venus",  "Earth",  "Mars",
                                           "Jupiter", "Saturn", "Uranus", "Neptune"};
    for (std::size_t i = 0; i < planets.size(); ++i) {
        const int moons[] = {0, 0, 1, 2, 95, 146, 28, 16};
        CellUIData name(planets[i]);
        if (i == 2)
            name.setBold().setBackground(PadColor).setForeground(InkColor).setToolTip(
                "That is here");
        model.appendRow({name, CellUIData(done).setValue(i % 2 == 0),
                         CellUIData(count).setValue(moons[i]),
                         CellUIData(kind).setValue(i < 4 ? "rock" : "gas"),
                         CellUIData("about " + planets[i])
                             .setRenderer(CellRenderer::HyperLink)
                             .setForeground(NoteColor),
                         open});
    }
    const unsigned last = model.appendRow({"Pluto", done, count, kind, "no planet", open});
    for (const unsigned column : {Name, Done, Count, Kind, Link, Open})
        model.setCell(last, column, model.cell(last, column).setEnabled(false));
}

/// Answers what the user wants to edit: the check box by turning it round, numbers by a spin box.
void edit(VXTableView2& table, VXTableModel2& model, EventLog& log)
{
    auto* const spin = new VXSpinBox2(&table);
    spin->hide();
    spin->setRange({0, 999});
    table.editRequested().connect(&log, [=, &model, &log](const VXEditRequestEvent2& event) {
        const unsigned row = event.row();
        const unsigned column = event.column();
        if (column == Count) {
            spin->setValue(std::stoi(model.value(row, column).textU()));
            event.view()->setEditor(row, column, spin);
            return;
        }
        if (column == Done)
            model.setValue(row, column, !model.value(row, column).toBool());
        else
            log.add("open row " + std::to_string(row));
        event.view()->setEditor(row, column, nullptr); // there is nothing to wait for
    });
    table.editCompleted().connect(&log, [=, &model](const VXEditCompleteEvent2& event) {
        if (event.isCommitted() && event.editor() == spin)
            model.setValue(event.row(), event.column(), spin->value());
    });
}

void report(VXTableView2& table, VXTableModel2& model, EventLog& log)
{
    table.headerClicked().connect(&log, [&model, &log](const VXHeaderClickEvent2& event) {
        model.setSorting(event.column(), event.order());
        event.view()->setSortIndicator(event.column(), event.order());
        log.add("sorted by column " + std::to_string(event.column()));
    });
    table.selectionChanged().connect(&log, [&log](const VXViewSelectionChangeEvent2& event) {
        log.add("selected: " + std::to_string(event.numberOfCells()) + " cells");
    });
    table.cellContextMenu().connect(&log, [&log](const VXCellContextMenuEvent2& event) {
        log.add("context menu of row " + std::to_string(event.cell().row));
    });
    table.columnMoved().connect(&log, [&log](const VXColumnMoveEvent2& event) {
        log.add("column " + std::to_string(event.column()) + " moved to place "
                + std::to_string(event.to()));
    });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* const model =
        new VXTableModel2({"Name", "Seen", "Moons", "Kind", "More", "Button"}, page.panel);
    fill(*model);
    auto* const table = new VXTableView2(page.panel);
    table->setAccessibleName("Planets");
    table->setObjectName("table");
    table->setViewModel(model);
    table->setHeaderClickable(true);
    table->setColumnMovable(true);
    table->setAlternatingRowColors(true);
    table->setEditTriggers(EditTrigger::DoubleClicked | EditTrigger::EditKeyPressed);
    table->setColumnResizeMode(Link, ColumnResizeMode::Stretch);
    table->setSelectionMode(SelectionMode::Extended);
    table->setMinimumSize({0, 320});
    edit(*table, *model, log);
    report(*table, *model, log);
    page.layout->addWidget(table, 1);

    const Box line = row(page);
    command(line, "Add a row", [=] {
        model->appendRow({"Another one", CellUIData(false).setReadOnly(false).setRenderer(
                                             CellRenderer::CheckBox)});
    });
    command(line, "Remove the selected ones", [=] {
        for (const unsigned row : table->selectedRows())
            model->removeRow(row);
    });
    command(line, "As they were made", [=] {
        model->setSorting(0);
        table->setSortIndicator(0);
    });
    const auto kept = std::make_shared<std::string>();
    command(line, "Keep the columns", [=] { *kept = table->saveHeaderState(); });
    command(line, "Restore them", [=] { table->restoreHeaderState(*kept); });
    command(line, "Copy", [=] { table->copySelection(); });
    line.layout->addStretch();
    return page.panel;
}

} // namespace

Page tablesPage()
{
    return {"tables", "Tables",
            "Cells drawn as controls, and edited with a widget of the program. A click on the "
            "header sorts; columns can be dragged; letters find a row.",
            &create};
}

} // namespace gallery
