#include "counter.h"

#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxbuttonevents2.h"
#include "voxi2/controls/vxtext2.h"

#include <string>

using namespace VOXI;

Counter::Counter() : m_window(new VXWindow2("Counter"))
{
    auto* page = new VXPanel2(m_window);
    auto* row = new VXBoxLayout2(page, Direction::LeftToRight);
    auto* count = new VXText2("0", page);
    auto* button = new VXButton2("Count", page);
    row->addWidget(count);
    row->addWidget(button);
    m_window->setCentralWidget(page);

    button->clicked().connect(count, [count, n = 0](const VXButtonClickEvent2&) mutable {
        count->setText(std::to_string(++n));
    });
    m_window->show();
}

Counter::~Counter() { delete m_window; }

bool Counter::isShown() const
{
    // Without a back end the title would come back empty.
    return m_window->title() == "Counter" && m_window->isVisible();
}
