#include "voxi2/voxi2.h"

#include "../containers/openmessages.h"
#include "trov/emitter.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxabstractwindow2.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2/kernel/vxfactory2.h"

#include <atomic>

namespace VOXI {

namespace {

std::atomic<bool> s_isUp{false};

void raiseNativeWindow(long long value)
{
    VXAbstractWindow2::raiseNativeWindow(static_cast<unsigned long long>(value));
}

} // namespace

void initialize_voxi2()
{
    if (s_isUp.exchange(true))
        return;
    static const TROV::Listener* const listener = [] {
        auto* made = new TROV::Listener;
        VXBridge::getBridge(StringID("qt"))->emitter().connect(made, &raiseNativeWindow);
        return made;
    }();
    static_cast<void>(listener);
}

void terminate_voxi2()
{
    if (!s_isUp.exchange(false))
        return;
    VXObject2::releaseAllPeers();
    delete VXDragManager2::instance();
    delete VXClipboard2::instance();
    VXFactory2::unregisterAll();
    OpenMessage::answerAll();
}

} // namespace VOXI
