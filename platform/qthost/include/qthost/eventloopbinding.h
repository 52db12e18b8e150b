#pragma once

#include "qthost/qthost_export.h"

#include <memory>

namespace VOXI {

/// Lets the Qt event loop of the calling thread run the toolkit's calls.
///
/// Any number of calls sent from other threads rouse the loop once. A turn runs them for a few
/// milliseconds at most and then lets input and painting have theirs. Nested loops (modal dialogs,
/// menus) go on running calls, and whenever a loop goes to sleep the thread lets go of the object
/// lock. Make it on the thread of the `QApplication`, after that; its end drops what is queued and
/// releases whoever waits.
class QTHOST_EXPORT EventLoopBinding
{
public:
    EventLoopBinding();
    ~EventLoopBinding();
    EventLoopBinding(const EventLoopBinding&) = delete;
    EventLoopBinding& operator=(const EventLoopBinding&) = delete;

private:
    class Pump;
    std::unique_ptr<Pump> m_pump;
};

} // namespace VOXI
