#pragma once

namespace TROV::detail {

/// Tells the processor that a loop spins.
inline void relax() noexcept
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

} // namespace TROV::detail
