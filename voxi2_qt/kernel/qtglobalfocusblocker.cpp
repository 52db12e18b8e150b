#include "voxi2_qt/kernel/qtglobalfocusblocker.h"

#include "voxi2_qt/kernel/qtwidget2.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

// A window manager that has not answered by then will not.
constexpr int GiveUpAfter = 500;

bool wantsToBeKeptBack(const QWidget* window)
{
    const auto* peer = dynamic_cast<const QtWidget2*>(peerOf(window));
    return !peer || peer->supportsGlobalFocusBlocker();
}

} // namespace

QtGlobalFocusBlocker& QtGlobalFocusBlocker::instance()
{
    // A child of the application would be destroyed with it while windows still ask.
    static auto* blocker = new QtGlobalFocusBlocker;
    return *blocker;
}

void QtGlobalFocusBlocker::registerWindow(QWidget* window)
{
    if (!window || isRegistered(window) || !wantsToBeKeptBack(window))
        return;
    m_windows[window].m_window = window;
    window->installEventFilter(this);
    settle(window, 0);
}

void QtGlobalFocusBlocker::awaitActivation(QWidget* window)
{
    const auto found = m_windows.find(window);
    // Asking again and again must not keep the user's own activation back for ever.
    if (found == m_windows.end() || window->isActiveWindow()
        || std::exchange(found->second.m_isAwaited, true))
        return;
    settle(window, GiveUpAfter);
}

bool QtGlobalFocusBlocker::isRegistered(const QWidget* window) const
{
    return m_windows.count(window) != 0;
}

bool QtGlobalFocusBlocker::blocks(const QWidget* widget, const QFocusEvent& event) const
{
    if (m_suspensions > 0)
        return false;
    // Whatever the reason is that Qt gives: out of what is hidden it takes the focus as the tab key
    // does.
    if (QtProgramScope::isActive())
        return wantsToBeKeptBack(widget->window());
    if (m_windows.empty() || !isRegistered(widget->window()))
        return false;
    switch (event.reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::OtherFocusReason:
    case Qt::NoFocusReason:
        return true;
    default:
        return false;
    }
}

bool QtGlobalFocusBlocker::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::WindowActivate:
    case QEvent::Hide:
        settle(watched, 0);
        break;
    case QEvent::Show:
        // Its activation is to come; this may be a change of its flags.
        settle(watched, GiveUpAfter);
        break;
    case QEvent::Destroy:
        releaseWindow(watched);
        break;
    default:
        break;
    }
    return false;
}

void QtGlobalFocusBlocker::timerEvent(QTimerEvent* event)
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(), [&](const auto& entry) {
        return entry.second.m_timer == event->timerId();
    });
    if (found == m_windows.end())
        killTimer(event->timerId());
    else if (found->second.m_isLastTurn)
        releaseWindow(found->first);
    else
        settle(found->first, 0); // a busy program has yet to see what came meanwhile
}

void QtGlobalFocusBlocker::settle(const QObject* window, int milliseconds)
{
    const auto found = m_windows.find(window);
    if (found == m_windows.end())
        return;
    if (found->second.m_timer != 0)
        killTimer(found->second.m_timer);
    found->second.m_timer = startTimer(milliseconds);
    found->second.m_isLastTurn = milliseconds == 0;
}

void QtGlobalFocusBlocker::releaseWindow(const QObject* window)
{
    const auto found = m_windows.find(window);
    if (found == m_windows.end())
        return;
    if (found->second.m_timer != 0)
        killTimer(found->second.m_timer);
    if (found->second.m_window)
        found->second.m_window->removeEventFilter(this);
    m_windows.erase(found);
}

} // namespace VOXI
