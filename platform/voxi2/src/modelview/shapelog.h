#pragma once

#include "voxi2/modelview/sizechange2.h"

#include <cstddef>
#include <vector>

namespace VOXI {

/// Remembers which rows and columns a model has told of, for views that come later.
///
/// All it keeps is the changes, four bytes for a row: they are replayed when a view begins, and
/// whenever they have become twice as many as are needed.
class ShapeLog
{
public:
    void add(const SizeChange2& change);

    /// The changes that lead from nothing to what there is now.
    const std::vector<SizeChange2>& shape();

private:
    void compact();

    std::vector<SizeChange2> m_changes;
    std::size_t m_weight = 0; // about the memory, in numbers
    std::size_t m_limit = 16'384;
    bool m_isCompact = true;
};

} // namespace VOXI
