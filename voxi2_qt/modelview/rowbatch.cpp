#include "rowbatch.h"

#include <algorithm>
#include <utility>

namespace VOXI {

namespace {
// Beyond it a step more is nothing, but to look which of the rows are known would be.
constexpr std::size_t JoinLimit = 4096;
} // namespace

int insertionPlace(const SizeChange2& change, int anchor, int count)
{
    switch (change.kind()) {
    case SizeChange2::InsertColumnsAfter:
    case SizeChange2::InsertRowsAfter:
        return anchor + 1;
    case SizeChange2::InsertColumnsBefore:
    case SizeChange2::InsertRowsBefore:
        return anchor;
    case SizeChange2::PrependColumns:
    case SizeChange2::PrependRows:
        return 0;
    default:
        return count;
    }
}

bool RowBatch::take(const SizeChange2& change)
{
    const bool isFirst = m_rows.empty();
    if (isFirst)
        m_parent = change.parent();
    else if (change.parent() != m_parent || m_rows.size() + change.uids().size() > JoinLimit)
        return false;
    if (m_parent != 0 && !m_forest.contains(m_parent))
        return true;
    const int place =
        insertionPlace(change, placeOf(change.anchor()), m_forest.rowCount(m_parent) + count());
    if (place < 0)
        return true;
    if (!isFirst && (place < m_place || place > m_place + count()))
        return false;
    if (isFirst)
        m_place = place;
    Uids room;
    const std::span<const Uid> rows =
        m_forest.insertable(change.uids(), room, change.isAscending());
    if (!isFirst) {
        join(place, rows);
    } else if (rows.data() == change.uids().data()) {
        m_rows = rows; // a million need not be copied
        m_isAscending = change.isAscending();
    } else {
        m_own = std::move(room);
        m_rows = m_own;
    }
    return true;
}

/// As if the batch were inserted; -1 when it is no sibling.
int RowBatch::placeOf(Uid sibling) const
{
    const RowForest::Place place = m_forest.placeOf(sibling);
    if (place.row >= 0 && place.parent == m_parent)
        return place.row < m_place ? place.row : place.row + count();
    const auto found = std::find(m_rows.rbegin(), m_rows.rend(), sibling);
    return found == m_rows.rend() ? -1 : m_place + static_cast<int>(m_rows.rend() - found) - 1;
}

void RowBatch::join(int place, std::span<const Uid> rows)
{
    if (m_known.isEmpty()) {
        if (m_rows.data() != m_own.data())
            m_own.assign(m_rows.begin(), m_rows.end());
        m_known = QSet<Uid>(m_own.begin(), m_own.end());
    }
    auto target = m_own.begin() + (place - m_place);
    for (const Uid row : rows) {
        const qsizetype before = m_known.size();
        m_known.insert(row);
        if (m_known.size() > before)
            target = m_own.insert(target, row) + 1;
    }
    m_rows = m_own;
    m_isAscending = false;
}

} // namespace VOXI
