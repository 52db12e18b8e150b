#include "trov/waithooks.h"

#include "trov/thread.h"

#include <atomic>

namespace TROV {

namespace {

std::atomic<unsigned (*)()> s_release{nullptr};
std::atomic<void (*)(unsigned)> s_reacquire{nullptr};

} // namespace

void installWaitHooks(WaitHooks hooks)
{
    s_release = hooks.release;
    s_reacquire = hooks.reacquire;
}

WaitRelease::WaitRelease() : m_holds(0), m_wasBusy(Thread::getCurrentThread()->setBusy(false))
{
    if (const auto release = s_release.load(std::memory_order_acquire))
        m_holds = release();
}

WaitRelease::~WaitRelease()
{
    const auto reacquire = s_reacquire.load(std::memory_order_acquire);
    if (m_holds != 0 && reacquire)
        reacquire(m_holds);
    Thread::getCurrentThread()->setBusy(m_wasBusy);
}

} // namespace TROV
