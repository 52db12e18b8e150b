#pragma once

#include <QKeyEvent>

namespace VOXI {

/// Where Tab does something else, as in a text or a table, Ctrl and Tab go to the next widget, with
/// Shift to the one before: 1 or -1. 0 for other keys.
inline int leavingWay(const QKeyEvent& event)
{
    const bool isBack = event.key() == Qt::Key_Backtab;
    if (!(event.modifiers() & Qt::ControlModifier) || (!isBack && event.key() != Qt::Key_Tab))
        return 0;
    return isBack || event.modifiers() & Qt::ShiftModifier ? -1 : 1;
}

} // namespace VOXI
