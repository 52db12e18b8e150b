#include "trov/emitterstable.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <vector>

namespace TROV {

using detail::Binding;
using detail::ConnectionSite;
using detail::TableSite;
using detail::TableSites;

namespace {

/// Seen as a byte in a table, whatever it carries.
struct AnyTableEmitter : detail::TableEmitter
{
    using TableEmitter::index;
    using TableEmitter::listeners;
};

const AnyTableEmitter& asTableEmitter(const EmitterBase& emitter) noexcept
{
    return static_cast<const AnyTableEmitter&>(static_cast<const detail::TableEmitter&>(emitter));
}

/// The bound operation behind the emitter; null for events and unserved requests.
const detail::Operation* boundOperation(const AnyTableEmitter& emitter) noexcept
{
    const auto* operations = emitter.head().m_operations.load(std::memory_order_acquire);
    if (!operations || emitter.index() >= operations->m_count
        || !emitter.head().m_binding->servingThread())
        return nullptr;
    const TableSite* site = emitter.listeners();
    if (site && site->m_boundCut.load(std::memory_order_acquire))
        return nullptr;
    return operations->rows() + emitter.index();
}

/// Guards which peer serves a binding, and the list of recycled bindings.
VOXI::SpinLock s_bindingLock;
Binding* s_freeBindings = nullptr; // linked through m_peer, which nobody reads of a free one

constexpr std::size_t BindingsPerSlab = 64;

/// Ends what the present peer serves and returns its thread, whose reference is the caller's now.
/// Binding lock held.
Thread* endService(Binding& binding) noexcept
{
    TableSites* sites = binding.m_sites.load(std::memory_order_acquire);
    Thread* thread = binding.servingThread();
    // Operations fit their own peer only. Whoever sees the new generation sees them gone, so that
    // they never meet the next peer.
    for (detail::TableHead* table = binding.m_tables.load(); table; table = table->m_base)
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

// EmitterBase -------------------------------------------------------------------------------------

ConnectionSite* EmitterBase::site() const noexcept
{
    if (m_index == StandsAlone)
        return &static_cast<const LoneEmitter*>(this)->m_site;
    TableSite* site = asTableEmitter(*this).listeners();
    return site ? &site->m_site : nullptr;
}

bool EmitterBase::isStandIn() const noexcept
{
    return m_index != StandsAlone && asTableEmitter(*this).head().m_binding->m_isStandIn;
}

ConnectionSite& EmitterBase::siteForListeners(bool isRequest) const
{
    if (m_index == StandsAlone)
        return static_cast<const LoneEmitter*>(this)->m_site;
    return asTableEmitter(*this).head().m_binding->siteOf(this, isRequest)->m_site;
}

int EmitterBase::numberOfConnections() const noexcept
{
    const bool bound = m_index != StandsAlone && boundOperation(asTableEmitter(*this));
    const ConnectionSite* connections = site();
    return (bound ? 1 : 0) + (connections ? detail::numberOfConnections(*connections) : 0);
}

int EmitterBase::sendPacket(const Packet& packet, SendMode mode, bool wait) const
{
    struct QueuedCall
    {
        Binding* m_binding;
        const EmitterBase* m_emitter;
        const detail::Operation* m_operation;
        Packet m_packet;
        std::uint32_t m_generation;
        void deliver()
        {
            if (Listener* peer = m_binding->peerFor(m_generation, m_emitter))
                m_packet.payload()->call(*m_operation, peer);
        }
    };
    if (packet.isEmpty())
        return 0;
    int reached = 0;
    if (m_index != StandsAlone) {
        const AnyTableEmitter& emitter = asTableEmitter(*this);
        Binding* binding = emitter.head().m_binding;
        const std::uint32_t object = binding->m_object.load(std::memory_order_acquire);
        const std::uint32_t generation = binding->m_generation.load(std::memory_order_acquire);
        const detail::Operation* operation = boundOperation(emitter);
        Thread* thread = binding->servingThread();
        if (operation && thread && *operation->m_signature == packet.payload()->signature()) {
            ++reached;
            QueuedCall call{binding, this, operation, packet, generation};
            if (wait || (mode == SendDirect && thread == Thread::getCurrentThread()))
                thread->callAndWait<void>(
                    binding, this, [&] { return binding->serves(generation, this); },
                    [&] { call.deliver(); });
            else
                thread->enqueue(std::move(call));
            // The operation may have ended the object, and its emitters with it.
            if (!binding->isOf(object))
                return reached;
        }
    }
    if (ConnectionSite* connections = site())
        reached += detail::sendPacketTo(*connections, packet, mode, wait);
    return reached;
}

void EmitterBase::disconnect(Listener* listener) const
{
    if (!listener)
        return;
    if (m_index != StandsAlone) {
        const AnyTableEmitter& emitter = asTableEmitter(*this);
        Binding* binding = emitter.head().m_binding;
        const std::uint32_t generation = binding->m_generation.load(std::memory_order_acquire);
        if (boundOperation(emitter) && binding->m_peer.load(std::memory_order_acquire) == listener)
            binding->cut(generation, this);
    }
    ConnectionSite* connections = site();
    if (!connections)
        return;
    std::vector<ConnectionHandle> found;
    {
        VOXI::ReadLocker lock(GetGlobalConnectionLock());
        const detail::ConnectionBlock* block = connections->load();
        for (std::uint32_t i = 0; block && i < block->m_count; ++i) {
            if (block->at(i)->belongsTo(listener))
                found.emplace_back(block->at(i));
        }
    }
    for (ConnectionHandle& handle : found)
        handle.disconnect();
}

// Binding -----------------------------------------------------------------------------------------

namespace detail {

Thread* Binding::servingThread() const noexcept
{
    Thread* thread = m_thread.load(std::memory_order_acquire);
    if (thread != nobody())
        return thread;
    const TableSites* sites = m_sites.load(std::memory_order_acquire);
    return sites ? sites->m_thread.load(std::memory_order_acquire) : nullptr;
}

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
        thread = endService(*binding);
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

void reportMisplacedRow(const std::type_info& emitters, std::size_t row)
{
    std::fprintf(stderr, "Operations of %s: row %zu is not the request that stands there\n",
                 emitters.name(), row);
    std::abort();
}

} // namespace detail

// RequestBinding ----------------------------------------------------------------------------------

void RequestBinding::bindTable(detail::TableHead& table, Listener* peer,
                               const detail::OperationsHead* operations)
{
    Binding& binding = *table.m_binding;
    if (m_binding && (m_binding != &binding || !binding.serves(m_generation)))
        unbind();
    Thread* const thread = Thread::getCurrentThread();
    Thread* formerThread = nullptr;
    {
        std::lock_guard lock(s_bindingLock);
        if (!m_binding) {
            formerThread = endService(binding);
            thread->ref();
            binding.m_peer.store(peer, std::memory_order_release);
            binding.m_thread.store(thread, std::memory_order_release);
            const TableSites* sites = binding.m_sites.load(std::memory_order_acquire);
            if (sites && sites->m_onRequests)
                stopDirectCalls(binding);
            m_binding = &binding;
            m_generation = binding.m_generation.load(std::memory_order_acquire);
        }
        // Another peer may have taken over since the look above.
        if (binding.serves(m_generation))
            table.m_operations.store(operations, std::memory_order_release);
    }
    endWaiting(formerThread, &binding);
}

void RequestBinding::unbind() noexcept
{
    Binding* binding = std::exchange(m_binding, nullptr);
    if (!binding)
        return;
    Thread* thread = nullptr;
    {
        std::lock_guard lock(s_bindingLock);
        // The object may be gone, and its binding serve another one by now.
        if (!binding->serves(m_generation))
            return;
        thread = endService(*binding);
    }
    endWaiting(thread, binding);
}

} // namespace TROV
