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

void RequestBinding::unbind() noexcept
{
    if (detail::Binding* const binding = std::exchange(m_binding, nullptr))
        binding->endService(m_generation);
}

} // namespace TROV
