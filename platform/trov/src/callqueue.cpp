#include "trov/callqueue.h"

namespace TROV::detail {

namespace {

void freeChunk(CallChunk* chunk) noexcept
{
    chunk->~CallChunk();
    ::operator delete (chunk, std::align_val_t{alignof(CallChunk)});
}

} // namespace

CallList::~CallList()
{
    while (m_first)
        freeChunk(std::exchange(m_first, m_first->m_next));
    while (m_spares)
        freeChunk(std::exchange(m_spares, m_spares->m_next));
}

void CallList::addChunk()
{
    CallChunk* chunk = nullptr;
    if (m_spares) {
        chunk = std::exchange(m_spares, m_spares->m_next);
        chunk->m_next = nullptr;
        --m_spareCount;
    } else {
        chunk = new (::operator new (sizeof(CallChunk) + CallChunk::Bytes,
                                     std::align_val_t{alignof(CallChunk)})) CallChunk;
    }
    if (m_last)
        m_last->m_next = chunk;
    else
        m_first = chunk;
    m_last = chunk;
}

void CallList::append(CallList& other) noexcept
{
    if (other.m_first) {
        if (m_last)
            m_last->m_next = other.m_first;
        else
            m_first = other.m_first;
        m_last = other.m_last;
        other.m_first = other.m_last = nullptr;
    }
    // The filling end needs the chunks that the emptying end no longer does.
    if (!other.m_spares) {
        std::swap(m_spares, other.m_spares);
        std::swap(m_spareCount, other.m_spareCount);
    }
}

CallRecord* CallList::front(CallChunk*& chunk) noexcept
{
    while (m_first) {
        if (m_first->m_read == m_first->m_used) {
            retireFirst();
            continue;
        }
        CallRecord* record = m_first->recordAt(m_first->m_read);
        if (!record->m_consumed) {
            chunk = m_first;
            return record;
        }
        m_first->m_read += record->m_size;
    }
    return nullptr;
}

void CallList::retireFirst() noexcept
{
    CallChunk* chunk = m_first;
    m_first = chunk->m_next;
    if (!m_first)
        m_last = nullptr;
    chunk->m_passed = true;
    if (chunk->m_running == 0)
        recycle(chunk);
}

void CallList::recycle(CallChunk* chunk) noexcept
{
    if (m_spareCount == MostSpares) {
        freeChunk(chunk);
        return;
    }
    chunk->~CallChunk();
    auto* spare = new (chunk) CallChunk;
    spare->m_next = std::exchange(m_spares, spare);
    ++m_spareCount;
}

} // namespace TROV::detail
