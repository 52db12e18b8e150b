// Rows and columns that come and go, step by step.

#include "qtviewmodel2.h"
#include "qtviewmodel2sizeevent.h"
#include "rowbatch.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

namespace VOXI {

namespace {

bool isOfColumns(const SizeChange2& change)
{
    return change.kind() < SizeChange2::InsertRowsAfter
           || change.kind() == SizeChange2::RemoveColumn;
}

/// Calls `function` for each run of places that are next to each other, the last first.
template <class Function>
void forRunsFromBehind(const std::vector<int>& sorted, const Function& function)
{
    for (auto last = sorted.rbegin(); last != sorted.rend();) {
        auto first = last;
        while (std::next(first) != sorted.rend() && *std::next(first) >= *first - 1)
            ++first;
        function(*first, *last);
        last = std::next(first);
    }
}

} // namespace

void QtViewModel2::handleSizeChanged(const VXSizeChangeEvent2& event)
{
    // What views report of it, and what is done then, waits until all is in its place.
    const QtReportHold hold;
    applySizeChanges(event.sizeChanges());
}

void QtViewModel2::applySizeChanges(Changes changes)
{
    const QScopedValueRollback blocking(m_isBlockingSelection, true);
    Q_EMIT aboutToChangeSize();
    const auto told = qScopeGuard([this] { Q_EMIT sizeChanged(); });
    SizeEvent event;
    prepare(changes, event);
    if (event.rowsAtOnce || event.columnsAtOnce)
        applyAtOnce(changes, event);
    else
        applyInOrder(changes, event);
    finish(event);
}

void QtViewModel2::applyInOrder(Changes changes, SizeEvent& event)
{
    for (auto first = changes.begin(); first != changes.end();) {
        const bool ofColumns = isOfColumns(*first);
        const auto last = std::find_if(first, changes.end(), [ofColumns](const SizeChange2& each) {
            return isOfColumns(each) != ofColumns;
        });
        if (ofColumns)
            applyToColumns({first, last}, event);
        else
            applyToRows({first, last}, event);
        first = last;
    }
}

void QtViewModel2::applyToColumns(Changes changes, SizeEvent& event)
{
    for (const SizeChange2& change : changes) {
        if (SizeEvent::insertsColumns(change))
            addColumns(change, event);
        else if (change.kind() == SizeChange2::RemoveColumn)
            dropColumns(change.uids(), event);
    }
}

void QtViewModel2::applyToRows(Changes changes, SizeEvent& event)
{
    for (auto each = changes.begin(); each != changes.end();) {
        if (SizeEvent::insertsRows(*each)) {
            RowBatch batch(m_rows);
            while (each != changes.end() && SizeEvent::insertsRows(*each) && batch.take(*each))
                ++each;
            addRows(batch, event);
        } else if (each->kind() == SizeChange2::RemoveRow) {
            Uids rows;
            for (; each != changes.end() && each->kind() == SizeChange2::RemoveRow; ++each)
                rows.insert(rows.end(), each->uids().begin(), each->uids().end());
            dropRows(rows, event);
        } else {
            if (each->kind() == SizeChange2::PrependRows)
                answerExpander(*each, event);
            ++each;
        }
    }
}

void QtViewModel2::answerExpander(const SizeChange2& change, SizeEvent& event)
{
    using HasChildren = RowForest::HasChildren;
    if (!m_rows.contains(change.parent()))
        return;
    const HasChildren answer = change.hasChildren() ? HasChildren::Yes : HasChildren::No;
    m_rows.setHasChildren(change.parent(), answer);
    event.answers.emplace_back(change.parent(), answer);
    event.hasNewAnswers = true;
}

// Columns -----------------------------------------------------------------------------------------

void QtViewModel2::addColumns(const SizeChange2& change, const SizeEvent& event)
{
    const int place = insertionPlace(change, columnFromUID(change.anchor()), m_columns.count());
    const Uids columns = m_columns.insertable(change.uids());
    if (place < 0 || columns.empty())
        return;
    if (!event.isStepwise) {
        m_columns.insert(place, columns);
        return;
    }
    const Uids before = m_columns.uids();
    beginInsertColumns({}, place, place + static_cast<int>(columns.size()) - 1);
    m_columns.insert(place, columns);
    movePersistent(before, true);
    endInsertColumns();
}

void QtViewModel2::dropColumns(const Uids& columns, const SizeEvent& event)
{
    std::vector<int> places;
    for (const Uid column : columns) {
        if (const int place = columnFromUID(column); place >= 0)
            places.push_back(place);
    }
    std::sort(places.begin(), places.end());
    forRunsFromBehind(places, [&](int first, int last) {
        const int count = last - first + 1;
        if (!event.isStepwise) {
            m_columns.remove(first, count);
            return;
        }
        const Uids before = m_columns.uids();
        beginRemoveColumns({}, first, last);
        m_columns.remove(first, count);
        movePersistent(before, true);
        endRemoveColumns();
    });
}

// Rows --------------------------------------------------------------------------------------------

void QtViewModel2::addRows(const RowBatch& batch, const SizeEvent& event)
{
    if (batch.rows().empty())
        return;
    const bool isTold = event.isStepwise && canBeNamed(batch.parent());
    if (isTold) {
        beginInsertRows(indexFromUIDs(batch.parent(), 0), batch.place(),
                        batch.place() + batch.count() - 1);
    }
    m_rows.insert(batch.parent(), batch.place(), batch.rows(), batch.isAscending());
    if (isTold)
        endInsertRows();
}

void QtViewModel2::dropRows(const Uids& rows, SizeEvent& event)
{
    for (const auto& [parent, places] : placesOf(rows)) {
        forRunsFromBehind(places, [&, above = parent](int first, int last) {
            // Unless they have gone with their parent.
            if (m_rows.rowCount(above) > 0)
                removeRun(above, first, last, event);
        });
    }
}

void QtViewModel2::removeRun(Uid parent, int first, int last, SizeEvent& event)
{
    const bool isTold = event.isStepwise && canBeNamed(parent);
    if (isTold)
        beginRemoveRows(indexFromUIDs(parent, 0), first, last);
    const Uids gone = m_rows.remove(parent, first, last - first + 1);
    if (isTold)
        endRemoveRows();
    event.gone.insert(event.gone.end(), gone.begin(), gone.end());
}

/// Sorted, without those that are not there.
QtViewModel2::PlacesByParent QtViewModel2::placesOf(const Uids& rows) const
{
    PlacesByParent places;
    for (const Uid row : rows) {
        const RowForest::Place place = m_rows.placeOf(row);
        if (place.row >= 0)
            places[place.parent].push_back(place.row);
    }
    for (auto& [parent, list] : places)
        std::sort(list.begin(), list.end());
    return places;
}

// Afterwards --------------------------------------------------------------------------------------

void QtViewModel2::finish(SizeEvent& event)
{
    using HasChildren = RowForest::HasChildren;
    for (auto answer = event.answers.rbegin(); answer != event.answers.rend(); ++answer) {
        if (m_rows.hasChildren(answer->first) == HasChildren::Unknown)
            m_rows.setHasChildren(answer->first, answer->second);
    }
    forgetGone(event);
    m_queries.shapeChanged();
    if (event.hasNewAnswers && !event.rowsAtOnce) {
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }
}

/// Its number may be another row's next time.
void QtViewModel2::forgetGone(SizeEvent& event)
{
    std::erase_if(event.gone, [this](Uid row) { return m_rows.contains(row); });
    const auto isGone = [this](Cell cell) {
        return (cell.row != 0 && !m_rows.contains(cell.row))
               || (cell.column != 0 && columnFromUID(cell.column) < 0);
    };
    const auto forget = [&](CellCache& cache, std::span<const Uid> columns) {
        const std::size_t cells = event.gone.size() * columns.size();
        if (event.removesColumns || cells > static_cast<std::size_t>(cache.size()))
            cache.removeIf(isGone);
        else
            cache.removeRows(event.gone, columns);
    };
    static constexpr Uid ofSections[] = {0};
    forget(m_cells, m_columns.uids());
    forget(m_sections, ofSections);
}

} // namespace VOXI
