#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// A button of the mouse, and the set of those that are down.
enum class MouseButton : unsigned {
    None = 0,
    Left = 0x01,
    Right = 0x02,
    Middle = 0x04,
    Back = 0x08,
    Forward = 0x10,
    Extra3 = 0x20,
    Extra4 = 0x40,
    Extra5 = 0x80,
    Extra6 = 0x100
};
template <>
inline constexpr bool EnableFlags<MouseButton> = true;

/// Keys that are held while something else happens.
enum class Modifier : unsigned {
    None = 0,
    Shift = 0x01,
    Control = 0x02,
    Alt = 0x04,
    Meta = 0x08,
    Keypad = 0x10, ///< the key lies on the keypad
    GroupSwitch = 0x20
};
template <>
inline constexpr bool EnableFlags<Modifier> = true;

} // namespace VOXI
