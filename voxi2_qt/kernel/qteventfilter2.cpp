#include "voxi2_qt/kernel/qteventfilter2.h"

#include "qteventbuild.h"
#include "voxi2_qt/kernel/qteventthrottler.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtwidget2.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QFocusEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QTouchEvent>
#include <QWheelEvent>

namespace VOXI {

namespace {

/// The position of an event that a viewport hands on to its scroll area, if it is such an event.
bool pointerPosition(const QEvent& event, QPoint& position)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        position = static_cast<const QSinglePointEvent&>(event).position().toPoint();
        return true;
    case QEvent::ContextMenu:
        position = static_cast<const QContextMenuEvent&>(event).pos();
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        position = static_cast<const QDropEvent&>(event).position().toPoint();
        return true;
    default:
        return false;
    }
}

}  // namespace

QtEventFilter2::QtEventFilter2(QtWidget2& peer, QWidget* widget, QAbstractScrollArea* area)
    : QObject(widget), m_peer(peer), m_area(area)
{
    m_broadcast.set();
}

QtEventFilter2::~QtEventFilter2() = default;

bool QtEventFilter2::eventFilter(QObject* watched, QEvent* event)
{
    WidgetEvent type;
    if (!widgetEventOf(event->type(), type))
        return false;
    if (m_area && isSeenTwice(watched, *event))
        return false;
    // Read before anything is sent: the handlers may destroy the widget and this filter with it.
    const bool consumed = m_consumed.test(bit(type));
    const bool closing = type == WidgetEvent::Close;
    if (closing)
        event->accept();
    if (m_broadcast.test(bit(type)))
        pass(type, watched, event);
    const bool refused = closing && !event->isAccepted();
    if (closing && consumed)
        event->ignore();   // the window would close all the same
    return consumed || refused;
}

bool QtEventFilter2::isSeenTwice(const QObject* watched, const QEvent& event) const
{
    if (watched == m_area->viewport()) {
        switch (event.type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::Show:
        case QEvent::Hide:
            return true;   // the area gets its own
        default:
            return false;
        }
    }
    // What the viewport did not accept comes to the area as well.
    QPoint position;
    if (pointerPosition(event, position))
        return m_area->viewport()->geometry().contains(position);
    switch (event.type()) {
    case QEvent::Gesture:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragLeave:
        return true;
    default:
        return false;
    }
}

EventThrottler& QtEventFilter2::throttler()
{
    if (!m_throttler) {
        VXWidget2* widget = m_peer.abstractWidget();
        std::unique_ptr<EventThrottlerBase> made;
        if (EventThrottlerFactoryBase* factory = EventThrottlerFactoryBase::instance())
            made = factory->createEventThrottler(widget);
        if (auto* mine = dynamic_cast<EventThrottler*>(made.get())) {
            made.release();
            m_throttler.reset(mine);
        } else {
            m_throttler = std::make_unique<EventThrottler>(widget);
        }
    }
    return *m_throttler;
}

void QtEventFilter2::pass(WidgetEvent type, QObject* watched, QEvent* event)
{
    VXObjectDataLocker lock;
    if (!m_peer.isVXObjectValid())
        return;
    const VXWidget2Emitters& emitters = *m_peer.widgetEmitters();
    const EventTarget target{m_peer.abstractWidget(), m_peer.asQWidget(),
                             static_cast<QWidget*>(watched)};
    const auto send = [](const auto& emitter, auto&& build) {
        if (emitter.isHeard())
            emitter(build());
    };
    const auto sendMouse = [&](const auto& emitter) {
        send(emitter, [&] {
            return mouseEvent(target, type, static_cast<const QMouseEvent&>(*event));
        });
    };
    const auto sendPlain = [&](const auto& emitter) {
        send(emitter, [&] { return VXWidgetEvent2(target.m_abstract, type); });
    };
    const auto sendTouch = [&](const auto& emitter) {
        send(emitter, [&] {
            return touchEvent(target, type, static_cast<const QTouchEvent&>(*event));
        });
    };
    const auto sendDrag = [&](const auto& emitter) {
        if (!emitter.isHeard())
            return;
        auto& drop = static_cast<QDropEvent&>(*event);
        emitter(dragEvent(target, type, drop));
    };
    // A throttled kind that is on its way is not built again.
    const auto isWanted = [&](const auto& emitter) {
        return emitter.isHeard() && !(m_throttler && m_throttler->isPending(type));
    };

    switch (type) {
    case WidgetEvent::Close:
        if (emitters.closing.isHeard()) {
            const VXCloseEvent2 closing(target.m_abstract);
            emitters.closing(closing);
            event->setAccepted(!closing.isRefused());
        }
        break;
    case WidgetEvent::ContextMenu:
        send(emitters.contextMenu, [&] {
            return contextMenuEvent(target, static_cast<const QContextMenuEvent&>(*event));
        });
        break;
    case WidgetEvent::DragEnter:
        sendDrag(emitters.dragEnter);
        break;
    case WidgetEvent::DragLeave:
        send(emitters.dragLeave, [&] { return VXDragEvent2(target.m_abstract, type); });
        break;
    case WidgetEvent::DragMove:
        if (isWanted(emitters.dragMove))
            throttler().postDragMove(dragEvent(target, type, static_cast<QDropEvent&>(*event)));
        break;
    case WidgetEvent::Drop:
        sendDrag(emitters.drop);
        break;
    case WidgetEvent::MouseEnter:
        sendPlain(emitters.mouseEnter);
        break;
    case WidgetEvent::MouseLeave:
        sendPlain(emitters.mouseLeave);
        break;
    case WidgetEvent::FocusIn:
    case WidgetEvent::FocusOut: {
        const auto& focus = static_cast<const QFocusEvent&>(*event);
        if (type == WidgetEvent::FocusIn
            && QtGlobalFocusBlocker::instance().blocks(target.m_widget, focus))
            break;
        send(type == WidgetEvent::FocusIn ? emitters.focusIn : emitters.focusOut,
             [&] { return focusEvent(target, type, focus); });
        break;
    }
    case WidgetEvent::Hide:
        sendPlain(emitters.hidden);
        break;
    case WidgetEvent::Show:
        sendPlain(emitters.shown);
        break;
    case WidgetEvent::KeyPress:
        if (isWanted(emitters.keyPress))
            throttler().postKeyPress(keyEvent(target, type, static_cast<QKeyEvent&>(*event)));
        break;
    case WidgetEvent::KeyRelease:
        if (isWanted(emitters.keyRelease))
            throttler().postKeyRelease(keyEvent(target, type, static_cast<QKeyEvent&>(*event)));
        break;
    case WidgetEvent::MouseDoubleClick:
        sendMouse(emitters.mouseDoubleClick);
        break;
    case WidgetEvent::MousePress:
        sendMouse(emitters.mousePress);
        break;
    case WidgetEvent::MouseRelease:
        sendMouse(emitters.mouseRelease);
        break;
    case WidgetEvent::MouseMove:
        if (isWanted(emitters.mouseMove))
            throttler().postMouseMove(mouseEvent(target, type, static_cast<QMouseEvent&>(*event)));
        break;
    case WidgetEvent::Wheel:
        if (isWanted(emitters.wheel))
            throttler().postWheel(wheelEvent(target, static_cast<QWheelEvent&>(*event)));
        break;
    case WidgetEvent::Move:
        send(emitters.moved,
             [&] { return moveEvent(target, static_cast<const QMoveEvent&>(*event)); });
        break;
    case WidgetEvent::Resize:
        if (isWanted(emitters.resized))
            throttler().postResize(resizeEvent(target, static_cast<QResizeEvent&>(*event)));
        break;
    case WidgetEvent::Gesture:
        if (emitters.gesture.isHeard()) {
            for (const auto& gesture :
                 gestureEvents(target, static_cast<const QGestureEvent&>(*event))) {
                if (m_peer.isVXObjectValid())
                    emitters.gesture(gesture);
            }
        }
        break;
    case WidgetEvent::TouchBegin:
        sendTouch(emitters.touchBegin);
        break;
    case WidgetEvent::TouchUpdate:
        sendTouch(emitters.touchUpdate);
        break;
    case WidgetEvent::TouchEnd:
        sendTouch(emitters.touchEnd);
        break;
    case WidgetEvent::Other:
        break;
    }
}

}  // namespace VOXI
