#include "voxi2/modelview/sizechange2.h"

#include <algorithm>

namespace VOXI {

bool SizeChange2::join(const SizeChange2& next, bool isCertain)
{
    if (m_uids.empty() || next.m_uids.empty() || m_parent != next.m_parent)
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
                   && m_uids.back() == next.m_anchor;
        case InsertRowsAfter:
            return isCertain && m_kind >= InsertRowsAfter && m_kind <= AppendRows
                   && m_uids.back() == next.m_anchor;
        default:
            return false;
        }
    }();
    if (goesOn)
        m_uids.insert(m_uids.end(), next.m_uids.begin(), next.m_uids.end());
    return goesOn;
}

} // namespace VOXI
