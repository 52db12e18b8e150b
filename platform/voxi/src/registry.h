#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
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

/// Ids to entries. Ids are given in sequence, so they are kept in small pages that come and go as a
/// whole: objects made one after the other share one, and a lone survivor costs little.
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
    static constexpr unsigned EntryBits = 4;

    struct Page
    {
        std::array<RegistryEntry, 1u << EntryBits> m_entries;
        unsigned m_used = 0;

        RegistryEntry& of(unsigned id) noexcept { return m_entries[id & ((1u << EntryBits) - 1)]; }
    };

    Page* pageOf(unsigned id) const noexcept;

    mutable std::unordered_map<unsigned, Page> m_pages;
    mutable unsigned m_lastNumber = 0; // of the page asked for last, if there is one
    mutable Page* m_last = nullptr;
};

/// A set of addresses of objects: a bit for each place in those regions of memory where some lie.
/// Objects made one after the other are found through the same cache line; in a hash table each
/// would cost a walk to memory.
class AddressSet
{
public:
    bool contains(const void* address) const noexcept;
    void insert(const void* address);
    void erase(const void* address) noexcept;
    std::vector<const void*> all() const;

private:
    static constexpr unsigned PlaceBits = 3; // objects are aligned to so many
    static constexpr unsigned WordBits = 6;
    static constexpr unsigned RegionBits = 18;

    struct Region
    {
        std::array<std::uint64_t, 1u << (RegionBits - PlaceBits - WordBits)> m_words{};
        unsigned m_used = 0;
    };
    struct Place
    {
        explicit Place(const void* address) noexcept;
        std::uintptr_t m_region;
        std::size_t m_word;
        std::uint64_t m_bit;
    };

    Region* find(std::uintptr_t region) const noexcept;

    std::unordered_map<std::uintptr_t, std::unique_ptr<Region>> m_regions;
    mutable std::uintptr_t m_lastRegion = 0; // the one asked for last, if there is one
    mutable Region* m_last = nullptr;
};

/// Which objects are alive and which peers serve them. Guarded by `VXObject::m_lock`.
struct Registry
{
    IdTable m_ids;
    AddressSet m_live;

    static Registry& instance();
};

} // namespace detail
} // namespace VOXI
