#pragma once

#include "qtviewmodel2.h"

#include <utility>
#include <vector>

namespace VOXI {

/// What one event does to rows and columns.
struct QtViewModel2::SizeEvent
{
    /// What goes as one change of the layout.
    bool rowsAtOnce = false;
    bool columnsAtOnce = false;
    /// Not in the middle of that: each step is told.
    bool isStepwise = true;
    /// What moves is all that it removes and inserts.
    bool isPermutation = false;
    bool removesColumns = false;
    /// It tells of rows whether they have children.
    bool hasNewAnswers = false;
    /// All rows that were removed.
    Uids gone;
    /// Of rows that may move, which the forest forgets in between; the latest last.
    std::vector<std::pair<Uid, RowForest::HasChildren>> answers;

    static bool insertsColumns(const SizeChange2& change)
    {
        return change.kind() >= SizeChange2::InsertColumnsAfter
               && change.kind() <= SizeChange2::AppendColumns;
    }
    static bool insertsRows(const SizeChange2& change)
    {
        return change.kind() >= SizeChange2::InsertRowsAfter
               && change.kind() <= SizeChange2::AppendRows && !change.uids().empty();
    }
};

} // namespace VOXI
