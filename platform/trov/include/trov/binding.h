#pragma once

#include "trov/connection.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstdint>

namespace TROV {

class EmitterBase;

namespace detail {

struct TableHead;

/// The connections of one emitter of a table, made when the first listener connects.
struct TableSite {
    const EmitterBase* m_emitter = nullptr;
    ConnectionSite m_site{nullptr};
    std::atomic<bool> m_boundCut{false};   ///< the bound operation was disconnected from this one
    TableSite* m_next = nullptr;
};

/// What few objects need: listeners on their emitters.
struct TableSites {
    std::atomic<TableSite*> m_first{nullptr};
    std::atomic<Thread*> m_thread{nullptr};  ///< of the peer, while direct calls are switched off
    bool m_onRequests = false;               ///< some listen to requests: no direct calls any more

    TableSite* find(const EmitterBase* emitter) const noexcept
    {
        for (TableSite* site = m_first.load(std::memory_order_acquire); site; site = site->m_next) {
            if (site->m_emitter == emitter)
                return site;
        }
        return nullptr;
    }
};

/// Who serves the requests of one object: the peer and its thread.
///
/// Lives as long as the object's emitters tables; the memory is recycled but never given back, so a
/// queued call may look at a binding that has gone and see by the generation that it has.
struct TROV_EXPORT Binding {
    std::atomic<Thread*> m_thread{nobody()};  ///< whose calls go directly to the peer
    std::atomic<Listener*> m_peer{nullptr};
    std::atomic<TableSites*> m_sites{nullptr};
    std::atomic<std::uint32_t> m_generation{0};

    /// A thread that is never the current one.
    static Thread* nobody() noexcept { return reinterpret_cast<Thread*>(std::uintptr_t{1}); }

    /// The thread that the peer is served on; null when there is no peer.
    Thread* servingThread() const noexcept;

    bool serves(std::uint32_t generation) const noexcept
    {
        return m_generation.load(std::memory_order_acquire) == generation;
    }

    static Binding* allocate();
    static void free(Binding* binding) noexcept;

    TableSite* siteOf(const EmitterBase* emitter, bool isRequest);
    void stopDirectCalls();
};

}  // namespace detail
}  // namespace TROV
