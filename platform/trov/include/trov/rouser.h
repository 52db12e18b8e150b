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

} // namespace TROV::detail
