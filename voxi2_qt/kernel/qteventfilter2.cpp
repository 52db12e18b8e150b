#include "voxi2_qt/kernel/qteventfilter2.h"

#include "qteventbuild.h"
#include "voxi2_qt/kernel/qteventthrottler.h"
#include "voxi2_qt/kernel/qtglobalfocusblocker.h"
#include "voxi2_qt/kernel/qtinput.h"
#include "voxi2_qt/kernel/qtwidget2.h"

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
#include <QWidget>

#include <cstddef>
#include <iterator>
#include <utility>

namespace VOXI {

namespace {

/// What the area's copy of an event that its viewport got has in common with it. Only pointer
/// events are handed on; the keyboard's context menu is the area's alone.
std::optional<QtEventFilter2::HandedOn> handedOn(const QWidget& receiver, const QEvent& event)
{
    using Copy = QtEventFilter2::HandedOn;
    const QEvent::Type type = event.type();
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        const auto& pointer = static_cast<const QPointerEvent&>(event);
        const QPointF place =
            pointer.pointCount() ? pointer.points().first().globalPosition() : QPointF();
        return Copy{type, pointer.timestamp(), place};
    }
    case QEvent::ContextMenu: {
        const auto& menu = static_cast<const QContextMenuEvent&>(event);
        if (menu.reason() == QContextMenuEvent::Keyboard)
            return std::nullopt;
        return Copy{type, 0, menu.globalPos()}; // the copy is given no time
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        const auto& drop = static_cast<const QDropEvent&>(event);
        return Copy{type, 0, receiver.mapToGlobal(drop.position())};
    }
    case QEvent::Gesture: {
        // It has no time, but lists the gestures themselves.
        const auto gestures = static_cast<const QGestureEvent&>(event).gestures();
        return Copy{type, quintptr(gestures.isEmpty() ? nullptr : gestures.first()), QPointF()};
    }
    default:
        return std::nullopt;
    }
}

/// One event on its way to the abstract side.
struct Passing
{
    QtEventFilter2& m_filter;
    const QtWidget2& m_peer;
    const EventTarget& m_target;
    WidgetEvent m_type;
    QEvent& m_event;
    const QtDeletionHold& m_hold; // knows whether the handlers left the peer
};

using Sender = void (*)(const Passing&);

/// Reports what `Build` makes of the Qt event.
template <auto Field, class Q, auto Build>
void send(const Passing& passing)
{
    passing.m_peer.reportMade(Field, [&] {
        return Build(passing.m_target, passing.m_type, static_cast<const Q&>(passing.m_event));
    });
}

/// The same through the throttler; what would be dropped there is not built.
template <auto Field, class Q, auto Build>
void post(const Passing& passing)
{
    VXObjectDataLocker lock; // the object must not go in between
    if (!passing.m_peer.isHeard(Field))
        return;
    EventThrottler& throttler = passing.m_filter.throttler(passing.m_peer);
    // Of sizes the last one is told as well.
    if (passing.m_type == WidgetEvent::Resize || !throttler.isPending(passing.m_type))
        throttler.post(
            Build(passing.m_target, passing.m_type, static_cast<const Q&>(passing.m_event)));
}

void postResize(const Passing& passing)
{
    // Qt also tells so that the margins have changed.
    const auto& resize = static_cast<const QResizeEvent&>(passing.m_event);
    if (resize.size() != resize.oldSize())
        post<&VXWidget2Emitters::resized, QResizeEvent, &resizeEvent>(passing);
}

void askClose(const Passing& passing)
{
    QEvent& event = passing.m_event;
    if (const auto asked = passing.m_peer.ask(&VXWidget2Emitters::closing))
        event.setAccepted(!asked->isRefused());
}

template <auto Field>
void askDrag(const Passing& passing)
{
    auto& event = static_cast<QDropEvent&>(passing.m_event);
    const auto make = [&] { return dragEvent(passing.m_target, passing.m_type, event); };
    if (const auto asked = passing.m_peer.askMade(Field, make))
        applyAnswer(*asked, event);
}

void sendFocusIn(const Passing& passing)
{
    const auto& focus = static_cast<const QFocusEvent&>(passing.m_event);
    if (!QtGlobalFocusBlocker::instance().blocks(passing.m_target.m_widget, focus))
        send<&VXWidget2Emitters::focusIn, QFocusEvent, &focusEvent>(passing);
}

void sendGestures(const Passing& passing)
{
    if (!passing.m_peer.isHeard(&VXWidget2Emitters::gesture))
        return;
    for (const VXGestureEvent2& gesture :
         gestureEvents(passing.m_target, static_cast<const QGestureEvent&>(passing.m_event))) {
        if (passing.m_hold.isAlive())
            passing.m_peer.reportMade(&VXWidget2Emitters::gesture, [&] { return gesture; });
    }
}

void sendNothing(const Passing&) {}

using E = VXWidget2Emitters;

/// What becomes of each event, in the order of `WidgetEvent`.
constexpr Sender s_senders[] = {
    &askClose,
    &send<&E::contextMenu, QContextMenuEvent, &contextMenuEvent>,
    &askDrag<&E::dragEnter>,
    &send<&E::dragLeave, QEvent, &dragLeaveEvent>,
    &post<&E::dragMove, QDropEvent, &dragEvent>,
    &askDrag<&E::drop>,
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
    &postResize,
    &sendGestures,
    &send<&E::touchBegin, QTouchEvent, &touchEvent>,
    &send<&E::touchUpdate, QTouchEvent, &touchEvent>,
    &send<&E::touchEnd, QTouchEvent, &touchEvent>,
    &send<&E::shown, QEvent, &plainEvent>,
    &sendNothing,
};
static_assert(std::size(s_senders) == WidgetEventCount);

} // namespace

QtEventFilter2::~QtEventFilter2() = default;

QtEventFilter2::Extras::~Extras() = default;

void QtEventFilter2::switchOn(bool isScrollArea)
{
    m_broadcast = Flag | (Flag - 1);
    m_consumed = isScrollArea ? Flag : 0;
}

void QtEventFilter2::switchOff()
{
    m_broadcast = m_consumed = 0;
    m_extras.reset();
}

bool QtEventFilter2::filter(QtWidget2& peer, QWidget* receiver, QEvent* event)
{
    WidgetEvent type;
    if (!isOn() || !isWidgetEvent(event->type(), type))
        return false;
    if (isScrollArea() && isSeenTwice(peer, receiver, *event))
        return false;
    // Read before anything is sent: the handlers may destroy the widget and this filter with it.
    const bool consumed = isConsumed(type);
    const bool closing = type == WidgetEvent::Close;
    if (closing)
        event->accept();
    bool isAlive = true;
    if (isBroadcast(type) && !(m_extras && isKeptBack(type, *event)))
        isAlive = isScrollArea() ? passOfArea(peer, type, receiver, event)
                                 : pass(peer, type, receiver, event);
    else if (type == WidgetEvent::Resize && m_extras && m_extras->m_throttler)
        m_extras->m_throttler->withdraw(static_cast<const QResizeEvent*>(event)->size());
    const bool refused = closing && !event->isAccepted();
    if (closing && consumed)
        event->ignore(); // the window would close all the same
    return consumed || refused || !isAlive;
}

bool QtEventFilter2::passOfArea(const QtWidget2& peer, WidgetEvent type, QWidget* receiver,
                                QEvent* event)
{
    if (receiver == peer.asQWidget())
        return pass(peer, type, receiver, event);
    const auto copy = handedOn(*receiver, *event);
    const bool isAlive = pass(peer, type, receiver, event);
    // Not before: a handler may have opened a loop in which the viewport got others. Nobody asks
    // for the copy of what nobody hears.
    if (copy && isAlive && peer.isEventBroadcastingEnabled() && peer.mayBeHeard())
        extras().m_handedOn = copy;
    return isAlive;
}

bool QtEventFilter2::isSeenTwice(const QtWidget2& peer, const QWidget* receiver,
                                 const QEvent& event)
{
    if (receiver != peer.asQWidget()) {
        switch (event.type()) {
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::Show:
        case QEvent::Hide:
            return true; // the area gets its own
        default:
            return false;
        }
    }
    // What the viewport did not accept comes to the area as well, wherever the pointer is.
    if (!m_extras || !m_extras->m_handedOn || m_extras->m_handedOn != handedOn(*receiver, event))
        return false;
    m_extras->m_handedOn.reset();
    return true;
}

QtEventFilter2::Extras& QtEventFilter2::extras()
{
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

void QtEventFilter2::keepPlaceBack(const QWidget& widget)
{
    if (widget.testAttribute(Qt::WA_PendingMoveEvent))
        extras().m_placeKeptBack = widget.geometry().topLeft();
}

void QtEventFilter2::keepSizeBack(const QWidget& widget)
{
    if (widget.testAttribute(Qt::WA_PendingResizeEvent))
        extras().m_sizeKeptBack = widget.size();
}

bool QtEventFilter2::isKeptBack(WidgetEvent type, const QEvent& event)
{
    // Anything else than what was kept back is news, from the layout or the window system.
    if (type == WidgetEvent::Move) {
        const auto place = std::exchange(m_extras->m_placeKeptBack, std::nullopt);
        return place == static_cast<const QMoveEvent&>(event).pos();
    }
    if (type == WidgetEvent::Resize) {
        const auto size = std::exchange(m_extras->m_sizeKeptBack, std::nullopt);
        return size == static_cast<const QResizeEvent&>(event).size();
    }
    return false;
}

EventThrottler& QtEventFilter2::throttler(const QtWidget2& peer)
{
    std::unique_ptr<EventThrottler>& throttler = extras().m_throttler;
    if (!throttler) {
        VXWidget2* widget = peer.abstractWidget();
        std::unique_ptr<EventThrottlerBase> made;
        if (EventThrottlerFactoryBase* factory = EventThrottlerFactoryBase::instance())
            made = factory->createEventThrottler(widget);
        if (auto* mine = dynamic_cast<EventThrottler*>(made.get())) {
            made.release();
            throttler.reset(mine);
        } else {
            throttler = std::make_unique<EventThrottler>(widget);
        }
    }
    return *throttler;
}

bool QtEventFilter2::pass(const QtWidget2& peer, WidgetEvent type, QWidget* receiver, QEvent* event)
{
    if (!peer.mayBeHeard())
        return true; // as most widgets are not
    const EventTarget target{peer.abstractWidget(), peer.asQWidget(), receiver};
    const QtDeletionHold hold(&peer);
    const auto number = static_cast<std::size_t>(type);
    s_senders[number](Passing{*this, peer, target, type, *event, hold});
    return hold.isAlive();
}

} // namespace VOXI
