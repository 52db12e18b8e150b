#include "../eventlog.h"
#include "../page.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"

namespace gallery {

using namespace VOXI;

namespace {

VXWidget2* create(VXObject2* parent, EventLog& log)
{
    auto* page = new VXPanel2(parent);
    auto* row = new VXBoxLayout2(page, Direction::LeftToRight);
    auto* count = new VXText2(page);
    auto* button = new VXButton2(page);
    count->setObjectName("count");
    count->setText("0");
    count->setAlignment(AlignmentFlag::Center);
    button->setObjectName("counter");
    button->setLabel("&Count");
    row->addWidget(count);
    row->addWidget(button);
    row->insertSpacer(-1, 0, 1);

    button->clicked().connect(count, [count, n = 0](const VXButtonClickEvent2&) mutable {
        count->setText(std::to_string(++n));
    });
    log.watchButton(button, "counter");
    return page;
}

}  // namespace

Page countingPage()
{
    return {"counting", "Counting", &create};
}

}  // namespace gallery
