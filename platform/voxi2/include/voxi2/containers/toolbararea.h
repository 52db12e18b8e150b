#pragma once

namespace VOXI {

/// The side of a window that a tool bar is docked at.
enum class ToolBarArea : int { None = 0, Left = 1, Right = 2, Top = 4, Bottom = 8 };

} // namespace VOXI
