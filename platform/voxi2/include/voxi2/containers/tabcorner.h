#pragma once

namespace VOXI {

/// Where, beside the tabs, a container has room for a widget: before the first, behind the last.
enum class TabCorner : int { Leading, Trailing };

} // namespace VOXI
