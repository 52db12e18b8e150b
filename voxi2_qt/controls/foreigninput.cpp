#include "foreigninput.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace VOXI {

namespace {

constexpr int WheelStep = 120;

xcb_connection_t* server()
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return {reply, &std::free};
}

/// A window, and a point in it and in its root.
struct Place
{
    xcb_window_t m_window = 0;
    QPoint m_point;
    xcb_window_t m_root = 0;
    QPoint m_rootPoint;
};

auto translated(xcb_window_t from, xcb_window_t to, QPoint point)
{
    const auto cookie =
        xcb_translate_coordinates(server(), from, to, static_cast<std::int16_t>(point.x()),
                                  static_cast<std::int16_t>(point.y()));
    return owned(xcb_translate_coordinates_reply(server(), cookie, nullptr));
}

xcb_window_t rootOf(xcb_window_t window)
{
    const auto reply =
        owned(xcb_get_geometry_reply(server(), xcb_get_geometry(server(), window), nullptr));
    return reply ? reply->root : 0;
}

/// No window where `top` has gone. In `target`, or else in what lies at the point.
Place placeAt(xcb_window_t top, QPoint point, xcb_window_t target)
{
    Place place;
    place.m_root = rootOf(top);
    const auto inRoot = place.m_root ? translated(top, place.m_root, point)
                                     : owned<xcb_translate_coordinates_reply_t>(nullptr);
    if (!inRoot)
        return {};
    place.m_rootPoint = {inRoot->dst_x, inRoot->dst_y};
    xcb_window_t next = target ? target : top;
    while (next) {
        const auto reply = translated(place.m_root, next, place.m_rootPoint);
        if (!reply)
            break; // it has gone meanwhile
        place.m_window = next;
        place.m_point = {reply->dst_x, reply->dst_y};
        next = target ? 0 : reply->child;
    }
    return place;
}

std::uint16_t stateOf(Qt::KeyboardModifiers modifiers, Qt::MouseButtons held)
{
    int state = 0;
    const auto add = [&](bool is, int mask) { state |= is ? mask : 0; };
    add(modifiers & Qt::ShiftModifier, XCB_MOD_MASK_SHIFT);
    add(modifiers & Qt::ControlModifier, XCB_MOD_MASK_CONTROL);
    add(modifiers & Qt::AltModifier, XCB_MOD_MASK_1);
    add(modifiers & Qt::MetaModifier, XCB_MOD_MASK_4);
    add(held & Qt::LeftButton, XCB_BUTTON_MASK_1);
    add(held & Qt::MiddleButton, XCB_BUTTON_MASK_2);
    add(held & Qt::RightButton, XCB_BUTTON_MASK_3);
    return static_cast<std::uint16_t>(state);
}

std::uint8_t numberOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::MiddleButton:
        return 2;
    case Qt::RightButton:
        return 3;
    case Qt::BackButton:
        return 8;
    case Qt::ForwardButton:
        return 9;
    default:
        return 0;
    }
}

/// Presses, releases, motions and keys look alike. To whoever made the window, whatever that has
/// asked to be told of.
void send(std::uint8_t type, std::uint8_t detail, const Place& place, std::uint16_t state)
{
    xcb_button_press_event_t event{};
    event.response_type = type;
    event.detail = detail;
    event.time = XCB_CURRENT_TIME;
    event.root = place.m_root;
    event.event = place.m_window;
    event.root_x = static_cast<std::int16_t>(place.m_rootPoint.x());
    event.root_y = static_cast<std::int16_t>(place.m_rootPoint.y());
    event.event_x = static_cast<std::int16_t>(place.m_point.x());
    event.event_y = static_cast<std::int16_t>(place.m_point.y());
    event.state = state;
    event.same_screen = 1;
    xcb_send_event(server(), 0, place.m_window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(server());
}

} // namespace

void ForeignInput::setWindow(unsigned long long id)
{
    const auto window = static_cast<std::uint32_t>(id);
    if (window != m_window)
        *this = {};
    m_window = window;
}

void ForeignInput::sendPointer(const QMouseEvent& event, const QPointF& point)
{
    if (!m_window || !server())
        return;
    const Place place = placeAt(m_window, point.toPoint(), m_held);
    const bool isRelease = event.type() == QEvent::MouseButtonRelease;
    const bool isMove = event.type() == QEvent::MouseMove;
    if (!isRelease && !isMove && !m_held)
        m_held = m_typed = place.m_window;
    if (event.buttons() == Qt::NoButton)
        m_held = 0;
    if (!place.m_window)
        return;
    // As it was before.
    Qt::MouseButtons held = event.buttons();
    held.setFlag(event.button(), isRelease);
    const std::uint16_t state = stateOf(event.modifiers(), isMove ? event.buttons() : held);
    if (isMove)
        send(XCB_MOTION_NOTIFY, XCB_MOTION_NORMAL, place, state);
    else if (const std::uint8_t number = numberOf(event.button()))
        send(isRelease ? XCB_BUTTON_RELEASE : XCB_BUTTON_PRESS, number, place, state);
}

/// There a step of the wheel is a click of a button of its own.
void ForeignInput::sendWheel(const QWheelEvent& event, const QPointF& point)
{
    if (!m_window || !server())
        return;
    const Place place = placeAt(m_window, point.toPoint(), 0);
    if (!place.m_window)
        return;
    const std::uint16_t state = stateOf(event.modifiers(), event.buttons());
    const auto click = [&](int& turned, std::uint8_t forward, std::uint8_t back) {
        constexpr int MostSteps = 20;
        int steps = qBound(-MostSteps, turned / WheelStep, MostSteps);
        turned %= WheelStep;
        for (; steps != 0; steps -= steps > 0 ? 1 : -1) {
            send(XCB_BUTTON_PRESS, steps > 0 ? forward : back, place, state);
            send(XCB_BUTTON_RELEASE, steps > 0 ? forward : back, place, state);
        }
    };
    m_turned += event.angleDelta();
    click(m_turned.ry(), 4, 5);
    click(m_turned.rx(), 6, 7);
}

void ForeignInput::sendKey(const QKeyEvent& event)
{
    const std::uint32_t code = event.nativeScanCode();
    if (!m_window || !server() || code < 8 || code > 255)
        return;
    const Place place = placeAt(m_window, {}, m_typed ? m_typed : m_window);
    if (place.m_window)
        send(event.type() == QEvent::KeyPress ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
             static_cast<std::uint8_t>(code), place,
             static_cast<std::uint16_t>(event.nativeModifiers() & 0xffU));
}

} // namespace VOXI
