#include "voxi2/kernel/vxfactory2.h"

#include "trov/thread.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxabstractwindow2.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace VOXI {

namespace {

struct Factories
{
    std::mutex m_mutex;
    std::map<std::string, VXFactory2*> m_byKey;
    std::atomic<VXFactory2*> m_current{nullptr};
};

Factories& factories()
{
    static auto* instance = new Factories;
    return *instance;
}

thread_local constinit const VXFactory2::Scope* t_scope = nullptr;

} // namespace

VXFactory2::VXFactory2(VXBridge* bridge) : m_bridge(bridge)
{
    if (m_bridge)
        m_bridge->setThread(TROV::Thread::getCurrentThread());
}

VXFactory2::~VXFactory2()
{
    Factories& all = factories();
    std::lock_guard lock(all.m_mutex);
    std::erase_if(all.m_byKey, [this](const auto& entry) { return entry.second == this; });
    VXFactory2* self = this;
    all.m_current.compare_exchange_strong(self, nullptr);
}

void VXFactory2::registerFactory(const StringID& key, VXFactory2* factory)
{
    Factories& all = factories();
    std::lock_guard lock(all.m_mutex);
    const auto found = all.m_byKey.find(key.getString());
    VXFactory2* former = found == all.m_byKey.end() ? nullptr : found->second;
    if (factory)
        all.m_byKey[key.getString()] = factory;
    else if (former)
        all.m_byKey.erase(found);
    VXFactory2* current = all.m_current.load();
    if (!current || current == former)
        all.m_current = factory;
    for (VXFactory2* const changed : {former, factory}) {
        if (changed)
            changed->followBridge();
    }
}

/// The factories' mutex is held.
void VXFactory2::followBridge()
{
    m_raising.disconnect();
    const bool isRegistered = std::ranges::any_of(
        factories().m_byKey, [this](const auto& entry) { return entry.second == this; });
    if (!isRegistered || !m_bridge)
        return;
    m_bridge->emitter().connect(
        &m_raising,
        [](long long window) {
            VXAbstractWindow2::raiseNativeWindow(static_cast<unsigned long long>(window));
        },
        m_bridge->thread());
}

VXFactory2* VXFactory2::getFactory(const StringID& key)
{
    Factories& all = factories();
    std::lock_guard lock(all.m_mutex);
    const auto found = all.m_byKey.find(key.getString());
    return found == all.m_byKey.end() ? nullptr : found->second;
}

VXFactory2* VXFactory2::current() noexcept
{
    if (t_scope) [[unlikely]]
        return getFactory(t_scope->m_key);
    return factories().m_current.load(std::memory_order_acquire);
}

bool VXFactory2::setCurrent(const StringID& key)
{
    Factories& all = factories();
    std::lock_guard lock(all.m_mutex);
    const auto found = all.m_byKey.find(key.getString());
    if (found == all.m_byKey.end())
        return false;
    all.m_current = found->second;
    return true;
}

VXFactory2::Scope::Scope(StringID key) : m_key(key), m_outer(std::exchange(t_scope, this)) {}

VXFactory2::Scope::~Scope() { t_scope = m_outer; }

void VXFactory2::unregisterAll()
{
    Factories& all = factories();
    std::lock_guard lock(all.m_mutex);
    for (const auto& entry : std::exchange(all.m_byKey, {}))
        entry.second->followBridge();
    all.m_current = nullptr;
}

} // namespace VOXI
