#include "voxi2_qt/kernel/qteventthrottler.h"

#include "trov/packet.h"
#include "voxi2/kernel/vxwidget2.h"

#include <mutex>
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

/// Frees a kind of event at the end of a scope.
class PendingEnd
{
public:
    PendingEnd(std::shared_ptr<unsigned> pending, unsigned bit)
        : m_pending(std::move(pending)),
          m_bit(bit)
    {}
    ~PendingEnd()
    {
        std::lock_guard lock(s_pendingMutex);
        *m_pending &= ~m_bit;
    }
    PendingEnd(const PendingEnd&) = delete;
    PendingEnd& operator=(const PendingEnd&) = delete;

private:
    std::shared_ptr<unsigned> m_pending;
    unsigned m_bit;
};

/// A posted event. Its kind is free again when it goes, whether it was delivered, its handler
/// threw, or it was dropped because the queue has ended.
template <class E>
class PostedEvent final : public TROV::Payload3<void, VXWidget2*, WidgetEvent, E>
{
public:
    PostedEvent(VXWidget2* widget, const E& event, std::shared_ptr<unsigned> pending, unsigned bit)
        : TROV::Payload3<void, VXWidget2*, WidgetEvent, E>(widget, event.type(), event),
          m_end(std::move(pending), bit)
    {}

private:
    PendingEnd m_end;
};

} // namespace

EventThrottler::EventThrottler(VXWidget2* widget)
    : m_widget(widget),
      m_widgetId(widget->id()),
      m_pending(std::make_shared<unsigned>(0))
{
    m_mouse.connect(this, &EventThrottler::deliver<VXMouseEvent2>);
    m_resize.connect(this, &EventThrottler::deliver<VXResizeEvent2>);
    m_drag.connect(this, &EventThrottler::deliver<VXDragEvent2>);
    m_key.connect(this, &EventThrottler::deliver<VXKeyEvent2>);
}

EventThrottler::~EventThrottler()
{
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
    std::lock_guard lock(s_pendingMutex);
    return (*m_pending & pendingBit(event)) != 0;
}

template <class E>
void EventThrottler::postOn(const Emitter<E>& emitter, const E& event)
{
    const unsigned bit = pendingBit(event.type());
    {
        std::lock_guard lock(s_pendingMutex);
        if ((*m_pending & bit) != 0)
            return;
        *m_pending |= bit;
    }
    emitter.sendPacket(TROV::Packet(new PostedEvent<E>(m_widget, event, m_pending, bit)),
                       TROV::SendQueued, false);
}

void EventThrottler::post(const VXMouseEvent2& event)
{
    postOn(m_mouse, event);
}

void EventThrottler::post(const VXResizeEvent2& event)
{
    postOn(m_resize, event);
}

void EventThrottler::post(const VXDragEvent2& event)
{
    postOn(m_drag, event);
}

void EventThrottler::post(const VXKeyEvent2& event)
{
    postOn(m_key, event);
}

template <class E>
void EventThrottler::deliver(VXWidget2* widget, WidgetEvent, const E& event)
{
    // A handler may destroy the widget, and this throttler with it.
    const E copy = event;
    VXObjectDataLocker lock;
    if (VXObject::objectById(m_widgetId) == widget)
        emitterOf(*widget->widgetEmitters(), copy)(copy);
}

std::unique_ptr<EventThrottlerBase> EventThrottlerFactory::createEventThrottler(VXWidget2* widget)
{
    return std::make_unique<EventThrottler>(widget);
}

} // namespace VOXI
