#include "qthost/qthost.h"

#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <QApplication>
#include <QEvent>
#include <QLibrary>
#include <QPixmap>
#include <QWidget>

#include <stdexcept>

namespace VOXI {

QtHost::QtHost(int& argc, char** argv, const std::string& library)
{
    if (!QCoreApplication::instance())
        m_application = std::make_unique<QApplication>(argc, argv);
    bringUp(library);
}

QtHost::QtHost(const std::string& library)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw std::runtime_error("hosting the toolkit needs a QApplication");
    bringUp(library);
}

void QtHost::bringUp(const std::string& library)
{
    QLibrary backEnd(library.empty() ? QStringLiteral("voxi2_qt")
                                     : QString::fromLocal8Bit(library.data(),
                                                              qsizetype(library.size())));
    // Its objects live as long as the process.
    backEnd.setLoadHints(QLibrary::PreventUnloadHint | QLibrary::ResolveAllSymbolsHint);
    const auto initialize = backEnd.resolve("initialize_voxi2_qt");
    m_terminate = backEnd.resolve("terminate_voxi2_qt");
    if (!initialize || !m_terminate)
        throw std::runtime_error(backEnd.errorString().toLocal8Bit().toStdString());
    m_binding = std::make_unique<EventLoopBinding>();
    initialize();
}

QtHost::~QtHost()
{
    if (!m_terminate)
        return;
    m_terminate();
    m_binding.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int QtHost::exec()
{
    return QApplication::exec();
}

bool QtHost::saveScreenshot(const VXObject& window, const std::string& file)
{
    // Through the registry: the host knows no peer class.
    auto* widget = dynamic_cast<QWidget*>(lookup(&window));
    if (!widget)
        return false;
    // Layouts and queued requests may take some turns of the loop.
    constexpr int turns = 5;
    for (int i = 0; i < turns; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    return widget->grab().save(QString::fromLocal8Bit(file.data(), qsizetype(file.size())));
}

void QtHost::quit(int exitCode)
{
    QMetaObject::invokeMethod(
        qApp, [exitCode] { QCoreApplication::exit(exitCode); }, Qt::QueuedConnection);
}

}  // namespace VOXI
