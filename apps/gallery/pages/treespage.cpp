#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/modelview/vxtreemodel2.h"
#include "voxi2/modelview/vxtreeview2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr unsigned Number = 1;
constexpr int Digits = 10;

unsigned append(VXTreeModel2& model, unsigned parent, const std::string& number)
{
    int divisors = 0;
    for (int i = 1, n = std::stoi(number); i <= n; ++i)
        divisors += n % i == 0 ? 1 : 0;
    const unsigned row = model.appendRow(parent, {number, divisors});
    model.setHasChildren(row, number.size() < 5);
    return row;
}

/// The numbers that begin with that of the row.
void load(VXTreeModel2& model, unsigned row)
{
    if (!model.childRows(row).empty())
        return;
    const std::wstring text = model.value(row, Number).textU();
    for (int digit = 0; digit < Digits; ++digit)
        append(model, row, std::string(text.begin(), text.end()) + std::to_string(digit));
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    auto* const model = new VXTreeModel2({"Number", "Divisors"}, page.panel);
    for (int digit = 1; digit < Digits; ++digit)
        append(*model, 0, std::to_string(digit));
    auto* const tree = new VXTreeView2(page.panel);
    tree->setAccessibleName("Numbers and their divisors");
    tree->setObjectName("tree");
    tree->setViewModel(model);
    tree->setColumnWidth(Number, 200);
    tree->setSelectionMode(SelectionMode::Extended);
    tree->setHeaderClickable(true);
    tree->setMinimumSize({0, 320});
    page.layout->addWidget(tree, 1);
    tree->expanded().connect(&log, [=, &log](const VXTreeExpandEvent2& event) {
        load(*model, event.row());
        log.add("expanded row " + std::to_string(event.row()));
    });
    tree->collapsed().connect(&log, [&log](const VXTreeCollapseEvent2& event) {
        log.add("collapsed row " + std::to_string(event.row()));
    });
    tree->headerClicked().connect(&log, [=](const VXHeaderClickEvent2& event) {
        model->setSorting(event.column(), event.order());
        tree->setSortIndicator(event.column(), event.order());
    });

    const Box line = row(page);
    command(line, "Expand all that are there", [=] { tree->expandAll(); });
    command(line, "Collapse all", [=] { tree->collapseAll(); });
    command(line, "Scroll to the current one", [=] { tree->scrollTo(tree->activeCell()); });
    line.layout->addStretch();
    const unsigned second = model->childRows(0)[1];
    load(*model, second);
    tree->setRowExpanded(second, true);
    return page.panel;
}

} // namespace

Page treesPage()
{
    return {"trees", "Trees",
            "A row gets its children when it is expanded for the first time: here the numbers that "
            "begin with its own.",
            &create};
}

} // namespace gallery
