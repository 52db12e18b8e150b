#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/modelview/vxexplorerbarview2.h"
#include "voxi2/modelview/vxtreemodel2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr Dots Sheet{0x7c, 0x46, 0x42, 0x42, 0x42, 0x42, 0x42, 0x7e};
constexpr Dots Bin{0x18, 0x7e, 0x00, 0x7e, 0x6a, 0x6a, 0x6a, 0x7e};
constexpr Dots House{0x18, 0x3c, 0x7e, 0xff, 0x42, 0x5a, 0x5a, 0x7e};
constexpr Dots Disk{0x7e, 0x5a, 0x5a, 0x42, 0x7e, 0x66, 0x66, 0x7e};

constexpr std::uint32_t Blue = 0x3a6ea5ff;
constexpr std::uint32_t Red = 0xb04038ff;
constexpr std::uint32_t Green = 0x3f8f4fff;

unsigned appendTask(VXTreeModel2& model, unsigned group, const std::string& name,
                    const Icon& picture, const std::string& toolTip)
{
    return model.appendRow(group, {CellUIData(name).setIcon(picture).setToolTip(toolTip)});
}

VXTreeModel2* tasks(VXObject2* parent)
{
    auto* const model = new VXTreeModel2({"Task"}, parent);
    const unsigned files = model->appendRow(0, {"File tasks"});
    appendTask(*model, files, "Make a new file", icon(Sheet, Green), "An empty one");
    appendTask(*model, files, "Copy this file", icon(Sheet, Blue), "To another place");
    const unsigned erase = appendTask(*model, files, "Erase this file", icon(Bin, Red), "For good");
    model->setCell(erase, 1, model->cell(erase, 1).setEnabled(false));
    const unsigned places = model->appendRow(0, {CellUIData("Other places").setBold()});
    appendTask(*model, places, "Home", icon(House, Blue), "Where all begins");
    appendTask(*model, places, "Disk", icon(Disk, Blue), "What is on it");
    const unsigned details = model->appendRow(0, {"Details"});
    model->appendRow(details, {"A text that is longer than the bar is wide ends in dots"});
    return model;
}

void watch(VXExplorerBarView2* bar, VXTreeModel2* model, EventLog& log)
{
    const auto add = [&log, model](const std::string& what, unsigned row) {
        const std::wstring name = model->value(row, 1).textU();
        log.add(what + ' ' + std::string(name.begin(), name.end()));
    };
    bar->activated().connect(
        &log, [add](const VXGroupViewActivateEvent2& event) { add("activated", event.row()); });
    bar->folded().connect(&log,
                          [add](const VXGroupFoldEvent2& event) { add("folded", event.row()); });
    bar->unfolded().connect(
        &log, [add](const VXGroupUnfoldEvent2& event) { add("unfolded", event.row()); });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    VXTreeModel2* const model = tasks(page.panel);
    auto* const bar = new VXExplorerBarView2(page.panel);
    bar->setAccessibleName("Tasks");
    bar->setObjectName("bar");
    bar->setViewModel(model);
    watch(bar, model, log);
    const Box line = row(page, 6);
    command(line, "Fold all", [bar] { bar->foldAll(); });
    command(line, "Unfold all", [bar] { bar->unfoldAll(); });
    command(line, "Add a task", [bar, model, n = 0]() mutable {
        const unsigned group = model->childRows(0).front();
        const unsigned task = model->appendRow(group, {"Task " + std::to_string(++n)});
        bar->scrollTo(task);
    });
    line.layout->addStretch();
    const Box beside = row(page, 6);
    bar->setMinimumSize({240, 300});
    beside.layout->addWidget(bar);
    comesLast(page, bar);
    beside.layout->addStretch();
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page explorerBarPage()
{
    return {"explorerbar", "Explorer bar",
            "Tasks of a program in groups that fold; each acts as a link.", &create};
}

} // namespace gallery
