#include "processor.h"
#include "trov/thread.h"

#include <algorithm>
#include <thread>

namespace TROV {

using detail::CallChunk;
using detail::CallRecord;
using detail::relax;
using detail::Waiter;

namespace {

// Requests that follow each other this closely are taken for one conversation: its next question
// is awaited for a moment before the thread goes back to its loop.
constexpr auto ConversationGap = std::chrono::microseconds(100);
constexpr auto LingerTime = std::chrono::microseconds(25);

/// Tells when a turn's time is over, looking at the clock seldom while the calls are short.
class TurnClock
{
public:
    explicit TurnClock(std::chrono::nanoseconds budget)
        : m_isLimited(budget != std::chrono::nanoseconds::max()),
          m_budget(budget)
    {
        if (m_isLimited)
            m_start = m_last = Thread::Clock::now();
    }

    bool isOver()
    {
        if (!m_isLimited || --m_unseen > 0)
            return false;
        const auto now = Thread::Clock::now();
        m_step = now - m_last < m_budget / 64 ? std::min(2 * m_step, 32u) : 1;
        m_unseen = m_step;
        m_last = now;
        return now - m_start >= m_budget;
    }

private:
    const bool m_isLimited;
    const std::chrono::nanoseconds m_budget;
    Thread::Clock::time_point m_start;
    Thread::Clock::time_point m_last;
    unsigned m_step = 1;
    unsigned m_unseen = 1;
};

} // namespace

// Accepting calls ---------------------------------------------------------------------------------

void Thread::open()
{
    std::lock_guard lock(m_queueLock);
    m_accepting.store(true, std::memory_order_release);
    m_answers = true;
}

void Thread::close()
{
    {
        std::lock_guard lock(m_queueLock);
        m_accepting.store(false, std::memory_order_release);
        m_turns.store(false);
    }
    letSendersGo();
    absorb();
    CallChunk* chunk = nullptr;
    while (CallRecord* record = m_current.front(chunk)) {
        m_current.popFront(record);
        ++chunk->m_running;
        if (record->m_run) {
            noteRun();
            record->m_run(record, CallRecord::Discard);
        } else if (Waiter* waiter = record->m_waiter.exchange(nullptr)) {
            endQuestion(waiter);
            complete(waiter);
        }
        leave(chunk);
    }
}

void Thread::closeUnlessServed()
{
    if (m_execDepth == 0 && !m_isHosted)
        close();
}

// Running calls -----------------------------------------------------------------------------------

void Thread::absorb()
{
    std::lock_guard lock(m_queueLock);
    m_current.append(m_incoming);
    m_hasIncoming.store(false, std::memory_order_relaxed);
    m_wakePending = false;
}

bool Thread::process(std::chrono::nanoseconds budget)
{
    TurnClock clock(budget);
    const bool wasBusy = setBusy(true);
    if (m_answers && !m_turns.load(std::memory_order_relaxed))
        m_turns.store(true);
    CallChunk* chunk = nullptr;
    bool left = false;
    do {
        m_processor.store(detail::currentProcessor(), std::memory_order_relaxed);
        absorb();
        while (CallRecord* record = m_current.front(chunk)) {
            m_current.popFront(record);
            execute(record, chunk);
            if (clock.isOver()) {
                left = true;
                break;
            }
        }
    } while (!left && (m_hasIncoming.load(std::memory_order_acquire) || lingerForMore()));
    setBusy(wasBusy);
    return left && (hasCallsLeft() || m_hasIncoming.load(std::memory_order_acquire));
}

bool Thread::hasCallsLeft() noexcept
{
    CallChunk* chunk = nullptr;
    return m_current.front(chunk) != nullptr;
}

void Thread::execute(CallRecord* record, CallChunk* chunk)
{
    ++chunk->m_running;
    if (record->m_run) {
        noteRun();
        try {
            record->m_run(record, CallRecord::Deliver);
        } catch (...) {
            reportException(std::current_exception());
        }
    } else {
        answer(record);
    }
    leave(chunk);
}

void Thread::leave(CallChunk* chunk) noexcept
{
    if (--chunk->m_running == 0 && chunk->m_passed)
        m_current.recycle(chunk);
}

bool Thread::lingerForMore()
{
    if (!std::exchange(m_answered, false))
        return false;
    const auto now = Clock::now();
    const bool conversation = now - m_lastAnswer < ConversationGap;
    m_lastAnswer = now;
    if (!conversation || !m_questionSpins.suggestsSpinning())
        return false;
    // No call runs in here, so nobody need rouse a loop that is about to look again by itself.
    bool wasPending = false;
    {
        std::lock_guard lock(m_queueLock);
        if (m_hasIncoming.load(std::memory_order_relaxed))
            return true;
        wasPending = std::exchange(m_wakePending, true);
    }
    bool late = false;
    if (detail::runsBeside(m_askerProcessor)) {
        for (unsigned spins = 1; !late && !m_hasIncoming.load(std::memory_order_acquire); ++spins) {
            late = spins % 16 == 0 && Clock::now() - now > LingerTime;
            relax();
        }
    } else {
        // The asker needs this very processor; but it may be others who get it.
        std::this_thread::yield();
        late = Clock::now() - now > LingerTime;
    }
    std::lock_guard lock(m_queueLock);
    m_wakePending = wasPending;
    const bool hasMore = m_hasIncoming.load(std::memory_order_relaxed);
    m_questionSpins.note(late || !hasMore);
    return hasMore;
}

} // namespace TROV
