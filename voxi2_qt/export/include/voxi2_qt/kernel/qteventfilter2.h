#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QEvent>
#include <QPoint>
#include <QPointF>
#include <QSize>

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VOXI {

class EventThrottler;
class QtWidget2;

/// Sees the events of one widget before the widget does: passes them back to the abstract side and
/// swallows those that are consumed.
///
/// It is a part of the peer that the shim asks in `event()`. As an object that Qt's own filters
/// demand it would cost every widget half a kilobyte, and every event a walk to it.
class VOXI2_QT_EXPORT QtEventFilter2
{
public:
    QtEventFilter2() = default;
    ~QtEventFilter2();
    QtEventFilter2(const QtEventFilter2&) = delete;
    QtEventFilter2& operator=(const QtEventFilter2&) = delete;

    /// Has all events broadcast and none consumed; before that, and after `switchOff`, nothing is
    /// done about any.
    void switchOn(bool isScrollArea);
    void switchOff();
    bool isOn() const noexcept { return m_broadcast & Flag; }

    /// To be asked for every event that goes to the widget or to its viewport. True when the widget
    /// must not see it: it is consumed, or a handler has deleted the widget at once.
    bool filter(QtWidget2& peer, QWidget* receiver, QEvent* event);

    // Each throws std::out_of_range for a value that is no widget event.
    void setBroadcast(WidgetEvent event, bool on) { set(m_broadcast, event, on); }
    bool isBroadcast(WidgetEvent event) const { return m_broadcast & bit(event); }
    void setConsumed(WidgetEvent event, bool on) { set(m_consumed, event, on); }
    bool isConsumed(WidgetEvent event) const { return m_consumed & bit(event); }

    /// Made for the first event that needs it.
    EventThrottler& throttler(const QtWidget2& peer);

    /// Keeps the report of the widget's present place, or size, back if Qt delays it: it tells a
    /// hidden widget of them when it is shown.
    void keepPlaceBack(const QWidget& widget);
    void keepSizeBack(const QWidget& widget);

    /// What tells an event that a viewport hands on to its area from any other one.
    struct HandedOn
    {
        QEvent::Type m_type;
        quint64 m_time;
        QPointF m_place; // on the screen
        bool operator==(const HandedOn&) const = default;
    };

private:
    static constexpr std::uint32_t Flag = 1u << WidgetEventCount; // behind the events' bits

    static std::uint32_t bit(WidgetEvent event)
    {
        const auto number = static_cast<std::uint32_t>(event);
        if (number >= WidgetEventCount) [[unlikely]]
            throw std::out_of_range("no widget event");
        return 1u << number;
    }
    static void set(std::uint32_t& bits, WidgetEvent event, bool on)
    {
        bits = on ? bits | bit(event) : bits & ~bit(event);
    }
    bool isScrollArea() const noexcept { return m_consumed & Flag; }

    /// What few widgets need.
    struct Extras
    {
        ~Extras();
        std::unique_ptr<EventThrottler> m_throttler;
        std::optional<QPoint> m_placeKeptBack;
        std::optional<QSize> m_sizeKeptBack;
        std::optional<HandedOn> m_handedOn; // the viewport's last, until its copy comes
    };

    Extras& extras();
    bool isKeptBack(WidgetEvent type, const QEvent& event);
    bool isSeenTwice(const QtWidget2& peer, const QWidget* receiver, const QEvent& event);
    // Both are false when a handler has deleted the peer.
    bool pass(const QtWidget2& peer, WidgetEvent type, QWidget* receiver, QEvent* event);
    bool passOfArea(const QtWidget2& peer, WidgetEvent type, QWidget* receiver, QEvent* event);

    std::uint32_t m_broadcast = 0; // with the flag: whether it is on
    std::uint32_t m_consumed = 0;  // with the flag: whether the widget is a scroll area
    std::unique_ptr<Extras> m_extras;
};

} // namespace VOXI
