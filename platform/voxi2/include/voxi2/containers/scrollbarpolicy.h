#pragma once

namespace VOXI {

/// When a scroll bar is shown.
enum class ScrollBarPolicy : int {
    AsNeeded, ///< while not everything is to be seen
    Never,
    Always
};

} // namespace VOXI
