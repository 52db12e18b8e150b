#include "registry.h"

#include "trov/thread.h"
#include "voxi/guiobject.h"
#include "voxi/vxobject.h"

#include <bit>
#include <memory>
#include <utility>

namespace VOXI {

namespace detail {

// IdTable -----------------------------------------------------------------------------------------

IdTable::Page* IdTable::pageOf(unsigned id) const noexcept
{
    const unsigned number = id >> EntryBits;
    if (!m_last || m_lastNumber != number) {
        const auto found = m_pages.find(number);
        if (found == m_pages.end())
            return nullptr;
        m_lastNumber = number;
        m_last = &found->second;
    }
    return m_last;
}

RegistryEntry* IdTable::find(unsigned id) const noexcept
{
    Page* const page = pageOf(id);
    return page ? &page->of(id) : nullptr;
}

RegistryEntry& IdTable::obtain(unsigned id)
{
    Page* page = pageOf(id);
    if (!page)
        page = &m_pages[id >> EntryBits];
    RegistryEntry& entry = page->of(id);
    if (!entry.m_object && !entry.m_peer)
        ++page->m_used;
    return entry;
}

void IdTable::release(unsigned id) noexcept
{
    Page* const page = pageOf(id);
    if (!page || page->of(id).m_object || page->of(id).m_peer || --page->m_used > 0)
        return;
    m_last = nullptr;
    m_pages.erase(id >> EntryBits);
}

// AddressSet --------------------------------------------------------------------------------------

AddressSet::Place::Place(const void* address) noexcept
{
    // Where no object can lie, the region is one that no address has.
    const auto place = std::rotr(reinterpret_cast<std::uintptr_t>(address), PlaceBits);
    m_region = place >> (RegionBits - PlaceBits);
    m_word = (place >> WordBits) & ((1u << (RegionBits - PlaceBits - WordBits)) - 1);
    m_bit = std::uint64_t{1} << (place & ((1u << WordBits) - 1));
}

AddressSet::Region* AddressSet::find(std::uintptr_t region) const noexcept
{
    if (!m_last || m_lastRegion != region) {
        const auto found = m_regions.find(region);
        if (found == m_regions.end())
            return nullptr;
        m_lastRegion = region;
        m_last = found->second.get();
    }
    return m_last;
}

bool AddressSet::contains(const void* address) const noexcept
{
    const Place place(address);
    const Region* region = find(place.m_region);
    return region && (region->m_words[place.m_word] & place.m_bit);
}

void AddressSet::insert(const void* address)
{
    const Place place(address);
    Region* region = find(place.m_region);
    if (!region)
        region = m_regions.emplace(place.m_region, std::make_unique<Region>()).first->second.get();
    region->m_words[place.m_word] |= place.m_bit;
    ++region->m_used;
}

void AddressSet::erase(const void* address) noexcept
{
    if (!contains(address))
        return;
    const Place place(address);
    Region* region = find(place.m_region);
    region->m_words[place.m_word] &= ~place.m_bit;
    if (--region->m_used > 0)
        return;
    m_last = nullptr;
    m_regions.erase(place.m_region);
}

std::vector<const void*> AddressSet::all() const
{
    std::vector<const void*> result;
    for (const auto& [number, region] : m_regions) {
        for (std::size_t i = 0; i < region->m_words.size(); ++i) {
            for (std::uint64_t left = region->m_words[i]; left; left &= left - 1) {
                const std::size_t place =
                    (i << WordBits) + static_cast<std::size_t>(std::countr_zero(left));
                const std::uintptr_t bits = (number << RegionBits) + (place << PlaceBits);
                result.push_back(reinterpret_cast<const void*>(bits));
            }
        }
    }
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

VXObject* GuiObject::getHandle() const { return nullptr; }
const void* GuiObject::family() const noexcept { return nullptr; }
void GuiObject::endService() { scheduleDelete(); }

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
    removeObject(id, lookup(id));
}

void removeObject(unsigned id, const GuiObject* peer)
{
    VXObjectDataLocker lock;
    Registry& registry = Registry::instance();
    RegistryEntry* entry = registry.m_ids.find(id);
    if (!entry || !peer || entry->m_peer != peer)
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
    const Registry& registry = Registry::instance();
    if (!registry.m_live.contains(object))
        return nullptr;
    const RegistryEntry* entry = registry.m_ids.find(object->id());
    return entry ? entry->m_peer : nullptr;
}

} // namespace VOXI
