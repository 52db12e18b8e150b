#include "voxi2_qt/kernel/voxi2_qt.h"

#include "jhost_services/raisewindow.h"
#include "qttreeend.h"
#include "trov/packet.h"
#include "voxi/vxbridge.h"
#include "voxi2/kernel/initialize.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"
#include "voxi2/kernel/vxfactory2.h"
#include "voxi2_qt/kernel/qtcanvas.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qtcursorregistry.h"
#include "voxi2_qt/kernel/qteventthrottler.h"
#include "voxi2_qt/kernel/qtfactory2.h"
#include "voxi_util/textencoding.h"

const char* const voxi2_qt_version = "8.3.0.441";
const char* const voxi2_qt_build_date = "Jan 29 2014";

namespace {

bool s_initialized = false;
bool s_terminated = false;

/// Hands a window value of the host to the abstract side, from whatever thread the host calls on.
void forwardRaiseWindow(long long nativeWindow)
{
    VOXI::VXBridge* bridge = VOXI::VXBridge::getBridge(VOXI::StringID("qt"));
    bridge->emitter().sendPacket(TROV::Packet(new TROV::Payload1<void, long long, 1>(nativeWindow)),
                                 TROV::SendDirect, false);
}

} // namespace

bool VOXI::isBackEndGoing() noexcept { return s_terminated; }

void initialize_voxi2_qt()
{
    if (s_initialized)
        return;
    s_initialized = true;
    VOXI::initialize_voxi2();
    const VOXI::StringID key("qt");
    VOXI::VXBridge* bridge = VOXI::VXBridge::getBridge(key);
    voxiSetRaiseWindowHook(&forwardRaiseWindow);
    // What converts values must be there before the first peer is made.
    VOXI::lockNarrowTextEncoding();
    VOXI::installQtImageDecoder();
    VOXI::installQtCanvasMaker();
    VOXI::installQtFontNameResolver();
    // Connected before it is registered: no request can arrive unanswered. None of these is ever
    // deleted; objects may outlive the back end.
    auto* factory = new VOXI::VXFactory2(bridge);
    VOXI::QtFactory2::createFactory(factory);
    VOXI::VXFactory2::registerFactory(key, factory);
    VOXI::VXDragManager2::createImpl(key);
    VOXI::VXClipboard2::initImpl(key);
    VOXI::CustomCursorRegistry::installCustomCursorRegistry(new VOXI::QtCursorRegistry);
    VOXI::EventThrottlerFactoryBase::installEventThrottlerFactory(new VOXI::EventThrottlerFactory);
}

void terminate_voxi2_qt()
{
    if (s_terminated)
        return;
    voxiSetRaiseWindowHook(VoxiRaiseWindowHook());
    s_terminated = true;
    VOXI::terminate_voxi2();
}
