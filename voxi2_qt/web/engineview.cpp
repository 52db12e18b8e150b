#include "engineview.h"

#include "../controls/weblibrary.h"
#include "enginepage.h"
#include "enginestart.h"
#include "pagescripts.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QWebEngineFindTextResult>
#include <QWebEngineHistory>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <vector>

namespace VOXI {

namespace {

std::vector<EngineView*>& views()
{
    static auto* const all = new std::vector<EngineView*>;
    return *all;
}

/// With the address that what it refers to is meant from, behind what says how it is to be read.
QByteArray withBase(const QString& html, const QUrl& base)
{
    const bool hasType = html.startsWith(QLatin1String("<!doctype"), Qt::CaseInsensitive);
    const qsizetype place = hasType ? html.indexOf(u'>') + 1 : 0;
    const QString element =
        QStringLiteral("<base href=\"%1\">").arg(base.toString().toHtmlEscaped());
    return (html.left(place) + element + html.mid(place)).toUtf8();
}

} // namespace

EngineView::EngineView(WebViewHost& host, QWidget* parent) : m_host(host)
{
    startEngine();
    connect(&m_calls, &PageCalls::said, this,
            [this](const QString& text) { later([this, text] { m_host.pageSays(text); }); });
    makePage();
    m_widget = std::make_unique<EngineWidget>(*this, *m_page, parent);
    applySettings();
    views().push_back(this);
}

EngineView::~EngineView()
{
    std::erase(views(), this);
    m_page->disconnect(this);
    m_widget.reset();
    dropPage();
}

void EngineView::endAll()
{
    while (!views().empty())
        delete views().back()->m_host.viewPeer().asQObject();
}

QWidget* EngineView::widget() { return m_widget.get(); }
const QtWidget2* EngineView::peer() const { return &m_host.viewPeer(); }

// The page's life ---------------------------------------------------------------------------------

void EngineView::makePage()
{
    m_profileName = m_host.settings().profile;
    m_profile = EngineProfile::of(m_profileName);
    m_profile->join(*this);
    m_page = std::make_unique<EnginePage>(*this, m_profile->profile());
    m_channel = std::make_unique<QWebChannel>();
    m_channel->registerObject(QStringLiteral("program"), &m_calls);
    m_page->setWebChannel(m_channel.get());
    m_page->scripts().insert(messageScript());
    m_style.clear();
    connectPage();
}

void EngineView::dropPage()
{
    for (auto& [token, job] : m_jobs)
        *job.m_wanted = false;
    m_jobs.clear();
    m_downloads.clear();
    m_page.reset();
    m_channel.reset();
    m_profile->profile().disconnect(this);
    m_profile->leave(*this);
    m_profile.reset();
}

void EngineView::connectPage()
{
    QWebEnginePage* const page = m_page.get();
    connect(page, &QWebEnginePage::loadingChanged, this, &EngineView::slotLoading);
    connect(page, &QWebEnginePage::loadProgress, this, [this](int percent) {
        if (!m_isStartAwaited)
            later([this, percent] { m_host.loadIs(percent); });
    });
    connect(page, &QWebEnginePage::urlChanged, this, &EngineView::slotUrl);
    connect(page, &QWebEnginePage::titleChanged, this,
            [this](const QString& title) { later([this, title] { m_host.titleIs(title); }); });
    connect(page, &QWebEnginePage::iconChanged, this,
            [this](const QIcon& icon) { later([this, icon] { m_host.iconIs(icon); }); });
    connect(page, &QWebEnginePage::linkHovered, this, [this](const QString& address) {
        later([this, address] { m_host.linkIsUnderPointer(address); });
    });
    connect(page, &QWebEnginePage::selectionChanged, this,
            [this] { later([this] { m_host.selectionIsAnother(); }); });
    connect(page, &QWebEnginePage::findTextFinished, this,
            [this](const QWebEngineFindTextResult& result) {
                const WebHits hits{result.numberOfMatches(), result.activeMatch()};
                later([this, hits] { m_host.found(hits); });
            });
    connect(page, &QWebEnginePage::newWindowRequested, this, &EngineView::slotNewWindow);
    connect(page, &QWebEnginePage::featurePermissionRequested, page,
            [page](const QUrl& origin, QWebEnginePage::Feature feature) {
                page->setFeaturePermission(origin, feature, QWebEnginePage::PermissionDeniedByUser);
            });
    connect(page, &QWebEnginePage::renderProcessTerminated, this,
            [this](QWebEnginePage::RenderProcessTerminationStatus status, int code) {
                if (status == QWebEnginePage::NormalTerminationStatus)
                    return;
                m_hasCrashed = true;
                later([this, code] { m_host.hasCrashed(code); });
            });
    connect(&m_profile->profile(), &QWebEngineProfile::downloadRequested, this,
            &EngineView::slotDownload);
}

// Settings ----------------------------------------------------------------------------------------

void EngineView::applySettings()
{
    const WebSettings& wanted = m_host.settings();
    if (wanted.profile != m_profileName) {
        const QUrl url = m_page->url();
        std::unique_ptr<EnginePage> former = std::move(m_page);
        const std::shared_ptr<EngineProfile> formerProfile = m_profile;
        const std::unique_ptr<QWebChannel> formerChannel = std::move(m_channel);
        former->disconnect(this);
        formerProfile->profile().disconnect(this);
        formerProfile->leave(*this);
        for (auto& [id, download] : m_downloads)
            download.m_number = 0; // the next one counts anew
        makePage();
        m_widget->setPage(m_page.get());
        former.reset(); // before its profile
        if (!url.isEmpty())
            goTo(url);
    }
    QWebEngineSettings& settings = *m_page->settings();
    using S = QWebEngineSettings;
    settings.setAttribute(S::JavascriptEnabled, wanted.areScriptsEnabled);
    settings.setAttribute(S::NavigateOnDropEnabled, false);
    settings.setAttribute(S::FocusOnNavigationEnabled, false);
    settings.setAttribute(S::PdfViewerEnabled, false);
    settings.setAttribute(S::DnsPrefetchEnabled, false);
    m_page->setZoomFactor(wanted.zoom / 100.0);
    applyScripts();
}

void EngineView::applyScripts()
{
    const WebSettings& wanted = m_host.settings();
    QWebEngineScriptCollection& scripts = m_page->scripts();
    const QWebEngineScript guard = withoutCalls();
    if (wanted.hasNetworkAccess)
        scripts.remove(guard);
    else if (!scripts.contains(guard))
        scripts.insert(guard);
    if (m_style == wanted.userStyle)
        return;
    for (const QWebEngineScript& former : scripts.find(styleScript({}).name()))
        scripts.remove(former);
    m_style = wanted.userStyle;
    if (!m_style.isEmpty())
        scripts.insert(styleScript(m_style));
    m_page->runJavaScript(styleCode(m_style), QWebEngineScript::ApplicationWorld);
}

// Where to ----------------------------------------------------------------------------------------

void EngineView::goTo(const QUrl& url)
{
    constexpr qsizetype Most = 1'000'000; // of the engine's two
    ++m_moves;
    m_hasCrashed = false;
    m_isText = false;
    const QUrl target = url.isEmpty() ? QUrl(QStringLiteral("about:blank")) : url;
    if (target.isValid() && mayLoad(target) && target.toEncoded().size() <= Most) {
        m_isStartAwaited = true;
        m_page->load(target);
        return;
    }
    m_page->triggerAction(QWebEnginePage::Stop);
    tellEnd(false);
    slotUrl(m_page->url());
}

/// The engine takes a text as a part of an address, which must not be long. A longer one is a page
/// of the program: of the address it is to have, or else one of its own.
void EngineView::showHtml(const QString& html, const QUrl& base)
{
    constexpr qsizetype Most = 300'000; // characters, of nine bytes each when they are foreign
    if (html.size() <= Most / 2) {
        ++m_moves;
        m_hasCrashed = false;
        m_isStartAwaited = true;
        m_isText = true;
        m_page->setHtml(html, base);
        return;
    }
    m_textBase = base;
    const bool isOwn = m_host.isOfProgram(base);
    m_textPage = isOwn ? base.adjusted(QUrl::RemoveFragment)
                       : QUrl(QStringLiteral("app://html/%1").arg(++m_tokens));
    m_text = isOwn || base.isEmpty() ? html.toUtf8() : withBase(html, base);
    goTo(m_textPage);
}

void EngineView::followLink(const QUrl& url)
{
    const QPointer<EngineView> self(this);
    if (mayGo(url, WebNavigation::Link, true) && self) {
        m_page->load(url);
    }
}

void EngineView::goBy(int step)
{
    m_page->expectProgram();
    m_page->triggerAction(step < 0 ? QWebEnginePage::Back : QWebEnginePage::Forward);
}

bool EngineView::isThere(int step) const
{
    return step < 0 ? m_page->history()->canGoBack() : m_page->history()->canGoForward();
}

void EngineView::reload()
{
    m_hasCrashed = false;
    m_page->expectProgram();
    m_page->triggerAction(QWebEnginePage::Reload);
}

void EngineView::stop() { m_page->triggerAction(QWebEnginePage::Stop); }

bool EngineView::mayGo(const QUrl& url, WebNavigation kind, bool isWholePage)
{
    const QtDeletionHold hold(peer());
    const unsigned moves = m_moves;
    return m_host.mayGo(url, kind, isWholePage) && hold.isAlive() && moves == m_moves
           && mayLoad(url);
}

/// What is told of a page that the program has left is not worth telling.
void EngineView::slotLoading(const QWebEngineLoadingInfo& info)
{
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        m_isStartAwaited = false;
        later([this, moves = m_moves] {
            if (moves == m_moves)
                m_host.loadIs(0);
        });
        return;
    }
    if (m_isStartAwaited && info.url() != m_page->requestedUrl())
        return;
    m_isStartAwaited = false;
    m_page->setZoomFactor(m_host.settings().zoom / 100.0);
    tellEnd(info.status() == QWebEngineLoadingInfo::LoadSucceededStatus);
}

void EngineView::tellEnd(bool isComplete)
{
    later([this, isComplete, moves = m_moves] {
        if (moves == m_moves)
            m_host.loadIsOver(isComplete);
    });
}

void EngineView::slotUrl(const QUrl& url)
{
    m_page->setZoomFactor(m_host.settings().zoom / 100.0);
    QUrl address = url;
    if (!m_textPage.isEmpty() && url.adjusted(QUrl::RemoveFragment) == m_textPage)
        address = m_textBase;
    else if (url.scheme() == QLatin1String("data")
             && (m_isText || m_page->requestedUrl().isEmpty()))
        address.clear();
    later([this, address, moves = m_moves] {
        if (moves == m_moves)
            m_host.addressIs(address);
    });
}

void EngineView::slotNewWindow(QWebEngineNewWindowRequest& request)
{
    const QUrl url = request.requestedUrl();
    const bool isByUser = request.isUserInitiated();
    later([this, url, isByUser] { m_host.windowIsWanted(url, isByUser); });
}

} // namespace VOXI

VOXI::WebView* voxi2_qt_makeWebView(VOXI::WebViewHost* host, QWidget* parent)
{
    return new VOXI::EngineView(*host, parent);
}
