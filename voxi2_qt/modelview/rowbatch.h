#pragma once

#include "rowforest.h"
#include "voxi2/modelview/sizechange2.h"

#include <QSet>

#include <span>
#include <vector>

namespace VOXI {

/// Where an insertion goes among `count` rows or columns, when what it names stands at `anchor`, or
/// nowhere (-1): after the unknown is in front, before it is nowhere.
int insertionPlace(const SizeChange2& change, int anchor, int count);

/// Rows that are inserted next to each other by changes that follow each other: for views they come
/// at once.
class RowBatch
{
public:
    using Uid = RowForest::Uid;
    using Uids = std::vector<Uid>;

    explicit RowBatch(const RowForest& rows) : m_forest(rows) {}

    /// Takes an insertion in, as far as it can be done. False, and nothing happens, if it belongs
    /// elsewhere.
    bool take(const SizeChange2& change);

    Uid parent() const { return m_parent; }
    int place() const { return m_place; }
    /// As long as the changes are there.
    std::span<const Uid> rows() const { return m_rows; }
    int count() const { return static_cast<int>(m_rows.size()); }
    /// False when nobody has looked.
    bool isAscending() const { return m_isAscending; }

private:
    int placeOf(Uid sibling) const;
    void join(int place, std::span<const Uid> rows);

    const RowForest& m_forest;
    Uid m_parent = 0;
    int m_place = 0;
    std::span<const Uid> m_rows; ///< those of the only insertion, or the next
    bool m_isAscending = false;
    Uids m_own;
    QSet<Uid> m_known; ///< the same rows, when there is more than one insertion
};

} // namespace VOXI
