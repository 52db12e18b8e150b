#pragma once

#include "trov/connection.h"
#include "trov/emitter.h"
#include "trov/listener.h"
#include "trov/reportingemitter.h"
#include "trov/thread.h"
#include "trov/trov_export.h"

#include <chrono>
#include <memory>
#include <utility>

namespace TROV {

namespace detail {
class TimerState;
}

/// Tells when a time is over: once, or again and again.
///
///     TROV::Timer::once(3s, text, [text] { text->setText(""); });
///
///     m_timer.elapsed().connect(this, &Page::refresh);
///     m_timer.start(500ms);
///
/// On the thread that starts it, by that thread's loop: the toolkit's, a worker's `Thread::exec`.
/// What that thread does meanwhile delays it. A repeating timer keeps its pace and leaves out what
/// it has missed; it is not sent again while its handlers run, loops that they open included.
/// Handlers that throw are reported. Times below 0 are 0, intervals below a millisecond are one.
/// All functions may be called from any thread; the first timer of a process starts a thread that
/// looks at the clock.
class TROV_EXPORT Timer
{
public:
    using Duration = std::chrono::nanoseconds;

    Timer();
    /// Ends it, also inside one of its handlers.
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    /// Sends `elapsed` each time that the interval is over, on the calling thread. One that runs
    /// begins anew.
    void start(Duration interval);

    /// Sends it once, when the delay is over.
    void startOnce(Duration delay);

    /// On the thread that it was started on, nothing is sent any more when this has returned.
    void stop();

    /// False for one that was sent once, and when its thread has ended.
    bool isRunning() const;

    /// What it was started with last; 0 before.
    Duration interval() const;

    /// Sent when the time is over.
    Signal<void()> elapsed() const noexcept;

    /// Calls `handler` once, when the delay is over, on `thread` (null: the calling thread) if
    /// `listener` is still alive then. With a null listener it is called in any case, unless the
    /// handle cuts it before.
    template <class ListenerPointer, class Handler>
    static ConnectionHandle once(Duration delay, ListenerPointer listener, Handler handler,
                                 Thread* thread = nullptr);

    /// The same each time that the interval is over, until the listener ends or the handle cuts it.
    template <class ListenerPointer, class Handler>
    static ConnectionHandle every(Duration interval, ListenerPointer listener, Handler handler,
                                  Thread* thread = nullptr);

private:
    std::shared_ptr<detail::TimerState> m_state;
};

namespace detail {

/// A timer that ends when nobody listens to it any more; `begin` hands it over to the clock.
class TROV_EXPORT UnownedTimer
{
public:
    UnownedTimer();
    ~UnownedTimer();
    Signal<void()> elapsed() const noexcept;
    void begin(Timer::Duration time, bool repeats, Thread* thread);

    /// Connects and begins.
    template <class ListenerPointer, class Handler>
    ConnectionHandle run(Timer::Duration time, bool repeats, ListenerPointer listener,
                         Handler handler, Thread* thread)
    {
        Thread* const home = thread ? thread : Thread::getCurrentThread();
        ConnectionHandle handle = elapsed().connect(listener, std::move(handler), home);
        begin(time, repeats, home);
        return handle;
    }

private:
    std::shared_ptr<TimerState> m_state;
};

} // namespace detail

template <class ListenerPointer, class Handler>
ConnectionHandle Timer::once(Duration delay, ListenerPointer listener, Handler handler,
                             Thread* thread)
{
    return detail::UnownedTimer().run(delay, false, listener, std::move(handler), thread);
}

template <class ListenerPointer, class Handler>
ConnectionHandle Timer::every(Duration interval, ListenerPointer listener, Handler handler,
                              Thread* thread)
{
    return detail::UnownedTimer().run(interval, true, listener, std::move(handler), thread);
}

} // namespace TROV
