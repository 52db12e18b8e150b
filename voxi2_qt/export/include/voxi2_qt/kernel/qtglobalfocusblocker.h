#pragma once

#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>
#include <QPointer>

#include <optional>
#include <unordered_map>

QT_BEGIN_NAMESPACE
class QFocusEvent;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

/// Keeps focus-in reports back when it is the program that moves the focus.
///
/// What Qt does during a request (while a `QtProgramScope` lives) is never reported. A request to
/// show, raise, activate or focus may also take effect long after it returned: the window manager
/// decides when a window becomes active. A registered window's focus reports are kept back until
/// the change has settled: the events of this turn are through or, if it came up or asked to become
/// active, it has become so or nothing came of it for a while. Focus that the user moves (mouse,
/// tab, shortcut) is reported meanwhile. GUI thread only.
class VOXI2_QT_EXPORT QtGlobalFocusBlocker : public QObject
{
public:
    static QtGlobalFocusBlocker& instance();

    /// Registers the window, unless it is null, is registered already, or does not want it (a
    /// `QtWindow2` can say so). It is released by itself, at the end of this turn unless it is
    /// shown before.
    void registerWindow(QWidget* window);

    /// Of a registered window that is not active: it is about to be made so.
    void awaitActivation(QWidget* window);

    bool isRegistered(const QWidget* window) const;

    /// While one lives nothing is kept back: what happens now counts as the user's doing.
    class Suspension : public QtProgramScope
    {
    public:
        Suspension() { ++instance().m_suspensions; }
        ~Suspension() override { --instance().m_suspensions; }

    private:
        void lift() override { --instance().m_suspensions; }
        void resume() override { ++instance().m_suspensions; }
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
        bool m_isAwaited = false;  // it is, or was, to become active
        bool m_isLastTurn = false; // released when the timer runs out; else it has one turn more
    };

    QtGlobalFocusBlocker() = default;
    void settle(const QObject* window, int milliseconds);
    void releaseWindow(const QObject* window);

    std::unordered_map<const QObject*, Entry> m_windows;
    int m_suspensions = 0;
};

/// Stands around what a widget does when the focus comes. Where that is not to be reported, what
/// comes of it, a current row for example, is the program's doing as well. A local variable.
class QtFocusComing
{
public:
    QtFocusComing(const QWidget& widget, const QFocusEvent& event)
    {
        if (QtGlobalFocusBlocker::instance().blocks(&widget, event))
            m_program.emplace();
    }

private:
    std::optional<QtProgramScope> m_program;
};

} // namespace VOXI
