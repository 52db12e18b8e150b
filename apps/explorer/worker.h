#pragma once

#include "voxi2/kernel/vxobject2.h"

#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <utility>

namespace explorer {

/// A thread that does the work of one file, one job after the other. Jobs never touch the toolkit;
/// what they have found out goes back to the thread that made the worker.
class Worker
{
public:
    using Job = std::function<void()>;

    /// Outcomes are delivered on the toolkit's thread, which serves `home`.
    explicit Worker(const VOXI::VXObject2& home);
    /// Waits for the job that runs; the others are dropped, and so is what is on its way back.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Behind all others.
    void post(Job job);
    /// Before all others: what somebody looks at right now.
    void postFirst(Job job);
    /// Done about once a second while there is nothing else to do.
    void setIdleJob(Job job);

    /// Has the toolkit's thread run something, unless the worker has ended by then. Called by jobs.
    template <class Function>
    void deliver(Function function) const
    {
        m_home->post([alive = m_alive, function = std::move(function)]() mutable {
            if (*alive)
                function();
        });
    }

    struct Queue;
    /// The jobs; may outlive the worker.
    const std::shared_ptr<Queue>& queue() const noexcept { return m_queue; }
    /// Has the worker let go of what belongs to it, from any thread; one that is over has it done
    /// at once.
    static void release(Queue& queue, std::shared_ptr<void> what);

private:
    using Home = std::remove_pointer_t<decltype(std::declval<VOXI::VXObject2>().servingThread())>;

    Home* const m_home;
    const std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); // of the home thread's
    const std::shared_ptr<Queue> m_queue;
    std::thread m_thread; // the last: it uses the others
};

} // namespace explorer
