#pragma once

namespace VOXI {

/// Where a text that the user typed into a combo box is kept.
enum class ComboInsertPolicy : int {
    None,
    AtTop,
    AtCurrent,
    AtBottom,
    AfterCurrent,
    BeforeCurrent,
    Alphabetically
};

}  // namespace VOXI
