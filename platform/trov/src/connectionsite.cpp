#include "trov/connectionsite.h"

#include "sitewriter.h"
#include "trov/connection.h"
#include "trov/thread.h"

#include <algorithm>
#include <mutex>
#include <utility>
#include <vector>

namespace TROV {

VOXI::ReadWriteLock& GetGlobalConnectionLock()
{
    static auto* lock = new VOXI::ReadWriteLock;
    return *lock;
}

namespace detail {

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
        EmissionPins& pins = thread.pins();
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

void SiteWriter::add(ConnectionSite& site, Connection* connection)
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

void SiteWriter::remove(Connection* connection)
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

void SiteWriter::append(ConnectionBlock& block, Connection* connection)
{
    const std::uint32_t place = block.m_count.load(std::memory_order_relaxed);
    new (block.items() + place) std::atomic<Connection*>(connection);
    connection->ref();
    connection->m_place = place;
    ++block.m_connected;
    block.m_count.store(place + 1, std::memory_order_release);
}

ConnectionBlock* SiteWriter::copyOf(const ConnectionBlock* block, std::uint32_t capacity)
{
    ConnectionBlock* copy = makeBlock(capacity);
    const std::uint32_t count = block ? block->m_count.load(std::memory_order_relaxed) : 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (Connection* const connection = block->at(i); connection != noConnection())
            append(*copy, connection);
    }
    return copy;
}

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

} // namespace detail
} // namespace TROV
