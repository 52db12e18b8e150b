#include "qthost/qthost.h"

#include "applicationlanguage.h"
#include "hostapplication.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <QApplication>
#include <QEvent>
#include <QPixmap>
#include <QWidget>

#include <dlfcn.h>
#include <filesystem>
#include <mutex>
#include <optional>
#include <stdexcept>

namespace VOXI {

namespace {

/// The back end that lies beside this library; if there is none, what the loader finds by name.
std::string usualLibrary()
{
    std::string name = VOXI_BACK_END;
    Dl_info self;
    if (dladdr(reinterpret_cast<void*>(&usualLibrary), &self) == 0)
        return name;
    std::error_code error;
    const auto beside = std::filesystem::path(self.dli_fname).replace_filename(name);
    return std::filesystem::exists(beside, error) ? beside.string() : name;
}

/// The exit that was asked for and that no `exec` has made yet.
class WantedExit
{
public:
    void want(int code)
    {
        const std::lock_guard lock(m_mutex);
        m_code = code;
    }
    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_code.reset();
    }
    std::optional<int> wanted()
    {
        const std::lock_guard lock(m_mutex);
        return m_code;
    }

private:
    std::mutex m_mutex;
    std::optional<int> m_code;
};

WantedExit s_wantedExit;

/// Ends the loops that run by then, if the exit is still wanted.
void quitLoops()
{
    QMetaObject::invokeMethod(
        qApp,
        [] {
            if (const auto code = s_wantedExit.wanted())
                QCoreApplication::exit(*code);
        },
        Qt::QueuedConnection);
}

} // namespace

QtHost::QtHost(int& argc, char** argv, NarrowTextEncoding encoding, const std::string& library)
{
    if (!QCoreApplication::instance()) {
        m_application = std::make_unique<HostApplication>(argc, argv);
        m_language = std::make_unique<ApplicationLanguage>();
    }
    bringUp(encoding, library);
}

QtHost::QtHost(NarrowTextEncoding encoding, const std::string& library)
{
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw std::runtime_error("hosting the toolkit needs a QApplication");
    bringUp(encoding, library);
}

void QtHost::bringUp(NarrowTextEncoding encoding, const std::string& library)
{
    // Never closed: its objects live as long as the process.
    const std::string file = library.empty() ? usualLibrary() : library;
    void* backEnd = dlopen(file.c_str(), RTLD_NOW | RTLD_GLOBAL);
    const auto find = [&](const char* name) {
        void* symbol = backEnd ? dlsym(backEnd, name) : nullptr;
        if (!symbol)
            throw std::runtime_error(dlerror());
        return reinterpret_cast<void (*)()>(symbol);
    };
    const auto initialize = find("initialize_voxi2_qt");
    const auto terminate = find("terminate_voxi2_qt");
    if (!setNarrowTextEncoding(encoding))
        throw std::runtime_error("the encoding of narrow texts is fixed already");
    m_terminate = terminate;
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
    // What was asked for before may have ended another loop by now, and this one is to end too.
    if (s_wantedExit.wanted())
        quitLoops();
    const int exitCode = QApplication::exec();
    // A slot may have run a loop of its own while the application's ended.
    m_binding->endServing();
    s_wantedExit.clear();
    return exitCode;
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
    s_wantedExit.want(exitCode);
    quitLoops();
}

} // namespace VOXI
