#include "trov/connection.h"

#include "sitewriter.h"

namespace TROV {

Connection::~Connection() = default;

void Connection::deref()
{
    if (m_refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

void Connection::attach(detail::ConnectionSite& site)
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
    detail::CutConnections cut;
    VOXI::WriteLocker lock(GetGlobalConnectionLock());
    if (isConnected())
        cut.add(this);
}

} // namespace TROV
