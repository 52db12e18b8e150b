#include "voxi2_qt/kernel/qteventthrottler.h"

#include "trov/packet.h"
#include "voxi2/kernel/vxwidget2.h"
#include "voxi2_qt/kernel/qtgeometry.h"

#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace VOXI {

namespace {

/// Guards the pending bits of all throttlers; never held while an event is sent.
std::mutex s_pendingMutex;

const TROV::Event<void(const VXMouseEvent2&)>& emitterOf(VXWidget2Emitters& emitters,
                                                         const VXMouseEvent2& event)
{
    return event.type() == WidgetEvent::Wheel ? emitters.wheel : emitters.mouseMove;
}

const TROV::Event<void(const VXDragEvent2&)>& emitterOf(VXWidget2Emitters& emitters,
                                                        const VXDragEvent2&)
{
    return emitters.dragMove;
}

const TROV::Event<void(const VXResizeEvent2&)>& emitterOf(VXWidget2Emitters& emitters,
                                                          const VXResizeEvent2&)
{
    return emitters.resized;
}

const TROV::Event<void(const VXKeyEvent2&)>& emitterOf(VXWidget2Emitters& emitters,
                                                       const VXKeyEvent2& event)
{
    return event.type() == WidgetEvent::KeyPress ? emitters.keyPress : emitters.keyRelease;
}

} // namespace

/// What a throttler shares with its events on their way.
class EventThrottler::State
{
public:
    explicit State(EventThrottler* throttler) : m_throttler(throttler) {}

    bool isPending(unsigned bit) const
    {
        std::lock_guard lock(s_pendingMutex);
        return (m_pending & bit) != 0;
    }

    /// False if it has begun already.
    bool begin(unsigned bit)
    {
        std::lock_guard lock(s_pendingMutex);
        return (std::exchange(m_pending, m_pending | bit) & bit) == 0;
    }

    void end(unsigned bit)
    {
        std::lock_guard lock(s_pendingMutex);
        m_pending &= ~bit;
    }

    // Of the size on its way; the rest is for the thread of the widget only.
    EventThrottler* m_throttler; // null when it has gone
    Size<int> m_known;           // what the program has been told, or has set since
    std::optional<Size<int>> m_latest;
    bool m_isWithdrawn = false;
    bool m_isDelivered = false;

private:
    unsigned m_pending = 0;
};

/// A posted event. Its kind is free again when it goes, whether it was delivered, its handler
/// threw, or it was dropped because the queue has ended.
template <class E>
class EventThrottler::Posted final : public TROV::Payload3<void, VXWidget2*, WidgetEvent, E>
{
public:
    Posted(VXWidget2* widget, const E& event, std::shared_ptr<State> state)
        : TROV::Payload3<void, VXWidget2*, WidgetEvent, E>(widget, event.type(), event),
          m_state(std::move(state)),
          m_bit(pendingBit(event.type()))
    {}

    ~Posted() override
    {
        m_state->end(m_bit);
        if constexpr (std::is_same_v<E, VXResizeEvent2>)
            postLatest(*m_state);
    }

private:
    std::shared_ptr<State> m_state;
    unsigned m_bit;
};

EventThrottler::EventThrottler(VXWidget2* widget)
    : m_widget(widget),
      m_widgetId(widget->id()),
      m_state(std::make_shared<State>(this))
{
    m_mouse.connect(this, &EventThrottler::deliver<VXMouseEvent2>);
    m_resize.connect(this, &EventThrottler::deliver<VXResizeEvent2>);
    m_drag.connect(this, &EventThrottler::deliver<VXDragEvent2>);
    m_key.connect(this, &EventThrottler::deliver<VXKeyEvent2>);
}

EventThrottler::~EventThrottler()
{
    m_state->m_throttler = nullptr;
    Listener::disconnect();
}

unsigned EventThrottler::pendingBit(WidgetEvent event) noexcept
{
    switch (event) {
    case WidgetEvent::MouseMove:
        return 0x01;
    case WidgetEvent::DragMove:
        return 0x02;
    case WidgetEvent::Wheel:
        return 0x04;
    case WidgetEvent::Resize:
        return 0x08;
    case WidgetEvent::KeyPress:
        return 0x10;
    case WidgetEvent::KeyRelease:
        return 0x20;
    default:
        return 0;
    }
}

bool EventThrottler::isPending(WidgetEvent event) const
{
    return m_state->isPending(pendingBit(event));
}

template <class E>
bool EventThrottler::postOn(const Emitter<E>& emitter, const E& event)
{
    if (!m_state->begin(pendingBit(event.type())))
        return false;
    emitter.sendPacket(TROV::Packet(new Posted<E>(m_widget, event, m_state)), TROV::SendQueued,
                       false);
    return true;
}

void EventThrottler::post(const VXMouseEvent2& event) { postOn(m_mouse, event); }

void EventThrottler::post(const VXResizeEvent2& event)
{
    if (isPending(WidgetEvent::Resize)) {
        m_state->m_latest = event.size();
        return;
    }
    m_state->m_known = event.size();
    m_state->m_isWithdrawn = m_state->m_isDelivered = false;
    postOn(m_resize, event);
}

void EventThrottler::withdraw(const QSize& size)
{
    m_state->m_known = Qt2VX(size);
    m_state->m_latest.reset();
    m_state->m_isWithdrawn = true;
}

/// Posts what became of the size while an event told of another one. Not when that was dropped:
/// then nobody takes events any more.
void EventThrottler::postLatest(State& state)
{
    const auto latest = std::exchange(state.m_latest, std::nullopt);
    EventThrottler* const throttler = state.m_throttler;
    if (throttler && state.m_isDelivered && latest && *latest != state.m_known)
        throttler->post(VXResizeEvent2(throttler->m_widget, state.m_known, *latest));
}

void EventThrottler::post(const VXDragEvent2& event) { postOn(m_drag, event); }
void EventThrottler::post(const VXKeyEvent2& event) { postOn(m_key, event); }

/// The event is a copy: a handler may destroy the widget, and this throttler with it.
template <class E>
void EventThrottler::deliver(VXWidget2* widget, WidgetEvent, E event)
{
    if constexpr (std::is_same_v<E, VXResizeEvent2>) {
        m_state->m_isDelivered = true;
        if (m_state->m_isWithdrawn)
            return;
    }
    VXObjectDataLocker lock;
    if (VXObject::objectById(m_widgetId) == widget)
        emitterOf(*widget->widgetEmitters(), event)(event);
}

std::unique_ptr<EventThrottlerBase> EventThrottlerFactory::createEventThrottler(VXWidget2* widget)
{
    return std::make_unique<EventThrottler>(widget);
}

} // namespace VOXI
