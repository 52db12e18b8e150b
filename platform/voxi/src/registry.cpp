#include "registry.h"

#include "trov/thread.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace VOXI {

namespace detail {

// IdTable -----------------------------------------------------------------------------------------

std::unique_ptr<IdTable::Page>* IdTable::pageOf(unsigned id) const noexcept
{
    const auto& shelf = m_shelves[id >> (EntryBits + PageBits)];
    return shelf ? &shelf->m_pages[(id >> EntryBits) & ((1u << PageBits) - 1)] : nullptr;
}

RegistryEntry* IdTable::find(unsigned id) const noexcept
{
    const auto* page = pageOf(id);
    return page && *page ? &(*page)->m_entries[id & ((1u << EntryBits) - 1)] : nullptr;
}

RegistryEntry& IdTable::obtain(unsigned id)
{
    auto& shelf = m_shelves[id >> (EntryBits + PageBits)];
    if (!shelf)
        shelf = std::make_unique<Shelf>();
    auto& page = *pageOf(id);
    if (!page)
        page = std::make_unique<Page>();
    RegistryEntry& entry = page->m_entries[id & ((1u << EntryBits) - 1)];
    if (!entry.m_object && !entry.m_peer)
        ++page->m_used;
    return entry;
}

void IdTable::release(unsigned id) noexcept
{
    const RegistryEntry* entry = find(id);
    if (!entry || entry->m_object || entry->m_peer)
        return;
    auto& page = *pageOf(id);
    if (--page->m_used == 0)
        page.reset();
}

// PointerSet --------------------------------------------------------------------------------------

std::size_t PointerSet::placeOf(const void* pointer) const noexcept
{
    // Objects lie 16 bytes apart at least; multiplying spreads what is left.
    const auto bits = reinterpret_cast<std::uintptr_t>(pointer) >> 4;
    return static_cast<std::size_t>((bits * 0x9e3779b97f4a7c15ull) >> 32) & (m_slots.size() - 1);
}

bool PointerSet::contains(const void* pointer) const noexcept
{
    if (m_slots.empty() || !pointer)
        return false;
    for (std::size_t i = placeOf(pointer); m_slots[i]; i = (i + 1) & (m_slots.size() - 1)) {
        if (m_slots[i] == pointer)
            return true;
    }
    return false;
}

void PointerSet::insert(const void* pointer)
{
    if ((m_count + 1) * 4 > m_slots.size() * 3)
        grow();
    std::size_t i = placeOf(pointer);
    while (m_slots[i])
        i = (i + 1) & (m_slots.size() - 1);
    m_slots[i] = pointer;
    ++m_count;
}

void PointerSet::grow()
{
    std::vector<const void*> old(m_slots.empty() ? 64 : m_slots.size() * 2);
    old.swap(m_slots);
    m_count = 0;
    for (const void* pointer : old) {
        if (pointer)
            insert(pointer);
    }
}

void PointerSet::erase(const void* pointer) noexcept
{
    if (!contains(pointer))
        return;
    const std::size_t mask = m_slots.size() - 1;
    std::size_t hole = placeOf(pointer);
    while (m_slots[hole] != pointer)
        hole = (hole + 1) & mask;
    // What was pushed behind the hole by a collision moves up, so that no search ends early.
    for (std::size_t i = (hole + 1) & mask; m_slots[i]; i = (i + 1) & mask) {
        const std::size_t home = placeOf(m_slots[i]);
        if (((i - home) & mask) >= ((i - hole) & mask)) {
            m_slots[hole] = m_slots[i];
            hole = i;
        }
    }
    m_slots[hole] = nullptr;
    --m_count;
}

std::vector<const void*> PointerSet::all() const
{
    std::vector<const void*> result;
    std::copy_if(m_slots.begin(), m_slots.end(), std::back_inserter(result),
                 [](const void* pointer) { return pointer != nullptr; });
    return result;
}

Registry& Registry::instance()
{
    // Objects of static life may outlive any other static object.
    static auto* registry = new Registry;
    return *registry;
}

} // namespace detail

// Peers -------------------------------------------------------------------------------------------

using detail::Registry;
using detail::RegistryEntry;

GuiObject::~GuiObject() = default;

VXObject* GuiObject::getHandle() const
{
    return nullptr;
}

const void* GuiObject::family() const noexcept
{
    return nullptr;
}

void GuiObject::scheduleDelete()
{
    if (!std::exchange(m_deletionScheduled, true))
        deferDelete();
}

void GuiObject::deferDelete()
{
    // A call that the thread does not come to any more is dropped, and the object with it.
    TROV::Thread::getCurrentThread()->post([self = std::unique_ptr<GuiObject>(this)] {});
}

void addObject(unsigned id, GuiObject* peer)
{
    if (!peer) {
        removeObject(id);
        return;
    }
    VXObjectDataLocker lock;
    Registry::instance().m_ids.obtain(id).m_peer = peer;
}

void removeObject(unsigned id)
{
    VXObjectDataLocker lock;
    Registry& registry = Registry::instance();
    RegistryEntry* entry = registry.m_ids.find(id);
    if (!entry || !entry->m_peer)
        return;
    entry->m_peer = nullptr;
    registry.m_ids.release(id);
}

GuiObject* lookup(unsigned id)
{
    VXObjectDataLocker lock;
    const RegistryEntry* entry = Registry::instance().m_ids.find(id);
    return entry ? entry->m_peer : nullptr;
}

GuiObject* lookup(const VXObject* object)
{
    VXObjectDataLocker lock;
    return VXObject::isObjectValid(object) ? lookup(object->id()) : nullptr;
}

} // namespace VOXI
