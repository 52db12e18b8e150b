#include "enginepage.h"

#include "engineview.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QApplication>
#include <QChildEvent>
#include <QContextMenuEvent>
#include <QWebEngineUrlRequestInfo>

namespace VOXI {

namespace {

WebNavigation kindOf(QWebEnginePage::NavigationType type)
{
    switch (type) {
    case QWebEnginePage::NavigationTypeLinkClicked:
        return WebNavigation::Link;
    case QWebEnginePage::NavigationTypeFormSubmitted:
        return WebNavigation::Form;
    case QWebEnginePage::NavigationTypeBackForward:
        return WebNavigation::History;
    case QWebEnginePage::NavigationTypeReload:
        return WebNavigation::Reload;
    case QWebEnginePage::NavigationTypeRedirect:
        return WebNavigation::Redirect;
    default:
        return WebNavigation::Page;
    }
}

} // namespace

void PageGuard::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    if (m_view.mayLoad(info.requestUrl()))
        m_view.note(info.requestUrl());
    else
        info.block(true);
}

// The page ----------------------------------------------------------------------------------------

EnginePage::EnginePage(EngineView& view, QWebEngineProfile& profile)
    : QWebEnginePage(&profile),
      m_view(view),
      m_guard(view)
{
    setParent(nullptr); // it goes before the profile
    setUrlRequestInterceptor(&m_guard);
}

EnginePage::~EnginePage() { setUrlRequestInterceptor(nullptr); }

/// What is typed comes from the program.
bool EnginePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame)
{
    if (isMainFrame && type == NavigationTypeTyped)
        return true;
    const bool isStep = type == NavigationTypeBackForward || type == NavigationTypeReload;
    if (isMainFrame && isStep && std::exchange(m_isProgramGoing, false))
        return true;
    if (!isMainFrame && url.scheme() == QLatin1String("about"))
        return true;
    return m_view.mayGo(url, kindOf(type), isMainFrame);
}

// Qt's own dialogs, which go on with the page behind their loops.

void EnginePage::javaScriptAlert(const QUrl& origin, const QString& text)
{
    const QtDeletionHold hold(m_view.peer());
    QWebEnginePage::javaScriptAlert(origin, text);
}

bool EnginePage::javaScriptConfirm(const QUrl& origin, const QString& text)
{
    const QtDeletionHold hold(m_view.peer());
    return QWebEnginePage::javaScriptConfirm(origin, text);
}

bool EnginePage::javaScriptPrompt(const QUrl& origin, const QString& text, const QString& usual,
                                  QString* result)
{
    const QtDeletionHold hold(m_view.peer());
    return QWebEnginePage::javaScriptPrompt(origin, text, usual, result);
}

QStringList EnginePage::chooseFiles(FileSelectionMode mode, const QStringList& former,
                                    const QStringList& types)
{
    const QtDeletionHold hold(m_view.peer());
    return QWebEnginePage::chooseFiles(mode, former, types);
}

// What it is seen in ------------------------------------------------------------------------------

EngineWidget::EngineWidget(EngineView& view, QWebEnginePage& page, QWidget* parent)
    : QWebEngineView(&page, parent),
      m_view(view)
{
    for (QObject* const child : children())
        child->installEventFilter(this);
}

/// The engine makes and leaves what gets the user's events as it likes.
bool EngineWidget::event(QEvent* event)
{
    if (event->type() == QEvent::ChildAdded)
        static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
    return QWebEngineView::event(event);
}

bool EngineWidget::eventFilter(QObject* watched, QEvent* event)
{
    return (watched->isWidgetType() && m_view.seesInput(event))
           || QWebEngineView::eventFilter(watched, event);
}

void EngineWidget::contextMenuEvent(QContextMenuEvent* event)
{
    m_view.wantMenu(event->pos());
    event->accept();
}

/// The engine hands the focus on when its page has seen the key, which takes a while. By then the
/// user may have left, and would be taken from where he is.
bool EngineWidget::focusNextPrevChild(bool next)
{
    QWidget* const focus = QApplication::focusWidget();
    return (focus == this || isAncestorOf(focus)) && QWebEngineView::focusNextPrevChild(next);
}

} // namespace VOXI
