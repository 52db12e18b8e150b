#pragma once

#include "trov/callqueue.h"
#include "trov/functionref.h"
#include "trov/rouser.h"
#include "trov/trov_export.h"
#include "trov/types.h"
#include "trov/waithooks.h"
#include "voxi_util/spinlock.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace TROV {

class EventErrors;

namespace detail {

/// The blocks of connections that emissions on one thread are walking through right now.
struct EmissionPins
{
    static constexpr unsigned Depth = 32;

    std::atomic<const void*> m_pins[Depth] = {};
    std::atomic<unsigned> m_highWater{0};
    unsigned m_depth = 0;
};

} // namespace detail

/// An operating-system thread as the signal library sees it: a name and a queue of calls.
///
/// Every thread gets one when it first asks for it; the library starts no thread itself. The calls
/// run when the thread's own loop asks for them: a plain worker runs `exec()`, a thread with a loop
/// of its own binds a wake-up function and calls `process()` when woken. When the operating-system
/// thread ends, or the last of its loops does, waiting senders are released with default answers
/// and later calls are dropped. What is sent before the first loop runs waits for it.
///
/// Unless said otherwise, functions may be called from any thread.
class TROV_EXPORT Thread
{
public:
    using Clock = std::chrono::steady_clock;
    using ExceptionHandler = std::function<void(std::exception_ptr)>;

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    /// The calling thread; never null.
    static Thread* getCurrentThread() { return s_current ? s_current : attachCurrentThread(); }

    /// Whether the thread is the calling one.
    static bool isCurrent(const Thread* thread) noexcept { return thread == s_current; }

    /// The live thread of that name, or null. Of several the one named last answers.
    static Thread* find(const std::string& name);

    /// Names the thread; an empty name takes the name away.
    void setName(const std::string& name);
    std::string name() const;

    /// Makes `wakeUp` what rouses the thread's own loop. It is called from sending threads, once
    /// for any number of calls queued since the last `process()`, and must neither bind nor unbind.
    /// Owning thread only.
    void bindWakeUp(std::function<void()> wakeUp);

    /// Ends what `bindWakeUp` began: queued calls are dropped, waiting senders released. When it
    /// returns the wake-up function is not running any more. Owning thread only.
    void unbindWakeUp();

    /// Runs queued calls in their order until none is left or `budget` is used up, and tells
    /// whether some are left; the host then calls again after it has looked after input and
    /// painting. May be called again from inside a call. Owning thread only.
    bool process(std::chrono::nanoseconds budget = std::chrono::nanoseconds::max());

    /// Whether calls are left that nobody is roused for any more: those that stand behind the call
    /// which runs right now. A host asks before a nested loop goes to sleep. Owning thread only.
    bool hasCallsLeft() noexcept;

    /// Steps aside, as a wait does, while a host's loop sleeps; stepping aside again begins anew.
    /// The loop's end may not be told everywhere: a lock that is undone while its holds are given
    /// up recalls them. Owning thread only.
    void beginSleep() { m_sleep.emplace(); }
    void endSleep()
    {
        if (m_sleep)
            m_sleep.reset();
    }

    /// `endSleep` of the calling thread.
    static void recallHolds() noexcept;

    /// Runs calls as they come until `quit()`. May be called again from inside a call, also while
    /// a wake-up function is bound. Owning thread only.
    void exec();

    /// Ends the innermost `exec()`, or the next one if none runs.
    void quit();

    /// Tells whether calls sent now may still be run.
    bool isAccepting() const noexcept { return m_accepting.load(std::memory_order_acquire); }

    /// For a host whose loop has ended but may begin again: until then, whoever asks gets a default
    /// answer at once, who waits already is released, and what is only sent waits for the next
    /// loop. A thread that waits for another one answers all the same. Owning thread only.
    void suspendAnswers();
    void resumeAnswers();

    /// At most about `calls` calls of other threads wait in this thread's queue: who sends a
    /// request without a result, or posts, when there are more waits until half of them have run;
    /// 0, the default, is no bound. Events never wait, nor does anybody while no loop turns here or
    /// while this thread itself waits for another one: two threads that flood each other go on.
    /// Like any wait this one gives locks up and answers requests.
    void setQueueBound(std::size_t calls);

    /// Queues `function` to run on this thread; dropped when the thread is not accepting. May wait:
    /// see `setQueueBound`.
    template <class Function>
    void post(Function function)
    {
        struct Call
        {
            Function m_function;
            void deliver() { m_function(); }
        };
        enqueue(Call{std::move(function)});
        waitForRoom();
    }

    /// Receives what queued calls and the listeners of events throw, on their thread. The default
    /// reports it on stderr. Queue and emission go on in any case. An empty handler restores the
    /// default.
    static void setExceptionHandler(ExceptionHandler handler);

    /// Gives an exception to the handler, or to stderr.
    static void reportException(std::exception_ptr error) noexcept;

    /// The same for what a listener of an event threw on this thread, unless an `EventErrors` of
    /// the program wants it. Owning thread only.
    void reportEventError(std::exception_ptr error) noexcept;

    /// For the library's own templates: waits while more calls are queued here than the bound
    /// allows. What the caller sent is in the queue by then.
    void waitForRoom()
    {
        if (m_bound.load(std::memory_order_relaxed) != 0 && isCrowded()) [[unlikely]]
            waitUntilDrained();
    }

    /// For the library's own templates: queues a call; false when the thread does not accept it.
    template <class Call>
    bool enqueue(Call call)
    {
        if constexpr (detail::fitsChunk<Call>) {
            return push(std::move(call));
        } else {
            return push(detail::BoxedCall<Call>{std::make_unique<Call>(std::move(call))});
        }
    }

    /// For the library's own templates: runs `function` on this thread and waits for its result.
    /// While it waits the calling thread gives up its locks and answers requests addressed to it.
    /// Default results when this thread does not accept calls, or `target` (or `part` of it) is
    /// cut meanwhile, which `isWanted` tells. What `function` throws is thrown here.
    template <class R, class Function>
    R callAndWait(const void* target, const void* part, detail::FunctionRef<bool()> isWanted,
                  Function&& function)
    {
        if constexpr (std::is_void_v<R>) {
            ask(target, part, isWanted, function);
        } else {
            std::optional<R> result;
            const auto keep = [&] { result.emplace(function()); };
            ask(target, part, isWanted, keep);
            return result ? std::move(*result) : R();
        }
    }

    /// Releases every thread that waits for `target` on this thread with a default answer; called
    /// after the mark that `isWanted` looks at was set in sequentially consistent order.
    void releaseWaiters(const void* target);

    detail::EmissionPins& pins() noexcept { return m_pins; }

    /// Notes whether calls are being run, so that an answer is worth a moment's spinning; returns
    /// what it was.
    bool setBusy(bool busy) noexcept { return m_busy.exchange(busy, std::memory_order_relaxed); }

    /// Whether an emission of any thread has `block` among its pins.
    static bool isPinned(const void* block) noexcept;

    /// A thread keeps its identity while somebody holds a reference to it.
    void ref() noexcept { m_refs.fetch_add(1, std::memory_order_relaxed); }
    void deref();

private:
    friend struct ThreadAttachment;
    friend class EventErrors;
    class WaitScope;
    class AnswerScope;

    Thread() = default;
    ~Thread() = default;

    static Thread* attachCurrentThread();

    template <class Call>
    bool push(Call&& call)
    {
        using Record = detail::RecordOf<Call>;
        const Thread* const sender = getCurrentThread();
        bool wake = false;
        {
            std::lock_guard lock(m_queueLock);
            if (!m_accepting.load(std::memory_order_relaxed))
                return false;
            void* const place = m_incoming.allocate(Record::alignedSize());
            auto* record = new (place) Record(std::forward<Call>(call));
            record->m_sender = sender;
            m_sent.store(m_sent.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
            wake = noteArrival();
        }
        if (wake)
            wakeUp();
        return true;
    }

    /// Notes that something was queued; true when the loop must be roused. Queue lock held.
    bool noteArrival() noexcept
    {
        m_hasIncoming.store(true, std::memory_order_release);
        if (m_wakePending)
            return false;
        m_wakePending = true;
        return true;
    }

    void ask(const void* target, const void* part, detail::FunctionRef<bool()> isWanted,
             detail::FunctionRef<void()> function);
    void wait(detail::Waiter& waiter, Thread& asked);
    bool spinFor(const detail::Waiter& waiter, const Thread& asked) noexcept;
    void answer(detail::CallRecord* record);
    static void complete(detail::Waiter* waiter) noexcept;
    void wakeUp();
    void absorb();
    void execute(detail::CallRecord* record, detail::CallChunk* chunk);
    void leave(detail::CallChunk* chunk) noexcept;
    bool answerOneRequest();
    void runOutOfTurn(const Thread* sender);
    bool lingerForMore();
    void open();
    void close();
    void closeUnlessServed();
    void detach();
    void endQuestion(detail::Waiter* waiter) noexcept;
    void unlinkWaiter(detail::Waiter* waiter) noexcept; // queue lock held
    bool isCrowded() const noexcept;
    void waitUntilDrained();
    void letSendersGo() noexcept;
    void noteRun() noexcept;
    template <class Predicate>
    detail::Waiter* takeWaiters(Predicate predicate); // queue lock held
    static void completeAll(detail::Waiter* first) noexcept;

#if defined(__GNUC__)
    __attribute__((tls_model("initial-exec")))
#endif
    static thread_local constinit Thread* s_current;
    static thread_local constinit bool s_ended;
    static std::atomic<Thread*> s_newest; // of all there ever were

    // What other threads look at.
    VOXI::SpinLock m_queueLock;
    bool m_wakePending = false;          // guarded: the loop has been roused and has not come yet
    detail::CallList m_incoming;         // guarded
    detail::Waiter* m_waiters = nullptr; // guarded: who waits for answers of this thread
    detail::Waiter* m_crowd = nullptr;   // guarded: who waits for room in the queue
    bool m_answers = true;               // guarded; the thread itself looks without
    std::atomic<bool> m_turns{false};    // a loop has run calls, and may again
    std::atomic<int> m_waits{0};         // waits of this thread for others, one in the other
    std::atomic<bool> m_hasCrowd{false};
    std::atomic<std::size_t> m_bound{0};
    std::atomic<std::size_t> m_sent{0}; // calls queued so far; written under the lock
    std::atomic<std::size_t> m_run{0};  // of these, run or dropped; written by the thread itself
    std::atomic<bool> m_accepting{true};
    std::atomic<bool> m_hasIncoming{false};
    std::atomic<bool> m_busy{false};
    std::atomic<int> m_processor{0}; // that calls were run on last
    std::atomic<int> m_requestsPending{0};
    detail::Rouser m_rouser; // of the thread itself, in `exec` or waiting for an answer
    std::atomic<int> m_refs{0};
    std::atomic<bool> m_quit{false};
    std::mutex m_wakeUpMutex;
    std::function<void()> m_wakeUp; // guarded by m_wakeUpMutex
    mutable VOXI::SpinLock m_nameLock;
    std::string m_name;        // guarded by m_nameLock
    std::uint64_t m_named = 0; // guarded by m_nameLock: when, as a serial number
    bool m_isFree = false;     // guarded by the directory: no system thread has it
    Thread* m_older = nullptr; // set once

    // What only the thread itself looks at.
    detail::CallList m_current;
    detail::EmissionPins m_pins;
    Clock::time_point m_lastAnswer{};
    int m_askerProcessor = 0;
    detail::SpinHistory m_questionSpins;
    detail::SpinHistory m_answerSpins;
    unsigned m_execDepth = 0;
    EventErrors* m_eventErrors = nullptr;
    std::optional<WaitRelease> m_sleep;
    bool m_answered = false;
    bool m_isHosted = false;
};

/// While one lives, its thread's listeners of events that throw do so to the program: for an
/// operation that acts as the user would, at the program's request. The exceptions do not pass
/// through what lies between, a toolkit for instance: the first is kept for `rethrow`, the others
/// go to the exception handler.
class TROV_EXPORT EventErrors
{
public:
    EventErrors();
    virtual ~EventErrors();
    EventErrors(const EventErrors&) = delete;
    EventErrors& operator=(const EventErrors&) = delete;

    /// Throws what was kept, if anything was; to be called at the end of the operation.
    void rethrow();

protected:
    /// Whether the program is the cause of what is emitted now; not so for the user in a nested
    /// loop.
    virtual bool isCause() const noexcept { return true; }

private:
    friend class Thread;

    Thread* m_thread;
    EventErrors* m_outer;
    std::exception_ptr m_first;
};

/// A counted reference to a thread.
class ThreadRef
{
public:
    ThreadRef() = default;
    explicit ThreadRef(Thread* thread) : m_thread(thread)
    {
        if (m_thread)
            m_thread->ref();
    }
    ThreadRef(const ThreadRef& other) : ThreadRef(other.m_thread) {}
    ThreadRef(ThreadRef&& other) noexcept : m_thread(std::exchange(other.m_thread, nullptr)) {}
    ThreadRef& operator=(ThreadRef other) noexcept
    {
        std::swap(m_thread, other.m_thread);
        return *this;
    }
    ~ThreadRef()
    {
        if (m_thread)
            m_thread->deref();
    }

    Thread* get() const noexcept { return m_thread; }
    Thread* operator->() const noexcept { return m_thread; }
    explicit operator bool() const noexcept { return m_thread != nullptr; }

private:
    Thread* m_thread = nullptr;
};

} // namespace TROV
