#pragma once

namespace VOXI {

/// How a widget comes to have the keyboard focus.
enum class FocusPolicy : int {
    None = 0,
    Tab = 1,
    Click = 2,
    Strong = 3, ///< tab and click
    Wheel = 4   ///< tab, click and wheel
};

/// Why the focus moved.
enum class FocusReason : int {
    Mouse,
    Tab,
    Backtab,
    ActiveWindow, ///< the window became active or ceased to be
    Popup,        ///< a popup took the keyboard or gave it back
    Shortcut,     ///< the shortcut of a label
    MenuBar,
    Other, ///< the program
    None
};

} // namespace VOXI
