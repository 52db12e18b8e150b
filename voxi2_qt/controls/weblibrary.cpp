#include "weblibrary.h"

#include "../kernel/sidelibrary.h"
#include "textwebview.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QString>

#include <dlfcn.h>

namespace VOXI {

namespace {

using SetContext = void (*)(QOpenGLContext*);

/// Of Qt's own interface, which may change: nothing is linked against it.
SetContext contextSetter()
{
    return reinterpret_cast<SetContext>(
        dlsym(RTLD_DEFAULT, "_Z30qt_gl_set_global_share_contextP14QOpenGLContext"));
}

void endContext()
{
    QOpenGLContext* const context = QOpenGLContext::globalShareContext();
    contextSetter()(nullptr);
    delete context;
}

/// The engine wants a context that all others share with, and warns and crashes where there is
/// none when its library is loaded. Qt makes one with the application where
/// `AA_ShareOpenGLContexts` is set; that takes every program a tenth of a second, so it is made
/// here. It serves even where there is no OpenGL: the engine then draws without.
bool makeSharedContext()
{
    if (QOpenGLContext::globalShareContext())
        return true;
    const SetContext set = contextSetter();
    if (!set)
        return false;
    auto* const context = new QOpenGLContext;
    context->create();
    set(context);
    qAddPostRoutine(&endContext);
    return true;
}

decltype(&voxi2_qt_makeWebView) findEngine()
{
    QString error = QStringLiteral("no OpenGL context to share");
    decltype(&voxi2_qt_makeWebView) found = nullptr;
    if (qEnvironmentVariableIsSet("VOXI_NO_WEB_ENGINE"))
        error = QStringLiteral("VOXI_NO_WEB_ENGINE is set");
    else if (makeSharedContext())
        found = reinterpret_cast<decltype(found)>(
            sideLibraryFunction("voxi2_qt_web", "voxi2_qt_makeWebView", error));
    if (!found)
        qWarning("web pages are shown without scripts: %s", qPrintable(error));
    return found;
}

} // namespace

std::unique_ptr<WebView> makeWebView(WebViewHost& host, QWidget* parent)
{
    static const auto make = findEngine();
    if (make)
        return std::unique_ptr<WebView>(make(&host, parent));
    return std::make_unique<TextWebView>(host, parent);
}

} // namespace VOXI
