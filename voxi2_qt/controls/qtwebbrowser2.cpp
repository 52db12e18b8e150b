#include "voxi2_qt/controls/qtwebbrowser2.h"

#include "../kernel/qtignored.h"
#include "qtwebnews.h"
#include "voxi2_qt/kernel/qtasuser.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "weblibrary.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <optional>
#include <utility>

namespace VOXI {

namespace {

using E = VXWebBrowser2Emitters;
using P = QtWebBrowser2;

// clang-format off
const auto s_requests = TROV::operations<E>(
    TROV::row<&E::setAddress, &P::doSetAddress>(),
    TROV::row<&E::getAddress, &P::doGetAddress>(),
    TROV::row<&E::setHtml, &P::doSetHtml>(),
    TROV::row<&E::goBack, &P::doGoBack>(),
    TROV::row<&E::goForward, &P::doGoForward>(),
    TROV::row<&E::reload, &P::doReload>(),
    TROV::row<&E::stop, &P::doStop>(),
    TROV::row<&E::isBackAvailable, &P::doIsBackAvailable>(),
    TROV::row<&E::isForwardAvailable, &P::doIsForwardAvailable>(),
    TROV::row<&E::setNetworkAccess, &P::doSetNetworkAccess>(),
    TROV::row<&E::hasNetworkAccess, &P::doHasNetworkAccess>(),
    TROV::row<&E::setFilePath, &P::doSetFilePath>(),
    TROV::row<&E::getFilePath, &P::doGetFilePath>(),
    TROV::row<&E::setScriptsEnabled, &P::doSetScriptsEnabled>(),
    TROV::row<&E::areScriptsEnabled, &P::doAreScriptsEnabled>(),
    TROV::row<&E::setProfile, &P::doSetProfile>(),
    TROV::row<&E::getProfile, &P::doGetProfile>(),
    TROV::row<&E::answerContent, &P::doAnswerContent>(),
    TROV::row<&E::cancelDownload, &P::doCancelDownload>(),
    TROV::row<&E::getTitle, &P::doGetTitle>(),
    TROV::row<&E::getIcon, &P::doGetIcon>(),
    TROV::row<&E::getProgress, &P::doGetProgress>(),
    TROV::row<&E::isLoading, &P::doIsLoading>(),
    TROV::row<&E::hasCrashed, &P::doHasCrashed>(),
    TROV::row<&E::hasEngine, &P::doHasEngine>(),
    TROV::row<&E::setZoom, &P::doSetZoom>(),
    TROV::row<&E::getZoom, &P::doGetZoom>(),
    TROV::row<&E::setUserStyle, &P::doSetUserStyle>(),
    TROV::row<&E::getUserStyle, &P::doGetUserStyle>(),
    TROV::row<&E::find, &P::doFind>(),
    TROV::row<&E::getSelectedText, &P::doGetSelectedText>(),
    TROV::row<&E::selectAll, &P::doSelectAll>(),
    TROV::row<&E::clearSelection, &P::doClearSelection>(),
    TROV::row<&E::copy, &P::doCopy>(),
    TROV::row<&E::getTarget, &P::doGetTarget>(),
    TROV::row<&E::evaluate, &P::doEvaluate, RunsLoop>(),
    TROV::row<&E::evaluateLater, &P::doEvaluateLater>(),
    TROV::row<&E::postMessage, &P::doPostMessage>(),
    TROV::row<&E::printToPdf, &P::doPrintToPdf>(),
    asUserRow<&E::activateLink, &P::doimActivateLink>());
// clang-format on

constexpr int LeastZoom = 25;
constexpr int MostZoom = 500;
constexpr int ZoomStep = 10;

/// What a program means: a file where there is no scheme, in whatever folder it lies.
QUrl urlOf(const QString& address, const QStringList& folders)
{
    QUrl url(address);
    if (!url.isRelative() || address.isEmpty())
        return url;
    for (const QString& folder : folders) {
        if (const QDir at(folder); at.exists(address))
            return QUrl::fromLocalFile(at.absoluteFilePath(address));
    }
    return QUrl::fromLocalFile(QFileInfo(address).absoluteFilePath());
}

/// It becomes the name of a folder.
bool isProfileName(const QString& name)
{
    return name.size() <= 64 && std::all_of(name.begin(), name.end(), [](QChar c) {
               return (c.unicode() < 128 && c.isLetterOrNumber()) || c == u'-' || c == u'_';
           });
}

} // namespace

QtWebBrowser2::QtWebBrowser2(VXWebBrowser2* object, VXWebBrowser2Emitters* emitters,
                             QWidget* parent)
    : QtWidget2Shim(object, emitters, s_requests, parent),
      m_news(std::make_unique<QtWebNews>(*this))
{
    setFocusPolicy(Qt::StrongFocus);
}

QtWebBrowser2::~QtWebBrowser2()
{
    endPeer();
    m_isEnding = true;
    finishScripts();
    m_view.reset();
}

/// Who waits for a script is let go at once.
void QtWebBrowser2::scheduleDelete()
{
    m_isEnding = true;
    finishScripts();
    QtWidget2::scheduleDelete();
}

// Requests ----------------------------------------------------------------------------------------

void QtWebBrowser2::doSetAddress(const std::wstring& address)
{
    const WebSettings& settings = m_news->settings();
    const QUrl url = urlOf(toQString(address), settings.filePath);
    m_news->m_files.allow(url, settings.filePath);
    go(url.isValid() ? webText(url) : toQString(address), [&](WebView& view) { view.goTo(url); });
}

std::wstring QtWebBrowser2::doGetAddress() { return toStdWString(m_address); }

void QtWebBrowser2::doSetHtml(const std::wstring& html, const std::wstring& base)
{
    const QUrl url = urlOf(toQString(base), m_news->settings().filePath);
    go(webText(url), [&](WebView& view) { view.showHtml(toQString(html), url); });
}

void QtWebBrowser2::doGoBack()
{
    if (doIsBackAvailable())
        m_view->goBy(-1);
}

void QtWebBrowser2::doGoForward()
{
    if (doIsForwardAvailable())
        m_view->goBy(1);
}

void QtWebBrowser2::doReload()
{
    if (m_view)
        m_view->reload();
}

void QtWebBrowser2::doStop()
{
    if (m_view)
        m_view->stop();
}

bool QtWebBrowser2::doIsBackAvailable() { return m_view && m_view->isThere(-1); }
bool QtWebBrowser2::doIsForwardAvailable() { return m_view && m_view->isThere(1); }

void QtWebBrowser2::doSetNetworkAccess(bool access)
{
    m_news->m_settings.hasNetworkAccess = access;
    settingsChanged();
}

bool QtWebBrowser2::doHasNetworkAccess() { return m_news->m_settings.hasNetworkAccess; }

void QtWebBrowser2::doSetFilePath(const std::vector<std::filesystem::path>& folders)
{
    m_news->m_settings.filePath.clear();
    for (const auto& folder : folders)
        m_news->m_settings.filePath.push_back(toQFileName(folder));
    settingsChanged();
}

std::vector<std::filesystem::path> QtWebBrowser2::doGetFilePath()
{
    std::vector<std::filesystem::path> folders;
    for (const QString& folder : m_news->m_settings.filePath)
        folders.push_back(toFilePath(folder));
    return folders;
}

void QtWebBrowser2::doSetScriptsEnabled(bool enabled)
{
    m_news->m_settings.areScriptsEnabled = enabled;
    settingsChanged();
}

bool QtWebBrowser2::doAreScriptsEnabled() { return m_news->m_settings.areScriptsEnabled; }

void QtWebBrowser2::doSetProfile(const std::wstring& name)
{
    const QString profile = toQString(name);
    if (!isProfileName(profile)) {
        ignored(*this, "a profile cannot be called so");
        return;
    }
    m_news->m_settings.profile = profile;
    settingsChanged();
}

std::wstring QtWebBrowser2::doGetProfile() { return toStdWString(m_news->m_settings.profile); }

void QtWebBrowser2::doAnswerContent(unsigned token, const WebContent& content)
{
    if (m_view)
        m_view->takeContent(token, content);
}

void QtWebBrowser2::doCancelDownload(unsigned id)
{
    if (m_view)
        m_view->cancelDownload(id);
}

std::wstring QtWebBrowser2::doGetTitle() { return toStdWString(m_title); }

Icon QtWebBrowser2::doGetIcon()
{
    Icon icon;
    for (const QSize& size : m_icon.availableSizes())
        icon.addPixmap(Qt2VX(m_icon.pixmap(size, 1.0)));
    return icon;
}

int QtWebBrowser2::doGetProgress() { return m_progress; }
bool QtWebBrowser2::doIsLoading() { return m_isLoading; }
bool QtWebBrowser2::doHasCrashed() { return m_hasCrashed; }
bool QtWebBrowser2::doHasEngine() { return m_view && m_view->isEngine(); }

void QtWebBrowser2::doSetZoom(int percent)
{
    m_news->m_settings.zoom = std::clamp(percent, LeastZoom, MostZoom);
    settingsChanged();
}

int QtWebBrowser2::doGetZoom() { return m_news->m_settings.zoom; }

void QtWebBrowser2::doSetUserStyle(const std::wstring& css)
{
    m_news->m_settings.userStyle = toQString(css);
    settingsChanged();
}

std::wstring QtWebBrowser2::doGetUserStyle() { return toStdWString(m_news->m_settings.userStyle); }

void QtWebBrowser2::doFind(const TextSearch& search)
{
    m_isUserSelecting = false;
    whenLoaded([this, search] { view().find(search); });
}

std::wstring QtWebBrowser2::doGetSelectedText()
{
    return m_view ? toStdWString(m_view->selectedText()) : std::wstring();
}

void QtWebBrowser2::doSelectAll()
{
    m_isUserSelecting = false;
    whenLoaded([this] { view().selectAll(); });
}

void QtWebBrowser2::doClearSelection()
{
    m_isUserSelecting = false;
    if (m_view)
        m_view->clearSelection();
}

void QtWebBrowser2::doCopy()
{
    if (m_view)
        m_view->copy();
}

WebTarget QtWebBrowser2::doGetTarget() { return m_view ? m_view->target() : WebTarget(); }

/// In a loop, while which anything may happen to this: nothing of it is looked at behind that.
WebScriptResult QtWebBrowser2::doEvaluate(const std::wstring& script, int limit)
{
    struct Wait
    {
        std::optional<WebScriptResult> m_result;
        QPointer<QEventLoop> m_loop;
    };
    const auto wait = std::make_shared<Wait>();
    const QtHandlerFrame frame(*this);
    start(toQString(script), limit, [wait](WebScriptResult result) {
        wait->m_result = std::move(result);
        if (wait->m_loop)
            wait->m_loop->quit();
    });
    if (!wait->m_result) {
        QEventLoop loop;
        wait->m_loop = &loop;
        // What was posted behind the event that has led here, which may be the engine's, some
        // dispatchers do not send in a new loop before they are woken.
        QAbstractEventDispatcher::instance()->wakeUp();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    return wait->m_result.value_or(WebScriptResult());
}

void QtWebBrowser2::doEvaluateLater(const std::wstring& script, int limit,
                                    const WebScriptReply& reply)
{
    start(toQString(script), limit,
          [reply](WebScriptResult result) { reply.give(std::move(result)); });
}

void QtWebBrowser2::doPostMessage(const std::wstring& text)
{
    whenLoaded([this, said = toQString(text)] { view().post(said); });
}

void QtWebBrowser2::doPrintToPdf(const std::filesystem::path& file, PaperSize paper)
{
    whenLoaded([this, name = toQFileName(file), paper] {
        view().print(name, {paper.width, paper.height});
    });
}

void QtWebBrowser2::doimActivateLink(const std::wstring& target)
{
    view().followLink(QUrl(m_address).resolved(QUrl(toQString(target))));
}

// Reports -----------------------------------------------------------------------------------------

void QtWebBrowser2::changeEvent(QEvent* event)
{
    QtWidget2Shim::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_view)
        m_view->applySettings();
}

// Helpers -----------------------------------------------------------------------------------------

WebView& QtWebBrowser2::view()
{
    if (m_view)
        return *m_view;
    const QtProgramScope scope;
    const bool hadFocus = hasFocus();
    m_view = makeWebView(*m_news, this);
    QWidget* const shown = m_view->widget();
    if (!layout()) {
        auto* const whole = new QVBoxLayout(this);
        whole->setContentsMargins(0, 0, 0, 0);
    }
    layout()->addWidget(shown);
    shown->show();
    if (!focusProxy())
        setFocusProxy(shown);
    if (hadFocus)
        setFocus();
    return *m_view;
}

/// The program's doing: the address is known, and not told.
void QtWebBrowser2::go(const QString& address, const std::function<void(WebView&)>& act)
{
    m_address = address;
    m_isLoading = true;
    m_progress = 0;
    m_isUserSelecting = false;
    act(view());
}

void QtWebBrowser2::settingsChanged()
{
    if (m_view)
        m_view->applySettings();
}

/// What is meant for the page that the program has sent the browser to waits for that.
void QtWebBrowser2::whenLoaded(std::function<void()> act)
{
    if (m_isLoading)
        m_waiting.push_back(std::move(act));
    else
        act();
}

void QtWebBrowser2::loadIsOver()
{
    m_isLoading = false;
    m_progress = 100;
    const QtDeletionHold hold(this);
    for (const auto& act : std::exchange(m_waiting, {})) {
        if (!hold.isAlive() || m_isEnding)
            return;
        act();
    }
}

unsigned QtWebBrowser2::start(const QString& script, int limit, Receiver receiver)
{
    const unsigned id = ++m_scripts;
    m_running[id] = std::move(receiver);
    if (m_isEnding) {
        finish(id, {});
        return id;
    }
    QTimer::singleShot(limit, this,
                       [this, id] { finish(id, {WebScriptResult::Outcome::TimedOut}); });
    whenLoaded([this, id, script] {
        if (!m_running.contains(id))
            return;
        view().run(script, [self = QPointer(this), id](const WebScriptResult& result) {
            if (self)
                self->finish(id, result);
        });
    });
    return id;
}

void QtWebBrowser2::finish(unsigned script, const WebScriptResult& result)
{
    if (const auto running = m_running.extract(script); !running.empty())
        running.mapped()(result);
}

void QtWebBrowser2::finishScripts()
{
    for (const auto& [id, receiver] : std::exchange(m_running, {}))
        receiver({});
}

/// Ctrl and the wheel.
bool QtWebBrowser2::turnsZoom(QEvent* event)
{
    const auto* const wheel = static_cast<QWheelEvent*>(event);
    if (!wheel->modifiers().testFlag(Qt::ControlModifier) || !m_view->isEngine())
        return false;
    constexpr int Notch = 120;
    m_wheel += wheel->angleDelta().y();
    const int former = m_news->m_settings.zoom;
    doSetZoom(former + m_wheel / Notch * ZoomStep);
    m_wheel %= Notch;
    event->accept();
    if (m_news->m_settings.zoom != former)
        report(&E::zoomChanged, m_news->m_settings.zoom);
    return true;
}

} // namespace VOXI
