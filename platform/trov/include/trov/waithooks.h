#pragma once

#include "trov/trov_export.h"

namespace TROV {

/// What a thread must let go of before it waits for another one.
///
/// A thread that waits for an answer while it holds a lock which the answering thread may want
/// would wait for ever. Whoever owns such a lock installs these hooks once, before threads run.
struct WaitHooks
{
    unsigned (*release)() = nullptr;       ///< gives up the calling thread's holds, returns them
    void (*reacquire)(unsigned) = nullptr; ///< takes them back
};

/// Installs the hooks; null members do nothing. Call it from one thread, before any waiting.
TROV_EXPORT void installWaitHooks(WaitHooks hooks);

/// Steps aside for the lifetime of the object: for waits that do not go through this library, such
/// as a host's event loop going to sleep.
class TROV_EXPORT WaitRelease
{
public:
    WaitRelease();
    ~WaitRelease();
    WaitRelease(const WaitRelease&) = delete;
    WaitRelease& operator=(const WaitRelease&) = delete;

private:
    unsigned m_holds;
    bool m_wasBusy;
};

} // namespace TROV
