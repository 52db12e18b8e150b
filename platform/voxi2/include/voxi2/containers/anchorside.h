#pragma once

namespace VOXI {

/// The side of an anchor that something is placed at.
enum class AnchorSide : int { Below, Above, Right, Left };

} // namespace VOXI
