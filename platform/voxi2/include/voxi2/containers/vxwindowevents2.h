#pragma once

#include "voxi2/kernel/windowflags.h"
#include "voxi_util/vxflags.h"

namespace VOXI {

class VXAbstractWindow2;

/// A window was minimised, maximised, made to fill the screen, or brought back.
class VXWindowStateEvent2
{
public:
    VXWindowStateEvent2(VXAbstractWindow2* window, VXFlags<WindowState> state) noexcept
        : m_window(window),
          m_state(state)
    {}

    /// Never null. In a handler on another thread than the toolkit's it may be gone.
    VXAbstractWindow2* window() const noexcept { return m_window; }
    /// The new state, without `Active`.
    VXFlags<WindowState> state() const noexcept { return m_state; }

private:
    VXAbstractWindow2* m_window;
    VXFlags<WindowState> m_state;
};

} // namespace VOXI
