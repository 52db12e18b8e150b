#include "support/watchdog.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

namespace VOXI {

namespace {

void printThreads()
{
    std::error_code error;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task", error)) {
        std::ifstream comm(task.path() / "comm");
        std::string name;
        std::getline(comm, name);
        std::fprintf(stderr, "  thread %s: %s\n", task.path().filename().c_str(), name.c_str());
    }
}

} // namespace

Watchdog::Watchdog(std::chrono::seconds limit, std::string what)
    : m_limit(limit),
      m_what(std::move(what)),
      m_thread([this] { watch(); })
{}

Watchdog::~Watchdog()
{
    {
        const std::lock_guard lock(m_mutex);
        m_done = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void Watchdog::watch()
{
    std::unique_lock lock(m_mutex);
    if (m_wake.wait_for(lock, m_limit, [this] { return m_done; }))
        return;
    std::fprintf(stderr, "watchdog: no end after %lld s: %s\n",
                 static_cast<long long>(m_limit.count()), m_what.c_str());
    printThreads();
    std::fflush(stderr);
    std::abort();
}

} // namespace VOXI
