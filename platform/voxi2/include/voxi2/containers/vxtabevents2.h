#pragma once

#include "voxi2/kernel/vxevent2.h"
#include "voxi_util/geometry.h"

namespace VOXI {

class VXTab2;
class VXTabContainer2;

/// The user did something to a tab.
class VXTabEvent2 : public VXEvent2<VXTabContainer2, VXTab2*>
{
public:
    using VXEvent2::VXEvent2;
    VXTabContainer2* container() const noexcept { return sender(); }
    VXTab2* tab() const noexcept { return value(); }
};

/// The user dragged a tab to another place.
class VXTabMoveEvent2 : public VXTabEvent2
{
public:
    VXTabMoveEvent2(VXTabContainer2* container, VXTab2* tab, int from, int to) noexcept
        : VXTabEvent2(container, tab),
          m_from(from),
          m_to(to)
    {}

    /// Its position before, and the one it has now, counted from 0.
    int from() const noexcept { return m_from; }
    int to() const noexcept { return m_to; }

private:
    int m_from;
    int m_to;
};

/// The user asked for the menu of a tab.
class VXTabMenuEvent2 : public VXTabEvent2
{
public:
    VXTabMenuEvent2(VXTabContainer2* container, VXTab2* tab, VXPoint<int> globalPosition) noexcept
        : VXTabEvent2(container, tab),
          m_globalPosition(globalPosition)
    {}

    /// On the screen, where the menu is expected.
    const VXPoint<int>& globalPosition() const noexcept { return m_globalPosition; }

private:
    VXPoint<int> m_globalPosition;
};

} // namespace VOXI
