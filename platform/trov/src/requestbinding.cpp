#include "trov/requestbinding.h"

#include <utility>

namespace TROV {

void RequestBinding::bindTable(detail::TableHead& table, Listener* peer,
                               const detail::OperationsHead* operations)
{
    detail::Binding* const binding = table.m_binding;
    if (m_binding && (m_binding != binding || !binding->serves(m_generation)))
        unbind();
    if (std::exchange(m_binding, binding))
        binding->addOperations(m_generation, table, operations);
    else
        m_generation = binding->beginService(peer, table, operations);
}

const detail::TableHead* RequestBinding::tableAt(int level) const noexcept
{
    if (!m_binding)
        return nullptr;
    const detail::TableHead* table = m_binding->m_tables.load(std::memory_order_acquire);
    int at = -1;
    for (const detail::TableHead* each = table; each; each = each->m_base)
        ++at;
    for (; at > level; --at)
        table = table->m_base;
    return table;
}

void RequestBinding::unbind() noexcept
{
    if (detail::Binding* const binding = std::exchange(m_binding, nullptr))
        binding->endService(m_generation);
}

} // namespace TROV
