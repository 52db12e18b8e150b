#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// The bits of a window's flags, which travel as a plain unsigned number.
enum WindowFlag : unsigned {
    WindowFlagWindow = 0x0001,
    WindowFlagDialog = 0x0002,
    WindowFlagPopup = 0x0004,
    WindowFlagDesktop = 0x0008,
    WindowFlagFixedSize = 0x0020,
    WindowFlagTitle = 0x0040,
    WindowFlagSystemMenu = 0x0080,
    WindowFlagMinimizeButton = 0x0100,
    WindowFlagMaximizeButton = 0x0200,
    WindowFlagTool = 0x0400,
    WindowFlagStaysOnTop = 0x0800,
    WindowFlagFrameless = 0x1000,
    WindowFlagContextHelp = 0x2000,
    WindowFlagBypassWindowManager = 0x4000,
    WindowFlagBorderless = 0x8000 ///< another name of frameless
};

/// What a window is at the moment; a window can be minimised and maximised at once.
enum class WindowState : unsigned {
    Normal = 0,
    Minimized = 0x1,
    Maximized = 0x2,
    FullScreen = 0x4,
    Active = 0x8
};
template <>
inline constexpr bool EnableFlags<WindowState> = true;

} // namespace VOXI
