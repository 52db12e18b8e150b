#include "trov/thread.h"

#include "trov/waithooks.h"

#include <cstdio>
#include <vector>

namespace TROV {

using detail::CallChunk;
using detail::CallRecord;
using detail::Waiter;

thread_local constinit Thread* Thread::s_current = nullptr;

namespace {

/// All threads there ever were. They are recycled but never freed: a sender that has just been
/// answered may end while the answering thread is still about to rouse it.
struct ThreadDirectory {
    std::mutex m_mutex;
    std::vector<Thread*> m_all;
    std::vector<Thread*> m_free;
};

ThreadDirectory& directory()
{
    static auto* instance = new ThreadDirectory;
    return *instance;
}

struct ExceptionSink {
    std::mutex m_mutex;
    Thread::ExceptionHandler m_handler;
};

ExceptionSink& exceptionSink()
{
    static auto* instance = new ExceptionSink;
    return *instance;
}

constexpr std::size_t QuestionSize =
    (sizeof(CallRecord) + alignof(std::max_align_t) - 1) / alignof(std::max_align_t)
    * alignof(std::max_align_t);

// Requests that follow each other this closely are taken for one conversation: its next question
// is awaited for a moment before the thread goes back to its loop.
constexpr auto ConversationGap = std::chrono::microseconds(100);
constexpr auto LingerTime = std::chrono::microseconds(25);
constexpr int AnswerSpins = 400;

void relax() noexcept
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#endif
}

}  // namespace

/// Ends the thread's life in the library when the operating-system thread ends.
struct ThreadAttachment {
    Thread* m_thread = nullptr;

    ~ThreadAttachment()
    {
        if (!m_thread)
            return;
        m_thread->close();
        m_thread->setName({});
        Thread::s_current = nullptr;
        m_thread->deref();
    }
};

Thread* Thread::attachCurrentThread()
{
    static thread_local ThreadAttachment attachment;
    Thread* thread = nullptr;
    {
        ThreadDirectory& threads = directory();
        std::lock_guard lock(threads.m_mutex);
        if (threads.m_free.empty()) {
            thread = new Thread;
            threads.m_all.push_back(thread);
        } else {
            thread = threads.m_free.back();
            threads.m_free.pop_back();
        }
    }
    thread->ref();
    thread->open();
    thread->m_quit = false;
    attachment.m_thread = thread;
    s_current = thread;
    return thread;
}

void Thread::deref()
{
    if (m_refs.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    ThreadDirectory& threads = directory();
    std::lock_guard lock(threads.m_mutex);
    threads.m_free.push_back(this);
}

void Thread::forEach(const std::function<void(Thread&)>& function)
{
    ThreadDirectory& threads = directory();
    std::lock_guard lock(threads.m_mutex);
    for (Thread* thread : threads.m_all)
        function(*thread);
}

Thread* Thread::find(const std::string& name)
{
    if (name.empty())
        return nullptr;
    Thread* found = nullptr;
    forEach([&](Thread& thread) {
        if (thread.name() == name)
            found = &thread;
    });
    return found;
}

void Thread::setName(const std::string& name)
{
    std::lock_guard lock(m_hostMutex);
    m_name = name;
}

std::string Thread::name() const
{
    std::lock_guard lock(m_hostMutex);
    return m_name;
}

void Thread::setExceptionHandler(ExceptionHandler handler)
{
    ExceptionSink& sink = exceptionSink();
    std::lock_guard lock(sink.m_mutex);
    sink.m_handler = std::move(handler);
}

void Thread::reportException(std::exception_ptr error)
{
    ExceptionHandler handler;
    {
        ExceptionSink& sink = exceptionSink();
        std::lock_guard lock(sink.m_mutex);
        handler = sink.m_handler;
    }
    try {
        if (handler) {
            handler(error);
            return;
        }
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "A queued call failed: %s\n", e.what());
    } catch (...) {
        std::fprintf(stderr, "A queued call failed with an unknown exception\n");
    }
}

// Hosting -----------------------------------------------------------------------------------------

void Thread::bindWakeUp(std::function<void()> wakeUpFunction)
{
    {
        std::lock_guard lock(m_hostMutex);
        m_wakeUp = std::move(wakeUpFunction);
    }
    open();
    // What was sent before anybody could be roused still waits.
    wakeUp();
}

void Thread::unbindWakeUp()
{
    {
        std::lock_guard lock(m_hostMutex);
        m_wakeUp = nullptr;
    }
    close();
}

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
        record->m_consumed = true;
        if (record->m_run) {
            ++chunk->m_running;
            record->m_run(record, CallRecord::Discard);
            --chunk->m_running;
            if (chunk->m_passed && chunk->m_running == 0)
                m_current.recycle(chunk);
        } else if (Waiter* waiter = record->m_waiter.exchange(nullptr)) {
            endQuestion(waiter);
            complete(waiter);
        }
    }
}

void Thread::exec()
{
    open();
    while (!m_quit.load(std::memory_order_acquire)) {
        const std::uint32_t seen = m_event.load(std::memory_order_acquire);
        process();
        if (m_quit.load(std::memory_order_acquire) || m_hasIncoming.load(std::memory_order_acquire))
            continue;
        WaitRelease released;
        m_event.wait(seen, std::memory_order_acquire);
    }
    m_quit = false;
    close();
}

void Thread::quit()
{
    m_quit.store(true, std::memory_order_release);
    signal();
}

void Thread::signal() noexcept
{
    m_event.fetch_add(1, std::memory_order_acq_rel);
    m_event.notify_all();
}

void Thread::wakeUp()
{
    {
        // Held while the function runs, so that unbinding waits for it.
        std::lock_guard lock(m_hostMutex);
        if (m_wakeUp) {
            m_wakeUp();
            return;
        }
    }
    signal();
}

// Running calls -----------------------------------------------------------------------------------

void Thread::absorb()
{
    std::lock_guard lock(m_queueLock);
    m_current.append(m_incoming);
    m_hasIncoming.store(false, std::memory_order_relaxed);
    m_wakePending = false;
    m_draining = false;
}

bool Thread::process(std::chrono::nanoseconds budget)
{
    const bool limited = budget != std::chrono::nanoseconds::max();
    const auto deadline = limited ? Clock::now() + budget : Clock::time_point::max();
    const bool wasBusy = m_busy.exchange(true, std::memory_order_relaxed);
    bool left = false;
    for (unsigned count = 0;;) {
        absorb();
        CallChunk* chunk = nullptr;
        while (CallRecord* record = m_current.front(chunk)) {
            m_current.popFront(record);
            execute(record, chunk);
            if (limited && ++count % 8 == 0 && Clock::now() >= deadline) {
                left = true;
                break;
            }
        }
        if (left || (!m_hasIncoming.load(std::memory_order_acquire) && !lingerForMore()))
            break;
    }
    m_busy.store(wasBusy, std::memory_order_relaxed);
    CallChunk* chunk = nullptr;
    return left && (m_current.front(chunk) || m_hasIncoming.load(std::memory_order_acquire));
}

void Thread::execute(CallRecord* record, CallChunk* chunk)
{
    record->m_consumed = true;
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
    --chunk->m_running;
    if (chunk->m_passed && chunk->m_running == 0)
        m_current.recycle(chunk);
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
    waiting->signal();
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

bool Thread::lingerForMore()
{
    if (!std::exchange(m_answered, false))
        return false;
    const auto now = Clock::now();
    const bool conversation = now - m_lastAnswer < ConversationGap;
    m_lastAnswer = now;
    if (!conversation)
        return false;
    {
        std::lock_guard lock(m_queueLock);
        if (m_hasIncoming.load(std::memory_order_relaxed))
            return true;
        m_draining = true;
    }
    for (unsigned spins = 1;; ++spins) {
        if (m_hasIncoming.load(std::memory_order_acquire))
            return true;
        if (spins % 16 == 0 && Clock::now() - now > LingerTime)
            break;
        relax();
    }
    std::lock_guard lock(m_queueLock);
    m_draining = false;
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
        auto* record = new (m_incoming.allocate(QuestionSize)) CallRecord;
        record->m_size = QuestionSize;
        record->m_sender = self;
        record->m_waiter.store(&waiter, std::memory_order_relaxed);
        waiter.m_record = record;
        waiter.m_next = m_waiters;
        if (m_waiters)
            m_waiters->m_previous = &waiter;
        m_waiters = &waiter;
        m_requestsPending.fetch_add(1, std::memory_order_release);
        wake = noteArrival();
    }
    if (wake)
        wakeUp();
    signal();  // it may be waiting itself, for us even
    self->wait(waiter, *this);
    return true;
}

void Thread::wait(Waiter& waiter, Thread& asked)
{
    const auto isDone = [&] { return waiter.m_state.load(std::memory_order_acquire) == Waiter::Done; };
    WaitRelease released;
    for (int spins = 0; spins < AnswerSpins && asked.m_busy.load(std::memory_order_relaxed); ++spins) {
        if (isDone())
            return;
        if (m_requestsPending.load(std::memory_order_relaxed) > 0)
            break;
        relax();
    }
    for (;;) {
        const std::uint32_t seen = m_event.load(std::memory_order_acquire);
        if (isDone())
            return;
        if (m_requestsPending.load(std::memory_order_acquire) > 0 && answerOneRequest())
            continue;
        m_event.wait(seen, std::memory_order_acquire);
    }
}

bool Thread::answerOneRequest()
{
    absorb();
    const Thread* sender = nullptr;
    // Asked by somebody: first what that sender sent before, one call at a time, because running
    // a call may change the queue; at last the question itself.
    for (;;) {
        CallRecord* next = nullptr;
        CallChunk* nextChunk = nullptr;
        CallRecord* question = nullptr;
        CallChunk* questionChunk = nullptr;
        for (CallChunk* chunk = m_current.firstChunk(); chunk && !question; chunk = chunk->m_next) {
            for (std::size_t at = chunk->m_read; at < chunk->m_used;) {
                CallRecord* record = chunk->recordAt(at);
                at += record->m_size;
                if (record->m_consumed)
                    continue;
                if (!next && record->m_run && record->m_sender == sender) {
                    next = record;
                    nextChunk = chunk;
                }
                if (!record->m_run && record->m_waiter.load(std::memory_order_acquire)
                    && (!sender || record->m_sender == sender)) {
                    question = record;
                    questionChunk = chunk;
                    break;
                }
            }
        }
        if (!question)
            return sender != nullptr;
        if (!sender) {
            sender = question->m_sender;
            continue;
        }
        if (!next) {
            execute(question, questionChunk);
            return true;
        }
        execute(next, nextChunk);
    }
}

void Thread::releaseWaiters(const void* target)
{
    if (m_requestsPending.load(std::memory_order_acquire) == 0)
        return;
    Waiter* released = nullptr;
    {
        std::lock_guard lock(m_queueLock);
        for (Waiter* waiter = m_waiters; waiter;) {
            Waiter* next = waiter->m_next;
            if (waiter->m_target == target && waiter->m_record->m_waiter.exchange(nullptr)) {
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

}  // namespace TROV
