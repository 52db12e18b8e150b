#pragma once

#include "trov/trov_export.h"

#include <atomic>
#include <cstdint>

namespace TROV::detail {

/// Lets one thread sleep until others rouse it; a rouse is never lost.
///
/// The sleeper notes `count()`, looks whether there is anything to do, and calls `sleep` with the
/// noted value: if anybody roused it meanwhile it does not sleep at all. Rousing a thread that is
/// awake costs no system call.
class TROV_EXPORT Rouser
{
public:
    std::uint32_t count() const noexcept { return m_count.load(std::memory_order_acquire); }

    /// Sleeps while the count is `seen`. One thread only.
    void sleep(std::uint32_t seen) noexcept;

    void rouse() noexcept;

private:
    std::atomic<std::uint32_t> m_count{0};
    std::atomic<bool> m_sleeping{false};
};

/// Whether to spin for a moment before one sleeps: not so soon again when it was in vain of late.
class SpinHistory
{
public:
    /// Asked before each wait.
    bool suggestsSpinning() noexcept
    {
        if (m_pause == 0)
            return true;
        --m_pause;
        return false;
    }

    void note(bool wasInVain) noexcept
    {
        m_failures = !wasInVain ? 0 : m_failures < MostFailures ? m_failures + 1 : MostFailures;
        m_pause = (1u << m_failures) - 1;
    }

private:
    static constexpr unsigned MostFailures = 6;

    unsigned m_failures = 0; // one after the other
    unsigned m_pause = 0;    // waits until the next attempt
};

} // namespace TROV::detail
