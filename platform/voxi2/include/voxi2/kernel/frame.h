#pragma once

namespace VOXI {

/// How a frame is lit.
enum class FrameShadow : int { Plain = 1, Raised = 2, Sunken = 4 };

enum class FrameShape : int { None, Box, Panel, WinPanel, HorizontalLine, VerticalLine, StyledPanel };

}  // namespace VOXI
