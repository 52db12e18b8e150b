#pragma once

#include "voxi2/kernel/events.h"

#include <QEvent>

QT_BEGIN_NAMESPACE
class QContextMenuEvent;
class QDropEvent;
class QFocusEvent;
class QGestureEvent;
class QKeyEvent;
class QMouseEvent;
class QMoveEvent;
class QResizeEvent;
class QTouchEvent;
class QWheelEvent;
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

// What the toolkit tells of a Qt event. All take the same, so that a table can name them; kinds
// with one type of event ignore the type.

/// Where an event was received: the abstract widget, its Qt widget, and the widget that Qt
/// delivered to, which for scroll areas is the viewport. Positions come out in the widget's
/// coordinates.
struct EventTarget
{
    VXWidget2* m_abstract;
    QWidget* m_widget;
    QWidget* m_receiver;
};

VXMouseEvent2 mouseEvent(const EventTarget& target, WidgetEvent type, const QMouseEvent& event);
VXMouseEvent2 wheelEvent(const EventTarget& target, WidgetEvent type, const QWheelEvent& event);
VXKeyEvent2 keyEvent(const EventTarget& target, WidgetEvent type, const QKeyEvent& event);
VXFocusEvent2 focusEvent(const EventTarget& target, WidgetEvent type, const QFocusEvent& event);
VXMoveEvent2 moveEvent(const EventTarget& target, WidgetEvent type, const QMoveEvent& event);
VXResizeEvent2 resizeEvent(const EventTarget& target, WidgetEvent type, const QResizeEvent& event);
VXContextMenuEvent2 contextMenuEvent(const EventTarget& target, WidgetEvent type,
                                     const QContextMenuEvent& event);
/// Entered, left, shown, hidden: nothing to tell but that.
VXWidgetEvent2 plainEvent(const EventTarget& target, WidgetEvent type, const QEvent& event);
VXDragEvent2 dragLeaveEvent(const EventTarget& target, WidgetEvent type, const QEvent& event);
/// Drag enter, drag move and drop.
VXDragEvent2 dragEvent(const EventTarget& target, WidgetEvent type, const QDropEvent& event);
/// Carries the handlers' answer to Qt; without one Qt's own answer, or the last one, stays.
void applyAnswer(const VXDragEvent2& answered, QDropEvent& event);
VXTouchEvent2 touchEvent(const EventTarget& target, WidgetEvent type, const QTouchEvent& event);
/// One for each gesture in the event.
std::vector<VXGestureEvent2> gestureEvents(const EventTarget& target, const QGestureEvent& event);

} // namespace VOXI
