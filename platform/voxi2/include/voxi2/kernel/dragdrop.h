#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// What is done with dragged data where it is dropped.
enum class DropAction : unsigned {
    Ignore = 0,
    Copy = 0x1,
    Move = 0x2,
    Link = 0x4,
    TargetMove = 0x8002 ///< a move whose source is cleared by the target
};
template <>
inline constexpr bool EnableFlags<DropAction> = true;

} // namespace VOXI
