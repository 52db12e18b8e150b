#include "trov/emission.h"

namespace TROV::detail {

ConnectionBlock* Emission::pinSlowly(ConnectionSite& site)
{
    // Blocks are retired under the lock for writing, so this one stays until it is pinned.
    VOXI::ReadLocker lock(GetGlobalConnectionLock());
    ConnectionBlock* block = site.load();
    if (block)
        block->m_pins.fetch_add(1);
    return block;
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
    const Emission emission(site);
    emission.forEach([&](Connection* connection) {
        if (connection->signature() != packet.payload()->signature())
            return;
        ++reached;
        Thread* const thread = connection->thread();
        if (thread == emission.thread() && (mode == SendDirect || wait)) {
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
    });
    return reached;
}

} // namespace TROV::detail
