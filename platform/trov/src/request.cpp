#include "trov/request.h"

namespace TROV::detail {

Route::Route(const TableEmitter& request) noexcept
    : m_request(&request),
      m_binding(request.head().m_binding),
      m_object(m_binding->m_object.load(std::memory_order_acquire)),
      // Before the operations: whoever knows the old one never meets the next peer's.
      m_generation(m_binding->m_generation.load(std::memory_order_acquire)),
      m_others(request.listeners())
{
    const OperationsHead* operations = request.head().m_operations.load(std::memory_order_acquire);
    m_thread = m_binding->servingThread();
    const bool isServed = operations && request.place() < operations->m_count && m_thread
                          && !(m_others && m_others->m_boundCut.load());
    m_operation = isServed ? operations->rows() + request.place() : nullptr;
}

void Route::ask(FunctionRef<void(Listener*)> serve) const
{
    m_thread->callAndWait<void>(
        m_binding, m_request, [this] { return m_binding->serves(m_generation, m_request); },
        [&] {
            if (Listener* const peer = this->peer())
                serve(peer);
        });
}

} // namespace TROV::detail
