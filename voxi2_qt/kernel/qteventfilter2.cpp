#include "voxi2_qt/kernel/qteventfilter2.h"

#include "qteventbuild.h"
#include "voxi2_qt/kernel/qteventthrottler.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtinput.h"
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

#include <iterator>

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

/// One event on its way to the abstract side.
struct Passing {
    QtEventFilter2& m_filter;
    const VXWidget2Emitters& m_emitters;
    const EventTarget& m_target;
    WidgetEvent m_type;
    QEvent& m_event;
};

using Sender = void (*)(const Passing&);

/// Sends what `Build` makes of the Qt event, if anybody listens.
template <auto Field, class Q, auto Build>
void send(const Passing& passing)
{
    const auto& emitter = passing.m_emitters.*Field;
    if (emitter.isHeard())
        emitter(Build(passing.m_target, passing.m_type, static_cast<const Q&>(passing.m_event)));
}

/// The same through the throttler; what would be dropped there is not built.
template <auto Field, class Q, auto Build>
void post(const Passing& passing)
{
    if (!(passing.m_emitters.*Field).isHeard())
        return;
    EventThrottler& throttler = passing.m_filter.throttler();
    if (!throttler.isPending(passing.m_type))
        throttler.post(
            Build(passing.m_target, passing.m_type, static_cast<const Q&>(passing.m_event)));
}

void sendClose(const Passing& passing)
{
    if (!passing.m_emitters.closing.isHeard())
        return;
    QEvent& event = passing.m_event;
    const VXCloseEvent2 closing(passing.m_target.m_abstract);
    passing.m_emitters.closing(closing);
    event.setAccepted(!closing.isRefused());
}

void sendFocusIn(const Passing& passing)
{
    const auto& focus = static_cast<const QFocusEvent&>(passing.m_event);
    if (!QtGlobalFocusBlocker::instance().blocks(passing.m_target.m_widget, focus))
        send<&VXWidget2Emitters::focusIn, QFocusEvent, &focusEvent>(passing);
}

void sendGestures(const Passing& passing)
{
    const auto& emitter = passing.m_emitters.gesture;
    if (!emitter.isHeard())
        return;
    const unsigned widgetId = passing.m_target.m_abstract->id();
    for (const VXGestureEvent2& gesture :
         gestureEvents(passing.m_target, static_cast<const QGestureEvent&>(passing.m_event))) {
        if (VXObject::isObjectValid(widgetId))
            emitter(gesture);
    }
}

void sendNothing(const Passing&) {}

using E = VXWidget2Emitters;

/// What becomes of each event, in the order of `WidgetEvent`.
constexpr Sender s_senders[] = {
    &sendClose,
    &send<&E::contextMenu, QContextMenuEvent, &contextMenuEvent>,
    &send<&E::dragEnter, QDropEvent, &dragEvent>,
    &send<&E::dragLeave, QEvent, &dragLeaveEvent>,
    &post<&E::dragMove, QDropEvent, &dragEvent>,
    &send<&E::drop, QDropEvent, &dragEvent>,
    &send<&E::mouseEnter, QEvent, &plainEvent>,
    &sendFocusIn,
    &send<&E::focusOut, QFocusEvent, &focusEvent>,
    &send<&E::hidden, QEvent, &plainEvent>,
    &post<&E::keyPress, QKeyEvent, &keyEvent>,
    &post<&E::keyRelease, QKeyEvent, &keyEvent>,
    &send<&E::mouseLeave, QEvent, &plainEvent>,
    &send<&E::mouseDoubleClick, QMouseEvent, &mouseEvent>,
    &post<&E::mouseMove, QMouseEvent, &mouseEvent>,
    &send<&E::mousePress, QMouseEvent, &mouseEvent>,
    &send<&E::mouseRelease, QMouseEvent, &mouseEvent>,
    &post<&E::wheel, QWheelEvent, &wheelEvent>,
    &send<&E::moved, QMoveEvent, &moveEvent>,
    &post<&E::resized, QResizeEvent, &resizeEvent>,
    &sendGestures,
    &send<&E::touchBegin, QTouchEvent, &touchEvent>,
    &send<&E::touchUpdate, QTouchEvent, &touchEvent>,
    &send<&E::touchEnd, QTouchEvent, &touchEvent>,
    &send<&E::shown, QEvent, &plainEvent>,
    &sendNothing,
};
static_assert(std::size(s_senders) == WidgetEventCount);

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
    if (!isWidgetEvent(event->type(), type))
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
    const EventTarget target{m_peer.abstractWidget(), m_peer.asQWidget(),
                             static_cast<QWidget*>(watched)};
    s_senders[bit(type)](Passing{*this, *m_peer.widgetEmitters(), target, type, *event});
}

}  // namespace VOXI
