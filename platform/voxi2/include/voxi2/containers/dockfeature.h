#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// What the user may do with a dock widget, and how its title stands.
enum class DockFeature : int {
    None = 0,
    Closable = 1,        ///< has a button that closes it
    Movable = 2,         ///< can be dragged to other sides of the window
    Floatable = 4,       ///< can be dragged out of the window, to stand alone
    VerticalTitleBar = 8 ///< the title is written at its left, upwards
};
template <>
inline constexpr bool EnableFlags<DockFeature> = true;

} // namespace VOXI
