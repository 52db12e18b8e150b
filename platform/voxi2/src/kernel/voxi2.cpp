#include "../containers/opendialogs.h"
#include "voxi2/kernel/initialize.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2/kernel/vxfactory2.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<bool> s_isUp{false};

} // namespace

void initialize_voxi2() { s_isUp = true; }

void terminate_voxi2()
{
    if (!s_isUp.exchange(false))
        return;
    VXObject2::releaseAllPeers();
    delete VXDragManager2::instance();
    delete VXClipboard2::instance();
    VXFactory2::unregisterAll();
    endOpenDialogs();
}

} // namespace VOXI
