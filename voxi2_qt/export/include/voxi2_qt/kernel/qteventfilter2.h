#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QEvent>
#include <QPoint>
#include <QPointF>
#include <QSize>

#include <bitset>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QAbstractScrollArea;
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
    /// All events are broadcast and none consumed. `area` is the widget again if it is a scroll
    /// area, else null.
    QtEventFilter2(QtWidget2& peer, QAbstractScrollArea* area);
    ~QtEventFilter2();
    QtEventFilter2(const QtEventFilter2&) = delete;
    QtEventFilter2& operator=(const QtEventFilter2&) = delete;

    /// To be asked for every event that goes to the widget or to its viewport. True when the widget
    /// must not see it: it is consumed, or a handler has deleted the widget at once.
    bool filter(QWidget* receiver, QEvent* event);

    // Each throws std::out_of_range for a value that is no widget event.
    void setBroadcast(WidgetEvent event, bool on) { m_broadcast.set(bit(event), on); }
    bool isBroadcast(WidgetEvent event) const { return m_broadcast.test(bit(event)); }
    void setConsumed(WidgetEvent event, bool on) { m_consumed.set(bit(event), on); }
    bool isConsumed(WidgetEvent event) const { return m_consumed.test(bit(event)); }

    /// Made for the first event that needs it.
    EventThrottler& throttler();

    /// Keeps the report of the widget's present place, or size, back if Qt delays it: it tells a
    /// hidden widget of them when it is shown.
    void keepPlaceBack();
    void keepSizeBack();

    /// What tells an event that a viewport hands on to its area from any other one.
    struct HandedOn
    {
        QEvent::Type m_type;
        quint64 m_time;
        QPointF m_place; // on the screen
        bool operator==(const HandedOn&) const = default;
    };

private:
    static std::size_t bit(WidgetEvent event) { return static_cast<std::size_t>(event); }

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
    bool isSeenTwice(const QWidget* receiver, const QEvent& event);
    // Both are false when a handler has deleted the peer.
    bool pass(WidgetEvent type, QWidget* receiver, QEvent* event);
    bool passOfArea(WidgetEvent type, QWidget* receiver, QEvent* event);

    QtWidget2& m_peer;
    QAbstractScrollArea* m_area;
    std::bitset<WidgetEventCount> m_broadcast;
    std::bitset<WidgetEventCount> m_consumed;
    std::unique_ptr<Extras> m_extras;
};

} // namespace VOXI
