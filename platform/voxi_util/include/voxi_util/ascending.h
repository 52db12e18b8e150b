#pragma once

#include <cstddef>
#include <span>

namespace VOXI {

/// Whether each value is greater than the one before it.
inline bool isAscending(std::span<const unsigned> values) noexcept
{
    // Blocks without a branch, of which the compiler has the processor compare several values at
    // once: as signed numbers, which it does in one step, as long as that is the same.
    constexpr std::size_t Block = 16;
    constexpr unsigned Sign = 1U << 31;
    std::size_t i = 1;
    unsigned bits = values.empty() ? 0 : values[0];
    for (; i + Block <= values.size(); i += Block) {
        const unsigned* const at = &values[i];
        unsigned faults = 0;
        for (std::size_t k = 0; k < Block; ++k) {
            bits |= at[k];
            faults |= static_cast<unsigned>(static_cast<int>(at[k]) <= static_cast<int>(at[k - 1]));
        }
        if (bits & Sign)
            break;
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
