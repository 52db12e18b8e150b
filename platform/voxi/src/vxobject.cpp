#include "voxi/vxobject.h"

#include "registry.h"
#include "trov/thread.h"
#include "trov/waithooks.h"

#include <stdexcept>
#include <utility>

namespace VOXI {

using detail::AddressSet;
using detail::Registry;
using detail::RegistryEntry;

constinit RecursiveLock VXObject::m_lock(&TROV::Thread::recallHolds);

namespace {

thread_local int t_detachedScopes = 0;

/// Waiting for another thread means to step aside from the object lock.
const bool s_hooksInstalled = [] {
    TROV::installWaitHooks({[] { return VXObject::m_lock.releaseAll(); },
                            [](unsigned holds) { VXObject::m_lock.reacquire(holds); }});
    return true;
}();

unsigned s_lastId = 0; // guarded by the object lock

} // namespace

VXObject::VXObject() : m_id(0)
{
    if (DetachedScope::isActive())
        return;
    VXObjectDataLocker lock;
    if (s_lastId == ~0u)
        throw std::length_error("no object ids are left");
    Registry& registry = Registry::instance();
    registry.m_ids.obtain(s_lastId + 1).m_object = this;
    registry.m_live.insert(this);
    m_id = ++s_lastId;
    m_isListed = true;
}

VXObject::~VXObject() { invalidate(); }

void VXObject::invalidate()
{
    if (!std::exchange(m_isListed, false))
        return;
    VXObjectDataLocker lock;
    Registry& registry = Registry::instance();
    registry.m_ids.find(m_id)->m_object = nullptr;
    registry.m_ids.release(m_id);
    registry.m_live.erase(this);
}

bool VXObject::isObjectValid(const VXObject* object)
{
    VXObjectDataLocker lock;
    return Registry::instance().m_live.contains(object);
}

bool VXObject::isObjectValid(unsigned id) { return objectById(id) != nullptr; }

VXObject* VXObject::objectById(unsigned id)
{
    VXObjectDataLocker lock;
    const RegistryEntry* entry = Registry::instance().m_ids.find(id);
    return entry ? entry->m_object : nullptr;
}

void VXObject::forEachObject(const std::function<void(VXObject*)>& function)
{
    VXObjectDataLocker lock;
    const AddressSet& live = Registry::instance().m_live;
    for (const void* address : live.all()) {
        if (live.contains(address))
            function(static_cast<VXObject*>(const_cast<void*>(address)));
    }
}

VXObject::DetachedScope::DetachedScope() { ++t_detachedScopes; }
VXObject::DetachedScope::~DetachedScope() { --t_detachedScopes; }
bool VXObject::DetachedScope::isActive() noexcept { return t_detachedScopes > 0; }

} // namespace VOXI
