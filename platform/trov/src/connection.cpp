#include "trov/connection.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace TROV {

using detail::ConnectionBlock;
using detail::ConnectionSite;

namespace {

std::mutex s_retiredMutex;
ConnectionBlock* s_retired = nullptr;       // guarded
Connection* s_retiredConnections = nullptr; // guarded; linked by their places in listeners' lists

/// Stands where a connection was cut.
class NoConnection final : public Connection
{
public:
    NoConnection() : Connection(nullptr, nullptr, typeid(void)) {}
    void deliver(Payload&) override {}
};

Connection* noConnection()
{
    static auto* const instance = new NoConnection;
    return instance;
}

ConnectionBlock* makeBlock(std::uint32_t capacity)
{
    void* memory =
        ::operator new(sizeof(ConnectionBlock) + capacity * sizeof(std::atomic<Connection*>));
    auto* block = new (memory) ConnectionBlock;
    block->m_capacity = capacity;
    return block;
}

void freeBlock(ConnectionBlock* block)
{
    const std::uint32_t count = block->m_count.load(std::memory_order_relaxed);
    for (std::uint32_t i = 0; i < count; ++i) {
        if (Connection* const connection = block->at(i); connection != noConnection())
            connection->deref();
    }
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

/// Tells which blocks an emission is in at this moment.
class PinnedBlocks
{
public:
    bool contain(const ConnectionBlock* block) const
    {
        return block->m_pins.load() != 0
               || std::find(m_pinned.begin(), m_pinned.end(), block) != m_pinned.end();
    }

private:
    const std::vector<const void*> m_pinned = pinnedBlocks();
};

} // namespace

/// Changes the connections of a site, under the global connection lock. In sum adding and removing
/// take the same time however many there are.
struct detail::SiteWriter
{
    static void add(ConnectionSite& site, Connection* connection)
    {
        ConnectionBlock* block = site.load();
        if (!block || block->m_count.load(std::memory_order_relaxed) == block->m_capacity) {
            block = copyOf(block, block ? 2 * block->m_connected : 1);
            append(*block, connection);
            publish(site, block);
        } else {
            append(*block, connection);
        }
        connection->m_site = &site;
    }

    /// Its reference is set aside until no emission can come upon it.
    static void remove(Connection* connection)
    {
        ConnectionSite* const site = std::exchange(connection->m_site, nullptr);
        if (!site)
            return;
        ConnectionBlock* const block = site->load();
        // In one order with the pins: whoever pins the block from now on finds it empty.
        block->items()[connection->m_place].store(noConnection());
        --block->m_connected;
        {
            std::lock_guard lock(s_retiredMutex);
            connection->m_retiredFrom = block;
            connection->m_next = std::exchange(s_retiredConnections, connection);
        }
        // The emissions that end in a replaced block look for what they have kept.
        if (block->m_connected == 0)
            publish(*site, nullptr);
        else if (block->m_connected < block->m_count.load(std::memory_order_relaxed) / 2
                 || PinnedBlocks().contain(block))
            publish(*site, copyOf(block, block->m_connected));
    }

private:
    static void append(ConnectionBlock& block, Connection* connection)
    {
        const std::uint32_t place = block.m_count.load(std::memory_order_relaxed);
        new (block.items() + place) std::atomic<Connection*>(connection);
        connection->ref();
        connection->m_place = place;
        ++block.m_connected;
        block.m_count.store(place + 1, std::memory_order_release);
    }

    static ConnectionBlock* copyOf(const ConnectionBlock* block, std::uint32_t capacity)
    {
        ConnectionBlock* copy = makeBlock(capacity);
        const std::uint32_t count = block ? block->m_count.load(std::memory_order_relaxed) : 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            if (Connection* const connection = block->at(i); connection != noConnection())
                append(*copy, connection);
        }
        return copy;
    }
};

namespace {

/// Moves what the predicate is true for from one list to another.
template <class Item, class Predicate>
void takeIf(Item*& from, Item*& to, Item* Item::*next, Predicate predicate)
{
    for (Item** link = &from; *link;) {
        Item* const item = *link;
        if (predicate(item)) {
            *link = item->*next;
            item->*next = std::exchange(to, item);
        } else {
            link = &(item->*next);
        }
    }
}

} // namespace

namespace detail {

void collectRetired()
{
    ConnectionBlock* unused = nullptr;
    Connection* unusedConnections = nullptr;
    {
        std::lock_guard lock(s_retiredMutex);
        if (!s_retired && !s_retiredConnections)
            return;
        const PinnedBlocks pinned;
        // The blocks first: what was taken out of one of them goes now, too, for nobody can come
        // to be in it any more.
        takeIf(s_retired, unused, &ConnectionBlock::m_nextRetired,
               [&](ConnectionBlock* block) { return !pinned.contain(block); });
        takeIf(s_retiredConnections, unusedConnections, &Connection::m_next,
               [&](Connection* connection) { return !pinned.contain(connection->m_retiredFrom); });
    }
    // Frees closures, which may do anything.
    while (unusedConnections)
        std::exchange(unusedConnections, unusedConnections->m_next)->deref();
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
    return block ? static_cast<int>(block->m_connected) : 0;
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
            Connection* connection = block->at(i);
            if (!connection->isConnected())
                continue;
            connection->m_site = nullptr;
            if (connection->m_outlivesEmitter)
                continue;
            cut.emplace_back(connection);
            connection->m_alive = false;
            connection->unlinkFromListener();
        }
        publish(site, nullptr);
    }
    for (const ConnectionHandle& connection : cut)
        connection.connection()->thread()->releaseWaiters(connection.connection());
    cut.clear();
    collectRetired();
}

int sendPacketTo(ConnectionSite& site, const Packet& packet, SendMode mode, bool wait)
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
        return 0;
    int reached = 0;
    Thread* const self = Thread::getCurrentThread();
    const Emission emission(self, site);
    const ConnectionBlock* block = emission.block();
    const std::uint32_t count = block ? block->m_count.load(std::memory_order_acquire) : 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        Connection* connection = block->at(i);
        if (!connection->isConnected() || connection->signature() != packet.payload()->signature())
            continue;
        ++reached;
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
    return reached;
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
        if (m_listener) {
            m_next = m_listener->m_first;
            if (m_next)
                m_next->m_previous = this;
            m_listener->m_first.store(this, std::memory_order_release);
        }
        m_alive.store(true, std::memory_order_release);
        detail::SiteWriter::add(site, this);
    }
    detail::collectRetired();
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

bool Connection::outliveEmitter()
{
    VOXI::WriteLocker lock(GetGlobalConnectionLock());
    m_outlivesEmitter = true;
    return isConnected();
}

void Connection::disconnect()
{
    ConnectionHandle keep(this);
    {
        VOXI::WriteLocker lock(GetGlobalConnectionLock());
        if (!m_alive.exchange(false))
            return;
        unlinkFromListener();
        detail::SiteWriter::remove(this);
    }
    thread()->releaseWaiters(this);
    detail::collectRetired();
}

// Listener ----------------------------------------------------------------------------------------

Listener::~Listener() { Listener::disconnect(); }

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
            handle.connection()->unlinkFromListener();
            detail::SiteWriter::remove(handle.connection());
        }
    }
    for (const ConnectionHandle& connection : cut)
        connection.connection()->thread()->releaseWaiters(connection.connection());
    if (cut.empty())
        return;
    cut.clear();
    detail::collectRetired();
}

void Listener::forEachListenerType(const std::function<void(const std::type_info&)>& function) const
{
    VOXI::ReadLocker lock(GetGlobalConnectionLock());
    for (const Connection* connection = m_first; connection; connection = connection->m_next)
        function(*connection->m_listenerType);
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
