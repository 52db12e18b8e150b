// start_qt ROWS: the program of start_voxi.cpp with plain Qt; nothing else is loaded.

#include "firstpaint.h"
#include "qtform.h"

#include <optional>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const bench::FirstPaint end;
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Start"));
    std::optional<bench::QtForm> form;
    const int rows = argc > 1 ? std::atoi(argv[1]) : 0;
    if (rows > 0) {
        form.emplace(&window).addRows(rows);
        window.setCentralWidget(form->m_panel.get());
    }
    window.show();
    return QApplication::exec();
}
