#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace TROV::detail {

class TaskState;

/// The threads that do the work of tasks, made as they are needed, and the tasks that wait for one.
/// It lives as long as the process; its threads end with the program.
class TaskPool
{
public:
    static TaskPool& instance();
    static unsigned mostThreads() noexcept;

    /// After the program's end has begun the task is dropped.
    void add(const std::shared_ptr<TaskState>& task);

    /// Whether the task was still waiting, and does not any more.
    bool remove(const TaskState& task);

private:
    struct Ending;

    TaskPool() = default;
    void run();
    void addThread(); // mutex held
    void end();

    std::mutex m_mutex;
    std::condition_variable m_arrival;
    std::deque<std::shared_ptr<TaskState>> m_waiting;
    std::vector<std::shared_ptr<TaskState>> m_running;
    std::vector<std::thread> m_threads;
    unsigned m_idle = 0; // threads that wait
    bool m_ends = false;
};

} // namespace TROV::detail
