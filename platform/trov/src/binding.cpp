#include "trov/binding.h"

#include "trov/listener.h"
#include "trov/tableemitter.h"
#include "trov/thread.h"
#include "voxi_util/spinlock.h"

#include <mutex>
#include <utility>

namespace TROV::detail {

namespace {

/// Guards which peer serves a binding, and the list of recycled bindings.
VOXI::SpinLock s_bindingLock;
Binding* s_freeBindings = nullptr; // linked through m_peer, which nobody reads of a free one

constexpr std::size_t BindingsPerSlab = 64;

/// Ends what the present peer serves and returns its thread, whose reference is the caller's now.
/// Binding lock held.
Thread* endPresentService(Binding& binding) noexcept
{
    TableSites* sites = binding.m_sites.load(std::memory_order_acquire);
    Thread* thread = binding.servingThread();
    // Operations fit their own peer only. Whoever sees the new generation sees them gone, so that
    // they never meet the next peer.
    for (TableHead* table = binding.m_tables.load(); table; table = table->m_base)
        table->m_operations.store(nullptr, std::memory_order_release);
    binding.m_generation.fetch_add(1);
    binding.m_thread.store(Binding::nobody(), std::memory_order_release);
    if (sites) {
        sites->m_thread.store(nullptr, std::memory_order_release);
        for (TableSite* site = sites->m_first.load(); site; site = site->m_next)
            site->m_boundCut = false;
    }
    binding.m_hasCuts = false;
    binding.m_peer.store(nullptr, std::memory_order_release);
    return thread;
}

/// Binding lock held.
void recycle(Binding& binding) noexcept
{
    binding.m_peer.store(reinterpret_cast<Listener*>(s_freeBindings));
    s_freeBindings = &binding;
}

/// Releases who waits for the peer that was served on `thread`; null does nothing.
void endWaiting(Thread* thread, const Binding* binding) noexcept
{
    if (!thread)
        return;
    thread->releaseWaiters(binding);
    thread->deref();
}

/// From now on requests take the way past the listeners. Binding lock held.
void stopDirectCalls(Binding& binding) noexcept
{
    TableSites* sites = binding.m_sites.load(std::memory_order_acquire);
    sites->m_onRequests = true;
    Thread* thread = binding.m_thread.load(std::memory_order_acquire);
    if (thread == Binding::nobody())
        return;
    sites->m_thread.store(thread, std::memory_order_release);
    binding.m_thread.store(Binding::nobody(), std::memory_order_release);
}

} // namespace

Binding* Binding::allocate()
{
    std::lock_guard lock(s_bindingLock);
    if (!s_freeBindings) {
        auto* slab = new Binding[BindingsPerSlab];
        for (std::size_t i = BindingsPerSlab; i-- > 0;)
            recycle(slab[i]);
    }
    Binding* binding = s_freeBindings;
    s_freeBindings = reinterpret_cast<Binding*>(binding->m_peer.load(std::memory_order_relaxed));
    binding->m_peer.store(nullptr, std::memory_order_relaxed);
    return binding;
}

void Binding::free(Binding* binding) noexcept
{
    Thread* thread = nullptr;
    TableSites* sites = nullptr;
    {
        std::lock_guard lock(s_bindingLock);
        thread = endPresentService(*binding);
        binding->m_tables = nullptr;
        binding->m_isStandIn = false;
        sites = binding->m_sites.exchange(nullptr);
        binding->m_object.fetch_add(1, std::memory_order_acq_rel);
        if (!thread && !sites) {
            recycle(*binding);
            return;
        }
    }
    endWaiting(thread, binding);
    if (sites) {
        for (TableSite* site = sites->m_first.load(); site;) {
            cutAllConnections(site->m_site);
            delete std::exchange(site, site->m_next);
        }
        delete sites;
    }
    std::lock_guard lock(s_bindingLock);
    recycle(*binding);
}

void Binding::removeTable(TableHead* base) noexcept
{
    // The peer's thread may be about to unbind, and walk through the tables; afterwards there is
    // no peer.
    std::unique_lock lock(s_bindingLock, std::defer_lock);
    if (m_peer.load(std::memory_order_acquire))
        lock.lock();
    m_tables.store(base, std::memory_order_release);
}

std::uint32_t Binding::beginService(Listener* peer, TableHead& table,
                                    const OperationsHead* operations)
{
    Thread* const thread = Thread::getCurrentThread();
    Thread* formerThread = nullptr;
    std::uint32_t generation = 0;
    {
        std::lock_guard lock(s_bindingLock);
        formerThread = endPresentService(*this);
        thread->ref();
        m_peer.store(peer, std::memory_order_release);
        m_thread.store(thread, std::memory_order_release);
        const TableSites* sites = m_sites.load(std::memory_order_acquire);
        if (sites && sites->m_onRequests)
            stopDirectCalls(*this);
        table.m_operations.store(operations, std::memory_order_release);
        generation = m_generation.load(std::memory_order_acquire);
    }
    endWaiting(formerThread, this);
    return generation;
}

void Binding::addOperations(std::uint32_t generation, TableHead& table,
                            const OperationsHead* operations)
{
    std::lock_guard lock(s_bindingLock);
    if (serves(generation))
        table.m_operations.store(operations, std::memory_order_release);
}

void Binding::endService(std::uint32_t generation) noexcept
{
    Thread* thread = nullptr;
    {
        std::lock_guard lock(s_bindingLock);
        // The object may be gone, and its binding serve another one by now.
        if (!serves(generation))
            return;
        thread = endPresentService(*this);
    }
    endWaiting(thread, this);
}

TableSite* Binding::siteOf(const EmitterBase* emitter, bool isRequest)
{
    TableSite* site = nullptr;
    bool isFirst = false;
    {
        std::lock_guard lock(s_bindingLock);
        TableSites* sites = m_sites.load(std::memory_order_acquire);
        isFirst = !sites;
        if (isFirst) {
            sites = new TableSites;
            m_sites.store(sites, std::memory_order_release);
        }
        site = sites->find(emitter);
        if (!site) {
            site = new TableSite;
            site->m_emitter = emitter;
            site->m_next = sites->m_first.load(std::memory_order_relaxed);
            sites->m_first.store(site, std::memory_order_release);
        }
        if (isRequest)
            stopDirectCalls(*this);
    }
    if (isFirst)
        announceListeners();
    return site;
}

void Binding::announceListeners()
{
    struct Announcement
    {
        Binding* m_binding;
        std::uint32_t m_generation;
        void deliver()
        {
            Listener* peer = m_binding->m_peer.load(std::memory_order_acquire);
            if (m_binding->serves(m_generation))
                peer->becomeHeard();
        }
    };
    Announcement announcement{this, 0};
    ThreadRef thread;
    {
        std::lock_guard lock(s_bindingLock);
        thread = ThreadRef(servingThread());
        announcement.m_generation = m_generation.load(std::memory_order_acquire);
    }
    if (!thread)
        return;
    if (thread.get() == Thread::getCurrentThread())
        announcement.deliver();
    else
        thread->enqueue(announcement);
}

void Binding::cut(std::uint32_t generation, const EmitterBase* emitter)
{
    TableSite* site = siteOf(emitter, true);
    ThreadRef thread;
    {
        std::lock_guard lock(s_bindingLock);
        if (!serves(generation))
            return;
        site->m_boundCut = true;
        m_hasCuts = true;
        thread = ThreadRef(servingThread());
    }
    if (thread)
        thread->releaseWaiters(emitter);
}

bool Binding::isCut(std::uint32_t generation, const EmitterBase* emitter) const noexcept
{
    // The object may be going at this moment; as long as it serves, its sites are there.
    std::lock_guard lock(s_bindingLock);
    if (!serves(generation))
        return true;
    const TableSites* sites = m_sites.load(std::memory_order_acquire);
    const TableSite* site = sites ? sites->find(emitter) : nullptr;
    return site && site->m_boundCut.load();
}

} // namespace TROV::detail
