#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// The side of a window that a dock widget is docked at.
enum class DockArea : int { None = 0, Left = 1, Right = 2, Top = 4, Bottom = 8 };
template <>
inline constexpr bool EnableFlags<DockArea> = true;

/// All four sides.
inline constexpr VXFlags<DockArea> AllDockAreas =
    DockArea::Left | DockArea::Right | DockArea::Top | DockArea::Bottom;

} // namespace VOXI
