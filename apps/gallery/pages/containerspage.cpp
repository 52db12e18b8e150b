#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxwidgetstack2.h"

namespace gallery {

using namespace VOXI;

namespace {

/// A group box with a column inside.
Box group(VXSplitter2* splitter, const std::string& title, int stretch)
{
    auto* box = new VXGroupBox2(title, splitter);
    auto* layout = new VXBoxLayout2(box, Direction::TopToBottom);
    layout->setMargins(VXRect<int>::margins(8, 8, 8, 8));
    const Box inside = column(box, 8);
    layout->addWidget(inside.panel);
    splitter->addWidget(box, stretch);
    return inside;
}

void addFrames(VXSplitter2* splitter, EventLog& log)
{
    const Box box = group(splitter, "Frames", 0);
    auto* const frames = static_cast<VXGroupBox2*>(box.panel->parent());
    frames->setCheckable(true);
    frames->toggled().connect(&log, [&log](const VXGroupBoxEvent2& event) {
        log.add(event.isChecked() ? "frames: on" : "frames: off");
    });
    auto* panel = new VXPanel2(box.panel);
    auto* grid = new VXGridLayout2(panel);
    grid->setMargins({});
    grid->setSpacing(6);
    static constexpr std::pair<FrameShape, const char*> shapes[] = {
        {FrameShape::Box, "Box"},
        {FrameShape::Panel, "Panel"},
        {FrameShape::WinPanel, "WinPanel"},
        {FrameShape::StyledPanel, "Styled"}};
    static constexpr std::pair<FrameShadow, const char*> shadows[] = {
        {FrameShadow::Plain, "Plain"},
        {FrameShadow::Raised, "Raised"},
        {FrameShadow::Sunken, "Sunken"}};
    int row = 0;
    for (const auto& [shape, shapeName] : shapes) {
        grid->addWidget(new VXText2(shapeName, panel), ++row, 0);
        int column = 0;
        for (const auto& [shadow, shadowName] : shadows) {
            if (row == 1)
                grid->addWidget(new VXText2(shadowName, panel), 0, column + 1,
                                AlignmentFlag::HCenter);
            auto* frame = new VXFrame2(panel);
            frame->setShape(shape);
            frame->setShadow(shadow);
            frame->setLineWidth(2);
            frame->setMinimumSize({46, 30});
            grid->addWidget(frame, row, ++column);
        }
    }
    box.layout->addWidget(panel);
    box.layout->addStretch();
}

void addStack(VXSplitter2* splitter, EventLog& log)
{
    const Box box = group(splitter, "Stack", 1);
    auto* stack = new VXWidgetStack2(box.panel);
    stack->setObjectName("stack");
    const std::pair<const char*, Color> pages[] = {
        {"First page", PaperColor}, {"Second page", PadColor}, {"Third page", PaperColor}};
    for (const auto& [text, color] : pages) {
        const Frame page = frame(stack, color);
        page.inside.layout->addWidget(heading(page.inside.panel, text, 12), 1,
                                      AlignmentFlag::Center);
        stack->addWidget(page.outside);
    }
    box.layout->addWidget(stack, 1);
    const Box line = row(box);
    command(line, "Next page", [stack, &log] {
        stack->raiseWidgetWithID((stack->currentID() + 1) % stack->count());
        log.add("stack: page " + std::to_string(stack->currentID()));
    });
    line.layout->addStretch();
}

void addScrollView(VXSplitter2* splitter, EventLog& log)
{
    const Box box = group(splitter, "Scroll view", 1);
    auto* view = new VXScrollView2(box.panel);
    view->setObjectName("scroll-view");
    const Box content = column(view, 2);
    VXWidget2* last = nullptr;
    for (int i = 1; i <= 40; ++i) {
        last = new VXText2("Line " + std::to_string(i) + " of a page that is larger than the view",
                           content.panel);
        content.layout->addWidget(last);
    }
    view->setWidget(content.panel);
    view->scrolled().connect(&log, [&log](const VXScrollEvent2& event) {
        log.add("scroll view: " + std::to_string(event.scrollPosition().y) + " of "
                + std::to_string(event.view()->scrollEnd().y));
    });
    box.layout->addWidget(view, 1);
    const Box line = row(box);
    command(line, "Down", [view] { view->scrollBy({0, 50}); });
    command(line, "Top", [view] { view->ensurePointVisible({0, 0}, 0, 0); });
    command(line, "End", [view, last] { view->ensureWidgetVisible(last, 0, 0); });
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    auto* splitter = new VXSplitter2(parent);
    splitter->setObjectName("splitter");
    addFrames(splitter, log);
    addStack(splitter, log);
    addScrollView(splitter, log);
    splitter->setCollapsible(nullptr, false);
    splitter->handleMoved().connect(&log, [&log](const VXSplitterMoveEvent2& event) {
        log.add("splitter: handle " + std::to_string(event.index()) + " at "
                + std::to_string(event.position()));
    });
    return splitter;
}

} // namespace

Page containersPage()
{
    return {"containers", "Containers",
            "Frames, a stack of pages and a scrolled page, in a splitter: drag its handles.",
            &create};
}

} // namespace gallery
