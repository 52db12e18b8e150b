#include "trov/listener.h"

#include "sitewriter.h"
#include "trov/connection.h"

#include <vector>

namespace TROV {

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
