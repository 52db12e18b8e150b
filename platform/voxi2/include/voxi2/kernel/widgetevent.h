#pragma once

namespace VOXI {

/// The events of a widget that can be passed back, and the switches' index for each.
enum class WidgetEvent : unsigned {
    Close = 0,
    ContextMenu = 1,
    DragEnter = 2,
    DragLeave = 3,
    DragMove = 4,
    Drop = 5,
    MouseEnter = 6,
    FocusIn = 7,
    FocusOut = 8,
    Hide = 9,
    KeyPress = 10,
    KeyRelease = 11,
    MouseLeave = 12,
    MouseDoubleClick = 13,
    MouseMove = 14,
    MousePress = 15,
    MouseRelease = 16,
    Wheel = 17,
    Move = 18,
    Resize = 19,
    Gesture = 20,
    TouchBegin = 21,
    TouchUpdate = 22,
    TouchEnd = 23,
    Show = 24,
    Other = 25 ///< has a switch, but nothing that happens to a widget is reported as it
};

/// How many widget events there are.
inline constexpr unsigned WidgetEventCount = 26;

} // namespace VOXI
