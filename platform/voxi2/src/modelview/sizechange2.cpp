#include "voxi2/modelview/sizechange2.h"

#include "voxi_util/ascending.h"

namespace VOXI {

bool SizeChange2::isAscending() const noexcept
{
    Order order = m_shared->order.load(std::memory_order_relaxed);
    if (order == Order::Unknown) {
        order = VOXI::isAscending(uids()) ? Order::Ascending : Order::Other;
        m_shared->order.store(order, std::memory_order_relaxed);
    }
    return order == Order::Ascending;
}

bool SizeChange2::join(const SizeChange2& next, bool isCertain)
{
    if (uids().empty() || next.uids().empty() || m_parent != next.m_parent)
        return false;
    const bool goesOn = [&] {
        switch (next.m_kind) {
        case AppendColumns:
        case AppendRows:
        case RemoveColumn:
        case RemoveRow:
            return m_kind == next.m_kind;
        case InsertColumnsBefore:
        case InsertRowsBefore:
            return m_kind == next.m_kind && m_anchor == next.m_anchor;
        // If the anchor was there before, it is elsewhere.
        case InsertColumnsAfter:
            return isCertain && m_kind >= InsertColumnsAfter && m_kind <= AppendColumns
                   && uids().back() == next.m_anchor;
        case InsertRowsAfter:
            return isCertain && m_kind >= InsertRowsAfter && m_kind <= AppendRows
                   && uids().back() == next.m_anchor;
        default:
            return false;
        }
    }();
    if (!goesOn)
        return false;
    if (m_shared.use_count() != 1)
        m_shared = std::make_shared<Shared>(uids());
    // A copy may just have gone on another thread; counting one more puts this behind what it did.
    const std::shared_ptr<Shared> own = m_shared;
    own->uids.insert(own->uids.end(), next.uids().begin(), next.uids().end());
    own->order = Order::Unknown;
    return true;
}

} // namespace VOXI
