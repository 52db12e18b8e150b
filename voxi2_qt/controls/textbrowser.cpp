#include "voxi2_qt/controls/textbrowser.h"

#include "browserurls.h"
#include "pageresources.h"
#include "voxi2/kernel/translation.h"
#include "voxi2_qt/kernel/qttext.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace VOXI {

namespace {

/// Not all of a very long address: Qt takes seconds to lay out a word of a hundred thousand
/// letters.
PageContent missing(const QUrl& page)
{
    constexpr qsizetype Most = 1000;
    return {PageContent::Kind::Plain,
            toQString(translated("No document: %1", {toStdWString(browserText(page).left(Most))}))};
}

PageContent plain(const QString& text) { return {PageContent::Kind::Plain, text}; }

/// Of a name that Qt has taken for a buffer's, since it stands in one.
QString bareName(const QString& text)
{
    const QLatin1String address("buffer://");
    return text.startsWith(address) ? text.mid(address.size()) : text;
}

QUrl withoutFragment(const QUrl& url) { return url.adjusted(QUrl::RemoveFragment); }

/// By its name, as Qt tells them apart.
QTextDocument::ResourceType typeOf(const QUrl& url)
{
    const QString name = url.fileName();
    for (const char* const suffix : {".md", ".mkd", ".markdown"}) {
        if (name.endsWith(QLatin1String(suffix)))
            return QTextDocument::MarkdownResource;
    }
    return QTextDocument::HtmlResource;
}

PageContent::Kind kindOf(QTextDocument::ResourceType type)
{
    return type == QTextDocument::MarkdownResource ? PageContent::Kind::Markdown
                                                   : PageContent::Kind::Html;
}

} // namespace

TextBrowser::TextBrowser(const TextBrowserHost& host, QWidget* parent)
    : QTextBrowser(parent),
      m_host(host),
      m_resources(std::make_unique<PageResources>(host)),
      m_content(std::make_unique<PageContent>())
{
    // Qt would have the desktop open some of them.
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &TextBrowser::followLink);
}

TextBrowser::~TextBrowser() = default;

void TextBrowser::showText(const QString& text)
{
    ++m_moves;
    m_awaited.reset();
    m_resources->abandonPage();
    m_resources->begin();
    m_isOwnText = true;
    m_pageToken = 0;
    document()->clear();
    *m_content = {Qt::mightBeRichText(text) ? PageContent::Kind::Html : PageContent::Kind::Plain,
                  text};
    setText(text);
    noteTitle();
}

// Where to ----------------------------------------------------------------------------------------

/// Names are meant from the page, unless that is a file or a buffer: files are looked for in all
/// places.
void TextBrowser::goTo(const QString& text)
{
    QUrl url = browserUrl(text);
    if (isRelativeName(url) && !isBuffer(m_page) && m_page.scheme() != QLatin1String("path"))
        url = resolvedUrl(m_page, QUrl(text));
    m_resources->files().allow(url, searchPaths());
    setSource(url);
}

QString TextBrowser::place() const { return browserText(source()); }

/// The program hears of it first. The address of a buffer has no folder: names are meant without
/// it, and nothing is to be loaded for places in it.
void TextBrowser::followLink(const QUrl& url)
{
    const QUrl target = resolvedUrl(m_page, url);
    const bool isInPage = withoutFragment(target) == withoutFragment(m_page);
    QString text = browserText(target);
    if (isBuffer(target) && !isInPage && target.host().isEmpty())
        text = bareName(text);
    const QtDeletionHold hold(&m_host.browserPeer());
    const unsigned moves = m_moves;
    Q_EMIT linkClicked(text);
    if (!hold.isAlive() || !m_host.mayFollow(text) || !hold.isAlive() || moves != m_moves)
        return;
    if (isBuffer(target) && isInPage && target.hasFragment())
        scrollToAnchor(target.fragment());
    else
        setSource(browserUrl(text));
}

void TextBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type)
{
    if (m_isArriving)
        QTextBrowser::doSetSource(url, type);
    else if (const QString text = browserText(url); !isHostText(text))
        navigate({.m_url = browserUrl(text), .m_type = type});
}

void TextBrowser::backward() { goBy(-1); }
void TextBrowser::forward() { goBy(1); }

void TextBrowser::goBy(int steps)
{
    if (steps >= -backwardHistoryCount() && steps <= forwardHistoryCount() && steps != 0)
        navigate({.m_url = historyUrl(steps), .m_steps = steps});
}

void TextBrowser::reload() { navigate({.m_url = m_page, .m_isReload = true}); }

std::vector<TextBrowser::Visit> TextBrowser::visits() const
{
    std::vector<Visit> visits;
    for (int i = -backwardHistoryCount(); i <= forwardHistoryCount() && visitPlace() >= 0; ++i)
        visits.push_back({browserText(historyUrl(i)), i == 0 ? documentTitle() : historyTitle(i)});
    return visits;
}

int TextBrowser::visitPlace() const { return backwardHistoryCount(); }

void TextBrowser::navigate(Navigation navigation)
{
    ++m_moves;
    m_awaited.reset();
    navigation.m_isProgram = QtProgramScope::isActive();
    if (auto content = contentFor(navigation))
        arrive(navigation, std::move(*content));
}

std::optional<PageContent> TextBrowser::contentFor(Navigation& navigation)
{
    const QUrl page = resolvedUrl(m_page, navigation.m_url);
    if (const QString text = browserText(page); isBufferText(text)) {
        navigation.m_type = QTextDocument::HtmlResource;
        navigation.m_isFresh = true;
        return bufferContent(text, navigation.m_steps == 0);
    }
    if (navigation.m_type == QTextDocument::UnknownResource)
        navigation.m_type = typeOf(page);
    const bool isSame = withoutFragment(page) == withoutFragment(m_page);
    if (isSame && !navigation.m_isReload && !m_isMissing && (!m_isOwnText || page.hasFragment()))
        return *m_content;
    if (!page.isValid())
        return std::nullopt;
    navigation.m_isFresh = true;
    const QtDeletionHold hold(&m_host.browserPeer());
    const unsigned moves = m_moves;
    const auto answer = m_resources->page(withoutFragment(page), kindOf(navigation.m_type));
    if (!hold.isAlive() || moves != m_moves)
        return std::nullopt;
    navigation.m_token = answer.m_token;
    if (answer.m_found == PageResources::Found::Later) {
        m_awaited = navigation;
        return std::nullopt;
    }
    navigation.m_isMissing = answer.m_found == PageResources::Found::Nowhere;
    return navigation.m_isMissing ? missing(page) : answer.m_content;
}

/// `isNamed`: by a program or a link, and not by the history, which outlives buffers.
PageContent TextBrowser::bufferContent(const QString& text, bool isNamed)
{
    const auto number = bufferNumber(text);
    if (!number)
        return plain(toQString(translated("Invalid buffer format: %1", {toStdWString(text)})));
    const bool exists = *number >= 1 && *number <= m_buffers.size();
    assert((exists || !isNamed) && "index out of range");
    if (!exists)
        return plain(toQString(translated("No such buffer: %1", {toStdWString(text)})));
    if (isNamed)
        m_currentBuffer = *number;
    const QString& content = m_buffers.at(*number - 1);
    return Qt::mightBeRichText(content) ? PageContent{PageContent::Kind::Html, content}
                                        : plain(content);
}

/// What is reported waits until Qt is through: its history is not in order before.
void TextBrowser::arrive(const Navigation& navigation, PageContent content)
{
    const QtReportHold reports;
    std::optional<QtProgramScope> program;
    if (navigation.m_isProgram)
        program.emplace();
    *m_content = std::move(content);
    m_hasLoaded = false;
    moveQt(navigation);
    if (m_hasLoaded || navigation.m_isFresh) {
        m_isOwnText = false;
        m_isMissing = navigation.m_isMissing;
        m_pageToken = navigation.m_token;
    }
    if (m_hasLoaded && m_content->kind == PageContent::Kind::Plain) {
        showPlain();
    } else if (!m_hasLoaded && navigation.m_isFresh) {
        m_resources->begin();
        showAgain();
    }
    noteTitle();
}

void TextBrowser::moveQt(const Navigation& navigation)
{
    const QScopedValueRollback<bool> arriving(m_isArriving, true);
    const QScopedValueRollback<bool> inHistory(m_isInHistory, navigation.m_steps != 0);
    forgetFocus();
    if (navigation.m_isReload) {
        QTextBrowser::reload();
        return;
    }
    if (navigation.m_steps == 0) {
        QTextBrowser::doSetSource(navigation.m_url, navigation.m_type);
        return;
    }
    // The pages on the way are not shown; Qt notes their titles as it leaves them.
    const int way = navigation.m_steps < 0 ? -1 : 1;
    const PageContent last = *m_content;
    for (int left = std::abs(navigation.m_steps); left > 0; --left) {
        std::optional<QSignalBlocker> quiet;
        if (left > 1) {
            quiet.emplace(this);
            *m_content = {
                PageContent::Kind::Html,
                QStringLiteral("<title>%1</title>").arg(historyTitle(way).toHtmlEscaped())};
        } else {
            *m_content = last;
        }
        if (way < 0)
            QTextBrowser::backward();
        else
            QTextBrowser::forward();
    }
}

/// Qt's history would select the link again that has the focus, wherever that is in a page that may
/// be another one by then, and scroll there.
void TextBrowser::forgetFocus()
{
    QTextCursor cursor = textCursor();
    if (!cursor.hasSelection())
        return;
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    cursor.clearSelection();
    setTextCursor(cursor);
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
}

/// As it is: what Qt makes of it as HTML loses empty lines and spaces.
void TextBrowser::showPlain()
{
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    document()->clear();
    setPlainText(m_content->text);
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
}

void TextBrowser::noteTitle()
{
    if (documentTitle() == m_title)
        return;
    m_title = documentTitle();
    Q_EMIT titleChanged(m_title);
}

// What pages need ---------------------------------------------------------------------------------

QVariant TextBrowser::loadResource(int type, const QUrl& name)
{
    if (type == QTextDocument::HtmlResource || type == QTextDocument::MarkdownResource) {
        m_hasLoaded = true;
        m_page = name;
        m_resources->begin();
        document()->clear(); // with the pictures of that name of the former page
        document()->setBaseUrl(QUrl());
        // An empty one would have Qt complain. A plain one is shown later; it takes its room where
        // the history has noted a place in it.
        const bool isPlain = m_content->kind == PageContent::Kind::Plain;
        if (m_content->text.isEmpty() || (isPlain && !m_isInHistory))
            return QStringLiteral("\n");
        return isPlain ? Qt::convertFromPlainText(m_content->text) : m_content->text;
    }
    QUrl url = resolvedUrl(m_page, name);
    if (isBuffer(url))
        url = browserUrl(bareName(browserText(url)));
    QVariant value = m_resources->resource(type, name, url);
    if (m_resources->isAnyNoted() && !std::exchange(m_isFetching, true))
        QMetaObject::invokeMethod(this, &TextBrowser::fetchNoted, Qt::QueuedConnection);
    return value;
}

void TextBrowser::fetchNoted()
{
    m_isFetching = false;
    const QtDeletionHold hold(&m_host.browserPeer());
    const auto came = m_resources->ask();
    if (hold.isAlive())
        layOutWith(came);
}

void TextBrowser::takeAnswer(unsigned token, const TextResource& resource)
{
    if (m_awaited && m_awaited->m_token == token) {
        Navigation navigation = *std::exchange(m_awaited, std::nullopt);
        const auto content = PageResources::contentOf(resource, kindOf(navigation.m_type));
        navigation.m_isMissing = !content;
        ++m_moves;
        arrive(navigation, content ? *content : missing(resolvedUrl(m_page, navigation.m_url)));
    } else if (token == m_pageToken && token != 0) {
        if (auto content = PageResources::contentOf(resource, kindOf(sourceType()))) {
            const QtProgramScope scope;
            *m_content = std::move(*content);
            showAgain();
            noteTitle();
        }
    } else {
        layOutWith(m_resources->take(token, resource));
    }
}

/// Style sheets and backgrounds count while a page is read; pictures take their room by laying it
/// out again.
template <class Came>
void TextBrowser::layOutWith(const Came& came)
{
    if (came.empty())
        return;
    const bool isReadAgain =
        std::any_of(
            came.begin(), came.end(),
            [](const auto& each) { return each.m_type == QTextDocument::StyleSheetResource; })
        || m_content->text.contains(QLatin1String("background"), Qt::CaseInsensitive);
    if (isReadAgain) {
        showAgain();
        return;
    }
    for (const auto& each : came) {
        for (const QUrl& name : each.m_names)
            document()->addResource(each.m_type, name, each.m_value);
    }
    document()->markContentsDirty(0, document()->characterCount());
}

/// The same page, with what has come for it; the user's place and selection stay.
void TextBrowser::showAgain()
{
    const QSignalBlocker quiet(this);
    const int across = horizontalScrollBar()->value();
    const int down = verticalScrollBar()->value();
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    const QUrl base = document()->baseUrl();
    document()->clear();
    document()->setBaseUrl(base);
    switch (m_content->kind) {
    case PageContent::Kind::Html:
        setHtml(m_content->text);
        break;
    case PageContent::Kind::Markdown:
        setMarkdown(m_content->text);
        break;
    case PageContent::Kind::Plain:
        setPlainText(m_content->text);
        break;
    }
    const int last = document()->characterCount() - 1;
    QTextCursor cursor(document());
    cursor.setPosition(std::min(anchor, last));
    cursor.setPosition(std::min(position, last), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    horizontalScrollBar()->setValue(across);
    verticalScrollBar()->setValue(down);
}

} // namespace VOXI
