#pragma once

#include <atomic>

namespace VOXI {

/// An integer that any thread may count up and down.
///
/// The operators return the new value. Counting down to 0 happens after everything that other
/// threads did before they counted down, so whoever reaches 0 may tidy up.
class AtomicCounter
{
public:
    constexpr explicit AtomicCounter(int value = 0) noexcept : m_value(value) {}
    AtomicCounter(const AtomicCounter&) = delete;
    AtomicCounter& operator=(const AtomicCounter&) = delete;

    int operator++() noexcept { return m_value.fetch_add(1, std::memory_order_relaxed) + 1; }
    int operator--() noexcept { return m_value.fetch_sub(1, std::memory_order_acq_rel) - 1; }
    int value() const noexcept { return m_value.load(std::memory_order_acquire); }
    void set(int value) noexcept { m_value.store(value, std::memory_order_release); }

private:
    std::atomic<int> m_value;
};

} // namespace VOXI
