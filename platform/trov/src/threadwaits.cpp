#include "processor.h"
#include "trov/thread.h"
#include "trov/waithooks.h"

#include <algorithm>

namespace TROV {

using detail::CallChunk;
using detail::CallRecord;
using detail::relax;
using detail::runsBeside;
using detail::Waiter;

namespace {

constexpr std::size_t QuestionSize = (sizeof(CallRecord) + alignof(std::max_align_t) - 1)
                                     / alignof(std::max_align_t) * alignof(std::max_align_t);

constexpr int AnswerSpins = 400;

} // namespace

// Asking and waiting ------------------------------------------------------------------------------

/// While a thread waits for another one nobody can wait for room in its queue, which nobody
/// empties: each circle of such waits has a member who waits and is let go.
class Thread::WaitScope
{
public:
    explicit WaitScope(Thread& thread) : m_thread(thread)
    {
        m_thread.m_waits.fetch_add(1);
        if (m_thread.m_hasCrowd.load())
            m_thread.letSendersGo();
    }
    ~WaitScope() { m_thread.m_waits.fetch_sub(1); }
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    Thread& m_thread;
    WaitRelease m_released;
};

/// A thread whose loop has ended answers while it waits. To be opened before anybody can know that
/// it will wait: whom it asks may ask back at once.
class Thread::AnswerScope
{
public:
    explicit AnswerScope(Thread& thread) : m_thread(thread), m_wasSuspended(!thread.m_answers)
    {
        if (m_wasSuspended)
            m_thread.resumeAnswers();
    }
    ~AnswerScope()
    {
        if (m_wasSuspended)
            m_thread.suspendAnswers();
    }
    AnswerScope(const AnswerScope&) = delete;
    AnswerScope& operator=(const AnswerScope&) = delete;

private:
    Thread& m_thread;
    const bool m_wasSuspended;
};

void Thread::ask(const void* target, const void* part, detail::FunctionRef<bool()> isWanted,
                 detail::FunctionRef<void()> function)
{
    Thread* const self = getCurrentThread();
    if (self == this) {
        function();
        return;
    }
    Waiter waiter;
    waiter.m_waiting = self;
    waiter.m_target = target;
    waiter.m_part = part;
    waiter.m_processor = detail::currentProcessor();
    waiter.m_isWanted = isWanted;
    waiter.m_execute = function;
    const AnswerScope answers(*self);
    bool wake = false;
    {
        std::lock_guard lock(m_queueLock);
        if (!m_accepting.load(std::memory_order_relaxed) || !m_answers)
            return;
        // Announced first, then looked whether it makes sense; who cuts does it the other way
        // round. So a cut is either seen here, or sees the waiter.
        m_requestsPending.fetch_add(1);
        if (!isWanted()) {
            m_requestsPending.fetch_sub(1);
            return;
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
    if (waiter.m_error)
        std::rethrow_exception(waiter.m_error);
}

void Thread::wait(Waiter& waiter, Thread& asked)
{
    const WaitScope scope(*this);
    if (spinFor(waiter, asked))
        return;
    for (;;) {
        const std::uint32_t seen = m_rouser.count();
        if (waiter.isDone())
            return;
        if (m_requestsPending.load(std::memory_order_acquire) > 0 && answerOneRequest())
            continue;
        m_rouser.sleep(seen);
    }
}

bool Thread::spinFor(const Waiter& waiter, const Thread& asked) noexcept
{
    const auto mayBeAnswering = [&] { return asked.m_busy.load(std::memory_order_relaxed); };
    // In vain where the other one needs this very processor.
    if (!mayBeAnswering() || !runsBeside(asked.m_processor.load(std::memory_order_relaxed))
        || !m_answerSpins.suggestsSpinning())
        return false;
    for (int spins = 0; spins < AnswerSpins && mayBeAnswering(); ++spins) {
        if (waiter.isDone()) {
            m_answerSpins.note(false);
            return true;
        }
        if (m_requestsPending.load(std::memory_order_relaxed) > 0)
            return false;
        relax();
    }
    m_answerSpins.note(true);
    return false;
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
    m_askerProcessor = waiter->m_processor;
    try {
        waiter->m_execute();
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

template <class Predicate>
Waiter* Thread::takeWaiters(Predicate predicate)
{
    Waiter* taken = nullptr;
    for (Waiter* waiter = m_waiters; waiter;) {
        Waiter* next = waiter->m_next;
        if (predicate(waiter) && waiter->m_record->m_waiter.exchange(nullptr)) {
            unlinkWaiter(waiter);
            waiter->m_next = taken;
            taken = waiter;
        }
        waiter = next;
    }
    return taken;
}

void Thread::completeAll(Waiter* first) noexcept
{
    while (first)
        complete(std::exchange(first, first->m_next));
}

void Thread::releaseWaiters(const void* target)
{
    if (m_requestsPending.load() == 0)
        return;
    Waiter* released = nullptr;
    {
        std::lock_guard lock(m_queueLock);
        released = takeWaiters([target](Waiter* waiter) {
            return (waiter->m_target == target || waiter->m_part == target)
                   && !waiter->m_isWanted();
        });
    }
    completeAll(released);
}

void Thread::suspendAnswers()
{
    Waiter* released = nullptr;
    {
        std::lock_guard lock(m_queueLock);
        m_answers = false;
        m_turns.store(false);
        released = takeWaiters([](Waiter*) { return true; });
    }
    completeAll(released);
    letSendersGo();
}

void Thread::resumeAnswers()
{
    if (m_answers)
        return;
    std::lock_guard lock(m_queueLock);
    m_answers = true;
}

// Senders that wait for room ----------------------------------------------------------------------

void Thread::setQueueBound(std::size_t calls)
{
    m_bound.store(calls);
    letSendersGo();
}

bool Thread::isCrowded() const noexcept
{
    const std::size_t bound = m_bound.load(std::memory_order_relaxed);
    // Without one since the sender looked: nobody would let it go.
    return bound != 0 && m_sent.load(std::memory_order_relaxed) - m_run.load() > bound;
}

void Thread::waitUntilDrained()
{
    Thread* const self = getCurrentThread();
    if (self == this)
        return;
    Waiter waiter;
    waiter.m_waiting = self;
    const AnswerScope answers(*self);
    {
        std::lock_guard lock(m_queueLock);
        // Announced first, then looked whether there is a reason; whoever ends the reason does it
        // the other way round.
        m_hasCrowd.store(true);
        if (!m_accepting.load(std::memory_order_relaxed) || !m_turns.load() || m_waits.load() != 0
            || !isCrowded()) {
            m_hasCrowd.store(m_crowd != nullptr);
            return;
        }
        waiter.m_next = m_crowd;
        m_crowd = &waiter;
    }
    self->wait(waiter, *this);
}

void Thread::letSendersGo() noexcept
{
    Waiter* crowd = nullptr;
    {
        std::lock_guard lock(m_queueLock);
        crowd = std::exchange(m_crowd, nullptr);
        m_hasCrowd.store(false);
    }
    completeAll(crowd);
}

void Thread::noteRun() noexcept
{
    const std::size_t run = m_run.load(std::memory_order_relaxed) + 1;
    const std::size_t bound = m_bound.load(std::memory_order_relaxed);
    if (bound == 0) {
        m_run.store(run, std::memory_order_relaxed);
        return;
    }
    m_run.store(run);
    if (m_hasCrowd.load() && m_sent.load(std::memory_order_relaxed) - run <= bound / 2)
        letSendersGo();
}

} // namespace TROV
