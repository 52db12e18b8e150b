#pragma once

namespace VOXI {

class VXTab2;
class VXTabContainer2;

/// The user did something to a tab.
class VXTabEvent2
{
public:
    VXTabEvent2(VXTabContainer2* container, VXTab2* tab) noexcept
        : m_container(container),
          m_tab(tab)
    {}

    VXTabContainer2* container() const noexcept { return m_container; }
    VXTab2* tab() const noexcept { return m_tab; }

private:
    VXTabContainer2* m_container;
    VXTab2* m_tab;
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

} // namespace VOXI
