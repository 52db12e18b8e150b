#pragma once

namespace VOXI {

/// The side of a tab container that the tabs are at.
enum class TabPosition : int { North, South, West, East };

} // namespace VOXI
