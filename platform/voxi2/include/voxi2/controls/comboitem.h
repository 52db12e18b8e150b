#pragma once

#include "voxi_util/icon.h"

#include <string>

namespace VOXI {

/// What a combo box has to choose from.
struct ComboItem
{
    std::wstring text{};
    unsigned uid = 0; ///< a number by which the program finds it again; 0 for none
    Icon icon{};
    std::wstring toolTip{};
    bool isEnabled = true; ///< whether the user can choose it

    friend bool operator==(const ComboItem&, const ComboItem&) = default;
};

} // namespace VOXI
