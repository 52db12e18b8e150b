#include "qthost/qthost.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"

using namespace VOXI;

int main(int argc, char** argv)
{
    QtHost host(argc, argv);
    VXWindow2 window("Counter");
    auto* page = new VXPanel2(&window);
    auto* row = new VXBoxLayout2(page);
    auto* count = new VXText2("0", page);
    auto* button = new VXButton2("&Count", page);
    row->addWidget(count, 1);
    row->addWidget(button);
    button->clicked().connect(count,
                              [count, n = 0]() mutable { count->setText(std::to_string(++n)); });
    window.setCentralWidget(page);
    window.show();
    return host.exec();
}
