#include "taskpool.h"

#include "trov/task.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace TROV::detail {

/// Ends the threads when the program ends; what is static and older may still be used by them.
struct TaskPool::Ending
{
    TaskPool& m_pool;
    ~Ending() { m_pool.end(); }
};

TaskPool& TaskPool::instance()
{
    static auto* const pool = new TaskPool;
    static const Ending ending{*pool};
    return *pool;
}

unsigned TaskPool::mostThreads() noexcept
{
    return std::max(8u, 2 * std::thread::hardware_concurrency());
}

void TaskPool::add(const std::shared_ptr<TaskState>& task)
{
    {
        const std::lock_guard lock(m_mutex);
        if (!m_ends) {
            m_waiting.push_back(task);
            if (m_idle < m_waiting.size() && m_threads.size() < mostThreads())
                addThread();
            m_arrival.notify_one();
            return;
        }
    }
    task->cancel();
    task->finish();
}

void TaskPool::addThread()
{
    try {
        m_threads.emplace_back([this] { run(); });
    } catch (const std::system_error&) {
        // Those that are there do it later.
        if (!m_threads.empty())
            return;
        m_waiting.pop_back();
        throw;
    }
}

bool TaskPool::remove(const TaskState& task)
{
    const std::lock_guard lock(m_mutex);
    return std::erase_if(m_waiting, [&](const auto& each) { return each.get() == &task; }) != 0;
}

void TaskPool::run()
{
    for (std::unique_lock lock(m_mutex);; lock.lock()) {
        ++m_idle;
        m_arrival.wait(lock, [this] { return m_ends || !m_waiting.empty(); });
        --m_idle;
        if (m_ends)
            return;
        std::shared_ptr<TaskState> task = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_running.push_back(task);
        lock.unlock();
        task->perform();
        lock.lock();
        std::erase(m_running, task);
        lock.unlock();
        // What goes with the last reference may do anything.
        task.reset();
    }
}

void TaskPool::end()
{
    std::deque<std::shared_ptr<TaskState>> dropped;
    std::vector<std::shared_ptr<TaskState>> running;
    std::vector<std::thread> threads;
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
        dropped.swap(m_waiting);
        running = m_running;
        threads.swap(m_threads);
    }
    m_arrival.notify_all();
    for (const auto& task : running)
        task->cancel();
    for (const auto& task : dropped) {
        task->cancel();
        task->finish();
    }
    for (std::thread& thread : threads) {
        // Work may have ended the program itself.
        if (thread.get_id() == std::this_thread::get_id())
            thread.detach();
        else
            thread.join();
    }
}

} // namespace TROV::detail
