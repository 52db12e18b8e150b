#include "support/qtwarnings.h"

#include <gmock/gmock.h>

#include <QApplication>

// One QApplication for all tests of the program, in a style that looks the same everywhere.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    VOXI::failOnQtWarnings();
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
