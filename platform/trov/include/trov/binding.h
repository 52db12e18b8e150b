#pragma once

#include "trov/connectionsite.h"
#include "trov/trov_export.h"
#include "trov/types.h"

#include <atomic>
#include <cstdint>

namespace TROV {

class EmitterBase;

namespace detail {

struct OperationsHead;
struct TableHead;

/// The connections of one emitter of a table, made when the first listener connects.
struct TableSite
{
    const EmitterBase* m_emitter = nullptr;
    ConnectionSite m_site{nullptr};
    std::atomic<bool> m_boundCut{false}; ///< the bound operation was disconnected from this one
    TableSite* m_next = nullptr;
};

/// What few objects need: listeners on their emitters.
struct TableSites
{
    std::atomic<TableSite*> m_first{nullptr};
    std::atomic<Thread*> m_thread{nullptr}; ///< of the peer, while direct calls are switched off
    bool m_onRequests = false; ///< some listen to requests: no direct calls any more; guarded

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
struct TROV_EXPORT Binding
{
    std::atomic<Thread*> m_thread{nobody()}; ///< whose calls go directly to the peer
    std::atomic<Listener*> m_peer{nullptr};
    std::atomic<TableSites*> m_sites{nullptr};
    std::atomic<TableHead*> m_tables{nullptr};  ///< of the most derived class; they are linked
    std::atomic<std::uint32_t> m_generation{0}; ///< changes with every bind and unbind
    std::atomic<std::uint32_t> m_object{0};     ///< changes when the object goes
    bool m_isStandIn = false;           ///< of an object that stands for dead ones: nobody listens
    std::atomic<bool> m_hasCuts{false}; ///< the peer was disconnected from some requests

    /// A thread that is never the current one.
    static Thread* nobody() noexcept { return reinterpret_cast<Thread*>(std::uintptr_t{1}); }

    /// The thread that the peer is served on; null when there is no peer.
    Thread* servingThread() const noexcept
    {
        Thread* const thread = m_thread.load(std::memory_order_acquire);
        if (thread != nobody())
            return thread;
        const TableSites* const sites = m_sites.load(std::memory_order_acquire);
        return sites ? sites->m_thread.load(std::memory_order_acquire) : nullptr;
    }

    bool serves(std::uint32_t generation) const noexcept
    {
        return m_generation.load(std::memory_order_acquire) == generation;
    }

    /// Whether the peer of that generation still serves that very request.
    bool serves(std::uint32_t generation, const EmitterBase* emitter) const noexcept
    {
        // In sequentially consistent order: see `Thread::releaseWaiters`.
        return m_generation.load() == generation
               && (!m_hasCuts.load() || !isCut(generation, emitter));
    }

    /// The peer, or null when it does not serve that request any more. On the peer's thread.
    Listener* peerFor(std::uint32_t generation, const EmitterBase* emitter) const noexcept
    {
        // Taken before it is checked: a peer that has gone changed the generation first.
        Listener* peer = m_peer.load(std::memory_order_acquire);
        return serves(generation, emitter) ? peer : nullptr;
    }

    bool isOf(std::uint32_t object) const noexcept
    {
        return m_object.load(std::memory_order_acquire) == object;
    }

    static Binding* allocate();
    static void free(Binding* binding) noexcept;

    /// Makes `peer`, on the calling thread, the one that serves, with `operations` for `table`; a
    /// former one serves no more. Returns the generation that this is.
    std::uint32_t beginService(Listener* peer, TableHead& table, const OperationsHead* operations);

    /// The operations of one more table, as long as the peer of that generation serves.
    void addOperations(std::uint32_t generation, TableHead& table,
                       const OperationsHead* operations);

    /// Ends the service of the peer of that generation, if it still lasts.
    void endService(std::uint32_t generation) noexcept;

    /// Where the emitter's listeners are kept; makes the place when there is none. Of a request it
    /// ends the direct calls, which would pass the listeners by.
    /// The first one of all is announced to the peer.
    TableSite* siteOf(const EmitterBase* emitter, bool isRequest);

    /// Cuts the peer of that generation from one request.
    void cut(std::uint32_t generation, const EmitterBase* emitter);

    void addTable(TableHead* table) noexcept { m_tables.store(table, std::memory_order_release); }
    void removeTable(TableHead* base) noexcept;

private:
    /// Tells the peer that it is heard from now on.
    void announceListeners();

    bool isCut(std::uint32_t generation, const EmitterBase* emitter) const noexcept;
};

} // namespace detail
} // namespace TROV
