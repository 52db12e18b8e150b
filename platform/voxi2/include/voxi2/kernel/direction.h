#pragma once

namespace VOXI {

/// The way in which a layout goes.
enum class Direction : int { LeftToRight = 0, RightToLeft = 1, TopToBottom = 2, BottomToTop = 3 };

/// Along which axis something lies.
enum class Orientation : int { Horizontal = 1, Vertical = 2 };

} // namespace VOXI
