#pragma once

#include "trov/thread.h"

#include <functional>
#include <future>
#include <thread>
#include <type_traits>

namespace TROV {

/// What `function` gives when that thread runs it for the one that asks, who waits.
template <class Function>
auto ask(Thread* thread, Function function)
{
    return thread->callAndWait<std::invoke_result_t<Function>>(
        nullptr, nullptr, [] { return true; }, std::move(function));
}

/// A thread that runs `exec()` until the object goes.
class Worker
{
public:
    Worker()
        : m_os([this] {
              m_born.set_value(Thread::getCurrentThread());
              Thread::getCurrentThread()->exec();
          })
    {
        m_thread = m_born.get_future().get();
    }
    ~Worker() { stop(); }

    Thread* thread() const { return m_thread; }

    void stop()
    {
        if (!m_os.joinable())
            return;
        m_thread->quit();
        m_os.join();
    }

    /// Runs `function` on the thread and returns when it has run, without a TROV wait.
    void run(std::function<void()> function)
    {
        std::promise<void> done;
        m_thread->post([&] {
            function();
            done.set_value();
        });
        done.get_future().get();
    }

private:
    std::promise<Thread*> m_born;
    Thread* m_thread = nullptr;
    std::thread m_os;
};

} // namespace TROV
