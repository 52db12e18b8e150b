#pragma once

namespace VOXI {

/// How a link is shown: while the pointer is over it, before it was followed, and afterwards.
enum class LinkMode : int { Hovered = 0, Normal = 1, Visited = 2 };

} // namespace VOXI
