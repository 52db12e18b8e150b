#pragma once

namespace VOXI {

enum class SortOrder : int { Ascending, Descending };

/// What a header shows that its view is sorted by.
struct SortIndicator
{
    unsigned column = 0; ///< 0 for none
    SortOrder order = SortOrder::Ascending;

    friend bool operator==(const SortIndicator&, const SortIndicator&) = default;
};

} // namespace VOXI
