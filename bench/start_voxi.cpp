// start_voxi ROWS: a program that shows a window, with so many rows of three widgets, and ends.

#include "firstpaint.h"
#include "qthost/qthost.h"
#include "voxiform.h"

#include <optional>

int main(int argc, char** argv)
{
    VOXI::QtHost host(argc, argv);
    const bench::FirstPaint end;
    VOXI::VXWindow2 window("Start");
    std::optional<bench::VoxiForm> form;
    const int rows = argc > 1 ? std::atoi(argv[1]) : 0;
    if (rows > 0) {
        form.emplace(&window).addRows(rows);
        window.setCentralWidget(form->m_panel.get());
    }
    window.show();
    return host.exec();
}
