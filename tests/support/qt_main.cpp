#include "support/qtwarnings.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

// One QApplication for all tests of the program, in a style that looks the same everywhere.
int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // A folder of its own (mkdtemp makes it 0700, as Qt asks), and no settings of the user's.
    const QTemporaryDir runtimeFolder;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder.path()));
    QStandardPaths::setTestModeEnabled(true);
    VOXI::failOnQtWarnings();
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
