#pragma once

#include "voxi2/voxi2_export.h"

#include <chrono>
#include <functional>
#include <memory>

namespace VOXI {

/// The time that back ends wait by: until a status text goes, a tool tip, a menu held open.
///
/// They have one of their own. A test that will not wait, or a host with a time of its own,
/// derives one and puts it in its place. All of it belongs to the back end's thread.
class VOXI2_EXPORT VXClock2
{
public:
    /// Waits for its time as long as it lives; ended before, it calls nothing.
    class VOXI2_EXPORT Timer
    {
    public:
        Timer() = default;
        virtual ~Timer();
        Timer(const Timer&) = delete;
        Timer& operator=(const Timer&) = delete;
    };

    VXClock2() = default;
    virtual ~VXClock2();
    VXClock2(const VXClock2&) = delete;
    VXClock2& operator=(const VXClock2&) = delete;

    /// Calls `function` once after the delay, from the event loop, never from here. The function
    /// may destroy the timer. A delay below 0 is 0.
    [[nodiscard]] virtual std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay,
                                                            std::function<void()> function) = 0;

    /// Has the timers that are started from now on go by that clock, which has to outlive them and
    /// is not deleted. Null: by the back end's own, as at the beginning.
    static void replace(VXClock2* clock);

    /// What replaces the back ends' clocks; null for none.
    static VXClock2* replacement();
};

} // namespace VOXI
