#include "qtwebnews.h"

#include "voxi2_qt/kernel/qtconvert.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>

#include <algorithm>

namespace VOXI {

namespace {

using E = VXWebBrowser2Emitters;

/// The pointer and its wheel, which the page always has a use for.
bool isOfPointer(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

QString webText(const QUrl& url)
{
    return url == QUrl(QStringLiteral("about:blank")) ? QString() : url.toString();
}

bool QtWebNews::isOfProgram(const QUrl& url) const
{
    const auto& names = VXWebBrowser2::fixedSchemes();
    return std::find(names.begin(), names.end(), Detail::utf8FromQString(url.scheme()))
           != names.end();
}

// Asked -------------------------------------------------------------------------------------------

bool QtWebNews::mayGo(const QUrl& url, WebNavigation kind, bool isWholePage)
{
    const auto asked = m_peer.ask(&E::navigating, toStdWString(webText(url)), kind, isWholePage);
    return !asked || !asked->isRefused();
}

bool QtWebNews::mayRead(const QUrl& url)
{
    return !m_files.find(url, m_settings.filePath).isNull();
}

WebQuery2::Reply QtWebNews::askForContent(const WebQuery2& query, WebContent& given)
{
    return m_peer.ask(&E::contentRequested, query) ? query.endAsking(given)
                                                   : WebQuery2::Reply::None;
}

QString QtWebNews::placeFor(const WebDownload& download)
{
    const auto asked = m_peer.ask(&E::downloadRequested, download);
    return asked ? toQFileName(asked->file()) : QString();
}

bool QtWebNews::seesInput(QEvent* event)
{
    const QEvent::Type type = event->type();
    m_peer.m_isUserSelecting |= type == QEvent::KeyPress || type == QEvent::MouseButtonPress;
    if (type == QEvent::Wheel && m_peer.turnsZoom(event))
        return true;
    const bool isFocus = type == QEvent::FocusIn || type == QEvent::FocusOut;
    return (isFocus || isOfPointer(type)) && m_peer.showToPeer(&m_peer, event);
}

// Told --------------------------------------------------------------------------------------------

void QtWebNews::addressIs(const QUrl& url)
{
    const QString address = webText(url);
    if (address == m_peer.m_address)
        return;
    m_peer.m_address = address;
    m_peer.report(&E::addressChanged, toStdWString(address));
}

void QtWebNews::titleIs(const QString& title)
{
    if (title == m_peer.m_title)
        return;
    m_peer.m_title = title;
    m_peer.report(&E::titleChanged, toStdWString(title));
}

void QtWebNews::iconIs(const QIcon& icon)
{
    if (icon.isNull() && m_peer.m_icon.isNull())
        return;
    m_peer.m_icon = icon;
    m_peer.report(&E::iconChanged);
}

void QtWebNews::loadIs(int percent)
{
    if (m_peer.m_isLoading && percent == m_peer.m_progress && percent != 0)
        return;
    m_peer.m_isLoading = true;
    m_peer.m_hasCrashed = false;
    m_peer.m_progress = percent;
    m_peer.report(&E::loadProgressed, percent);
}

void QtWebNews::loadIsOver(bool isComplete)
{
    m_peer.loadIsOver();
    m_peer.report(&E::loadEnded, isComplete);
}

void QtWebNews::linkIsUnderPointer(const QString& address)
{
    m_peer.report(&E::linkHovered, toStdWString(address));
}

void QtWebNews::selectionIsAnother()
{
    if (m_peer.m_isUserSelecting)
        m_peer.report(&E::selectionChanged);
}

void QtWebNews::zoomIs(int percent)
{
    m_settings.zoom = percent;
    m_peer.report(&E::zoomChanged, percent);
}

void QtWebNews::found(const WebHits& hits) { m_peer.report(&E::found, hits); }

void QtWebNews::pageSays(const QString& text)
{
    m_peer.report(&E::messageReceived, toStdWString(text), toStdWString(m_peer.m_address));
}

void QtWebNews::pdfIsOver(const QString& file, bool isWritten)
{
    m_peer.report(&E::pdfPrinted, toFilePath(file), isWritten);
}

void QtWebNews::downloadIs(unsigned id, qint64 received, qint64 size)
{
    m_peer.report(&E::downloadProgressed, id, static_cast<long long>(received),
                  static_cast<long long>(size));
}

void QtWebNews::downloadIsOver(unsigned id, WebDownloadEnd end)
{
    m_peer.report(&E::downloadEnded, id, end);
}

void QtWebNews::windowIsWanted(const QUrl& url, bool isByUser)
{
    m_peer.report(&E::windowRequested, toStdWString(webText(url)), isByUser);
}

void QtWebNews::contextMenuIsWanted(const QPoint& place)
{
    if (!m_peer.isHeard(&VXWidget2Emitters::contextMenu)) {
        m_peer.m_view->showOwnMenu(place);
        return;
    }
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, m_peer.mapToGlobal(place));
    QCoreApplication::sendEvent(&m_peer, &event);
}

void QtWebNews::hasCrashed(int exitCode)
{
    m_peer.finishScripts();
    m_peer.loadIsOver();
    m_peer.m_hasCrashed = true;
    m_peer.report(&E::crashed, exitCode);
}

} // namespace VOXI
