#include "enginestart.h"

#include "../kernel/qtcomposedwindows.h"
#include "engineview.h"
#include "voxi2/controls/vxwebbrowser2.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QWebEngineProfile>
#include <QWebEngineUrlScheme>

#include <cstring>
#include <unistd.h>

namespace VOXI {

namespace {

constexpr const char* FlagsName = "QTWEBENGINE_CHROMIUM_FLAGS";

void add(QByteArray& flags, const QByteArray& flag)
{
    const QByteArray name = flag.split('=').first();
    if (!flags.contains(name))
        flags += ' ' + flag;
}

/// Two ways to a network are asked for by nobody's leave: they lead past the interceptor. That of
/// files is closed by a feature that is off, that of calls as far as datagrams go; see also
/// `withoutCalls`. The others are for whoever runs as root: the engine refuses to start there with
/// its sandbox, and root's computers have no graphics to speak of.
QByteArray neededFlags(QByteArray flags)
{
    constexpr const char* Features = "--disable-blink-features=";
    if (flags.contains(Features))
        flags.replace(Features, QByteArray(Features) + "WebTransport,");
    else
        flags += QByteArray(" ") + Features + "WebTransport";
    add(flags, "--force-webrtc-ip-handling-policy=disable_non_proxied_udp");
    if (geteuid() == 0) {
        add(flags, "--no-sandbox");
        add(flags, "--disable-gpu");
    }
    return flags;
}

void registerSchemes()
{
    for (const std::string& name : VXWebBrowser2::fixedSchemes()) {
        const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
        if (!QWebEngineUrlScheme::schemeByName(bytes).name().isEmpty())
            continue;
        QWebEngineUrlScheme scheme(bytes);
        scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
        scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
        QWebEngineUrlScheme::registerScheme(scheme);
    }
}

/// While one lives, the engine does not say at length what it has found for graphics.
class QuietStart
{
public:
    /// The filter that is installed is called at once, and wants to know the former one.
    QuietStart()
    {
        s_former = QLoggingCategory::installFilter(nullptr);
        QLoggingCategory::installFilter(&filter);
    }
    ~QuietStart() { QLoggingCategory::installFilter(s_former); }
    QuietStart(const QuietStart&) = delete;
    QuietStart& operator=(const QuietStart&) = delete;

private:
    static void filter(QLoggingCategory* category)
    {
        s_former(category);
        if (std::strncmp(category->categoryName(), "qt.webengine", 12) == 0) {
            category->setEnabled(QtDebugMsg, false);
            category->setEnabled(QtInfoMsg, false);
            category->setEnabled(QtWarningMsg, false);
        }
    }

    static QLoggingCategory::CategoryFilter s_former;
};
QLoggingCategory::CategoryFilter QuietStart::s_former = nullptr;

QtMessageHandler s_formerMessages = nullptr;

void passOthers(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("No suitable graphics backend found")))
        s_formerMessages(type, context, text);
}

/// Where there is no OpenGL the engine warns of it once, in no category, and on a thread of its own
/// some time later: there it draws without.
void silenceLackOfGraphics()
{
    const QOpenGLContext* const shared = QOpenGLContext::globalShareContext();
    if (shared && shared->isValid())
        return;
    s_formerMessages = qInstallMessageHandler(nullptr); // who is installed may be called at once
    qInstallMessageHandler(&passOthers);
}

/// The flags are read when the engine starts; programs that this one starts have no need of them.
void startWithFlags()
{
    const QuietStart quiet;
    silenceLackOfGraphics();
    const bool wereSet = qEnvironmentVariableIsSet(FlagsName);
    const QByteArray former = qgetenv(FlagsName);
    qputenv(FlagsName, neededFlags(former));
    const QWebEngineProfile first;
    if (wereSet)
        qputenv(FlagsName, former);
    else
        qunsetenv(FlagsName);
}

bool start()
{
    QtComposedWindows::begin();
    registerSchemes();
    startWithFlags();
    // Before the engine's own end, which comes the same way: the last to be added is called first.
    qAddPostRoutine(&EngineView::endAll);
    return true;
}

} // namespace

void startEngine()
{
    static const bool s_isStarted = start();
    static_cast<void>(s_isStarted);
}

} // namespace VOXI
