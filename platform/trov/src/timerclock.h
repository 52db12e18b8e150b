#pragma once

#include "trov/reportingemitter.h"
#include "trov/thread.h"
#include "trov/timer.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

namespace TROV::detail {

/// What a timer and the clock share.
class TimerState
{
public:
    explicit TimerState(bool isOwned) : m_isOwned(isOwned) {}

    const ReportingEmitter<void()>& elapsed() const noexcept { return m_elapsed; }

private:
    friend class TimerClock;
    using Time = Thread::Clock::time_point;

    ReportingEmitter<void()> m_elapsed;
    const bool m_isOwned; // else it ends when nobody listens

    // Guarded by the clock.
    ThreadRef m_home;
    Timer::Duration m_interval{};
    Time m_due{};
    std::uint64_t m_run = 0; // counts starts and stops: what was sent before is void
    bool m_repeats = false;
    bool m_isRunning = false;
};

/// The thread that looks at the clock for all timers of the process, and tells the threads of those
/// whose time is over. Made with the first timer that is started; ends with the program, after
/// which no timer runs any more.
class TimerClock
{
public:
    static TimerClock& instance();

    void start(const std::shared_ptr<TimerState>& timer, Timer::Duration time, bool repeats,
               Thread* thread);
    void stop(TimerState& timer);
    bool isRunning(const TimerState& timer);
    Timer::Duration interval(const TimerState& timer);

private:
    struct Ending;
    struct Tick;
    using Time = TimerState::Time;

    TimerClock() = default;
    void run();
    void end();
    // Mutex held:
    void schedule(const std::shared_ptr<TimerState>& timer);
    void unschedule(const TimerState& timer);

    std::mutex m_mutex;
    std::condition_variable m_change;
    std::multimap<Time, std::shared_ptr<TimerState>> m_schedule;
    std::thread m_thread;
    bool m_ends = false;
};

} // namespace TROV::detail
