#pragma once

#include <cstddef>
#include <span>

namespace VOXI {

/// Whether each value is greater than the one before it.
inline bool isAscending(std::span<const unsigned> values) noexcept
{
    // A block without a branch, of which the compiler has the processor compare several at once.
    constexpr std::size_t Block = 16;
    std::size_t i = 1;
    for (; i + Block <= values.size(); i += Block) {
        const unsigned* const at = &values[i];
        unsigned faults = 0;
        for (std::size_t k = 0; k < Block; ++k)
            faults |= static_cast<unsigned>(at[k] <= at[k - 1]);
        if (faults != 0)
            return false;
    }
    for (; i < values.size(); ++i) {
        if (values[i] <= values[i - 1])
            return false;
    }
    return true;
}

} // namespace VOXI
