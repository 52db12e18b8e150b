#include "trov/connectionsite.h"

#include "sitewriter.h"
#include "trov/connection.h"
#include "trov/thread.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace TROV {

VOXI::ReadWriteLock& GetGlobalConnectionLock()
{
    static auto* lock = new VOXI::ReadWriteLock;
    return *lock;
}

namespace detail {

namespace {

std::mutex s_retiredMutex;
std::atomic<ConnectionBlock*> s_retired{nullptr}; // changed under the mutex

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

/// Whether an emission is in the block.
bool isPinned(const ConnectionBlock& block)
{
    return block.m_pins.load() != 0 || Thread::isPinned(&block);
}

/// Sets aside a block that was replaced while an emission was in it.
void retire(ConnectionBlock* block)
{
    block->m_retired.store(true, std::memory_order_relaxed);
    std::lock_guard lock(s_retiredMutex);
    block->m_nextRetired = s_retired.load(std::memory_order_relaxed);
    s_retired.store(block, std::memory_order_relaxed);
}

/// Ends a block that was replaced. Somebody else holds the connections in it, too.
void putAway(ConnectionBlock* block)
{
    if (isPinned(*block))
        retire(block);
    else
        freeBlock(block);
}

} // namespace

void SiteWriter::add(ConnectionSite& site, Connection* connection)
{
    ConnectionBlock* const block = site.load();
    if (!block || block->m_count.load(std::memory_order_relaxed) == block->m_capacity) {
        ConnectionBlock* const larger = copyOf(block, block ? 2 * block->m_connected : 1);
        append(*larger, connection);
        site.store(larger);
        if (block)
            putAway(block);
    } else {
        append(*block, connection);
    }
    connection->m_site = &site;
}

void SiteWriter::remove(Connection* connection)
{
    ConnectionSite* const site = std::exchange(connection->m_site, nullptr);
    if (!site) {
        connection->ref();
        return;
    }
    ConnectionBlock* const block = site->load();
    std::atomic<Connection*>& place = block->items()[connection->m_place];
    // In one order with the pins: whoever pins the block from now on finds the place empty.
    place.store(noConnection());
    const std::uint32_t left = --block->m_connected;
    const auto replace = [&] { site->store(left > 0 ? copyOf(block, left) : nullptr); };
    const bool isSparse = left == 0 || left < block->m_count.load(std::memory_order_relaxed) / 2;
    if (isSparse)
        replace();
    if (!isPinned(*block)) {
        if (isSparse)
            freeBlock(block);
        return;
    }
    // An emission may be about to look at the connection: both stay as long as it is in the block.
    if (!isSparse)
        replace();
    connection->ref();
    place.store(connection);
    retire(block);
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

CutConnections::~CutConnections()
{
    if (!m_first)
        return;
    for (Connection* connection = m_first; connection; connection = connection->m_next)
        connection->thread()->releaseWaiters(connection);
    // Frees closures, which may do anything.
    while (m_first)
        std::exchange(m_first, m_first->m_next)->deref();
    collectRetired();
}

void CutConnections::add(Connection* connection)
{
    connection->m_alive = false;
    connection->unlinkFromListener();
    SiteWriter::remove(connection);
    *m_end = connection;
    m_end = &connection->m_next;
}

void collectRetired()
{
    if (!s_retired.load(std::memory_order_relaxed))
        return;
    ConnectionBlock* unused = nullptr;
    {
        std::lock_guard lock(s_retiredMutex);
        ConnectionBlock* used = nullptr;
        for (ConnectionBlock* block = s_retired.load(std::memory_order_relaxed); block;) {
            ConnectionBlock*& list = isPinned(*block) ? used : unused;
            ConnectionBlock* const next = std::exchange(block->m_nextRetired, list);
            list = std::exchange(block, next);
        }
        s_retired.store(used, std::memory_order_relaxed);
    }
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
    CutConnections cut;
    VOXI::WriteLocker lock(GetGlobalConnectionLock());
    ConnectionBlock* const block = site.exchange(nullptr);
    if (!block)
        return;
    for (std::uint32_t i = 0; i < block->m_count; ++i) {
        Connection* const connection = block->at(i);
        if (!connection->isConnected())
            continue;
        connection->m_site = nullptr;
        if (!connection->m_outlivesEmitter)
            cut.add(connection);
    }
    putAway(block);
}

} // namespace detail
} // namespace TROV
