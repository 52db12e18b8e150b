#pragma once

#include "qthost/qthost_export.h"

#include <memory>

namespace VOXI {

/// Lets the Qt event loop of the calling thread run the toolkit's calls.
///
/// Any number of calls sent from other threads rouse the loop once. A turn runs them for a few
/// milliseconds at most and then lets input and painting have theirs. Nested loops (modal dialogs,
/// menus) go on running calls, and whenever a loop sleeps or runs calls the thread lets go of the
/// object lock. When the application's loop has returned, and until another one sleeps, whoever
/// asks gets a default answer. Make it on the thread of the `QApplication`, after that; its end
/// drops what is queued and releases whoever waits.
class QTHOST_EXPORT EventLoopBinding
{
public:
    EventLoopBinding();
    ~EventLoopBinding();
    EventLoopBinding(const EventLoopBinding&) = delete;
    EventLoopBinding& operator=(const EventLoopBinding&) = delete;

    /// Tells that the program's loop has ended, as the application's `aboutToQuit` does too: until
    /// a loop sleeps again, who asks gets a default answer; what is only sent waits for it.
    void endServing();

private:
    class Pump;
    std::unique_ptr<Pump> m_pump;
};

} // namespace VOXI
