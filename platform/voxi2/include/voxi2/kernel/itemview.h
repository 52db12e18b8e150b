#pragma once

#include "voxi_util/vxflags.h"

namespace VOXI {

/// What starts the editing of a cell.
enum class EditTrigger : unsigned {
    None = 0,
    CurrentChanged = 0x01, ///< the cell becomes the current one
    DoubleClicked = 0x02,
    SelectedClicked = 0x04, ///< a click on a cell that is current already
    EditKeyPressed = 0x08,  ///< the platform's edit key
    AnyKeyPressed = 0x10,
    All = 0x1f
};
template <>
inline constexpr bool EnableFlags<EditTrigger> = true;

/// How many cells of a view can be selected.
enum class SelectionMode : int {
    None,
    Single,
    Multi,     ///< each click selects or deselects its own
    Extended,  ///< with the Shift and Control keys
    Contiguous ///< one run, with the Shift key
};

/// What is selected together.
enum class SelectionBehavior : int { Items, Rows, Columns };

/// Who decides how wide a column is.
enum class ColumnResizeMode : int {
    Interactive,     ///< the user and the program
    Stretch,         ///< the room that is left
    Fixed,           ///< the program
    ResizeToContents ///< the widest cell
};

/// Where a text that is too long is cut.
enum class TextElideMode : int { Left, Right, Middle, None };

} // namespace VOXI
