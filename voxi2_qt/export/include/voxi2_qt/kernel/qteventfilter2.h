#pragma once

#include "voxi2/kernel/widgetevent.h"
#include "voxi2_qt/voxi2_qt_export.h"

#include <QObject>
#include <QPoint>
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
/// swallows those that are consumed. Belongs to the widget.
class VOXI2_QT_EXPORT QtEventFilter2 final : public QObject
{
public:
    /// All events are broadcast and none consumed. `area` is the widget again if it is a scroll
    /// area, else null.
    QtEventFilter2(QtWidget2& peer, QWidget* widget, QAbstractScrollArea* area);
    ~QtEventFilter2() override;

    // Each throws std::out_of_range for a value that is no widget event.
    void setBroadcast(WidgetEvent event, bool on) { m_broadcast.set(bit(event), on); }
    bool isBroadcast(WidgetEvent event) const { return m_broadcast.test(bit(event)); }
    void setConsumed(WidgetEvent event, bool on) { m_consumed.set(bit(event), on); }
    bool isConsumed(WidgetEvent event) const { return m_consumed.test(bit(event)); }

    /// Passes nothing on from now on: for a widget that goes, and takes the filter with it.
    void silence();

    /// Made for the first event that needs it.
    EventThrottler& throttler();

    /// Keeps the report of the widget's present place, or size, back if Qt delays it: it tells a
    /// hidden widget of them when it is shown.
    void keepPlaceBack();
    void keepSizeBack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static std::size_t bit(WidgetEvent event) { return static_cast<std::size_t>(event); }

    /// What few widgets need.
    struct Extras
    {
        ~Extras();
        std::unique_ptr<EventThrottler> m_throttler;
        std::optional<QPoint> m_placeKeptBack;
        std::optional<QSize> m_sizeKeptBack;
    };

    Extras& extras();
    bool isKeptBack(WidgetEvent type, const QEvent& event);
    bool isSeenTwice(const QObject* watched, const QEvent& event) const;
    void pass(WidgetEvent type, QObject* watched, QEvent* event);

    QtWidget2& m_peer;
    QAbstractScrollArea* m_area;
    std::bitset<WidgetEventCount> m_broadcast;
    std::bitset<WidgetEventCount> m_consumed;
    std::unique_ptr<Extras> m_extras;
};

} // namespace VOXI
