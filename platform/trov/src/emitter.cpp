#include "trov/emitter.h"

#include "trov/request.h"
#include "trov/tableemitter.h"

#include <vector>

namespace TROV {

using detail::ConnectionSite;
using detail::TableEmitter;

namespace {

/// Of an emitter that does not stand alone.
const TableEmitter& asTableEmitter(const EmitterBase& emitter) noexcept
{
    return static_cast<const TableEmitter&>(emitter);
}

} // namespace

ConnectionSite* EmitterBase::site() const noexcept
{
    if (m_index == StandsAlone)
        return &static_cast<const LoneEmitter*>(this)->m_site;
    detail::TableSite* site = asTableEmitter(*this).listeners();
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
    const bool bound = m_index != StandsAlone && detail::Route(asTableEmitter(*this)).m_operation;
    const ConnectionSite* connections = site();
    return (bound ? 1 : 0) + (connections ? detail::numberOfConnections(*connections) : 0);
}

int EmitterBase::sendPacket(const Packet& packet, SendMode mode, bool wait) const
{
    struct QueuedCall
    {
        detail::Route m_route;
        Packet m_packet;
        void deliver()
        {
            if (Listener* const peer = m_route.peer())
                m_packet.payload()->call(*m_route.m_operation, peer);
        }
    };
    if (packet.isEmpty())
        return 0;
    int reached = 0;
    if (m_index != StandsAlone) {
        const detail::Route route(asTableEmitter(*this));
        if (route.m_operation && *route.m_operation->m_signature == packet.payload()->signature()) {
            ++reached;
            if (wait || (mode == SendDirect && !route.leadsElsewhere()))
                route.ask(
                    [&](Listener* peer) { packet.payload()->call(*route.m_operation, peer); });
            else
                route.m_thread->enqueue(QueuedCall{route, packet});
            if (!route.isIntact())
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
        const detail::Route route(asTableEmitter(*this));
        if (route.m_operation
            && route.m_binding->m_peer.load(std::memory_order_acquire) == listener)
            route.m_binding->cut(route.m_generation, this);
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

} // namespace TROV
