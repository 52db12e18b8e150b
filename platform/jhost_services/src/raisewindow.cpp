#include "jhost_services/raisewindow.h"

#include <mutex>

namespace {

std::mutex s_mutex;

VoxiRaiseWindowHook& installedHook()
{
    static auto* hook = new VoxiRaiseWindowHook;
    return *hook;
}

} // namespace

void voxiSetRaiseWindowHook(const VoxiRaiseWindowHook& hook)
{
    std::lock_guard lock(s_mutex);
    installedHook() = hook;
}

bool voxiRaiseWindow(long long nativeWindow)
{
    VoxiRaiseWindowHook hook;
    {
        // The hook may install another one.
        std::lock_guard lock(s_mutex);
        hook = installedHook();
    }
    if (!hook)
        return false;
    hook(nativeWindow);
    return true;
}
