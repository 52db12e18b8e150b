#include "worker.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace explorer {

namespace {

constexpr std::chrono::seconds IdleTime{1};

} // namespace

struct Worker::Queue
{
    /// False when nobody is there any more to do it.
    bool add(Job& job, bool isFirst)
    {
        {
            const std::lock_guard lock(m_mutex);
            if (m_isOver)
                return false;
            m_jobs.insert(isFirst ? m_jobs.begin() : m_jobs.end(), std::move(job));
        }
        m_arrival.notify_all();
        return true;
    }

    void end()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_ends = true;
        }
        m_arrival.notify_all();
    }

    void run()
    {
        while (const Job job = next())
            job();
        drop();
    }

    std::mutex m_mutex;
    std::condition_variable m_arrival;
    std::deque<Job> m_jobs; // guarded, as the next ones are
    Job m_idleJob;
    bool m_ends = false;
    bool m_isOver = false;

private:
    /// None at the end.
    Job next()
    {
        std::unique_lock lock(m_mutex);
        const auto isRoused = [this] { return m_ends || !m_jobs.empty(); };
        while (!m_arrival.wait_for(lock, IdleTime, isRoused)) {
            if (m_idleJob)
                return m_idleJob;
        }
        if (m_ends)
            return {};
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        return job;
    }

    /// What jobs hold belongs to this thread, and may have others brought here.
    void drop()
    {
        for (;;) {
            std::deque<Job> dropped;
            const std::lock_guard lock(m_mutex);
            if (m_jobs.empty()) {
                m_isOver = true;
                return;
            }
            dropped.swap(m_jobs);
        }
    }
};

Worker::Worker(const VOXI::VXObject2& home)
    : m_home(home.servingThread()),
      m_queue(std::make_shared<Queue>()),
      m_thread([queue = m_queue] { queue->run(); })
{}

Worker::~Worker()
{
    *m_alive = false;
    m_queue->end();
    m_thread.join();
}

void Worker::post(Job job) { m_queue->add(job, false); }
void Worker::postFirst(Job job) { m_queue->add(job, true); }

void Worker::setIdleJob(Job job)
{
    const std::lock_guard lock(m_queue->m_mutex);
    m_queue->m_idleJob = std::move(job);
}

void Worker::release(Queue& queue, std::shared_ptr<void> what)
{
    Job drop = [what = std::move(what)] {};
    queue.add(drop, false);
}

} // namespace explorer
