#pragma once

#include "voxi_util/geometry.h"

#include <string>

namespace VOXI {

/// One of the screens that windows are shown on, as it was when it was asked for.
struct Screen
{
    std::wstring name;
    /// Its place among the screens, in the coordinates of windows.
    VXRect<int> geometry;
    /// The part that the window system leaves to windows.
    VXRect<int> available;
    /// How many of its pixels make one of the toolkit's.
    double scale = 1;

    friend bool operator==(const Screen&, const Screen&) = default;
};

} // namespace VOXI
