#include "timerclock.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace TROV::detail {

namespace {

// Later than anybody waits, and far from where the clock ends.
constexpr Timer::Duration Longest = std::chrono::hours(24 * 365 * 50);
constexpr Timer::Duration ShortestInterval = std::chrono::milliseconds(1);

} // namespace

struct TimerClock::Ending
{
    TimerClock& m_clock;
    ~Ending() { m_clock.end(); }
};

/// On its way to the timer's thread.
struct TimerClock::Tick
{
    std::shared_ptr<TimerState> m_timer;
    std::uint64_t m_run = 0;

    Tick(std::shared_ptr<TimerState> timer, std::uint64_t run)
        : m_timer(std::move(timer)),
          m_run(run)
    {}
    Tick(Tick&&) noexcept = default;
    ~Tick()
    {
        if (m_timer)
            finish(false);
    }

    void deliver()
    {
        TimerClock& clock = instance();
        {
            const std::lock_guard lock(clock.m_mutex);
            if (m_timer->m_run != m_run)
                return;
            m_timer->m_isRunning = m_timer->m_repeats;
        }
        m_timer->m_elapsed.report();
        finish(true);
    }

private:
    /// Goes on only when the handlers are through: else a slow one would keep its thread's queue
    /// from ever being empty. Nor does it where the thread takes no calls any more.
    void finish(bool wasDelivered)
    {
        const std::shared_ptr<TimerState> timer = std::move(m_timer);
        const bool isWanted = timer->m_isOwned || timer->m_elapsed.isHeard();
        TimerClock& clock = instance();
        const std::lock_guard lock(clock.m_mutex);
        if (timer->m_run != m_run || !timer->m_isRunning)
            return;
        timer->m_isRunning = wasDelivered && isWanted;
        if (!timer->m_isRunning)
            return;
        const auto missed = (Thread::Clock::now() - timer->m_due) / timer->m_interval;
        timer->m_due += (missed + 1) * timer->m_interval;
        clock.schedule(timer);
    }
};

TimerClock& TimerClock::instance()
{
    static auto* const clock = new TimerClock;
    static const Ending ending{*clock};
    return *clock;
}

void TimerClock::start(const std::shared_ptr<TimerState>& timer, Timer::Duration time, bool repeats,
                       Thread* thread)
{
    const auto least = repeats ? ShortestInterval : Timer::Duration::zero();
    ThreadRef home(thread); // the former one is let go of without the lock
    const std::lock_guard lock(m_mutex);
    if (m_ends)
        return;
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    unschedule(*timer);
    ++timer->m_run;
    std::swap(timer->m_home, home);
    timer->m_interval = std::clamp(time, least, Longest);
    timer->m_due = Thread::Clock::now() + timer->m_interval;
    timer->m_repeats = repeats;
    timer->m_isRunning = true;
    schedule(timer);
}

void TimerClock::stop(TimerState& timer)
{
    const std::lock_guard lock(m_mutex);
    unschedule(timer);
    ++timer.m_run;
    timer.m_isRunning = false;
}

bool TimerClock::isRunning(const TimerState& timer)
{
    const std::lock_guard lock(m_mutex);
    return timer.m_isRunning;
}

Timer::Duration TimerClock::interval(const TimerState& timer)
{
    const std::lock_guard lock(m_mutex);
    return timer.m_interval;
}

void TimerClock::schedule(const std::shared_ptr<TimerState>& timer)
{
    const auto place = m_schedule.emplace(timer->m_due, timer);
    if (place == m_schedule.begin())
        m_change.notify_one();
}

void TimerClock::unschedule(const TimerState& timer)
{
    const auto [first, last] = m_schedule.equal_range(timer.m_due);
    for (auto it = first; it != last; ++it) {
        if (it->second.get() == &timer) {
            m_schedule.erase(it);
            return;
        }
    }
}

void TimerClock::run()
{
    struct Due
    {
        Tick m_tick;
        ThreadRef m_home;
    };
    std::vector<Due> due;
    for (std::unique_lock lock(m_mutex); !m_ends; lock.lock()) {
        if (m_schedule.empty())
            m_change.wait(lock);
        else if (const Time next = m_schedule.begin()->first; next > Thread::Clock::now())
            m_change.wait_until(lock, next);
        const auto now = Thread::Clock::now();
        while (!m_schedule.empty() && m_schedule.begin()->first <= now) {
            const auto first = m_schedule.begin();
            due.push_back({Tick(first->second, first->second->m_run), first->second->m_home});
            m_schedule.erase(first);
        }
        lock.unlock();
        // Without the lock: what a thread does not take is destroyed at once, handlers included.
        for (Due& each : due)
            each.m_home->enqueue(std::move(each.m_tick));
        due.clear();
    }
}

void TimerClock::end()
{
    std::thread thread;
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
        thread.swap(m_thread);
    }
    m_change.notify_one();
    // What a thread did not take was destroyed by the clock, which may have ended the program.
    if (!thread.joinable())
        return;
    if (thread.get_id() == std::this_thread::get_id())
        thread.detach();
    else
        thread.join();
}

} // namespace TROV::detail
