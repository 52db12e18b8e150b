#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/modelview/vxpaletteview2.h"
#include "voxi2/modelview/vxtreemodel2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr Dots Box8{0xff, 0x81, 0x81, 0x81, 0x81, 0x81, 0x81, 0xff};
constexpr Dots Ball{0x3c, 0x42, 0x81, 0x81, 0x81, 0x81, 0x42, 0x3c};
constexpr Dots Cone{0x18, 0x18, 0x24, 0x24, 0x42, 0x42, 0x81, 0xff};
constexpr Dots Line{0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80};
constexpr Dots Arc{0x07, 0x18, 0x20, 0x40, 0x40, 0x80, 0x80, 0x80};
constexpr Dots Wave{0x00, 0x30, 0x48, 0x48, 0x89, 0x06, 0x00, 0x00};
constexpr std::uint32_t Blue = 0x3a6ea5ff;
constexpr std::uint32_t Orange = 0xc27a2cff;

VXTreeModel2* tools(VXObject2* parent)
{
    auto* const model = new VXTreeModel2({"Tool"}, parent);
    const auto append = [model](unsigned group, const std::string& name, const Dots& dots,
                                std::uint32_t color) {
        return model->appendRow(
            group, {CellUIData(name).setIcon(icon(dots, color)).setToolTip("Drag it away")});
    };
    const unsigned shapes = model->appendRow(0, {"Shapes"});
    append(shapes, "Box", Box8, Blue);
    append(shapes, "Ball", Ball, Blue);
    append(shapes, "Cone", Cone, Blue);
    const unsigned lines = model->appendRow(0, {"Lines"});
    append(lines, "Line", Line, Orange);
    append(lines, "Arc", Arc, Orange);
    const unsigned wave = append(lines, "Wave", Wave, Orange);
    model->setCell(wave, 1, model->cell(wave, 1).setEnabled(false));
    return model;
}

void watch(VXPaletteView2* palette, VXTreeModel2* model, EventLog& log)
{
    const auto name = [model](unsigned row) {
        const std::wstring text = model->value(row, 1).textU();
        return std::string(text.begin(), text.end());
    };
    palette->currentEntryChanged().connect(&log, [&log, name](const VXPaletteEntryEvent2& event) {
        log.add("current " + name(event.entry()));
    });
    palette->activated().connect(&log, [&log, name](const VXGroupViewActivateEvent2& event) {
        log.add("activated " + name(event.row()));
    });
    palette->entryDragged().connect(palette, [model](const VXPaletteDragEvent2& event) {
        VXMimeData2 data;
        data.setText(model->value(event.entry(), 1).textU());
        event.setMimeData(data);
    });
    palette->entryMoved().connect(palette, [model, &log, name](const VXPaletteMovedEvent2& event) {
        model->moveRow(event.entry(), event.group(), event.before());
        log.add("moved " + name(event.entry()));
    });
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 10);
    VXTreeModel2* const model = tools(page.panel);
    auto* const palette = new VXPaletteView2(page.panel);
    palette->setObjectName("palette");
    palette->setAccessibleName("Tools");
    palette->setViewModel(model);
    watch(palette, model, log);
    palette->setReorderable(true);
    alternatives(page, "Entries", {"in a grid", "in a list"}, 0, [palette](std::size_t i) {
        palette->setEntryLayout(i == 0 ? PaletteLayout::Grid : PaletteLayout::List);
    });
    alternatives(page, "Search", {"shown", "hidden"}, 0,
                 [palette](std::size_t i) { palette->setSearchVisible(i == 0); });
    const Box beside = row(page, 6);
    palette->setMinimumSize({240, 300});
    beside.layout->addWidget(palette);
    comesLast(page, palette);
    beside.layout->addStretch();
    page.layout->addStretch();
    return page.panel;
}

} // namespace

Page palettePage()
{
    return {
        "palette", "Palette",
        "Tools to choose from: look for one, drag it away as a text, or to another place; Alt and "
        "the arrow keys shift it.",
        &create};
}

} // namespace gallery
