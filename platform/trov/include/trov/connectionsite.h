#pragma once

#include "trov/trov_export.h"
#include "trov/types.h"
#include "voxi_util/readwritelock.h"

#include <atomic>
#include <cstdint>

namespace TROV {

/// Guards who is connected to whom; held for writing while a connection is made or cut, never while
/// a listener is called.
TROV_EXPORT VOXI::ReadWriteLock& GetGlobalConnectionLock();

namespace detail {

/// The connections of one emitter. Emissions walk through the block they find while others publish
/// new ones; of a published one only the free places at the end are filled, and what is cut leaves
/// a connection behind that is never connected. A block holds a reference to each of the others.
struct ConnectionBlock
{
    std::atomic<std::uint32_t> m_count{0};
    std::uint32_t m_capacity = 0;
    std::uint32_t m_connected = 0;        ///< guarded by the global connection lock
    std::atomic<std::uint32_t> m_pins{0}; ///< emissions too deeply nested for their thread's pins
    std::atomic<bool> m_retired{false};   ///< replaced; to be freed when no emission is in it
    ConnectionBlock* m_nextRetired = nullptr;

    std::atomic<Connection*>* items() noexcept
    {
        return reinterpret_cast<std::atomic<Connection*>*>(this + 1);
    }
    const std::atomic<Connection*>* items() const noexcept
    {
        return reinterpret_cast<const std::atomic<Connection*>*>(this + 1);
    }
    Connection* at(std::uint32_t i) const noexcept
    {
        return items()[i].load(); // in one order with the pins
    }
};

/// Where an emitter keeps its connections; null as long as there are none.
using ConnectionSite = std::atomic<ConnectionBlock*>;

/// Frees what was cut or replaced and no emission is in any more.
TROV_EXPORT void collectRetired();
TROV_EXPORT void cutAllConnections(ConnectionSite& site);
TROV_EXPORT int numberOfConnections(const ConnectionSite& site) noexcept;

} // namespace detail
} // namespace TROV
