#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace VOXI {

/// Ends the process when the scope it guards does not: a test that hangs in a wait dies with a
/// message and the names of its threads instead of waiting for ctest's time limit.
/// Any thread; the message goes to stderr.
class Watchdog
{
public:
    explicit Watchdog(std::chrono::seconds limit, std::string what = {});
    ~Watchdog();

    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

private:
    void watch();

    const std::chrono::seconds m_limit;
    const std::string m_what;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::thread m_thread;
};

} // namespace VOXI
