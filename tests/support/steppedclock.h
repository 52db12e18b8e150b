#pragma once

#include "voxi2/kernel/vxclock2.h"

#include <algorithm>
#include <vector>

namespace VOXI {

/// The back ends' time while one lives: it goes on when it is told to, and nobody waits.
class SteppedClock : public VXClock2
{
public:
    SteppedClock() { replace(this); }
    ~SteppedClock() override { replace(nullptr); }

    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay,
                                      std::function<void()> function) override
    {
        return std::make_unique<Waiting>(m_waiting, m_now + delay, std::move(function));
    }

    /// Calls what becomes due, earliest first.
    void advance(std::chrono::milliseconds step)
    {
        const std::chrono::milliseconds end = m_now + step;
        for (;;) {
            const auto first = std::ranges::min_element(*m_waiting, {}, &Waiting::m_due);
            if (first == m_waiting->end() || (*first)->m_due > end)
                break;
            m_now = (*first)->m_due;
            const auto function = std::move((*first)->m_function);
            m_waiting->erase(first);
            function();
        }
        m_now = end;
    }

private:
    struct Waiting;
    /// In the order in which they were started. Timers may outlive the clock.
    using List = std::shared_ptr<std::vector<Waiting*>>;

    struct Waiting : Timer
    {
        Waiting(List list, std::chrono::milliseconds due, std::function<void()> function)
            : m_list(std::move(list)),
              m_due(due),
              m_function(std::move(function))
        {
            m_list->push_back(this);
        }
        ~Waiting() override { std::erase(*m_list, this); }

        List m_list;
        std::chrono::milliseconds m_due;
        std::function<void()> m_function;
    };

    std::chrono::milliseconds m_now{0};
    List m_waiting = std::make_shared<std::vector<Waiting*>>();
};

} // namespace VOXI
