#pragma once

#if defined(__linux__)
#include <sched.h>
#endif

namespace TROV::detail {

/// Tells the processor that a loop spins.
inline void relax() noexcept
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

constexpr int UnknownProcessor = -1;

/// The processor that the calling thread runs on.
inline int currentProcessor() noexcept
{
#if defined(__linux__)
    return sched_getcpu();
#else
    return UnknownProcessor;
#endif
}

/// Whether a thread that was seen on `processor` may be running now, beside the calling one.
inline bool runsBeside(int processor) noexcept
{
    return processor == UnknownProcessor || processor != currentProcessor();
}

} // namespace TROV::detail
