#pragma once

#include "voxi2/kernel/vxclock2.h"

#include <QBasicTimer>
#include <QHash>
#include <QModelIndex>
#include <QObject>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QPainter;
class QRect;
QT_END_NAMESPACE

namespace VOXI {

class QtAbstractView2;

/// What a view has in sight: tells its model, keeps it in place when rows come and go above, and
/// shows where cells take long to come.
class QtViewSight final : public QObject
{
public:
    explicit QtViewSight(QtAbstractView2& view);

    /// The view ends.
    void end() { m_isOver = true; }

    /// Around changes to rows and columns, of which there may be several before a layout.
    void remember();
    void changed() { tellLater(); }
    /// Around Qt's computing of what the scroll bars scroll.
    void layoutBegins() { m_isLayingOut = true; }
    void layoutEnds();
    void scrolled();
    void modelReplaced();

    /// Has the model know at once.
    void tell();

    /// Marks the cells that have been waited for too long.
    void paintWaiting(const QRect& area);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Place
    {
        unsigned row;
        int top;
    };
    struct Waiting
    {
        int since; ///< the beat in which it was found out
        bool isShown = false;
    };

    /// For the rows in an area, from the top: an index, where it begins, the sections in the area.
    template <class Function>
    void forRows(const QRect& area, Function&& function) const;
    std::vector<int> sectionsInSight(const QRect& area) const;
    void restore();
    void putTo(const QModelIndex& index, int top);
    void tellLater();
    void markWaiting(QPainter& painter, const QModelIndex& index);
    void startBeat();
    void beat();

    QtAbstractView2& m_view;
    std::vector<Place> m_anchors; ///< rows in sight before a change, from the top
    bool m_isOver = false;
    bool m_isLayingOut = false;
    bool m_isRestoring = false;
    bool m_wasSeen = false; ///< nobody misses a place in what was never painted
    QBasicTimer m_tellTimer;
    std::unique_ptr<VXClock2::Timer> m_beatTimer; ///< null while no cell waits
    int m_beat = 0;
    /// Cells in sight that are not known, by their UIDs.
    QHash<quint64, Waiting> m_waiting;
};

} // namespace VOXI
