#pragma once

#include "voxi2/voxi2_export.h"

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace VOXI {

/// One step of a change to which rows and columns there are, and in which order.
///
/// Made by name: `SizeChange2::insertRowsAfter(sibling, {4, 5})`. Rows and columns that are there
/// already are not inserted again, and 0 never is; what names a parent that is not there, or
/// removes what is not there, changes nothing. What one event removes and inserts again has moved:
/// views keep its selection, its size and what they know of its cells.
class VOXI2_EXPORT SizeChange2
{
public:
    enum Kind {
        InsertColumnsAfter = 0,
        InsertColumnsBefore = 1,
        PrependColumns = 2,
        AppendColumns = 3,
        InsertRowsAfter = 4,
        InsertRowsBefore = 5,
        PrependRows = 6,
        AppendRows = 7,
        RemoveColumn = 8,
        RemoveRow = 9
    };
    using Uids = std::vector<unsigned>;

    /// At the front when there is no such column.
    static SizeChange2 insertColumnsAfter(unsigned column, Uids columns)
    {
        return {InsertColumnsAfter, column, 0, std::move(columns)};
    }
    /// Not at all when there is no such column.
    static SizeChange2 insertColumnsBefore(unsigned column, Uids columns)
    {
        return {InsertColumnsBefore, column, 0, std::move(columns)};
    }
    static SizeChange2 prependColumns(Uids columns)
    {
        return {PrependColumns, 0, 0, std::move(columns)};
    }
    static SizeChange2 appendColumns(Uids columns)
    {
        return {AppendColumns, 0, 0, std::move(columns)};
    }

    /// Behind the sibling; at the front of the parent's children when it is not one of them.
    static SizeChange2 insertRowsAfter(unsigned sibling, Uids rows, unsigned parent = 0)
    {
        return {InsertRowsAfter, sibling, parent, std::move(rows)};
    }
    /// Before the sibling; not at all when it is not one of the parent's children.
    static SizeChange2 insertRowsBefore(unsigned sibling, Uids rows, unsigned parent = 0)
    {
        return {InsertRowsBefore, sibling, parent, std::move(rows)};
    }
    static SizeChange2 prependRows(Uids rows, unsigned parent = 0)
    {
        return {PrependRows, 0, parent, std::move(rows)};
    }
    static SizeChange2 appendRows(Uids rows, unsigned parent = 0)
    {
        return {AppendRows, 0, parent, std::move(rows)};
    }
    /// Whether a row has children that are not there yet; inserts nothing.
    static SizeChange2 hasChildren(unsigned row, bool has = true)
    {
        SizeChange2 change(PrependRows, 0, row, {});
        change.m_hasChildren = has;
        return change;
    }

    static SizeChange2 removeColumn(unsigned column) { return removeColumns({column}); }
    /// One after the other.
    static SizeChange2 removeColumns(Uids columns)
    {
        return {RemoveColumn, 0, 0, std::move(columns)};
    }
    /// With all that is below it.
    static SizeChange2 removeRow(unsigned row) { return removeRows({row}); }
    static SizeChange2 removeRows(Uids rows) { return {RemoveRow, 0, 0, std::move(rows)}; }

    /// Of any kind, known or not.
    SizeChange2(int kind, unsigned anchor, unsigned parent, Uids uids)
        : m_kind(kind),
          m_anchor(anchor),
          m_parent(parent),
          m_shared(std::make_shared<Shared>(std::move(uids)))
    {}

    /// One of `Kind`; views skip any other.
    int kind() const noexcept { return m_kind; }
    /// The column or the sibling that it happens at.
    unsigned anchor() const noexcept { return m_anchor; }
    unsigned parent() const noexcept { return m_parent; }
    /// What is inserted or removed.
    const Uids& uids() const noexcept { return m_shared->uids; }
    /// Whether each of them is greater than the one before it. They are looked through once for all
    /// copies.
    bool isAscending() const noexcept;
    /// Of one without rows made by `hasChildren`.
    bool hasChildren() const noexcept { return m_hasChildren; }

    /// Takes in the change that follows this one; false where one record cannot say both. More can
    /// be joined when all that is inserted is certainly new.
    bool join(const SizeChange2& next, bool isCertain);

private:
    enum class Order : char { Unknown, Ascending, Other };
    struct Shared
    {
        explicit Shared(Uids all) : uids(std::move(all)) {}

        Uids uids;
        std::atomic<Order> order = Order::Unknown;
    };

    int m_kind;
    unsigned m_anchor;
    unsigned m_parent;
    std::shared_ptr<Shared> m_shared; ///< of all copies; changed only when there is none
    bool m_hasChildren = true;
};

} // namespace VOXI
