#pragma once

#include "voxi_util/vxflags.h"

#include <array>
#include <cstddef>

namespace VOXI {

/// One row for each member of an enumeration and its counterpart; the rows serve both ways.
///
/// What has no row maps to the other side's default. Tables are short and constexpr, so that the
/// compiler makes comparisons out of them.
template <class Vx, class Qt, std::size_t Rows>
struct EnumTable
{
    struct Row
    {
        Vx m_vx;
        Qt m_qt;
    };

    Vx m_vxDefault;
    Qt m_qtDefault;
    std::array<Row, Rows> m_rows;

    constexpr Qt toQt(Vx value) const noexcept
    {
        for (const Row& row : m_rows) {
            if (row.m_vx == value)
                return row.m_qt;
        }
        return m_qtDefault;
    }

    constexpr Vx toVx(Qt value) const noexcept
    {
        for (const Row& row : m_rows) {
            if (row.m_qt == value)
                return row.m_vx;
        }
        return m_vxDefault;
    }

    /// Each row whose bits are all set adds its counterpart; bits without a row are dropped. A row
    /// of no bits stands for the empty set and adds nothing.
    template <class QtFlags>
    constexpr QtFlags toQtFlags(VXFlags<Vx> flags) const noexcept
    {
        QtFlags result;
        for (const Row& row : m_rows) {
            if (row.m_vx != Vx{} && flags.testFlag(row.m_vx))
                result |= row.m_qt;
        }
        return result;
    }

    template <class QtFlags>
    constexpr VXFlags<Vx> toVxFlags(QtFlags flags) const noexcept
    {
        VXFlags<Vx> result;
        for (const Row& row : m_rows) {
            if (row.m_qt != Qt{} && flags.testFlag(row.m_qt))
                result.setFlag(row.m_vx);
        }
        return result;
    }
};

/// A table out of rows; the defaults are those of the first row.
template <class Vx, class Qt, std::size_t Rows>
constexpr EnumTable<Vx, Qt, Rows> enumTable(const typename EnumTable<Vx, Qt, 1>::Row (&rows)[Rows])
{
    EnumTable<Vx, Qt, Rows> table{rows[0].m_vx, rows[0].m_qt, {}};
    for (std::size_t i = 0; i < Rows; ++i)
        table.m_rows[i] = {rows[i].m_vx, rows[i].m_qt};
    return table;
}

} // namespace VOXI
