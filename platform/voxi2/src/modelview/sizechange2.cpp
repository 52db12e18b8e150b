#include "voxi2/modelview/sizechange2.h"

namespace VOXI {

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
    if (m_uids.use_count() != 1)
        m_uids = std::make_shared<Uids>(*m_uids);
    // A copy may just have gone on another thread; counting one more puts this behind what it did.
    const std::shared_ptr<Uids> own = m_uids;
    own->insert(own->end(), next.uids().begin(), next.uids().end());
    return true;
}

} // namespace VOXI
