#include "trov/connection.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace TROV {

using detail::ConnectionBlock;
using detail::ConnectionSite;

namespace {

std::mutex s_retiredMutex;
ConnectionBlock* s_retired = nullptr; // guarded

ConnectionBlock* makeBlock(std::size_t count)
{
    void* memory = ::operator new(sizeof(ConnectionBlock) + count * sizeof(Connection*));
    auto* block = new (memory) ConnectionBlock;
    block->m_count = static_cast<std::uint32_t>(count);
    return block;
}

void freeBlock(ConnectionBlock* block)
{
    for (std::uint32_t i = 0; i < block->m_count; ++i)
        block->items()[i]->deref();
    block->~ConnectionBlock();
    ::operator delete(block);
}

/// Replaces the site's block. Emissions may still be in the old one, so it is set aside.
void publish(ConnectionSite& site, ConnectionBlock* block)
{
    ConnectionBlock* old = site.exchange(block);
    if (!old)
        return;
    old->m_retired.store(true, std::memory_order_relaxed);
    std::lock_guard lock(s_retiredMutex);
    old->m_nextRetired = s_retired;
    s_retired = old;
}

/// The site's block without the connections that are not alive; null when none is left.
ConnectionBlock* livingPart(const ConnectionBlock& block)
{
    std::uint32_t living = 0;
    for (std::uint32_t i = 0; i < block.m_count; ++i)
        living += block.items()[i]->isConnected();
    if (living == 0)
        return nullptr;
    ConnectionBlock* result = makeBlock(living);
    Connection** out = result->items();
    for (std::uint32_t i = 0; i < block.m_count; ++i) {
        if (block.items()[i]->isConnected()) {
            *out = block.items()[i];
            (*out++)->ref();
        }
    }
    return result;
}

std::vector<const void*> pinnedBlocks()
{
    std::vector<const void*> pinned;
    Thread::forEach([&](Thread& thread) {
        detail::EmissionPins& pins = thread.pins();
        const unsigned depth = pins.m_highWater.load();
        for (unsigned i = 0; i < depth; ++i) {
            if (const void* pin = pins.m_pins[i].load())
                pinned.push_back(pin);
        }
    });
    return pinned;
}

} // namespace

namespace detail {

void collectRetiredBlocks()
{
    ConnectionBlock* unused = nullptr;
    {
        std::lock_guard lock(s_retiredMutex);
        if (!s_retired)
            return;
        const std::vector<const void*> pinned = pinnedBlocks();
        for (ConnectionBlock** link = &s_retired; *link;) {
            ConnectionBlock* block = *link;
            if (block->m_pins.load() != 0
                || std::find(pinned.begin(), pinned.end(), block) != pinned.end()) {
                link = &block->m_nextRetired;
                continue;
            }
            *link = block->m_nextRetired;
            block->m_nextRetired = std::exchange(unused, block);
        }
    }
    // Frees closures, which may do anything.
    while (unused)
        freeBlock(std::exchange(unused, unused->m_nextRetired));
}

ConnectionBlock* Emission::pinSlowly(ConnectionSite& site)
{
    // Blocks are retired under the lock for writing, so this one stays until it is pinned.
    VOXI::ReadLocker lock(GetGlobalConnectionLock());
    ConnectionBlock* block = site.load();
    if (block)
        block->m_pins.fetch_add(1);
    return block;
}

int numberOfConnections(const ConnectionSite& site) noexcept
{
    if (!site.load(std::memory_order_relaxed))
        return 0;
    VOXI::ReadLocker lock(GetGlobalConnectionLock());
    const ConnectionBlock* block = site.load(std::memory_order_acquire);
    return block ? static_cast<int>(block->m_count) : 0;
}

void cutAllConnections(ConnectionSite& site)
{
    if (!site.load(std::memory_order_acquire))
        return;
    std::vector<ConnectionHandle> cut;
    {
        VOXI::WriteLocker lock(GetGlobalConnectionLock());
        const ConnectionBlock* block = site.load();
        if (!block)
            return;
        for (std::uint32_t i = 0; i < block->m_count; ++i) {
            Connection* connection = block->items()[i];
            cut.emplace_back(connection);
            connection->m_alive = false;
            connection->unlinkFromListener();
            connection->m_site = nullptr;
        }
        publish(site, nullptr);
    }
    for (const ConnectionHandle& connection : cut)
        connection.connection()->thread()->releaseWaiters(connection.connection());
    cut.clear();
    collectRetiredBlocks();
}

void sendPacketTo(ConnectionSite& site, const Packet& packet, SendMode mode, bool wait)
{
    struct QueuedPacket
    {
        ConnectionHandle m_connection;
        Packet m_packet;
        void deliver()
        {
            if (m_connection.isConnected())
                m_connection.connection()->deliver(*m_packet.payload());
        }
    };
    if (packet.isEmpty() || !site.load(std::memory_order_acquire))
        return;
    Thread* const self = Thread::getCurrentThread();
    const Emission emission(self, site);
    const ConnectionBlock* block = emission.block();
    for (std::uint32_t i = 0; block && i < block->m_count; ++i) {
        Connection* connection = block->items()[i];
        if (!connection->isConnected() || connection->signature() != packet.payload()->signature())
            continue;
        Thread* thread = connection->thread();
        if (thread == self && (mode == SendDirect || wait)) {
            connection->deliver(*packet.payload());
        } else if (wait) {
            thread->callAndWait<void>(
                connection, nullptr, [&] { return connection->isWanted(); },
                [&] {
                    if (connection->isConnected())
                        connection->deliver(*packet.payload());
                });
        } else {
            thread->enqueue(QueuedPacket{ConnectionHandle(connection), packet});
        }
    }
}

} // namespace detail

VOXI::ReadWriteLock& GetGlobalConnectionLock()
{
    static auto* lock = new VOXI::ReadWriteLock;
    return *lock;
}

// Connection --------------------------------------------------------------------------------------

Connection::~Connection() = default;

void Connection::deref()
{
    if (m_refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

void Connection::attach(ConnectionSite& site)
{
    {
        VOXI::WriteLocker lock(GetGlobalConnectionLock());
        const ConnectionBlock* old = site.load();
        const std::size_t count = old ? old->m_count : 0;
        ConnectionBlock* block = makeBlock(count + 1);
        for (std::size_t i = 0; i < count; ++i) {
            block->items()[i] = old->items()[i];
            block->items()[i]->ref();
        }
        block->items()[count] = this;
        ref();
        m_site = &site;
        if (m_listener) {
            m_next = m_listener->m_first;
            if (m_next)
                m_next->m_previous = this;
            m_listener->m_first.store(this, std::memory_order_release);
        }
        m_alive.store(true, std::memory_order_release);
        publish(site, block);
    }
    detail::collectRetiredBlocks();
}

void Connection::unlinkFromListener() noexcept
{
    if (!m_listener)
        return;
    if (m_previous)
        m_previous->m_next = m_next;
    else
        m_listener->m_first.store(m_next, std::memory_order_release);
    if (m_next)
        m_next->m_previous = m_previous;
    m_previous = m_next = nullptr;
    m_listener = nullptr;
}

void Connection::disconnect()
{
    ConnectionHandle keep(this);
    {
        VOXI::WriteLocker lock(GetGlobalConnectionLock());
        if (!m_alive.exchange(false))
            return;
        unlinkFromListener();
        if (ConnectionSite* site = std::exchange(m_site, nullptr))
            publish(*site, livingPart(*site->load()));
    }
    thread()->releaseWaiters(this);
    detail::collectRetiredBlocks();
}

// Listener ----------------------------------------------------------------------------------------

Listener::~Listener()
{
    Listener::disconnect();
}

void Listener::disconnect()
{
    // Most listeners have none when they end. Whoever cuts the last one looks at this no more.
    if (!m_first.load(std::memory_order_acquire))
        return;
    std::vector<ConnectionHandle> cut;
    {
        VOXI::WriteLocker lock(GetGlobalConnectionLock());
        for (Connection* connection = m_first; connection; connection = connection->m_next) {
            cut.emplace_back(connection);
            connection->m_alive = false;
        }
        for (const ConnectionHandle& handle : cut) {
            Connection* connection = handle.connection();
            connection->unlinkFromListener();
            // A site with several of them is rebuilt once, with the first.
            ConnectionSite* site = std::exchange(connection->m_site, nullptr);
            if (!site)
                continue;
            const ConnectionBlock* block = site->load();
            for (std::uint32_t i = 0; i < block->m_count; ++i) {
                if (!block->items()[i]->isConnected())
                    block->items()[i]->m_site = nullptr;
            }
            publish(*site, livingPart(*block));
        }
    }
    for (const ConnectionHandle& connection : cut)
        connection.connection()->thread()->releaseWaiters(connection.connection());
    if (cut.empty())
        return;
    cut.clear();
    detail::collectRetiredBlocks();
}

int Listener::numberOfConnections() const
{
    VOXI::ReadLocker lock(GetGlobalConnectionLock());
    int count = 0;
    for (const Connection* connection = m_first; connection; connection = connection->m_next)
        ++count;
    return count;
}

} // namespace TROV
