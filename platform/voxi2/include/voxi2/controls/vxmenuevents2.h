#pragma once

namespace VOXI {

class VXMenu2;

/// A menu is about to be shown.
class VXMenuEvent2
{
public:
    explicit VXMenuEvent2(VXMenu2* menu) noexcept : m_menu(menu) {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXMenu2* menu() const noexcept { return m_menu; }

private:
    VXMenu2* m_menu;
};

} // namespace VOXI
