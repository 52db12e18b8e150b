#include "trov/task.h"

#include "taskpool.h"

#include <algorithm>

namespace TROV {

using detail::TaskPool;
using detail::TaskState;

TaskCancelled::~TaskCancelled() = default;

const char* TaskCancelled::what() const noexcept { return "the task was cancelled"; }

// What the work sees
// -------------------------------------------------------------------------------

bool TaskContext::isCancelled() const noexcept { return !m_state->isWanted(); }

void TaskContext::throwIfCancelled() const
{
    if (isCancelled())
        throw TaskCancelled();
}

void TaskContext::setProgress(double fraction, const VOXI::AnyText& text)
{
    const bool isKnown = fraction >= 0;
    m_state->setProgress({isKnown ? std::min(fraction, 1.0) : -1, text.toWide()});
}

// Handles -----------------------------------------------------------------------------------------

namespace {

class NoTask final : public TaskState
{
public:
    NoTask() : TaskState(nullptr) {}

private:
    void work() noexcept override {}
    void dropWork() noexcept override {}
    void handOver(bool) override {}
    void cutThen() override {}
};

} // namespace

Task::Task() : m_state(std::make_shared<NoTask>()) {}

void Task::cancel() { m_state->cancel(); }

bool Task::isCancelled() const noexcept { return m_state->isCancelled(); }

bool Task::isRunning() const noexcept { return m_state->isRunning(); }

TaskProgress Task::progress() const { return m_state->progress(); }

Signal<void(const TaskProgress&)> Task::progressed() const noexcept
{
    return m_state->progressed().signal();
}

Signal<void()> Task::ended() const noexcept { return m_state->ended().signal(); }

unsigned Task::mostAtOnce() noexcept { return TaskPool::mostThreads(); }

// What they share ---------------------------------------------------------------------------------

namespace detail {

/// On its way to the thread that wants the result. Where it is dropped, the task's connections go:
/// what they hold may hold the task.
struct TaskState::Finish
{
    std::shared_ptr<TaskState> m_state;

    explicit Finish(std::shared_ptr<TaskState> state) : m_state(std::move(state)) {}
    Finish(Finish&&) noexcept = default;
    ~Finish()
    {
        if (m_state)
            m_state->drop();
    }
    void deliver() { m_state->end(); }
};

struct TaskState::Notice
{
    std::shared_ptr<TaskState> m_state;

    void deliver() const
    {
        TaskProgress progress;
        {
            const std::lock_guard lock(m_state->m_mutex);
            m_state->m_isNoticeOnWay = false;
            progress = m_state->m_progress;
        }
        m_state->m_progressed.report(progress);
    }
};

TaskState::~TaskState() = default;

void TaskState::start()
{
    try {
        TaskPool::instance().add(shared_from_this());
    } catch (...) {
        drop();
        throw;
    }
}

void TaskState::cancel()
{
    unsigned char life = 0;
    if (m_life.compare_exchange_strong(life, Cancelled) && TaskPool::instance().remove(*this))
        finish();
}

void TaskState::setProgress(TaskProgress progress)
{
    {
        const std::lock_guard lock(m_mutex);
        m_progress = std::move(progress);
        if (m_isNoticeOnWay || !m_progressed.isHeard())
            return;
        m_isNoticeOnWay = true;
    }
    m_home->enqueue(Notice{shared_from_this()});
}

TaskProgress TaskState::progress() const
{
    const std::lock_guard lock(m_mutex);
    return m_progress;
}

void TaskState::perform()
{
    if (isWanted()) {
        // What others send to this thread, because the work listens, is run if the work runs a
        // loop, and dropped with its end.
        Thread* const self = Thread::getCurrentThread();
        self->bindWakeUp([] {});
        work();
        self->unbindWakeUp();
    }
    finish();
}

void TaskState::finish()
{
    dropWork();
    m_home->enqueue(Finish(shared_from_this()));
}

void TaskState::end()
{
    m_life.fetch_or(Ended);
    m_ended.report();
    handOver(isCancelled());
}

void TaskState::drop()
{
    m_life.fetch_or(Ended);
    m_progressed.cutAll();
    m_ended.cutAll();
    cutThen();
    m_then = {}; // the work, which looks at it, is over
}

} // namespace detail
} // namespace TROV
