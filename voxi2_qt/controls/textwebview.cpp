#include "textwebview.h"

#include "browserurls.h"
#include "textfinder.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QCursor>
#include <QIcon>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

TextResource resourceOf(const WebContent& content)
{
    return content.isEmpty() ? TextResource() : TextResource(content.bytes());
}

} // namespace

TextWebView::TextWebView(WebViewHost& host, QWidget* parent)
    : m_host(host),
      m_browser(std::make_unique<TextBrowser>(*this, parent))
{
    // Sent before the history knows of it.
    connect(m_browser.get(), &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
        if (!m_isGoing)
            tellWhereItIs(url);
    });
    connect(m_browser.get(), &TextBrowser::titleChanged, this,
            [this](const QString& title) { m_host.titleIs(title); });
    connect(m_browser.get(), &QTextBrowser::highlighted, this,
            [this](const QUrl& link) { m_host.linkIsUnderPointer(browserText(link)); });
    connect(m_browser.get(), &QTextEdit::selectionChanged, this, [this] {
        if (!QtProgramScope::isActive())
            m_host.selectionIsAnother();
    });
    connect(m_browser.get(), &TextBrowser::zoomChanged, this,
            [this](int percent) { m_host.zoomIs(percent); });
    applySettings();
}

TextWebView::~TextWebView() { m_browser->disconnect(this); }

void TextWebView::applySettings()
{
    const WebSettings& settings = m_host.settings();
    m_browser->setSearchPaths(settings.filePath);
    m_browser->setZoom(settings.zoom);
    if (m_browser->document()->defaultStyleSheet() == settings.userStyle)
        return;
    m_browser->document()->setDefaultStyleSheet(settings.userStyle);
    if (!m_browser->source().isEmpty())
        reload();
}

// Where to ----------------------------------------------------------------------------------------

/// Says that it is there when it is, which may be later.
void TextWebView::go(const std::function<void()>& act)
{
    m_isGoing = true;
    const QtDeletionHold hold(&m_host.viewPeer());
    {
        const QtProgramScope scope;
        act();
    }
    if (hold.isAlive())
        tellWhereItIs(m_browser->source());
}

void TextWebView::goTo(const QUrl& url)
{
    if (isBuffer(url)) {
        m_host.loadIsOver(false);
        return;
    }
    go([&] { m_browser->goTo(url.toString()); });
}

/// As the page of that address, so that what it refers to is meant from there.
void TextWebView::showHtml(const QString& html, const QUrl& base)
{
    m_textPage = base.isEmpty() || isBuffer(base) ? QUrl(QStringLiteral("about:blank")) : base;
    m_text = html;
    const bool isSame = m_browser->source() == m_textPage;
    go([&] { isSame ? m_browser->reload() : m_browser->goTo(m_textPage.toString()); });
}

void TextWebView::followLink(const QUrl& url) { m_browser->followLink(url); }

void TextWebView::goBy(int step)
{
    go([&] { m_browser->goBy(step); });
}

bool TextWebView::isThere(int step) const
{
    return step < 0 ? m_browser->isBackwardAvailable() : m_browser->isForwardAvailable();
}

void TextWebView::reload()
{
    go([&] { m_browser->reload(); });
}

void TextWebView::tellWhereItIs(const QUrl& url)
{
    if (m_browser->isAwaiting())
        return;
    const QtDeletionHold hold(&m_host.viewPeer());
    m_isGoing = false;
    m_host.addressIs(url);
    if (hold.isAlive())
        m_host.loadIsOver(!m_browser->isMissing());
}

// The page ----------------------------------------------------------------------------------------

void TextWebView::find(const TextSearch& search)
{
    WebHits hits;
    const TextFinder finder(*m_browser->document(), search);
    if (const QTextCursor at = finder.select(m_browser->textCursor()); !at.isNull()) {
        const QtProgramScope scope;
        m_browser->setTextCursor(at);
        m_browser->ensureCursorVisible();
        const auto all = finder.all();
        hits.count = static_cast<int>(all.size());
        const auto isCurrent = [&](const auto& match) {
            return match.m_from >= at.selectionStart();
        };
        hits.current =
            static_cast<int>(std::find_if(all.begin(), all.end(), isCurrent) - all.begin() + 1);
    }
    m_host.found(hits);
}

QString TextWebView::selectedText() const
{
    return m_browser->textCursor().selection().toPlainText();
}

void TextWebView::selectAll()
{
    const QtProgramScope scope;
    m_browser->selectAll();
}

void TextWebView::clearSelection()
{
    const QtProgramScope scope;
    QTextCursor cursor = m_browser->textCursor();
    cursor.clearSelection();
    m_browser->setTextCursor(cursor);
}

void TextWebView::copy() { m_browser->copy(); }

WebTarget TextWebView::target() const
{
    const QPoint place = m_browser->viewport()->mapFromGlobal(QCursor::pos());
    return {.link = toStdWString(m_browser->anchorAt(place)),
            .selectedText = toStdWString(selectedText())};
}

void TextWebView::run(const QString&, std::function<void(WebScriptResult)> done)
{
    done({WebScriptResult::Outcome::Gone});
}

void TextWebView::print(const QString& file, const QSizeF& millimetres)
{
    const QtDeletionHold hold(&m_host.viewPeer());
    const bool isWritten = m_browser->printToPdf(file, millimetres);
    if (hold.isAlive())
        m_host.pdfIsOver(file, isWritten);
}

// What pages need ---------------------------------------------------------------------------------

const QtWidget2& TextWebView::browserPeer() const { return m_host.viewPeer(); }

TextResourceQuery2::Reply TextWebView::askForResource(TextResourceType type, const QString& url,
                                                      unsigned token,
                                                      const TextResourceQuery2::Wanted& wanted,
                                                      TextResource& given) const
{
    using Reply = TextResourceQuery2::Reply;
    const QUrl address = browserUrl(url);
    if (type == TextResourceType::Page && address == m_textPage) {
        given = TextResource(toStdWString(m_text));
        return Reply::Given;
    }
    if (!m_host.isOfProgram(address)) {
        const bool isFile = address.isLocalFile() || address.scheme() == QLatin1String("path")
                            || address.scheme() == QLatin1String("qrc");
        return isFile ? Reply::None : Reply::Given;
    }
    WebContent content;
    const WebQuery2 query(m_host.viewPeer().getUID(), token, toStdWString(url), "GET", wanted);
    switch (m_host.askForContent(query, content)) {
    case WebQuery2::Reply::Later:
        return Reply::Later;
    case WebQuery2::Reply::Given:
        given = resourceOf(content);
        break;
    case WebQuery2::Reply::None:
        break;
    }
    return Reply::Given;
}

void TextWebView::takeContent(unsigned token, const WebContent& content)
{
    m_browser->takeAnswer(token, resourceOf(content));
    if (m_isGoing)
        tellWhereItIs(m_browser->source());
}

bool TextWebView::mayFollow(const QString& target) const
{
    const QUrl url = browserUrl(target);
    return m_host.mayGo(url, WebNavigation::Link, true) && !isBuffer(url);
}

QStringList TextWebView::filePath() const { return m_host.settings().filePath; }

} // namespace VOXI
