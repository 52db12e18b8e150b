#pragma once

namespace VOXI {

/// How a tool button with a menu opens it.
enum class ToolButtonPopupMode : int {
    Delayed,    ///< the button held down for a moment
    MenuButton, ///< a small arrow beside the button
    Instant     ///< every click; the button itself is not clicked
};

/// What a tool button shows; `FollowStyle` leaves it to the tool bar or the widget style.
enum class ToolButtonStyle : int { IconOnly, TextOnly, TextBesideIcon, TextUnderIcon, FollowStyle };

} // namespace VOXI
