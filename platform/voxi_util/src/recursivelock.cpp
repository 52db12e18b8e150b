#include "voxi_util/recursivelock.h"

#include <chrono>

namespace VOXI {

namespace {

using Clock = std::chrono::steady_clock;

/// A thread that takes the lock again as soon as it has given it up keeps all others from it: they
/// have yet to wake up by then.
constexpr auto Patience = std::chrono::milliseconds(2);

} // namespace

void RecursiveLock::acquireContended() noexcept
{
    for (int spins = 0; spins < 100 && m_hungry.load(std::memory_order_relaxed) == 0; ++spins) {
        int expected = Free;
        if (m_state.load(std::memory_order_relaxed) == Free
            && m_state.compare_exchange_weak(expected, Held, std::memory_order_acquire))
            return;
    }
    const auto start = Clock::now();
    bool isHungry = false;
    for (;;) {
        // Those who have waited for long go first.
        if (int hungry = m_hungry.load(); hungry != 0 && !isHungry) {
            if (Clock::now() - start < Patience) {
                m_hungry.wait(hungry);
                continue;
            }
        }
        if (m_state.exchange(Contended, std::memory_order_acquire) == Free)
            break;
        if (!isHungry && Clock::now() - start >= Patience) {
            isHungry = true;
            m_hungry.fetch_add(1);
        }
        m_state.wait(Contended, std::memory_order_relaxed);
    }
    if (isHungry) {
        m_hungry.fetch_sub(1);
        m_hungry.notify_all();
    }
}

} // namespace VOXI
