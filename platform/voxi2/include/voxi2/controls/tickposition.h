#pragma once

namespace VOXI {

/// On which sides of a slider ticks are drawn. `Left` and `Right` are `Above` and `Below` of a
/// vertical slider, and read back as these.
enum class TickPosition : int { None, BothSides, Above, Below, Left, Right };

} // namespace VOXI
