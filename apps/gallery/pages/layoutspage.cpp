#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxgridlayout2.h"
#include "voxi2/containers/vxgroupbox2.h"
#include "voxi2/containers/vxwidgetstack2.h"

namespace gallery {

using namespace VOXI;

namespace {

constexpr const char* s_directions[] = {"Left to right", "Right to left", "Top to bottom",
                                        "Bottom to top"};

VXGroupBox2* groupBox(const Box& line, const std::string& title)
{
    auto* result = new VXGroupBox2(title, line.panel);
    line.layout->addWidget(result);
    return result;
}

/// A coloured field that fills the room it is given.
VXFrame2* field(VXObject2* parent, const std::string& text)
{
    auto* result = new VXFrame2(parent);
    result->setShape(FrameShape::StyledPanel);
    result->setColor(ColorRole::Background, PadColor);
    result->setColor(ColorRole::Foreground, InkColor);
    auto* layout = new VXBoxLayout2(result);
    layout->setMargins(VXRect<int>::margins(8, 3, 8, 3));
    layout->addWidget(new VXText2(text, result), AlignmentFlag::Center);
    return result;
}

void addBoxes(const Box& line)
{
    for (int i = 0; i < 4; ++i) {
        VXGroupBox2* box = groupBox(line, s_directions[i]);
        auto* layout = new VXBoxLayout2(box, static_cast<Direction>(i));
        layout->setMargins(VXRect<int>::margins(6, 6, 6, 6));
        layout->setSpacing(3);
        for (const char* text : {"1", "2", "3"})
            layout->addWidget(field(box, text));
    }
}

void addGrid(const Box& line)
{
    VXGroupBox2* box = groupBox(line, "Grid");
    auto* grid = new VXGridLayout2(box);
    grid->setMargins(VXRect<int>::margins(6, 6, 6, 6));
    grid->setSpacing(3);
    const auto put = [box, grid](const char* text, const VXRect<int>& cell) {
        grid->addWidget(field(box, text), cell);
    };
    put("two columns", VXRect<int>::cell(0, 0, 1, 2));
    put("two rows", VXRect<int>::cell(0, 2, 2, 1));
    put("1, 0", VXRect<int>::cell(1, 0));
    put("stretch 2", VXRect<int>::cell(1, 1));
    grid->addWidget(field(box, "right"), VXRect<int>::cell(2, 0, 1, 3), AlignmentFlag::Right);
    grid->setStretchFactors({}, {1, 2, 1});
    line.layout->setStretchFactor(box, 1);
}

/// One page of the stack for each direction: a layout keeps the one that it was made with.
void addFlows(const Box& page)
{
    auto* stack = new VXWidgetStack2(page.panel);
    stack->setObjectName("flows");
    for (int direction = 0; direction < 4; ++direction) {
        auto* flow = new VXPanel2(stack);
        flow->setColor(ColorRole::Background, PaperColor);
        flow->setColor(ColorRole::Foreground, InkColor);
        flow->setContentsMargins(VXRect<int>::margins(6, 6, 6, 6));
        // A flow asks for the room that it used last, so the page would never shrink.
        flow->setSizePolicy(Policy::Ignored, Policy::Ignored);
        auto* layout = new VXFlowLayout2(flow, static_cast<Direction>(direction));
        layout->setSpacing(6);
        int number = 0;
        for (const char* text :
             {"What", "does not fit", "into", "a line", "begins", "the next", "one", "and", "each",
              "button", "has", "the size", "that it", "would like", "best"}) {
            VXButton2* each = button(
                flow, text, "flow-" + std::to_string(direction) + "-" + std::to_string(++number));
            layout->addWidget(each);
        }
        stack->addWidget(flow);
    }
    alternatives(page, "Flow", {s_directions[0], s_directions[1], s_directions[2], s_directions[3]},
                 0, [stack](std::size_t i) { stack->raiseWidgetWithID(static_cast<int>(i)); });
    page.layout->addWidget(stack, 1);
    comesLast(page, stack);
}

VXWidget2* create(VXObject2* parent, EventLog&)
{
    const Box page = column(parent, 8);
    const Box boxes = row(page, 8);
    addBoxes(boxes);
    addGrid(boxes);
    addFlows(page);
    return page.panel;
}

} // namespace

Page layoutsPage()
{
    return {"layouts", "Layouts",
            "Boxes in the four directions, a grid with spans and stretches, and flows, whose lines "
            "break anew as the window is resized. In the two backward flows wide items may overlap "
            "their neighbour.",
            &create};
}

} // namespace gallery
