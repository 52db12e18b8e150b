// The part of FoldedView that is about where groups and rows are.

#include "extentsums.h"
#include "qtviewmodel2.h"
#include "qtviewsight.h"
#include "voxi2_qt/modelview/foldedview.h"

#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <limits>

namespace VOXI {

namespace {

constexpr int LargestPicture = 1024;

} // namespace

/// Qt's places are ints; what would be beyond is out of reach.
int FoldedView::bounded(qint64 length)
{
    constexpr qint64 most = std::numeric_limits<int>::max() / 2;
    return static_cast<int>(std::clamp<qint64>(length, -most, most));
}

// Heights -----------------------------------------------------------------------------------------

void FoldedView::layOut() const
{
    if (m_isLaidOut || !isAlive())
        return;
    m_isLaidOut = true;
    m_metrics = measure(viewport()->width());
    findMatches();
    std::vector<int> extents(static_cast<std::size_t>(groupCount()));
    for (std::size_t group = 0; group < extents.size(); ++group)
        extents[group] = extentOf(static_cast<int>(group));
    m_sums->assign(extents);
}

void FoldedView::layOutNow()
{
    executeDelayedItemsLayout();
    if (!m_isLaidOut)
        updateGeometries();
}

void FoldedView::doItemsLayout()
{
    if (isAlive())
        QAbstractItemView::doItemsLayout();
}

void FoldedView::relayLater()
{
    m_isLaidOut = false;
    scheduleDelayedItemsLayout();
}

void FoldedView::looksChanged() { relayLater(); }

void FoldedView::groupChanged(int group)
{
    if (m_isLaidOut && group < m_sums->count())
        m_sums->set(group, extentOf(group));
    scheduleDelayedItemsLayout();
}

void FoldedView::updateGeometries()
{
    if (!isAlive())
        return;
    m_sight->layoutBegins();
    const Metrics now = measure(viewport()->width());
    if (now.rowsPerLine != m_metrics.rowsPerLine)
        m_isLaidOut = false;
    layOut();
    const int height = viewport()->height();
    const int total = bounded(m_sums->total() + 2 * m_metrics.margin);
    verticalScrollBar()->setSingleStep(m_metrics.rowHeight);
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setRange(0, std::max(total - height, 0));
    QAbstractItemView::updateGeometries();
    m_sight->layoutEnds();
    if (!m_unknown.empty() && !m_askTimer.isActive())
        m_askTimer.start(0, this);
}

void FoldedView::scrollContentsBy(int dx, int dy)
{
    viewport()->scroll(dx, dy);
    m_sight->scrolled();
}

int FoldedView::groupCount() const
{
    return m_model && m_model->columnCount() > 0 ? m_model->rowCount() : 0;
}

int FoldedView::shownCount(int group) const
{
    if (!m_filter.isEmpty()) {
        const auto at = static_cast<std::size_t>(group);
        return at < m_matches.size() ? static_cast<int>(m_matches[at].size()) : 0;
    }
    return m_model->rowCount(m_model->index(group, 0));
}

int FoldedView::rowAtPlace(int group, int place) const
{
    return m_filter.isEmpty()
               ? place
               : m_matches[static_cast<std::size_t>(group)][static_cast<std::size_t>(place)];
}

int FoldedView::placeOfRow(int group, int row) const
{
    if (m_filter.isEmpty())
        return row;
    if (static_cast<std::size_t>(group) >= m_matches.size())
        return -1;
    const std::vector<int>& rows = m_matches[static_cast<std::size_t>(group)];
    const auto found = std::lower_bound(rows.begin(), rows.end(), row);
    return found != rows.end() && *found == row ? static_cast<int>(found - rows.begin()) : -1;
}

/// While something is looked for, what was found is shown wherever it is.
bool FoldedView::isOpen(int group) const
{
    return !m_filter.isEmpty() || !isFolded(m_model->rowFromIndex(m_model->index(group, 0)));
}

qint64 FoldedView::fullBody(int group) const
{
    const qint64 count = shownCount(group);
    const qint64 lines = (count + m_metrics.rowsPerLine - 1) / m_metrics.rowsPerLine;
    return lines > 0 ? lines * m_metrics.rowHeight + 2 * m_metrics.pad : 0;
}

/// A group that slides does so as if it had no more in it than there is room for.
int FoldedView::shownBody(int group) const
{
    if (m_slidingGroup != 0 && m_model->rowFromIndex(m_model->index(group, 0)) == m_slidingGroup) {
        const qint64 seen = std::min<qint64>(fullBody(group), viewport()->height());
        return static_cast<int>(double(seen) * m_sliding.currentValue().toDouble());
    }
    return isOpen(group) ? bounded(fullBody(group)) : 0;
}

int FoldedView::extentOf(int group) const
{
    if (!m_filter.isEmpty() && shownCount(group) == 0)
        return 0;
    return m_metrics.header + shownBody(group) + m_metrics.gap;
}

bool FoldedView::isGroupShown(int group) const
{
    layOut();
    return group >= 0 && group < m_sums->count() && m_sums->extent(group) > 0;
}

// Places ------------------------------------------------------------------------------------------

int FoldedView::horizontalOffset() const { return 0; }
int FoldedView::verticalOffset() const { return verticalScrollBar()->value(); }

int FoldedView::roomWidth() const
{
    return std::max(viewport()->width() - 2 * m_metrics.margin, 1);
}

int FoldedView::topOf(int group) const
{
    return bounded(m_sums->before(group) + m_metrics.margin - verticalOffset());
}

QRect FoldedView::mirrored(const QRect& rect, const QRect& inside) const
{
    return QStyle::visualRect(layoutDirection(), inside, rect);
}

QRect FoldedView::headerRect(int group) const
{
    return {m_metrics.margin, topOf(group), roomWidth(), m_metrics.header};
}

QRect FoldedView::bodyRect(int group) const
{
    return {m_metrics.margin, topOf(group) + m_metrics.header, roomWidth(),
            m_sums->extent(group) - m_metrics.header - m_metrics.gap};
}

/// Empty where nothing of it is shown; of a row in a group that slides it is what it will be.
QRect FoldedView::rowRect(int group, int place) const
{
    const QRect body = bodyRect(group);
    const int line = place / m_metrics.rowsPerLine;
    const int column = place % m_metrics.rowsPerLine;
    const qint64 top = qint64(body.top()) + m_metrics.pad + qint64(line) * m_metrics.rowHeight;
    if (top >= qint64(body.top()) + body.height())
        return {};
    const int left = body.width() * column / m_metrics.rowsPerLine;
    const int right = body.width() * (column + 1) / m_metrics.rowsPerLine;
    return mirrored({body.left() + left, bounded(top), right - left, m_metrics.rowHeight}, body);
}

QRect FoldedView::visualRect(const QModelIndex& index) const
{
    const Spot spot = spotOf(index);
    if (!isGroupShown(spot.group))
        return {};
    return spot.place < 0 ? headerRect(spot.group) : rowRect(spot.group, spot.place);
}

bool FoldedView::isShown(const QModelIndex& index) const { return !visualRect(index).isEmpty(); }
bool FoldedView::isIndexHidden(const QModelIndex& index) const { return !isShown(index); }

QModelIndex FoldedView::indexAt(const QPoint& point) const
{
    if (!isAlive())
        return {};
    layOut();
    const qint64 y = qint64(point.y()) + verticalOffset() - m_metrics.margin;
    const int group = m_sums->at(y);
    if (y < 0 || group >= m_sums->count())
        return {};
    if (headerRect(group).contains(point))
        return indexOf(Spot{group, -1});
    const QRect body = bodyRect(group);
    if (!body.contains(point))
        return {};
    const int inBody = point.y() - body.top() - m_metrics.pad;
    if (inBody < 0)
        return {};
    const int first = inBody / m_metrics.rowHeight * m_metrics.rowsPerLine;
    const int end = std::min(first + m_metrics.rowsPerLine, shownCount(group));
    for (int place = first; place < end; ++place) {
        if (rowRect(group, place).contains(point))
            return indexOf(Spot{group, place});
    }
    return {};
}

void FoldedView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    layOutNow();
    const QRect rect = visualRect(index);
    if (rect.isEmpty())
        return;
    const int height = viewport()->height();
    const int toTop = rect.top();
    const int toBottom = rect.bottom() + 1 - height;
    int way = 0;
    if (hint == PositionAtTop || (hint == EnsureVisible && (toTop < 0 || rect.height() > height)))
        way = toTop;
    else if (hint == PositionAtBottom || (hint == EnsureVisible && toBottom > 0))
        way = toBottom;
    else if (hint == PositionAtCenter)
        way = toTop + (rect.height() - height) / 2;
    if (way != 0)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + way);
}

// Spots -------------------------------------------------------------------------------------------

/// -1 for what is neither a group nor in one.
int FoldedView::groupOf(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != m_model)
        return -1;
    const QModelIndex parent = index.parent();
    if (!parent.isValid())
        return index.row();
    return parent.parent().isValid() ? -1 : parent.row();
}

/// Of what is not shown its group's header; of what is in no group {-1, -1}.
FoldedView::Spot FoldedView::spotOf(const QModelIndex& index) const
{
    if (!isAlive())
        return {-1, -1};
    layOut();
    const int group = groupOf(index);
    if (group < 0 || !index.parent().isValid())
        return {group, -1};
    const int place = placeOfRow(group, index.row());
    return isOpen(group) && place >= 0 ? Spot{group, place} : Spot{-1, -1};
}

QModelIndex FoldedView::indexOf(Spot spot) const
{
    if (!m_model || !isGroupShown(spot.group))
        return {};
    const QModelIndex header = m_model->index(spot.group, 0);
    return spot.place < 0 ? header : m_model->index(rowAtPlace(spot.group, spot.place), 0, header);
}

/// The first at a height of the viewport or below it.
FoldedView::Spot FoldedView::spotAt(int y) const
{
    layOut();
    const int group = m_sums->at(qint64(y) + verticalOffset() - m_metrics.margin);
    if (group >= m_sums->count() || y <= headerRect(group).bottom())
        return {group, -1};
    const int line = (y - bodyRect(group).top() - m_metrics.pad) / m_metrics.rowHeight;
    const int place = std::max(line, 0) * m_metrics.rowsPerLine;
    if (place < shownCount(group) && y <= bodyRect(group).bottom())
        return {group, place};
    return {m_sums->at(m_sums->before(group + 1)), -1};
}

/// One line below for `rows` of a line; one row for 1.
FoldedView::Spot FoldedView::spotBelow(Spot spot, int rows) const
{
    const int count = isOpen(spot.group) ? shownCount(spot.group) : 0;
    if (spot.place < 0 && count > 0)
        return {spot.group, 0};
    if (spot.place >= 0) {
        const int lastLine = (count - 1) / rows;
        if (spot.place / rows < lastLine)
            return {spot.group, std::min(spot.place + rows, count - 1)};
    }
    return {m_sums->at(m_sums->before(spot.group + 1)), -1};
}

FoldedView::Spot FoldedView::spotAbove(Spot spot, int rows) const
{
    if (spot.place >= 0)
        return {spot.group, spot.place >= rows ? spot.place - rows : -1};
    const qint64 begin = m_sums->before(spot.group);
    if (begin <= 0)
        return {-1, -1};
    const int group = m_sums->at(begin - 1);
    const int count = isOpen(group) ? shownCount(group) : 0;
    return {group, count > 0 ? (count - 1) / rows * rows : -1};
}

QModelIndex FoldedView::rowBelow(const QModelIndex& index) const
{
    const Spot spot = spotOf(index);
    return spot.group < 0 ? QModelIndex() : indexOf(spotBelow(spot, 1));
}

QSize FoldedView::pictureSize() const
{
    const QSize set = iconSize();
    if (!set.isEmpty())
        return set.boundedTo({LargestPicture, LargestPicture});
    const int usual = style()->pixelMetric(pictureMetric(), nullptr, this);
    return {usual, usual};
}

} // namespace VOXI
