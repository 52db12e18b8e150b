#include "trov/timer.h"

#include "timerclock.h"

namespace TROV {

using detail::TimerClock;
using detail::TimerState;
using detail::UnownedTimer;

Timer::Timer() : m_state(std::make_shared<TimerState>(true)) {}

Timer::~Timer()
{
    stop();
    m_state->elapsed().cutAll();
}

void Timer::start(Duration interval)
{
    TimerClock::instance().start(m_state, interval, true, Thread::getCurrentThread());
}

void Timer::startOnce(Duration delay)
{
    TimerClock::instance().start(m_state, delay, false, Thread::getCurrentThread());
}

void Timer::stop() { TimerClock::instance().stop(*m_state); }

bool Timer::isRunning() const { return TimerClock::instance().isRunning(*m_state); }

Timer::Duration Timer::interval() const { return TimerClock::instance().interval(*m_state); }

Signal<void()> Timer::elapsed() const noexcept { return m_state->elapsed().signal(); }

UnownedTimer::UnownedTimer() : m_state(std::make_shared<TimerState>(false)) {}

UnownedTimer::~UnownedTimer() = default;

Signal<void()> UnownedTimer::elapsed() const noexcept { return m_state->elapsed().signal(); }

void UnownedTimer::begin(Timer::Duration time, bool repeats, Thread* thread)
{
    TimerClock::instance().start(m_state, time, repeats, thread);
}

} // namespace TROV
