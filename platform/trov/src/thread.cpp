#include "trov/thread.h"

#include "trov/waithooks.h"

#include <cstdio>
#include <vector>

namespace TROV {

thread_local constinit Thread* Thread::s_current = nullptr;
thread_local constinit bool Thread::s_ended = false;
constinit std::atomic<Thread*> Thread::s_newest{nullptr};

namespace {

/// Threads are recycled but never freed: a sender that has just been answered may end while the
/// answering thread is still about to rouse it.
struct ThreadDirectory
{
    std::mutex m_mutex;
    std::vector<Thread*> m_free;
};

ThreadDirectory& directory()
{
    static auto* instance = new ThreadDirectory;
    return *instance;
}

struct ExceptionSink
{
    std::mutex m_mutex;
    Thread::ExceptionHandler m_handler;
};

ExceptionSink& exceptionSink()
{
    static auto* instance = new ExceptionSink;
    return *instance;
}

} // namespace

/// Ends the thread's life in the library when the operating-system thread ends.
struct ThreadAttachment
{
    Thread* m_thread = nullptr;

    ~ThreadAttachment()
    {
        if (m_thread)
            m_thread->detach();
    }
};

Thread* Thread::attachCurrentThread()
{
    Thread* thread = nullptr;
    {
        ThreadDirectory& threads = directory();
        std::lock_guard lock(threads.m_mutex);
        if (threads.m_free.empty()) {
            thread = new Thread;
            thread->m_older = s_newest.load();
            s_newest.store(thread);
        } else {
            thread = threads.m_free.back();
            threads.m_free.pop_back();
            thread->m_isFree = false;
            thread->m_quit = false; // which may have come too late for the one before
        }
        thread->ref();
    }
    s_current = thread;
    if (s_ended) {
        // The last destructors of an ending thread still send. Nobody will ever run what is sent
        // back to it, and nothing tells when it has really ended: this one is never recycled.
        thread->close();
        return thread;
    }
    static thread_local ThreadAttachment attachment;
    attachment.m_thread = thread;
    thread->open();
    return thread;
}

void Thread::detach()
{
    {
        std::lock_guard lock(m_wakeUpMutex);
        m_wakeUp = nullptr;
    }
    m_isHosted = false;
    // What is dropped may send, as this thread still.
    close();
    setName({});
    m_bound = 0;
    s_ended = true;
    s_current = nullptr;
    deref();
}

void Thread::deref()
{
    if (m_refs.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    ThreadDirectory& threads = directory();
    std::lock_guard lock(threads.m_mutex);
    // Somebody may have found it by its name in the meantime, and let go of it again.
    if (m_isFree || m_refs.load(std::memory_order_acquire) != 0)
        return;
    m_isFree = true;
    threads.m_free.push_back(this);
}

bool Thread::isPinned(const void* block) noexcept
{
    for (Thread* thread = s_newest.load(); thread; thread = thread->m_older) {
        const unsigned depth = thread->m_pins.m_highWater.load();
        for (unsigned i = 0; i < depth; ++i) {
            if (thread->m_pins.m_pins[i].load() == block)
                return true;
        }
    }
    return false;
}

// Names -------------------------------------------------------------------------------------------

Thread* Thread::find(const std::string& name)
{
    if (name.empty())
        return nullptr;
    Thread* found = nullptr;
    std::uint64_t foundNamed = 0;
    for (Thread* thread = s_newest.load(); thread; thread = thread->m_older) {
        std::lock_guard lock(thread->m_nameLock);
        if (thread->m_name == name && thread->m_named > foundNamed) {
            found = thread;
            foundNamed = thread->m_named;
        }
    }
    return found;
}

void Thread::setName(const std::string& name)
{
    static std::atomic<std::uint64_t> namings{0};
    std::string copy = name;
    std::lock_guard lock(m_nameLock);
    m_name.swap(copy);
    m_named = ++namings;
}

std::string Thread::name() const
{
    std::lock_guard lock(m_nameLock);
    return m_name;
}

// Exceptions --------------------------------------------------------------------------------------

void Thread::setExceptionHandler(ExceptionHandler handler)
{
    ExceptionSink& sink = exceptionSink();
    // The former one is destroyed outside the lock.
    std::lock_guard lock(sink.m_mutex);
    sink.m_handler.swap(handler);
}

void Thread::reportException(std::exception_ptr error) noexcept
{
    try {
        ExceptionHandler handler;
        {
            ExceptionSink& sink = exceptionSink();
            std::lock_guard lock(sink.m_mutex);
            handler = sink.m_handler;
        }
        if (handler) {
            handler(error);
            return;
        }
        std::rethrow_exception(error);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "A call or handler failed: %s\n", e.what());
    } catch (...) {
        std::fprintf(stderr, "A call or handler failed with an unknown exception\n");
    }
}

void Thread::reportEventError(std::exception_ptr error) noexcept
{
    EventErrors* const errors = m_eventErrors;
    if (errors && !errors->m_first && errors->isCause())
        errors->m_first = std::move(error);
    else
        reportException(std::move(error));
}

EventErrors::EventErrors()
    : m_thread(Thread::getCurrentThread()),
      m_outer(std::exchange(m_thread->m_eventErrors, this))
{}

EventErrors::~EventErrors()
{
    m_thread->m_eventErrors = m_outer;
    if (m_first)
        Thread::reportException(std::move(m_first));
}

void EventErrors::rethrow()
{
    if (m_first)
        std::rethrow_exception(std::exchange(m_first, nullptr));
}

// Hosting -----------------------------------------------------------------------------------------

void Thread::bindWakeUp(std::function<void()> wakeUpFunction)
{
    {
        std::lock_guard lock(m_wakeUpMutex);
        m_wakeUp = std::move(wakeUpFunction);
    }
    m_isHosted = true;
    open();
    // What was sent before anybody could be roused still waits.
    wakeUp();
}

void Thread::unbindWakeUp()
{
    {
        std::lock_guard lock(m_wakeUpMutex);
        m_wakeUp = nullptr;
    }
    m_isHosted = false;
    closeUnlessServed();
}

void Thread::wakeUp()
{
    {
        // Held while the function runs, so that unbinding waits for it.
        std::lock_guard lock(m_wakeUpMutex);
        if (m_wakeUp)
            m_wakeUp();
    }
    // It may be waiting, for us even, or be in an `exec` inside its host's loop.
    m_rouser.rouse();
}

void Thread::recallHolds() noexcept
{
    if (s_current)
        s_current->endSleep();
}

void Thread::exec()
{
    open();
    ++m_execDepth;
    while (!m_quit.load(std::memory_order_acquire)) {
        const std::uint32_t seen = m_rouser.count();
        process();
        if (m_quit.load(std::memory_order_acquire) || m_rouser.count() != seen)
            continue;
        WaitRelease released;
        m_rouser.sleep(seen);
    }
    m_quit = false;
    --m_execDepth;
    closeUnlessServed();
}

void Thread::quit()
{
    m_quit.store(true, std::memory_order_release);
    m_rouser.rouse();
}

} // namespace TROV
