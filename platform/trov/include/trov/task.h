#pragma once

#include "trov/connection.h"
#include "trov/emitter.h"
#include "trov/listener.h"
#include "trov/reportingemitter.h"
#include "trov/thread.h"
#include "trov/trov_export.h"
#include "voxi_util/anytext.h"

#include <atomic>
#include <concepts>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace TROV {

/// How far a task has come, as its work says.
struct TaskProgress
{
    double fraction = -1; ///< from 0 to 1; below 0: not known
    std::wstring text{};  ///< what is being done, for the user to read; empty: nothing is said

    friend bool operator==(const TaskProgress&, const TaskProgress&) = default;
};

/// What a cancelled task has instead of a result; see `TaskContext::throwIfCancelled`.
class TROV_EXPORT TaskCancelled : public std::exception
{
public:
    ~TaskCancelled() override;
    const char* what() const noexcept override;
};

namespace detail {
class TaskState;
template <class R>
class TaskStateOf;
} // namespace detail

/// What the work of a task knows of it. Any thread, while the work runs.
class TROV_EXPORT TaskContext
{
public:
    explicit TaskContext(detail::TaskState& state) noexcept : m_state(&state) {}

    /// Whether nobody wants the result any more: `Task::cancel` was called, the listener has ended,
    /// or the program ends. Work that takes long looks at it now and then, and returns whatever it
    /// likes.
    bool isCancelled() const noexcept;

    /// Leaves the work by a `TaskCancelled` then.
    void throwIfCancelled() const;

    /// Says how far the work has come: cheap, and as often as one likes, since listeners hear of
    /// the latest only. `fraction` is from 0 to 1; below 0, or no number: not known.
    void setProgress(double fraction, const VOXI::AnyText& text = {});

private:
    detail::TaskState* m_state;
};

/// How a task ended: with a value, by an exception, or because it was cancelled.
template <class R>
class TaskOutcome
{
public:
    TaskOutcome(const TaskOutcome&) = delete;
    TaskOutcome& operator=(const TaskOutcome&) = delete;

    /// Whether it was cancelled; then there is no value, however far the work had come.
    bool isCancelled() const noexcept { return m_isCancelled; }
    bool hasValue() const noexcept { return !m_isCancelled && !m_error; }

    /// What the work threw; null when it did not, or was cancelled.
    std::exception_ptr error() const noexcept { return m_isCancelled ? nullptr : m_error; }

    /// What the work returned, to be moved away if one likes. Throws what the work threw, and
    /// `TaskCancelled`.
    std::add_lvalue_reference_t<R> value()
    {
        if (m_isCancelled)
            throw TaskCancelled();
        if (m_error)
            std::rethrow_exception(m_error);
        if constexpr (!std::is_void_v<R>)
            return *m_value;
    }

private:
    friend class detail::TaskStateOf<R>;
    TaskOutcome() = default;

    std::optional<std::conditional_t<std::is_void_v<R>, bool, R>> m_value;
    std::exception_ptr m_error;
    bool m_isCancelled = false;
};

/// Work that is done on a thread of the library's, for a result that is handed over where it was
/// asked for.
///
///     m_search = TROV::Task::run(
///         this, [words](TROV::TaskContext& context) { return search(words, context); },
///         [this](const Hits& hits) { show(hits); });
///
/// The work takes a `TaskContext&` or nothing. The second function gets what it returned, on the
/// thread that called `run`, by its loop and never from within `run`, provided the listener still
/// lives; it is called for values only: what the work throws goes to
/// `Thread::setExceptionHandler`'s handler, and a cancelled task is silent. One that takes a
/// `TaskOutcome<R>&` is always called, once, and told which it was.
///
/// A task ends in any order with its listener, its handles and its thread. Handles are copied
/// freely; without any it goes on. As many tasks run at once as `mostAtOnce` says, the others wait
/// for their turn in order. The end of the program waits for work that runs, and drops the others.
/// All functions may be called from any thread.
class TROV_EXPORT Task
{
public:
    /// None: it has ended.
    Task();

    /// Begins a task. With a null listener nothing but its own end and `cancel` ends it; when the
    /// listener ends it is cancelled. `thread`: where the result is wanted, null for the calling
    /// thread; if that has ended by then the result is dropped. What the work has captured is
    /// destroyed by the worker before the result is handed over.
    template <class ListenerPointer, class Work, class Then>
    static Task run(ListenerPointer listener, Work work, Then then, Thread* thread = nullptr);

    /// The same for work whose result nobody wants; what it throws is reported.
    template <class ListenerPointer, class Work>
    static Task run(ListenerPointer listener, Work work)
    {
        return run(listener, std::move(work), [] {});
    }

    /// Asks the work to stop, and takes care that its value is not handed over: who is to get the
    /// outcome and calls this before, on that thread, is told of a cancelled one. Work that has not
    /// begun does not. Nothing happens when the task has ended.
    void cancel();

    /// Whether `cancel` was called in time.
    bool isCancelled() const noexcept;

    /// Whether its outcome is still to come. False, and for good, when `ended` is sent.
    bool isRunning() const noexcept;

    /// What the work said last.
    TaskProgress progress() const;

    /// Sent when the work has said how far it has come, the latest only; first on the thread that
    /// the result is wanted on.
    Signal<void(const TaskProgress&)> progressed() const noexcept;

    /// Sent once, right before the outcome is handed over, so that what shows the progress is gone
    /// when it is. Who connects looks at `isRunning` afterwards, for it may be too late. Not sent
    /// when the thread that the result is wanted on has ended.
    Signal<void()> ended() const noexcept;

    /// At most so many tasks work at a time: some for each processor, since they wait for disks.
    static unsigned mostAtOnce() noexcept;

    /// Whether both are the same task.
    friend bool operator==(const Task&, const Task&) = default;

private:
    explicit Task(std::shared_ptr<detail::TaskState> state) noexcept : m_state(std::move(state)) {}

    std::shared_ptr<detail::TaskState> m_state; // never null
};

namespace detail {

/// What handles, worker and queue share of a task.
class TROV_EXPORT TaskState : public std::enable_shared_from_this<TaskState>
{
public:
    /// Null: it has ended.
    explicit TaskState(Thread* home) : m_home(home), m_life(home ? 0 : Ended) {}
    virtual ~TaskState();
    TaskState(const TaskState&) = delete;
    TaskState& operator=(const TaskState&) = delete;

    void start();
    void cancel();
    void setProgress(TaskProgress progress);
    TaskProgress progress() const;
    bool isCancelled() const noexcept { return (m_life.load() & Cancelled) != 0; }
    bool isRunning() const noexcept { return (m_life.load() & Ended) == 0; }

    /// Whether anybody waits for the result.
    bool isWanted() const noexcept { return !isCancelled() && m_then.isConnected(); }

    /// On the worker's thread: does the work.
    void perform();
    /// Any thread: has the result handed over.
    void finish();

    const ReportingEmitter<void(const TaskProgress&)>& progressed() const { return m_progressed; }
    const ReportingEmitter<void()>& ended() const noexcept { return m_ended; }

protected:
    virtual void work() noexcept = 0;
    virtual void dropWork() noexcept = 0;
    virtual void handOver(bool isCancelled) = 0;
    virtual void cutThen() = 0;

    ConnectionHandle m_then; // set before the start

private:
    enum Life : unsigned char { Cancelled = 1, Ended = 2 };

    struct Finish;
    struct Notice;

    void end();
    void drop();

    const ThreadRef m_home;            // where the result is wanted
    std::atomic<unsigned char> m_life; // of `Life`; what has ended is not cancelled any more
    mutable std::mutex m_mutex;
    TaskProgress m_progress;      // guarded
    bool m_isNoticeOnWay = false; // guarded
    ReportingEmitter<void(const TaskProgress&)> m_progressed;
    ReportingEmitter<void()> m_ended;
};

template <class Work>
concept WorkWithContext = std::invocable<Work&, TaskContext&>;

template <class Work>
struct ResultOfWork : std::invoke_result<Work&>
{};
template <WorkWithContext Work>
struct ResultOfWork<Work> : std::invoke_result<Work&, TaskContext&>
{};

template <class R>
class TaskStateOf : public TaskState
{
public:
    using TaskState::TaskState;

    template <class Then>
    void setThen(Listener* listener, Then then, Thread* thread)
    {
        m_then = m_results.connect(
            listener,
            [function = std::move(then)](TaskOutcome<R>* outcome) mutable {
                give(function, *outcome);
            },
            thread);
    }

protected:
    template <class Work>
    void run(Work& work) noexcept
    {
        try {
            const auto call = [&]() -> decltype(auto) {
                if constexpr (WorkWithContext<Work>) {
                    TaskContext context(*this);
                    return work(context);
                } else {
                    return work();
                }
            };
            if constexpr (std::is_void_v<R>)
                call();
            else
                m_outcome.m_value.emplace(call());
        } catch (const TaskCancelled&) {
            m_outcome.m_isCancelled = true;
        } catch (...) {
            m_outcome.m_error = std::current_exception();
        }
    }

    void handOver(bool isCancelled) override
    {
        m_outcome.m_isCancelled |= isCancelled;
        m_results.report(&m_outcome);
    }
    void cutThen() override { m_results.cutAll(); }

private:
    template <class Then>
    static void give(Then& then, TaskOutcome<R>& outcome)
    {
        if constexpr (std::is_invocable_v<Then&, TaskOutcome<R>&>) {
            std::invoke(then, outcome);
        } else {
            if (outcome.isCancelled())
                return;
            if constexpr (std::is_void_v<R>) {
                outcome.value();
                std::invoke(then);
            } else if constexpr (std::is_invocable_v<Then&, R&&>) {
                std::invoke(then, std::move(outcome.value()));
            } else {
                static_assert(std::is_invocable_v<Then&>,
                              "the second function must take the work's result, a TaskOutcome of "
                              "it, or nothing");
                outcome.value();
                std::invoke(then);
            }
        }
    }

    TaskOutcome<R> m_outcome; // the worker's, then, through the queue, of who wants it
    ReportingEmitter<void(TaskOutcome<R>*)> m_results;
};

template <class R, class Work>
class TaskStateWith final : public TaskStateOf<R>
{
public:
    TaskStateWith(Thread* home, Work work) : TaskStateOf<R>(home), m_work(std::move(work)) {}

private:
    void work() noexcept override { this->run(*m_work); }
    void dropWork() noexcept override { m_work.reset(); }

    std::optional<Work> m_work;
};

} // namespace detail

template <class ListenerPointer, class Work, class Then>
Task Task::run(ListenerPointer listener, Work work, Then then, Thread* thread)
{
    static_assert(detail::WorkWithContext<Work> || std::is_invocable_v<Work&>,
                  "the work must take a TROV::TaskContext&, or nothing");
    using R = std::decay_t<typename detail::ResultOfWork<Work>::type>;
    Thread* const home = thread ? thread : Thread::getCurrentThread();
    if constexpr (std::is_pointer_v<ListenerPointer>)
        static_assert(detail::checkListener<std::remove_pointer_t<ListenerPointer>>());
    const auto state = std::make_shared<detail::TaskStateWith<R, Work>>(home, std::move(work));
    if constexpr (std::is_member_function_pointer_v<Then>) {
        using Object = std::remove_pointer_t<ListenerPointer>;
        state->setThen(listener, detail::MemberHandler<Object, Then>{listener, then}, home);
    } else {
        state->setThen(listener, std::move(then), home);
    }
    state->start();
    return Task(state);
}

} // namespace TROV
