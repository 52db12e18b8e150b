#include "qteventbuild.h"

#include "voxi2/kernel/vxwidget2.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtdragmanager2.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QPanGesture>
#include <QPinchGesture>
#include <QResizeEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>

namespace VOXI {

namespace {

QPoint inWidget(const EventTarget& target, QPoint position)
{
    return target.m_receiver == target.m_widget
               ? position
               : target.m_receiver->mapTo(target.m_widget, position);
}

QPointF inWidget(const EventTarget& target, QPointF position)
{
    return target.m_receiver == target.m_widget
               ? position
               : target.m_receiver->mapTo(target.m_widget, position);
}

TouchPoint::State stateOf(QEventPoint::State state)
{
    switch (state) {
    case QEventPoint::Pressed:
        return TouchPoint::State::Pressed;
    case QEventPoint::Updated:
        return TouchPoint::State::Updated;
    case QEventPoint::Stationary:
        return TouchPoint::State::Stationary;
    case QEventPoint::Released:
        return TouchPoint::State::Released;
    default:
        return TouchPoint::State::Unknown;
    }
}

} // namespace

VXMouseEvent2 mouseEvent(const EventTarget& target, WidgetEvent type, const QMouseEvent& event)
{
    return VXMouseEvent2(target.m_abstract, type,
                         Qt2VX(inWidget(target, event.position().toPoint())),
                         Qt2VX(event.globalPosition().toPoint()), Qt2VX(event.button()),
                         Qt2VX(event.buttons()), Qt2VX(event.modifiers()));
}

VXMouseEvent2 wheelEvent(const EventTarget& target, WidgetEvent type, const QWheelEvent& event)
{
    return VXMouseEvent2(
        target.m_abstract, type, Qt2VX(inWidget(target, event.position().toPoint())),
        Qt2VX(event.globalPosition().toPoint()), MouseButton::None, Qt2VX(event.buttons()),
        Qt2VX(event.modifiers()), Qt2VX(event.angleDelta()));
}

VXKeyEvent2 keyEvent(const EventTarget& target, WidgetEvent type, const QKeyEvent& event)
{
    return VXKeyEvent2(target.m_abstract, type, Qt2VX(static_cast<Qt::Key>(event.key())),
                       Qt2VX(event.modifiers()), toStdWString(event.text()), event.isAutoRepeat(),
                       event.count());
}

VXFocusEvent2 focusEvent(const EventTarget& target, WidgetEvent type, const QFocusEvent& event)
{
    return VXFocusEvent2(target.m_abstract, type, Qt2VX(event.reason()));
}

VXMoveEvent2 moveEvent(const EventTarget& target, WidgetEvent, const QMoveEvent& event)
{
    return VXMoveEvent2(target.m_abstract, Qt2VX(event.oldPos()), Qt2VX(event.pos()));
}

VXResizeEvent2 resizeEvent(const EventTarget& target, WidgetEvent, const QResizeEvent& event)
{
    return VXResizeEvent2(target.m_abstract, Qt2VX(event.oldSize()), Qt2VX(event.size()));
}

VXContextMenuEvent2 contextMenuEvent(const EventTarget& target, WidgetEvent,
                                     const QContextMenuEvent& event)
{
    using Reason = VXContextMenuEvent2::Reason;
    const Reason reason = event.reason() == QContextMenuEvent::Mouse      ? Reason::Mouse
                          : event.reason() == QContextMenuEvent::Keyboard ? Reason::Keyboard
                                                                          : Reason::Other;
    return VXContextMenuEvent2(target.m_abstract, Qt2VX(inWidget(target, event.pos())),
                               Qt2VX(event.globalPos()), reason);
}

VXWidgetEvent2 plainEvent(const EventTarget& target, WidgetEvent type, const QEvent&)
{
    return VXWidgetEvent2(target.m_abstract, type);
}

VXDragEvent2 dragLeaveEvent(const EventTarget& target, WidgetEvent type, const QEvent&)
{
    return VXDragEvent2(target.m_abstract, type);
}

VXDragEvent2 dragEvent(const EventTarget& target, WidgetEvent type, const QDropEvent& event)
{
    VXDragEvent2::Details details;
    details.position = Qt2VX(inWidget(target, event.position().toPoint()));
    if (event.mimeData())
        details.data = dragDataOf(*event.mimeData());
    details.possibleActions = Qt2VX(event.possibleActions());
    details.proposedAction = Qt2VX(event.proposedAction());
    details.buttons = Qt2VX(event.buttons());
    details.modifiers = Qt2VX(event.modifiers());
    if (auto* manager = qobject_cast<QtDragManager2*>(event.source()))
        details.source = manager->source();
    else
        details.source = abstractObjectOf<VXWidget2>(event.source());
    return VXDragEvent2(target.m_abstract, type, std::move(details));
}

void applyAnswer(const VXDragEvent2& answered, QDropEvent& event)
{
    switch (answered.answer()) {
    case VXDragEvent2::Answer::None:
        break;
    case VXDragEvent2::Answer::Ignored:
        event.ignore();
        break;
    case VXDragEvent2::Answer::Accepted:
        event.setDropAction(VX2Qt(answered.acceptedAction()));
        event.accept();
        break;
    }
}

VXTouchEvent2 touchEvent(const EventTarget& target, WidgetEvent type, const QTouchEvent& event)
{
    std::vector<TouchPoint> points;
    points.reserve(static_cast<std::size_t>(event.points().size()));
    for (const QEventPoint& point : event.points()) {
        TouchPoint mine;
        mine.id = point.id();
        mine.state = stateOf(point.state());
        mine.position = Qt2VX(inWidget(target, point.position()));
        mine.globalPosition = Qt2VX(point.globalPosition());
        mine.pressure = point.pressure();
        points.push_back(mine);
    }
    return VXTouchEvent2(target.m_abstract, type, std::move(points));
}

std::vector<VXGestureEvent2> gestureEvents(const EventTarget& target, const QGestureEvent& event)
{
    std::vector<VXGestureEvent2> result;
    for (const QGesture* gesture : event.gestures()) {
        VXGestureEvent2::Details details;
        details.type = Qt2VX(gesture->gestureType());
        details.state = Qt2VX(gesture->state());
        details.hotSpot = Qt2VX(gesture->hotSpot());
        if (const auto* pan = qobject_cast<const QPanGesture*>(gesture)) {
            details.offset = Qt2VX(pan->offset());
        } else if (const auto* pinch = qobject_cast<const QPinchGesture*>(gesture)) {
            details.scale = pinch->scaleFactor();
            details.totalScale = pinch->totalScaleFactor();
            details.rotation = pinch->totalRotationAngle();
        }
        result.emplace_back(target.m_abstract, details);
    }
    return result;
}

} // namespace VOXI
