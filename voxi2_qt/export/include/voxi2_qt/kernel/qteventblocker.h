#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QPointer>
#include <QWidget>

#include <initializer_list>

namespace VOXI {

class QtWidget2;

/// Keeps the events that a request itself causes from being reported as the user's, for a scope.
///
/// Suppression is by bit, not by counting: blockers of one event must be nested. Focus in is
/// treated more widely, because Qt may give the focus to the window or to the focus proxy instead:
/// theirs is switched off too, and on again afterwards whatever it was before; and the window's
/// focus reports are kept back until the change has settled. The widget may be destroyed while the
/// blocker lives, but stays until its end. While handlers run, nothing is blocked.
class VOXI2_QT_EXPORT QtEventBlocker final : public QtProgramScope
{
public:
    QtEventBlocker(QtWidget2& widget, std::initializer_list<WidgetEvent> events);
    /// The same for the peer that a Qt widget is. Nothing is blocked for null, or another widget.
    QtEventBlocker(const QWidget* widget, std::initializer_list<WidgetEvent> events);
    ~QtEventBlocker() override;

private:
    QtEventBlocker(Inert, QtWidget2* widget, std::initializer_list<WidgetEvent> events);
    void prepareFocusIn();
    void setBroadcast(bool on);
    void lift() override { setBroadcast(true); }
    void resume() override;

    QtWidget2* m_widget;
    QtDeletionHold m_hold;
    QPointer<QWidget> m_window; // whose focus is about to change
    QPointer<QWidget> m_proxy;
    unsigned m_blocked = 0; // one bit for each event that was broadcast before
};

} // namespace VOXI
