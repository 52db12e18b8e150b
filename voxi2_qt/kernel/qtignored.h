#pragma once

#include "voxi2/kernel/ignored.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QWidget>

#include <atomic>
#include <utility>

namespace VOXI {

/// Tells that a request which the peer serves is ignored; the reason is a text, or makes one.
template <class Why>
void ignored(const QtObject2& peer, Why&& why, CallPlace where = CallPlace::current())
{
    if (detail::tellsIgnored.load(std::memory_order_relaxed)) [[unlikely]]
        ignored(peer.getHandle(), std::forward<Why>(why), where);
}

/// Whether a peer's widget (null: none yet) may hold the other one; tells why not.
inline bool canHold(const QtObject2& peer, const QWidget* holder, const QWidget* child,
                    CallPlace where = CallPlace::current())
{
    const bool isInside = child && isWithin(child, holder);
    if (!child || isInside)
        ignored(peer, isInside ? Reason::HoldsThis : Reason::NoWidget, where);
    return child && !isInside;
}

/// Takes an action out of those of a peer's widgets that show it; tells where none does.
inline void removeActionFrom(const QtObject2& peer, const QWidgetList& widgets, QAction* action,
                             CallPlace where = CallPlace::current())
{
    bool isThere = false;
    for (QWidget* const each : widgets) {
        isThere = isThere || each->actions().contains(action);
        each->removeAction(action);
    }
    if (!isThere)
        ignored(peer, Reason::NotInThis, where);
}

} // namespace VOXI
