// Rows and columns that come, go and move.

#include "qtviewmodel2.h"
#include "voxi2_qt/kernel/qtreporthold.h"

#include <QScopedValueRollback>

namespace VOXI {

void QtViewModel2::handleSizeChanged(const VXSizeChangeEvent2& event)
{
    // What views report of it, and what is done then, waits until all is in its place.
    const QtReportHold hold;
    applySizeChanges(event.sizeChanges());
}

void QtViewModel2::applySizeChanges(std::span<const SizeChange2> changes)
{
    const QScopedValueRollback blocking(m_isBlockingSelection, true);
    Q_EMIT aboutToChangeSize();
    for (const SizeChange2& change : changes)
        applySizeChange(change);
    m_queries.shapeChanged();
    Q_EMIT sizeChanged();
}

void QtViewModel2::applySizeChange(const SizeChange2& change)
{
    switch (change.kind()) {
    case SizeChange2::InsertColumnsAfter:
    case SizeChange2::InsertColumnsBefore:
    case SizeChange2::PrependColumns:
    case SizeChange2::AppendColumns:
        insertColumns(change);
        break;
    case SizeChange2::InsertRowsAfter:
    case SizeChange2::InsertRowsBefore:
    case SizeChange2::PrependRows:
    case SizeChange2::AppendRows:
        insertRows(change);
        break;
    case SizeChange2::RemoveColumn:
        for (const Uid column : change.uids())
            removeColumn(column);
        break;
    case SizeChange2::RemoveRow:
        for (const Uid row : change.uids())
            removeRow(row);
        break;
    default:
        break;
    }
}

void QtViewModel2::insertColumns(const SizeChange2& change)
{
    int place = 0;
    const int anchor = columnFromUID(change.anchor());
    if (change.kind() == SizeChange2::InsertColumnsAfter)
        place = anchor + 1;
    else if (change.kind() == SizeChange2::InsertColumnsBefore)
        place = anchor;
    else if (change.kind() == SizeChange2::AppendColumns)
        place = m_columns.count();
    const Uids columns = m_columns.insertable(change.uids());
    if (place < 0 || columns.empty())
        return;
    beginInsertColumns({}, place, place + static_cast<int>(columns.size()) - 1);
    m_columns.insert(place, columns);
    endInsertColumns();
}

void QtViewModel2::insertRows(const SizeChange2& change)
{
    const Uid parent = change.parent();
    const RowForest::Place anchor = m_rows.placeOf(change.anchor());
    const bool isSibling = anchor.row >= 0 && anchor.parent == parent;
    int place = 0;
    if (change.kind() == SizeChange2::InsertRowsAfter)
        place = isSibling ? anchor.row + 1 : 0;
    else if (change.kind() == SizeChange2::InsertRowsBefore)
        place = isSibling ? anchor.row : -1;
    else if (change.kind() == SizeChange2::AppendRows)
        place = m_rows.rowCount(parent);
    Uids room;
    const std::span<const Uid> rows = m_rows.insertable(change.uids(), room);
    if (place < 0 || rows.empty() || (parent != 0 && !m_rows.contains(parent)))
        return;
    beginInsertRows(indexFromUIDs(parent, 0), place, place + static_cast<int>(rows.size()) - 1);
    m_rows.insert(parent, place, rows);
    endInsertRows();
}

void QtViewModel2::removeColumn(Uid column)
{
    const int place = columnFromUID(column);
    if (place < 0)
        return;
    beginRemoveColumns({}, place, place);
    m_columns.remove(place, 1);
    endRemoveColumns();
    m_cells.removeIf([column](Cell cell) { return cell.column == column; });
}

void QtViewModel2::removeRow(Uid row)
{
    const RowForest::Place place = m_rows.placeOf(row);
    if (place.row < 0)
        return;
    beginRemoveRows(indexFromUIDs(place.parent, 0), place.row, place.row);
    const Uids gone = m_rows.remove(place.parent, place.row, 1);
    endRemoveRows();
    m_cells.removeRows(gone, m_columns.uids());
}

} // namespace VOXI
