#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// What starts the editing of a cell.
enum class EditTrigger : unsigned {
    None = 0,
    CurrentChanged = 0x01,
    DoubleClicked = 0x02,
    SelectedClicked = 0x04,
    EditKeyPressed = 0x08,
    AnyKeyPressed = 0x10,
    All = 0x1f
};
template <>
inline constexpr bool EnableFlags<EditTrigger> = true;

enum class SelectionMode : int { None, Single, Multi, Extended, Contiguous };

enum class SelectionBehavior : int { Items, Rows, Columns };

enum class ColumnResizeMode : int { Interactive, Stretch, Fixed, ResizeToContents };

/// Where a text that is too long is cut.
enum class TextElideMode : int { Left, Right, Middle, None };

}  // namespace VOXI
