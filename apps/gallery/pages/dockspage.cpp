#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxcheckbox2.h"
#include "voxi2/controls/vxtoolbar2.h"
#include "voxi2/kernel/vxaction2.h"

namespace gallery {

using namespace VOXI;

namespace {

const char* areaName(DockArea area)
{
    switch (area) {
    case DockArea::Left:
        return "left";
    case DockArea::Right:
        return "right";
    case DockArea::Top:
        return "top";
    case DockArea::Bottom:
        return "bottom";
    case DockArea::None:
        break;
    }
    return "none";
}

void watch(VXDockWidget2* dock, EventLog& log)
{
    dock->floatingChanged().connect(&log, [&log](const VXDockFloatEvent2& event) {
        log.add(event.dock()->title() + (event.isFloating() ? ": torn off" : ": put back"));
    });
    dock->areaChanged().connect(&log, [&log](const VXDockAreaEvent2& event) {
        log.add(event.dock()->title() + ": now at the " + areaName(event.area()));
    });
    dock->visibilityChanged().connect(&log, [&log](const VXDockVisibilityEvent2& event) {
        log.add(event.dock()->title() + (event.isVisible() ? ": in sight" : ": out of sight"));
    });
}

VXDockWidget2* addDock(VXWindow2* window, EventLog& log, const std::string& title, DockArea area,
                       const std::vector<std::string>& lines)
{
    auto* dock = new VXDockWidget2(title, window);
    const Box content = column(dock, 2);
    content.layout->setMargins(VXRect<int>::margins(6, 4, 6, 4));
    for (const std::string& line : lines)
        content.layout->addWidget(new VXText2(line, content.panel));
    content.layout->addStretch();
    dock->setWidget(content.panel);
    window->addDockWidget(dock, area);
    watch(dock, log);
    return dock;
}

/// A window inside the page, with panes at its sides.
VXWindow2* makeWindow(VXObject2* parent, EventLog& log)
{
    auto* window = new VXWindow2(parent);
    window->setObjectName("docks-window");
    window->setWindowFlags(0);
    const Frame paper = frame(window, PaperColor);
    paper.inside.layout->addWidget(heading(paper.inside.panel, "The document", 12), 1,
                                   AlignmentFlag::Center);
    window->setCentralWidget(paper.outside);

    auto* files =
        addDock(window, log, "Files", DockArea::Left, {"readme.md", "main.cpp", "window.cpp"});
    auto* outline = addDock(window, log, "Outline", DockArea::Left, {"main()", "Window"});
    auto* properties =
        addDock(window, log, "Properties", DockArea::Right, {"Width: 640", "Height: 480"});
    auto* colors = addDock(window, log, "Colors", DockArea::Right, {"Ink", "Paper"});
    auto* output =
        addDock(window, log, "Output", DockArea::Bottom,
                {"Compiling main.cpp", "Compiling window.cpp", "Linking", "Build finished."});
    window->tabifyDockWidget(properties, colors);
    window->raiseDockWidget(properties);
    outline->setFeatures(DockFeature::Closable | DockFeature::Movable);
    output->setFeatures(DockFeature::Closable | DockFeature::VerticalTitleBar);

    auto* bar = new VXToolBar2("Panes", window);
    bar->setToolButtonStyle(ToolButtonStyle::TextOnly);
    for (VXDockWidget2* dock : {files, outline, properties, colors, output})
        bar->addAction(dock->viewAction());
    window->addToolBar(bar);
    window->setStatusText("Each button above shows or closes a pane.");
    return window;
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    const Frame edge = frame(page.panel, PaperColor);
    edge.inside.layout->setMargins({});
    VXWindow2* window = makeWindow(edge.inside.panel, log);
    edge.inside.layout->addWidget(window);

    const Box line = titledRow(page, "Where the panes are");
    auto saved = std::make_shared<std::string>(window->saveLayout());
    command(line, "Save", [window, saved, &log] {
        *saved = window->saveLayout();
        log.add("saved as " + std::to_string(saved->size()) + " characters");
    });
    command(line, "Restore", [window, saved, &log] {
        log.add(window->restoreLayout(*saved) ? "restored" : "refused");
    });
    command(line, "Restore nonsense", [window, &log] {
        log.add(window->restoreLayout("nonsense") ? "restored" : "refused");
    });
    auto* keep = new VXCheckBox2("Refuse to close the output", line.panel);
    line.layout->addWidget(keep);
    line.layout->addStretch();
    for (VXObject2* child : window->children()) {
        auto* dock = dynamic_cast<VXDockWidget2*>(child);
        if (dock && dock->title() == "Output") {
            dock->closing().connect(keep, [keep](const VXCloseEvent2& event) {
                if (keep->isChecked())
                    event.refuse();
            });
        }
    }
    page.layout->addWidget(edge.outside, 1);
    comesLast(page, window);
    return page.panel;
}

} // namespace

Page docksPage()
{
    return {"docks", "Dock widgets",
            "A window inside the page with panes: drag them by their titles to other sides, into "
            "each other or out of the window, close them, and put them back where they were.",
            &create};
}

} // namespace gallery
