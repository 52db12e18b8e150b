#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxtooltipwindow2.h"

namespace gallery {

using namespace VOXI;

namespace {

void follow(EventLog& log, const VXToolTipWindow2* tip, const std::string& name)
{
    tip->clicked().connect(&log, [&log, name] { log.add(name + ": clicked"); });
    tip->hidden().connect(&log, [&log, name] { log.add(name + ": hidden"); });
}

/// Shows the tip at the button when that is clicked.
void popupOn(const VXButton2* button, VXToolTipWindow2* tip, AnchorSide side,
             const std::string& text)
{
    button->clicked().connect(tip, [=](const VXButtonClickEvent2& event) {
        tip->setText(text);
        tip->popup(event.button(), side);
    });
}

void addSides(const Box& page, VXToolTipWindow2* tip)
{
    const Box line = titledRow(page, "On each side");
    static constexpr std::pair<AnchorSide, const char*> sides[] = {{AnchorSide::Below, "Below"},
                                                                   {AnchorSide::Above, "Above"},
                                                                   {AnchorSide::Right, "Right"},
                                                                   {AnchorSide::Left, "Left"}};
    for (const auto& [side, name] : sides) {
        VXButton2* anchor = button(line.panel, name, std::string("tip-") + name);
        line.layout->addWidget(anchor);
        popupOn(anchor, tip, side,
                std::string(name) + ", as long as there is room.\nClick it away.");
    }
    line.layout->addStretch();
}

void addTimes(const Box& page, VXToolTipWindow2* tip)
{
    const auto choose = [tip](std::size_t choice) {
        static constexpr int times[] = {-1, 2000, 0};
        tip->setTimeout(times[choice]);
    };
    alternatives(page, "It stays", {"Ten seconds", "Two", "For ever"}, 0, choose);
}

void addMoving(const Box& page, VXToolTipWindow2* tip)
{
    auto* view = new VXScrollView2(page.panel);
    view->setObjectName("tip-view");
    const Box content = column(view, 4);
    content.layout->setMargins({8, 8, 8, 8});
    for (int i = 1; i <= 14; ++i) {
        VXButton2* line = button(content.panel, "Scroll with a tip at line " + std::to_string(i),
                                 "tip-line-" + std::to_string(i));
        content.layout->addWidget(line, 0, AlignmentFlag::Left);
        popupOn(line, tip, AnchorSide::Right, "It goes with its line.");
    }
    view->setWidget(content.panel);
    page.layout->addWidget(view, 1);
}

/// A tip with more in it than a text.
void addRich(const Box& page, EventLog& log)
{
    const Box line = titledRow(page, "With more in it");
    VXButton2* anchor = button(line.panel, "Show a question", "tip-question");
    auto* tip = new VXToolTipWindow2(page.panel);
    tip->setTimeout(0);
    auto* layout = new VXBoxLayout2(tip, Direction::TopToBottom);
    layout->addWidget(heading(tip, "Was this of help?"));
    auto* answers = new VXBoxLayout2(layout);
    layout->addLayout(answers);
    for (const char* answer : {"Yes", "No"}) {
        VXButton2* each = button(tip, answer, std::string("tip-") + answer);
        each->clicked().connect(tip, [tip, &log, answer] {
            log.add(std::string("answer: ") + answer);
            tip->hide();
        });
        answers->addWidget(each);
    }
    anchor->clicked().connect(tip, [tip, anchor] { tip->popup(anchor, AnchorSide::Below); });
    follow(log, tip, "question");
    line.layout->addWidget(anchor);
    line.layout->addStretch();
}

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent, 8);
    auto* tip = new VXToolTipWindow2(page.panel);
    tip->setObjectName("tip");
    follow(log, tip, "tip");
    addSides(page, tip);
    addTimes(page, tip);
    addRich(page, log);
    addMoving(page, tip);
    return page.panel;
}

} // namespace

Page toolTipsPage()
{
    return {
        "tooltips", "Tool-tip windows",
        "Click a button: a window appears beside it, follows it when the page is scrolled or the "
        "window moved, and goes with it.",
        &create};
}

} // namespace gallery
