#include "trov/thread.h"
#include "trov/waithooks.h"

#include <algorithm>

namespace TROV {

using detail::CallChunk;
using detail::CallRecord;
using detail::Waiter;

namespace {

constexpr std::size_t QuestionSize = (sizeof(CallRecord) + alignof(std::max_align_t) - 1)
                                     / alignof(std::max_align_t) * alignof(std::max_align_t);

// Requests that follow each other this closely are taken for one conversation: its next question
// is awaited for a moment before the thread goes back to its loop.
constexpr auto ConversationGap = std::chrono::microseconds(100);
constexpr auto LingerTime = std::chrono::microseconds(25);
constexpr int AnswerSpins = 400;

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

void relax() noexcept
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

} // namespace

// Accepting calls ---------------------------------------------------------------------------------

void Thread::open()
{
    std::lock_guard lock(m_queueLock);
    m_accepting.store(true, std::memory_order_release);
}

void Thread::close()
{
    {
        std::lock_guard lock(m_queueLock);
        m_accepting.store(false, std::memory_order_release);
    }
    absorb();
    CallChunk* chunk = nullptr;
    while (CallRecord* record = m_current.front(chunk)) {
        m_current.popFront(record);
        ++chunk->m_running;
        if (record->m_run) {
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
    CallChunk* chunk = nullptr;
    bool left = false;
    do {
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
    if (!conversation)
        return false;
    // No call runs in here, so nobody need rouse a loop that is about to look again by itself.
    bool wasPending = false;
    {
        std::lock_guard lock(m_queueLock);
        if (m_hasIncoming.load(std::memory_order_relaxed))
            return true;
        wasPending = std::exchange(m_wakePending, true);
    }
    for (unsigned spins = 1; !m_hasIncoming.load(std::memory_order_acquire); ++spins) {
        if (spins % 16 == 0 && Clock::now() - now > LingerTime)
            break;
        relax();
    }
    std::lock_guard lock(m_queueLock);
    m_wakePending = wasPending;
    return m_hasIncoming.load(std::memory_order_relaxed);
}

// Asking and waiting ------------------------------------------------------------------------------

bool Thread::ask(Waiter& waiter)
{
    Thread* const self = getCurrentThread();
    if (self == this) {
        waiter.m_execute(&waiter);
        return true;
    }
    waiter.m_waiting = self;
    bool wake = false;
    {
        std::lock_guard lock(m_queueLock);
        if (!m_accepting.load(std::memory_order_relaxed))
            return false;
        // Announced first, then looked whether it makes sense; who cuts does it the other way
        // round. So a cut is either seen here, or sees the waiter.
        m_requestsPending.fetch_add(1);
        if (!waiter.m_isWanted(&waiter)) {
            m_requestsPending.fetch_sub(1);
            return false;
        }
        auto* record = new (m_incoming.allocate(QuestionSize)) CallRecord;
        record->m_size = QuestionSize;
        record->m_sender = self;
        record->m_waiter.store(&waiter, std::memory_order_relaxed);
        waiter.m_record = record;
        waiter.m_next = m_waiters;
        if (m_waiters)
            m_waiters->m_previous = &waiter;
        m_waiters = &waiter;
        wake = noteArrival();
    }
    if (wake)
        wakeUp();
    else
        m_rouser.rouse(); // it may be waiting itself, for us even
    self->wait(waiter, *this);
    return true;
}

void Thread::wait(Waiter& waiter, Thread& asked)
{
    const auto isDone = [&] {
        return waiter.m_state.load(std::memory_order_acquire) == Waiter::Done;
    };
    WaitRelease released;
    for (int spins = 0; spins < AnswerSpins && asked.m_busy.load(std::memory_order_relaxed);
         ++spins) {
        if (isDone())
            return;
        if (m_requestsPending.load(std::memory_order_relaxed) > 0)
            break;
        relax();
    }
    for (;;) {
        const std::uint32_t seen = m_rouser.count();
        if (isDone())
            return;
        if (m_requestsPending.load(std::memory_order_acquire) > 0 && answerOneRequest())
            continue;
        m_rouser.sleep(seen);
    }
}

bool Thread::answerOneRequest()
{
    {
        // The loop is roused all the same for what is not asked but only sent: taking it over does
        // not run it.
        std::lock_guard lock(m_queueLock);
        m_current.append(m_incoming);
        m_hasIncoming.store(false, std::memory_order_relaxed);
    }
    for (CallChunk* chunk = m_current.firstChunk(); chunk; chunk = chunk->m_next) {
        for (std::size_t at = chunk->m_read; at < chunk->m_used;) {
            const CallRecord* record = chunk->recordAt(at);
            at += record->m_size;
            if (!record->m_run && !record->m_consumed
                && record->m_waiter.load(std::memory_order_acquire)) {
                runOutOfTurn(record->m_sender);
                return true;
            }
        }
    }
    return false;
}

void Thread::runOutOfTurn(const Thread* sender)
{
    // First what the asker sent before, so that it finds it done; at last the question.
    CallChunk* chunk = m_current.firstChunk();
    for (std::size_t at = chunk ? chunk->m_read : 0; chunk;) {
        if (at >= chunk->m_used) {
            chunk = chunk->m_next;
            at = chunk ? chunk->m_read : 0;
            continue;
        }
        CallRecord* record = chunk->recordAt(at);
        const std::size_t next = at + record->m_size;
        if (record->m_consumed || record->m_sender != sender) {
            at = next;
            continue;
        }
        record->m_consumed = true;
        const bool isQuestion = !record->m_run && record->m_waiter.load(std::memory_order_acquire);
        ++chunk->m_running;
        execute(record, chunk);
        // The call may have run the queue itself, and this chunk be behind it by now.
        CallChunk* const where = chunk;
        if (where->m_passed) {
            chunk = m_current.firstChunk();
            at = chunk ? chunk->m_read : 0;
        } else {
            at = std::max(next, where->m_read);
        }
        leave(where);
        if (isQuestion)
            return;
    }
}

void Thread::answer(CallRecord* record)
{
    Waiter* waiter = record->m_waiter.exchange(nullptr, std::memory_order_acq_rel);
    if (!waiter)
        return;
    endQuestion(waiter);
    try {
        waiter->m_execute(waiter);
    } catch (...) {
        waiter->m_error = std::current_exception();
    }
    complete(waiter);
    m_answered = true;
}

void Thread::complete(Waiter* waiter) noexcept
{
    // The waiter is gone as soon as its thread sees the state.
    Thread* waiting = waiter->m_waiting;
    waiter->m_state.store(Waiter::Done, std::memory_order_release);
    waiting->m_rouser.rouse();
}

void Thread::unlinkWaiter(Waiter* waiter) noexcept
{
    if (waiter->m_previous)
        waiter->m_previous->m_next = waiter->m_next;
    else
        m_waiters = waiter->m_next;
    if (waiter->m_next)
        waiter->m_next->m_previous = waiter->m_previous;
    m_requestsPending.fetch_sub(1, std::memory_order_relaxed);
}

void Thread::endQuestion(Waiter* waiter) noexcept
{
    std::lock_guard lock(m_queueLock);
    unlinkWaiter(waiter);
}

void Thread::releaseWaiters(const void* target)
{
    if (m_requestsPending.load() == 0)
        return;
    Waiter* released = nullptr;
    {
        std::lock_guard lock(m_queueLock);
        for (Waiter* waiter = m_waiters; waiter;) {
            Waiter* next = waiter->m_next;
            if ((waiter->m_target == target || waiter->m_part == target)
                && !waiter->m_isWanted(waiter) && waiter->m_record->m_waiter.exchange(nullptr)) {
                unlinkWaiter(waiter);
                waiter->m_next = released;
                released = waiter;
            }
            waiter = next;
        }
    }
    while (released)
        complete(std::exchange(released, released->m_next));
}

} // namespace TROV
