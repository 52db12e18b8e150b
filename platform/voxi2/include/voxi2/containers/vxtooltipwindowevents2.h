#pragma once

namespace VOXI {

class VXToolTipWindow2;

/// The user did something to a tool-tip window.
class VXToolTipWindowEvent2
{
public:
    explicit VXToolTipWindowEvent2(VXToolTipWindow2* window) noexcept : m_window(window) {}

    VXToolTipWindow2* window() const noexcept { return m_window; }

private:
    VXToolTipWindow2* m_window;
};

} // namespace VOXI
