#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace VOXI {

class GuiObject;
class VXObject;

namespace detail {

/// What the registry knows of one id.
struct RegistryEntry
{
    VXObject* m_object = nullptr;
    GuiObject* m_peer = nullptr;
};

/// Ids to entries. Ids are given in sequence, so they are kept in pages that come and go as a
/// whole; finding one is three loads.
class IdTable
{
public:
    /// The entry of `id`, or null while there is none.
    RegistryEntry* find(unsigned id) const noexcept;

    /// The entry of `id`, made when there is none. May throw std::bad_alloc.
    RegistryEntry& obtain(unsigned id);

    /// Gives the entry of `id` back if it is empty; every emptied entry is handed in once.
    void release(unsigned id) noexcept;

private:
    static constexpr unsigned EntryBits = 8;
    static constexpr unsigned PageBits = 14;
    static constexpr unsigned ShelfBits = 32 - EntryBits - PageBits;

    struct Page
    {
        std::array<RegistryEntry, 1u << EntryBits> m_entries;
        unsigned m_used = 0;
    };
    struct Shelf
    {
        std::array<std::unique_ptr<Page>, 1u << PageBits> m_pages;
    };

    std::unique_ptr<Page>* pageOf(unsigned id) const noexcept;

    std::array<std::unique_ptr<Shelf>, 1u << ShelfBits> m_shelves;
};

/// A set of addresses with open addressing.
class PointerSet
{
public:
    bool contains(const void* pointer) const noexcept;
    void insert(const void* pointer);
    void erase(const void* pointer) noexcept;
    std::vector<const void*> all() const;

private:
    std::size_t placeOf(const void* pointer) const noexcept;
    void grow();

    std::vector<const void*> m_slots; // a power of two of them; null is free
    std::size_t m_count = 0;
};

/// Which objects are alive and which peers serve them. Guarded by `VXObject::m_lock`.
struct Registry
{
    IdTable m_ids;
    PointerSet m_live;

    static Registry& instance();
};

} // namespace detail
} // namespace VOXI
