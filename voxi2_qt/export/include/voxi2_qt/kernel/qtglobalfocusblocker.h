#pragma once

#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>
#include <QPointer>

#include <unordered_map>

QT_BEGIN_NAMESPACE
class QFocusEvent;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Keeps focus-in reports of windows back whose focus the program is just changing.
///
/// A request to show, raise, activate or focus may take effect long after it returned: the window
/// manager decides when a window becomes active. A registered window's focus reports are kept back
/// until the change has settled: the window has become active and the events of that turn are
/// through, or nothing came of it for a while. Focus that the user moves (mouse, tab, shortcut) is
/// reported in any case, except while the request itself runs. GUI thread only.
class VOXI2_QT_EXPORT QtGlobalFocusBlocker : public QObject
{
public:
    static QtGlobalFocusBlocker& instance();

    /// Registers the window, unless it is null or does not want it (a `QtWindow2` can say so); of a
    /// registered one the time begins anew. It is released by itself.
    void registerWindow(QWidget* window);

    bool isRegistered(const QWidget* window) const;

    /// While one lives a request runs: whatever the reason is that Qt gives, the program moves the
    /// focus. Out of what is hidden Qt takes it as the tab key does.
    class Request
    {
    public:
        Request() { ++instance().m_requests; }
        ~Request() { --instance().m_requests; }
        Request(const Request&) = delete;
        Request& operator=(const Request&) = delete;
    };

    /// While one lives nothing is kept back: what happens now counts as the user's doing.
    class Suspension
    {
    public:
        Suspension() { ++instance().m_suspensions; }
        ~Suspension() { --instance().m_suspensions; }
        Suspension(const Suspension&) = delete;
        Suspension& operator=(const Suspension&) = delete;
    };

    /// Whether the report of this event on that widget is to be kept back.
    bool blocks(const QWidget* widget, const QFocusEvent& event) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    struct Entry
    {
        QPointer<QWidget> m_window;
        int m_timer = 0;
        bool m_isLastTurn = false; // released when the timer runs out; else it has one turn more
    };

    QtGlobalFocusBlocker() = default;
    void settle(const QObject* window, int milliseconds);
    void releaseWindow(const QObject* window);

    std::unordered_map<const QObject*, Entry> m_windows;
    int m_suspensions = 0;
    int m_requests = 0;
};

} // namespace VOXI
