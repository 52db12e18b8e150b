#include "../eventlog.h"
#include "../page.h"
#include "../ui.h"

namespace gallery {

using namespace VOXI;

namespace {

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    const Box page = column(parent);
    const Box line = row(page, 12);
    const Frame display = frame(line.panel, PaperColor);
    VXText2* count = heading(display.inside.panel, "0", 28);
    VXButton2* counter = button(line.panel, "&Count", "counter");
    count->setObjectName("count");
    count->setAlignment(AlignmentFlag::Center);
    count->setMinimumSize({120, -1});
    display.inside.layout->addWidget(count);
    line.layout->addWidget(display.outside);
    line.layout->addWidget(counter);
    line.layout->addStretch();
    page.layout->addStretch();

    counter->clicked().connect(count, [count, n = 0](const VXButtonClickEvent2&) mutable {
        count->setText(std::to_string(++n));
    });
    log.watchButton(counter, "counter");
    return page.panel;
}

} // namespace

Page countingPage()
{
    return {"counting", "Counting", "A button, a text, and one line between them.", &create};
}

} // namespace gallery
