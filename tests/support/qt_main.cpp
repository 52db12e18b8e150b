#include "support/qtwarnings.h"

#include <QApplication>
#include <QStandardPaths>
#include <QSurfaceFormat>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#ifdef __SANITIZE_ADDRESS__
// What is unloaded cannot be named any more: what graphics drivers leak would be everybody's.
extern "C" [[gnu::visibility("default")]] int dlclose(void*) { return 0; }
#endif

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
    if (qEnvironmentVariableIsSet("VOXI_TEST_EMBEDDED_GL")) {
        QSurfaceFormat format;
        format.setRenderableType(QSurfaceFormat::OpenGLES);
        QSurfaceFormat::setDefaultFormat(format);
    }
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
