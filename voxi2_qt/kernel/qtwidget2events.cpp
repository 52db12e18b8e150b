// The part of QtWidget2 that is about events: which are passed back, and those that a program has
// happen as if the user had caused them.

#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtdragdelegate2.h"
#include "voxi2_qt/kernel/qteventfilter2.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace VOXI {

// Requests ----------------------------------------------------------------------------------------

void QtWidget2::doSetEventConsumed(WidgetEvent event, bool consumed)
{
    if (m_eventFilter.isOn())
        m_eventFilter.setConsumed(event, consumed);
}

bool QtWidget2::doIsEventConsumed(WidgetEvent event)
{
    return m_eventFilter.isOn() && m_eventFilter.isConsumed(event);
}

void QtWidget2::doimTriggerWidgetEvent(WidgetEvent event)
{
    switch (event) {
    case WidgetEvent::Close:
        asQWidget()->close();
        break;
    case WidgetEvent::Hide:
        asQWidget()->hide();
        break;
    case WidgetEvent::Show:
        asQWidget()->show();
        break;
    default:
        break;
    }
}

void QtWidget2::doimTriggerContextMenuEvent(VXPoint<int> local, VXPoint<int> global)
{
    QPoint position = VX2Qt(local);
    QWidget* target = pointerTarget(position);
    QContextMenuEvent event(QContextMenuEvent::Other, position, VX2Qt(global));
    QApplication::sendEvent(target, &event);
}

void QtWidget2::doimTriggerFocusEvent(WidgetEvent event)
{
    const QtGlobalFocusBlocker::Suspension suspension;
    if (event == WidgetEvent::FocusIn)
        asQWidget()->setFocus(Qt::OtherFocusReason);
    else if (event == WidgetEvent::FocusOut)
        asQWidget()->clearFocus();
}

void QtWidget2::doimTriggerKeyEvent(WidgetEvent type, const VXKeyEvent2& key)
{
    // Qt takes the class of an event from its type.
    if (type != WidgetEvent::KeyPress && type != WidgetEvent::KeyRelease)
        return;
    QKeyEvent event(VX2Qt(type), VX2Qt(key.key()), VX2Qt(key.modifiers()), toQString(key.text()),
                    key.isAutoRepeat(), static_cast<quint16>(key.count()));
    QApplication::sendEvent(asQWidget(), &event);
}

void QtWidget2::doimTriggerMouseEvent(WidgetEvent type, const VXMouseEvent2& mouse)
{
    QPoint position = VX2Qt(mouse.position());
    QWidget* target = pointerTarget(position);
    const QPoint global = target->mapToGlobal(position);
    switch (type) {
    case WidgetEvent::MousePress:
    case WidgetEvent::MouseRelease:
    case WidgetEvent::MouseDoubleClick:
    case WidgetEvent::MouseMove: {
        QMouseEvent event(VX2Qt(type), position, global, VX2Qt(mouse.button()),
                          VX2Qt(mouse.buttons()), VX2Qt(mouse.modifiers()));
        QApplication::sendEvent(target, &event);
        break;
    }
    case WidgetEvent::Wheel: {
        QWheelEvent event(position, global, QPoint(), VX2Qt(mouse.wheelDelta()),
                          VX2Qt(mouse.buttons()), VX2Qt(mouse.modifiers()), Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(target, &event);
        break;
    }
    default:
        break;
    }
}

void QtWidget2::doimTriggerMoveEvent(VXPoint<int> position) { asQWidget()->move(VX2Qt(position)); }
void QtWidget2::doimTriggerResizeEvent(Size<int> size) { asQWidget()->resize(VX2Qt(size)); }

// Reports -----------------------------------------------------------------------------------------

void QtWidget2::passDragEnter(QDragEnterEvent* event)
{
    passToDelegate([&](QtDragDelegate2& delegate) { delegate.dragEnter(*this, event); });
}

void QtWidget2::passDragMove(QDragMoveEvent* event)
{
    passToDelegate([&](QtDragDelegate2& delegate) { delegate.dragMove(*this, event); });
}

void QtWidget2::passDragLeave(QDragLeaveEvent* event)
{
    passToDelegate([&](QtDragDelegate2& delegate) { delegate.dragLeave(*this, event); });
}

void QtWidget2::passDrop(QDropEvent* event)
{
    passToDelegate([&](QtDragDelegate2& delegate) { delegate.drop(*this, event); });
}

template <class Function>
void QtWidget2::passToDelegate(Function&& function)
{
    QtDragDelegate2* delegate = dragDelegate();
    if (!delegate)
        return;
    VXObjectDataLocker lock;
    const QtDeletionHold hold(this);
    if (isVXObjectValid())
        function(*delegate);
}

// Helpers -----------------------------------------------------------------------------------------

void QtWidget2::enableEventBroadcasting()
{
    if (m_eventFilter.isOn())
        return;
    QAbstractScrollArea* area = scrollArea();
    m_eventFilter.switchOn(area);
    if (area) {
        area->viewport()->grabGesture(Qt::PinchGesture);
        area->viewport()->grabGesture(Qt::PanGesture);
    }
}

void QtWidget2::disableEventBroadcasting()
{
    if (!m_eventFilter.isOn())
        return;
    if (QAbstractScrollArea* area = scrollArea(); area && area->viewport()) {
        area->viewport()->ungrabGesture(Qt::PinchGesture);
        area->viewport()->ungrabGesture(Qt::PanGesture);
    }
    m_eventFilter.switchOff();
}

void QtWidget2::enableEventBroadcasting(WidgetEvent event)
{
    if (m_eventFilter.isOn())
        m_eventFilter.setBroadcast(event, true);
}

void QtWidget2::disableEventBroadcasting(WidgetEvent event)
{
    if (m_eventFilter.isOn())
        m_eventFilter.setBroadcast(event, false);
}

bool QtWidget2::isEventBroadcastingEnabled(WidgetEvent event) const
{
    return m_eventFilter.isOn() && m_eventFilter.isBroadcast(event);
}

void QtWidget2::enableGestureEvents()
{
    for (const Qt::GestureType type : {Qt::TapGesture, Qt::TapAndHoldGesture, Qt::PanGesture,
                                       Qt::PinchGesture, Qt::SwipeGesture})
        asQWidget()->grabGesture(type);
}

void QtWidget2::disableGestureEvents()
{
    for (const Qt::GestureType type : {Qt::TapGesture, Qt::TapAndHoldGesture, Qt::PanGesture,
                                       Qt::PinchGesture, Qt::SwipeGesture})
        asQWidget()->ungrabGesture(type);
}

void QtWidget2::keepDelayedBack(WidgetEvent event)
{
    if (!m_eventFilter.isOn())
        return;
    if (event == WidgetEvent::Move)
        m_eventFilter.keepPlaceBack(*asQWidget());
    else
        m_eventFilter.keepSizeBack(*asQWidget());
}

QWidget* QtWidget2::pointerWidget() const
{
    QAbstractScrollArea* area = scrollArea();
    return area ? area->viewport() : asQWidget();
}

QWidget* QtWidget2::pointerTarget(QPoint& position) const
{
    QWidget* target = pointerWidget();
    position = target->mapFrom(asQWidget(), position);
    return target;
}

} // namespace VOXI
