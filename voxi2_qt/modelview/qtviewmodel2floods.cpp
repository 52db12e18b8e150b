// Rows and columns that move, or that come and go in such numbers that views are told at once.

#include "qtviewmodel2.h"
#include "qtviewmodel2sizeevent.h"

#include <QScopedValueRollback>
#include <QSet>

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {

// With fewer a change of the layout, which is about as much as three, is not worth it.
constexpr qsizetype LeastSteps = 4;

/// How often a place does not follow the one before.
qsizetype countRuns(const std::vector<int>& sorted)
{
    qsizetype runs = sorted.empty() ? 0 : 1;
    for (auto place = sorted.begin(); place != sorted.end() && std::next(place) != sorted.end();
         ++place)
        runs += *std::next(place) > *place + 1;
    return runs;
}

} // namespace

void QtViewModel2::prepare(Changes changes, SizeEvent& event) const
{
    std::size_t removed = 0;
    std::size_t inserted = 0;
    std::size_t moved = 0;
    for (const SizeChange2& change : changes) {
        if (change.kind() == SizeChange2::RemoveRow)
            removed += change.uids().size();
        else if (change.kind() == SizeChange2::RemoveColumn)
            event.removesColumns = true;
    }
    for (const SizeChange2& change : changes) {
        if (SizeEvent::insertsRows(change)) {
            inserted += change.uids().size();
            if (removed > 0)
                moved += noteMoves(change.uids(), event);
        }
    }
    event.isPermutation = moved == inserted && moved == removed;
    event.rowsAtOnce = moved > 0 || isFlood(changes);
    event.columnsAtOnce = event.removesColumns && mustGoAtOnce(changes);
}

/// When columns move; and when the first goes, of which Qt takes all that is below rows for a part.
bool QtViewModel2::mustGoAtOnce(Changes columnChanges) const
{
    bool isFirst = false;
    for (const SizeChange2& change : columnChanges) {
        const auto has = [&](const auto& predicate) {
            return std::any_of(change.uids().begin(), change.uids().end(), predicate);
        };
        if (SizeEvent::insertsColumns(change)) {
            if (has([this](Uid column) { return isValidColumn(column); }))
                return true;
            isFirst = true;
        } else if (change.kind() == SizeChange2::RemoveColumn) {
            isFirst = isFirst || has([this](Uid column) { return column == m_columns.at(0); });
        }
    }
    const QModelIndexList held = isFirst ? persistentIndexList() : QModelIndexList();
    return std::any_of(held.begin(), held.end(), [this](const QModelIndex& index) {
        return parentRow(rowFromIndex(index)) != 0;
    });
}

/// How many of the rows that are inserted are there already: they move, or are inserted in error.
std::size_t QtViewModel2::noteMoves(const Uids& rows, SizeEvent& event) const
{
    std::size_t moved = 0;
    for (const Uid row : rows) {
        if (!m_rows.contains(row))
            continue;
        ++moved;
        const RowForest::HasChildren answer = m_rows.hasChildren(row);
        if (answer != RowForest::HasChildren::Unknown)
            event.answers.emplace_back(row, answer);
    }
    return moved;
}

bool QtViewModel2::isFlood(Changes changes) const
{
    qsizetype insertions = 0;
    Uids removed;
    for (const SizeChange2& change : changes) {
        if (SizeEvent::insertsRows(change))
            ++insertions;
        else if (change.kind() == SizeChange2::RemoveRow)
            removed.insert(removed.end(), change.uids().begin(), change.uids().end());
    }
    if (insertions + std::ssize(removed) < LeastSteps)
        return false;
    qsizetype removals = 0;
    for (const auto& [parent, places] : placesOf(removed))
        removals += countRuns(places);
    const qsizetype steps = insertions + removals;
    if (steps < LeastSteps)
        return false;
    const bool burdensHeader = m_rows.rowCount(0) >= m_floodLimits.rows
                               && removals + insertions / 10 > m_floodLimits.removals;
    const bool burdensIndexes =
        burdensHeader || steps * persistentIndexList().size() > m_floodLimits.work;
    return burdensIndexes && isSelectionSmall();
}

bool QtViewModel2::isSelectionSmall() const
{
    qsizetype rows = 0;
    if (m_selection) {
        for (const QItemSelectionRange& range : m_selection->selection())
            rows += range.height();
    }
    return rows <= m_floodLimits.selectedRows;
}

bool QtViewModel2::isAllSelected() const
{
    if (!m_selection)
        return false;
    const QItemSelection selection = m_selection->selection();
    return selection.size() == 1 && selection.front().width() == m_columns.count()
           && selection.front().height() == rowCount(selection.front().parent());
}

void QtViewModel2::applyAtOnce(Changes changes, SizeEvent& event)
{
    // The ones do not touch the others.
    if (event.columnsAtOnce)
        changeColumnsAtOnce(changes, event);
    else
        applyToColumns(changes, event);
    if (event.rowsAtOnce)
        floodRows(changes, event);
    else
        applyToRows(changes, event);
}

// A header that remembers sections finds none of them again when all of these have gone, and takes
// those at their places for them. So what goes moves behind the end first, and then goes in a step.

void QtViewModel2::changeColumnsAtOnce(Changes changes, SizeEvent& event)
{
    Uids gone;
    {
        // Of columns that move, Qt keeps only such cells selected as are enabled, and not those of
        // which nothing is known.
        const QScopedValueRollback enabled(m_isMovingColumns, true);
        changeLayout(HorizontalSortHint, event, [&] {
            const Uids before = m_columns.uids();
            applyToColumns(changes, event);
            gone = m_columns.insertable(before);
            m_columns.insert(m_columns.count(), gone);
        });
    }
    dropColumns(gone, event);
}

void QtViewModel2::floodRows(Changes changes, SizeEvent& event)
{
    if (!event.isPermutation)
        leaveRemoved(changes);
    int end = 0;
    changeLayout(VerticalSortHint, event, [&] {
        applyToRows(changes, event);
        end = m_rows.rowCount(0);
        m_rows.insert(0, end, goneButHeld());
    });
    if (m_rows.rowCount(0) > end)
        removeRun(0, end, m_rows.rowCount(0) - 1, event);
}

/// Rows that are not there any more, and to which there are persistent indexes.
QtViewModel2::Uids QtViewModel2::goneButHeld() const
{
    QSet<Uid> rows;
    const QModelIndexList held = persistentIndexList();
    for (const QModelIndex& index : held) {
        if (!m_rows.contains(rowFromIndex(index)))
            rows.insert(rowFromIndex(index));
    }
    return {rows.begin(), rows.end()};
}

/// If the current row goes, another one near it becomes current before, as views do it for single
/// steps. A change of the layout would just leave none.
void QtViewModel2::leaveRemoved(Changes changes) const
{
    if (!m_selection || !m_selection->currentIndex().isValid())
        return;
    Uids removed;
    Uids inserted;
    for (const SizeChange2& change : changes) {
        if (change.kind() == SizeChange2::RemoveRow)
            removed.insert(removed.end(), change.uids().begin(), change.uids().end());
        else if (SizeEvent::insertsRows(change))
            inserted.insert(inserted.end(), change.uids().begin(), change.uids().end());
    }
    std::sort(removed.begin(), removed.end());
    std::sort(inserted.begin(), inserted.end());
    const auto goes = [&](Uid row) {
        return row != 0 && std::binary_search(removed.begin(), removed.end(), row)
               && !std::binary_search(inserted.begin(), inserted.end(), row);
    };
    const QModelIndex current = m_selection->currentIndex();
    Uid row = rowFromIndex(current);
    if (!goes(row))
        return;
    const RowForest::Place place = m_rows.placeOf(row);
    int next = place.row;
    while (goes(m_rows.at(place.parent, next)))
        --next;
    for (next = next < 0 ? place.row : next; goes(m_rows.at(place.parent, next));)
        ++next;
    row = m_rows.at(place.parent, next);
    m_selection->setCurrentIndex(indexFromUIDs(row, columnFromIndex(current)),
                                 QItemSelectionModel::NoUpdate);
}

template <class Apply>
void QtViewModel2::changeLayout(LayoutChangeHint hint, SizeEvent& event, const Apply& apply)
{
    // Of one range that is all there is, a selection remembers but its size, and takes whatever
    // is of that size afterwards for it. What is put aside it goes through row by row.
    if (!event.isPermutation && isAllSelected())
        m_selection->select(QItemSelection(), QItemSelectionModel::Select);
    Q_EMIT layoutAboutToBeChanged({}, hint);
    const Uids columnsBefore = m_columns.uids();
    event.isStepwise = false;
    apply();
    event.isStepwise = true;
    movePersistent(columnsBefore, false);
    Q_EMIT layoutChanged({}, hint);
}

/// To where their cells are now. Those of rows without a parent are looked after by Qt where
/// columns come or go.
void QtViewModel2::movePersistent(const Uids& columnsBefore, bool nestedOnly)
{
    QModelIndexList before = persistentIndexList();
    if (nestedOnly) {
        before.removeIf(
            [this](const QModelIndex& index) { return parentRow(rowFromIndex(index)) == 0; });
    }
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : std::as_const(before)) {
        const Uid column = columnsBefore[static_cast<std::size_t>(index.column())];
        after.append(indexFromUIDs(rowFromIndex(index), column));
    }
    changePersistentIndexList(before, after);
}

} // namespace VOXI
