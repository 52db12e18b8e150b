#pragma once

#include "voxi_util/voxi_util_export.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <pthread.h>

namespace VOXI {

/// A recursive mutex that knows its owner and can give up a whole hold at once.
///
/// Taking it again on the owning thread costs a comparison. Who waits for long is served before
/// those who come later. `releaseAll` and `reacquire` let a thread that must wait for another one
/// step aside without unwinding its call stack; nothing that the lock guards may be relied on
/// across such a pair.
class RecursiveLock
{
public:
    RecursiveLock() = default;

    /// `recall` is called when a thread undoes a hold that it does not have at the moment, and has
    /// it take back what it gave up.
    constexpr explicit RecursiveLock(void (*recall)() noexcept) noexcept : m_recall(recall) {}
    RecursiveLock(const RecursiveLock&) = delete;
    RecursiveLock& operator=(const RecursiveLock&) = delete;

    void lock() noexcept
    {
        const pthread_t self = pthread_self();
        if (m_owner.load(std::memory_order_relaxed) == self) {
            ++m_depth;
            return;
        }
        acquire(self, 1);
    }

    bool try_lock() noexcept
    {
        const pthread_t self = pthread_self();
        if (m_owner.load(std::memory_order_relaxed) == self) {
            ++m_depth;
            return true;
        }
        int expected = Free;
        if (!m_state.compare_exchange_strong(expected, Held, std::memory_order_acquire))
            return false;
        m_owner.store(self, std::memory_order_relaxed);
        m_depth = 1;
        return true;
    }

    /// Undoes one `lock`. Only the owning thread may call it: for others nothing happens, in debug
    /// builds the program ends with a message.
    void unlock() noexcept
    {
        if (m_owner.load(std::memory_order_relaxed) != pthread_self() && !isRecalled()) [[unlikely]]
            return;
        if (--m_depth == 0)
            release();
    }

    /// Gives up every hold of the calling thread and returns how many there were; 0 when it held
    /// none, in which case nothing happens.
    unsigned releaseAll() noexcept
    {
        if (!isHeldByCurrentThread())
            return 0;
        const unsigned depth = m_depth;
        m_depth = 0;
        release();
        return depth;
    }

    /// Takes back the holds that `releaseAll` returned; 0 does nothing.
    void reacquire(unsigned depth) noexcept
    {
        if (depth == 0)
            return;
        const pthread_t self = pthread_self();
        if (m_owner.load(std::memory_order_relaxed) == self)
            m_depth += depth;
        else
            acquire(self, depth);
    }

    bool isHeldByCurrentThread() const noexcept
    {
        return m_owner.load(std::memory_order_relaxed) == pthread_self();
    }

private:
    enum State { Free = 0, Held = 1, Contended = 2 };

    bool isRecalled() const noexcept
    {
        if (m_recall)
            m_recall();
        if (isHeldByCurrentThread())
            return true;
#ifndef NDEBUG
        std::fputs("A lock is given up by a thread that does not hold it\n", stderr);
        std::abort();
#else
        return false;
#endif
    }

    void acquire(pthread_t self, unsigned depth) noexcept
    {
        int expected = Free;
        if (m_hungry.load(std::memory_order_relaxed) != 0
            || !m_state.compare_exchange_strong(expected, Held, std::memory_order_acquire))
            acquireContended();
        m_owner.store(self, std::memory_order_relaxed);
        m_depth = depth;
    }

    VOXI_UTIL_EXPORT void acquireContended() noexcept;

    void release() noexcept
    {
        m_owner.store(pthread_t{}, std::memory_order_relaxed);
        if (m_state.exchange(Free) != Contended)
            return;
        // Whoever has not waited for long steps aside, and may be the one that wakes up.
        if (m_hungry.load() != 0)
            m_state.notify_all();
        else
            m_state.notify_one();
    }

    std::atomic<pthread_t> m_owner{};
    std::atomic<int> m_state{Free};
    std::atomic<int> m_hungry{0}; // how many have waited for long
    unsigned m_depth = 0;
    void (*m_recall)() noexcept = nullptr;
};

} // namespace VOXI
