#pragma once

#include "voxi2/modelview/sortorder.h"

#include <optional>
#include <string>
#include <vector>

namespace VOXI {

/// What is saved of a header: its columns in their order, and by which its view is sorted.
struct QtSavedColumns
{
    struct Column
    {
        unsigned uid;
        int width; ///< that it has when it is shown
        bool isHidden;
    };

    std::vector<Column> columns;
    SortIndicator sort;

    std::string toText() const;
    /// Nothing for a text that this cannot have written.
    static std::optional<QtSavedColumns> fromText(const std::string& text);
};

} // namespace VOXI
