#include "voxi/vxbridge.h"

#include <memory>
#include <mutex>
#include <unordered_map>

namespace VOXI {

VXBridge* VXBridge::getBridge(StringID key)
{
    static auto* mutex = new std::mutex;
    static auto* bridges = new std::unordered_map<std::string, VXBridge*>;
    std::lock_guard lock(*mutex);
    VXBridge*& bridge = (*bridges)[key.getString()];
    if (!bridge)
        bridge = new VXBridge(key);
    return bridge;
}

void VXBridge::setThread(TROV::Thread* thread)
{
    // Kept for good: a bridge outlives every thread that it may have served.
    if (thread)
        thread->ref();
    m_thread.store(thread, std::memory_order_release);
}

} // namespace VOXI
