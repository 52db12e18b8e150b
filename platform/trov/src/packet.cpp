#include "trov/packet.h"

namespace TROV {

Payload::~Payload() = default;

Packet::~Packet()
{
    if (m_payload && m_payload->m_refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete m_payload;
}

} // namespace TROV
