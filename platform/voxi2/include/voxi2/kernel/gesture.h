#pragma once

#include "voxi_util/geometry.h"

namespace VOXI {

/// What two fingers or one do on a touch screen; `Custom` stands for what an extension recognises.
enum class GestureType : int {
    Tap = 1,
    TapAndHold = 2,
    Pan = 3,
    Pinch = 4,
    Swipe = 5,
    Custom = 0x100
};

/// How far a gesture has come.
enum class GestureState : int { None = 0, Started = 1, Updated = 2, Finished = 3, Canceled = 4 };

/// One finger on a touch screen.
struct TouchPoint
{
    enum class State : int { Unknown, Pressed, Updated, Stationary, Released };

    int id = 0; ///< the same finger keeps its number until it is lifted
    State state = State::Unknown;
    VXPoint<double> position{};       ///< in the widget
    VXPoint<double> globalPosition{}; ///< on the screen
    double pressure = 0;              ///< 0 to 1; screens that do not feel it say 1

    friend bool operator==(const TouchPoint&, const TouchPoint&) = default;
};

} // namespace VOXI
