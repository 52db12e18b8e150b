#pragma once

namespace VOXI {

/// A corner of a window, which belongs to one of the two sides that meet there.
enum class DockCorner : int { TopLeft, TopRight, BottomLeft, BottomRight };

} // namespace VOXI
