#pragma once

#include <cstddef>
#include <malloc.h>

namespace bench {

/// Bytes on the heap that are in use, and those that the allocator keeps at hand for its threads:
/// exact in a process that runs without such (`tcache_count=0`). Slow: it looks at every free
/// piece.
inline std::size_t heapInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace bench
