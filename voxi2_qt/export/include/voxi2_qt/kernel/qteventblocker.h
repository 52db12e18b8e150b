#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QWidget>

#include <initializer_list>
#include <optional>

namespace VOXI {

class QtWidget2;

/// Keeps the events that a request itself causes from being reported as the user's, for a scope.
///
/// Suppression is by bit, not by counting: blockers of one event must be nested. Focus in is
/// treated more widely, because Qt may give the focus to the window or to the focus proxy instead:
/// theirs is switched off too, and on again afterwards whatever it was before; and the window's
/// focus reports are kept back until the change has settled. The widget may go while the blocker
/// lives.
class VOXI2_QT_EXPORT QtEventBlocker
{
public:
    QtEventBlocker(QtWidget2& widget, std::initializer_list<WidgetEvent> events);
    /// The same for the peer that a Qt widget is. Nothing is blocked for null, or another widget.
    QtEventBlocker(const QWidget* widget, std::initializer_list<WidgetEvent> events);
    ~QtEventBlocker();
    QtEventBlocker(const QtEventBlocker&) = delete;
    QtEventBlocker& operator=(const QtEventBlocker&) = delete;

private:
    void block(std::initializer_list<WidgetEvent> events);
    void blockFocusIn();

    QtWidget2* m_widget;
    QPointer<QWidget> m_alive;
    QPointer<QWidget> m_window; // whose focus-in is to be switched on again
    QPointer<QWidget> m_proxy;
    std::optional<QtGlobalFocusBlocker::Request> m_focusRequest;
    unsigned m_blocked = 0; // one bit for each event that was broadcast before
};

} // namespace VOXI
