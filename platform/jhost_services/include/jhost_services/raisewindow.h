#pragma once

#include "jhost_services/jhost_services_export.h"

#include <boost/function.hpp>

/// Takes a native window value of which the host wants the window raised.
using VoxiRaiseWindowHook = boost::function<void(long long)>;

/// Installs what the host calls to raise a window, in place of what was installed before; an empty
/// function takes it out. Any thread.
JHOST_SERVICES_EXPORT void voxiSetRaiseWindowHook(const VoxiRaiseWindowHook& hook);

/// Calls the installed hook, on the calling thread; false when none is installed.
JHOST_SERVICES_EXPORT bool voxiRaiseWindow(long long nativeWindow);
