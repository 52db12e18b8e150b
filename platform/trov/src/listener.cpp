#include "trov/listener.h"

#include "sitewriter.h"
#include "trov/connection.h"

namespace TROV {

Listener::~Listener() { Listener::disconnect(); }

void Listener::disconnect()
{
    // Most listeners have none when they end. Whoever cuts the last one looks at this no more.
    if (!m_first.load(std::memory_order_acquire))
        return;
    detail::CutConnections cut;
    VOXI::WriteLocker lock(GetGlobalConnectionLock());
    while (Connection* const connection = m_first)
        cut.add(connection);
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
