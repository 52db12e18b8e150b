#pragma once

namespace VOXI {

/// How a frame is lit: level with what is around it, or standing out, or sunk in.
enum class FrameShadow : int { Plain = 1, Raised = 2, Sunken = 4 };

/// What a frame draws around its content.
enum class FrameShape : int {
    None,
    Box,
    Panel,
    WinPanel,       ///< two pixels wide
    HorizontalLine, ///< a line that separates, with nothing inside
    VerticalLine,
    StyledPanel ///< as the widget style draws its panels
};

} // namespace VOXI
