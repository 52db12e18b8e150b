#include "jhost_services/raisewindow.h"

#include <memory>
#include <mutex>

namespace {

using SharedHook = std::shared_ptr<const VoxiRaiseWindowHook>;

std::mutex s_mutex;

SharedHook& installedHook() // guarded by the mutex
{
    static auto* hook = new SharedHook;
    return *hook;
}

} // namespace

// What a hook carries is copied, called and destroyed outside the lock: it may come back here.

void voxiSetRaiseWindowHook(const VoxiRaiseWindowHook& hook)
{
    SharedHook changed = hook ? std::make_shared<const VoxiRaiseWindowHook>(hook) : nullptr;
    {
        std::lock_guard lock(s_mutex);
        installedHook().swap(changed);
    }
}

bool voxiRaiseWindow(long long nativeWindow)
{
    SharedHook hook;
    {
        std::lock_guard lock(s_mutex);
        hook = installedHook();
    }
    if (!hook)
        return false;
    (*hook)(nativeWindow);
    return true;
}
