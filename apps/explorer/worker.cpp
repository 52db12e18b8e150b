#include "worker.h"

#include <chrono>

namespace explorer {

namespace {

constexpr std::chrono::seconds IdleTime{1};

} // namespace

Worker::Worker(const VOXI::VXObject2& home)
    : m_home(home.servingThread()),
      m_thread([this] { run(); })
{}

Worker::~Worker()
{
    *m_alive = false;
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_arrival.notify_all();
    m_thread.join();
}

void Worker::post(Job job)
{
    {
        const std::lock_guard lock(m_mutex);
        m_jobs.push_back(std::move(job));
    }
    m_arrival.notify_all();
}

void Worker::postFirst(Job job)
{
    {
        const std::lock_guard lock(m_mutex);
        m_jobs.push_front(std::move(job));
    }
    m_arrival.notify_all();
}

void Worker::setIdleJob(Job job)
{
    const std::lock_guard lock(m_mutex);
    m_idleJob = std::move(job);
}

void Worker::run()
{
    for (;;) {
        Job job;
        {
            std::unique_lock lock(m_mutex);
            const auto isRoused = [this] { return m_ends || !m_jobs.empty(); };
            const bool isIdle = !m_arrival.wait_for(lock, IdleTime, isRoused);
            if (m_ends)
                break;
            if (isIdle) {
                job = m_idleJob;
            } else {
                job = std::move(m_jobs.front());
                m_jobs.pop_front();
            }
        }
        if (job)
            job();
    }
    m_jobs.clear(); // what they hold belongs to this thread
}

} // namespace explorer
