#pragma once

namespace VOXI {

/// What a widget makes of its size hint in one direction.
enum class Policy : int {
    Fixed,            ///< exactly the hint
    Minimum,          ///< at least the hint
    Maximum,          ///< at most the hint
    Preferred,        ///< the hint is best, less and more are possible
    Expanding,        ///< as much as there is
    MinimumExpanding, ///< at least the hint, and as much as there is
    Ignored           ///< the hint does not matter
};

/// How a layout limits the size of the widget it fills.
enum class SizeConstraint : int { Default, None, Minimum, Fixed, Maximum, MinimumAndMaximum };

} // namespace VOXI
