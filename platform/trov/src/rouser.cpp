#include "trov/rouser.h"

#if defined(__linux__)
#include <climits>
#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace TROV::detail {

#if defined(__linux__)

// std::atomic::wait yields the processor several times before it sleeps, which costs more than the
// sleep itself when the answer takes a while.
void Rouser::sleep(std::uint32_t seen) noexcept
{
    // Both sides write one variable and read the other, in one total order: either the rouser sees
    // that somebody sleeps, or the kernel sees that the count is another.
    m_sleeping.store(true);
    while (m_count.load() == seen)
        syscall(SYS_futex, &m_count, FUTEX_WAIT_PRIVATE, seen, nullptr, nullptr, 0);
    m_sleeping.store(false, std::memory_order_relaxed);
}

void Rouser::rouse() noexcept
{
    m_count.fetch_add(1);
    if (m_sleeping.load())
        syscall(SYS_futex, &m_count, FUTEX_WAKE_PRIVATE, INT_MAX, nullptr, nullptr, 0);
}

#else

void Rouser::sleep(std::uint32_t seen) noexcept
{
    m_sleeping.store(true);
    m_count.wait(seen);
    m_sleeping.store(false, std::memory_order_relaxed);
}

void Rouser::rouse() noexcept
{
    m_count.fetch_add(1);
    if (m_sleeping.load())
        m_count.notify_all();
}

#endif

} // namespace TROV::detail
