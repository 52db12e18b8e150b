#pragma once

namespace VOXI {

/// Which of a widget's colours is meant.
enum class ColorRole : int {
    Background = 0,
    Foreground = 1,
    DisabledBackground = 2,
    DisabledForeground = 3
};

} // namespace VOXI
