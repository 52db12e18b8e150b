#pragma once

#include <atomic>
#include <thread>

namespace VOXI {

/// A one-byte mutex for critical sections of a few instructions.
///
/// Uncontended locking is one atomic exchange, unlocking a plain store. Under contention it spins
/// briefly and then yields the processor. Not recursive; never call unknown code while holding it.
class SpinLock
{
public:
    void lock() noexcept
    {
        while (m_locked.exchange(true, std::memory_order_acquire))
            waitUntilFree();
    }

    bool try_lock() noexcept { return !m_locked.exchange(true, std::memory_order_acquire); }

    void unlock() noexcept { m_locked.store(false, std::memory_order_release); }

private:
    void waitUntilFree() noexcept
    {
        for (int spins = 0; m_locked.load(std::memory_order_relaxed); ++spins) {
            if (spins < 64)
                relax();
            else
                std::this_thread::yield();
        }
    }

    static void relax() noexcept
    {
#if defined(__x86_64__) || defined(__i386__)
        __builtin_ia32_pause();
#endif
    }

    std::atomic<bool> m_locked{false};
};

} // namespace VOXI
