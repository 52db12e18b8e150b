#pragma once

#include "voxi2/kernel/vxclock2.h"
#include "voxi2_qt/voxi2_qt_export.h"

namespace VOXI {

/// Waits by Qt's timers, to the millisecond, and in any event loop.
class VOXI2_QT_EXPORT QtClock : public VXClock2
{
public:
    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds delay,
                                      std::function<void()> function) override;

    /// What is to be waited by now: this clock, unless the program has replaced it.
    static VXClock2& current();
};

} // namespace VOXI
