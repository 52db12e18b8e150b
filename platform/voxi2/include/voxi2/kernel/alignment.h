#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// Where something stands in the room it is given.
enum class AlignmentFlag : unsigned {
    Left = 0x01,
    Right = 0x02,
    HCenter = 0x04,
    Justify = 0x08,
    Absolute = 0x10, ///< left and right do not change sides in right-to-left layouts
    Top = 0x20,
    Bottom = 0x40,
    VCenter = 0x80,
    Baseline = 0x100,
    Center = 0x84 ///< in both directions
};
template <>
inline constexpr bool EnableFlags<AlignmentFlag> = true;

/// One flag for each direction at most; none means: fill the room.
using Alignment = VXFlags<AlignmentFlag>;

} // namespace VOXI
