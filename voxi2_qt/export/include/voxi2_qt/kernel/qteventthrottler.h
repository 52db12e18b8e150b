#pragma once

#include "trov/emitter.h"
#include "voxi2/kernel/events.h"
#include "voxi2/kernel/eventthrottler.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QSize;
QT_END_NAMESPACE

namespace VOXI {

class VXWidget2;

/// Keeps the frequent events of one widget from flooding the abstract side.
///
/// A posted event is delivered at the next turn of the event loop; until then later ones of its
/// kind are dropped. A kind is free again as soon as its event was delivered, whatever its handlers
/// did, or was dropped undelivered. If a widget has then another size than the delivered one, its
/// event follows.
class VOXI2_QT_EXPORT EventThrottler final : public EventThrottlerBase, public TROV::Listener
{
public:
    explicit EventThrottler(VXWidget2* widget);
    ~EventThrottler() override;

    /// Whether an event of that kind is on its way.
    bool isPending(WidgetEvent event) const;

    // What is posted for a kind that is on its way already is dropped: ask `isPending` before
    // building it. The type of the event says which kind it is.
    void post(const VXMouseEvent2& event);
    void post(const VXResizeEvent2& event);
    void post(const VXDragEvent2& event);
    void post(const VXKeyEvent2& event);

    /// The program has given the widget this size: what is on its way is out of date.
    void withdraw(const QSize& size);

    /// The pending bit of an event; 0 for events that are never throttled.
    static unsigned pendingBit(WidgetEvent event) noexcept;

private:
    template <class E>
    using Emitter = TROV::Emitter3<void, VXWidget2*, WidgetEvent, E>;

    class State;
    template <class E>
    class Posted;

    template <class E>
    bool postOn(const Emitter<E>& emitter, const E& event);
    static void postLatest(State& state);
    template <class E>
    void deliver(VXWidget2* widget, WidgetEvent type, E event);

    VXWidget2* m_widget;
    unsigned m_widgetId;
    Emitter<VXMouseEvent2> m_mouse;
    Emitter<VXResizeEvent2> m_resize;
    Emitter<VXDragEvent2> m_drag;
    Emitter<VXKeyEvent2> m_key;
    std::shared_ptr<State> m_state; // outlives the throttler while an event is on its way
};

/// Makes the throttlers above.
class VOXI2_QT_EXPORT EventThrottlerFactory final : public EventThrottlerFactoryBase
{
public:
    std::unique_ptr<EventThrottlerBase> createEventThrottler(VXWidget2* widget) override;
};

} // namespace VOXI
