#pragma once

#include "voxi2/kernel/vxclock2.h"

#include <QBasicTimer>
#include <QHash>
#include <QModelIndex>
#include <QObject>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractItemView;
class QPainter;
class QRect;
QT_END_NAMESPACE

namespace VOXI {

class QtViewModel2;

/// What a view has in sight: tells its model, keeps it in place when rows come and go above, and
/// shows where cells take long to come.
class QtViewSight final : public QObject
{
public:
    /// What it needs of its view beside what every item view has.
    class View
    {
    public:
        virtual QAbstractItemView& itemView() const = 0;
        virtual QtViewModel2& viewModel() const = 0;
        /// Those that are in the area, at least in part.
        virtual std::vector<int> sectionsIn(const QRect& area) const = 0;
        /// The uppermost one that is in the area, which has these sections; invalid for none.
        virtual QModelIndex firstRowIn(const QRect& area,
                                       const std::vector<int>& sections) const = 0;
        /// The row below, as shown; invalid after the last.
        virtual QModelIndex rowBelow(const QModelIndex& index) const = 0;
        /// Does what waits to be laid out.
        virtual void layOutNow() = 0;
        /// Adds what has to be known beside what is in sight.
        virtual void addWanted(std::vector<unsigned>& rows,
                               std::vector<unsigned>& columns) const = 0;

    protected:
        ~View() = default;
    };

    explicit QtViewSight(View& view);

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
    void restore();
    void putTo(const QModelIndex& index, int top);
    void tellLater();
    void markWaiting(QPainter& painter, const QModelIndex& index);
    void startBeat();
    void beat();

    View& m_view;
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
