#pragma once

namespace VOXI {

/// How large a picture is shown in its widget.
enum class ImageScaling : int {
    None,    ///< as large as it is
    Stretch, ///< as large as the widget, which changes its proportions
    Fit,     ///< as large as there is room for it, in its proportions and in the middle
    Shrink   ///< the same, but not larger than it is
};

} // namespace VOXI
