#pragma once

namespace VOXI {

/// Where a text that the user typed into a combo box is kept.
enum class ComboInsertPolicy : int {
    None,
    AtTop,
    AtCurrent, ///< in place of the current one
    AtBottom,
    AfterCurrent,
    BeforeCurrent,
    Alphabetically
};

} // namespace VOXI
