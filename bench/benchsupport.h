#pragma once

#include "voxi/vxobject.h"

#include <QEventLoop>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class QWidget;

namespace benchmark {
class State;
}

namespace bench {

using Clock = std::chrono::steady_clock;

/// Two texts of the same length to change between, as narrow text in Latin-1.
const std::string& labelText(bool second);

/// The Qt widget behind an abstract object; never null for one that has a peer.
QWidget* widgetOf(const VOXI::VXObject* object);

/// Bytes on the heap that are in use. Slow: it looks at every free piece.
std::size_t heapInUse();

/// Runs what the event loop has to do until nothing is left, deferred deletions included.
void settle();

/// A second thread that runs one job at a time. One for the program, alive during all benches.
class Worker
{
public:
    static Worker& instance();

    /// Starts a job; the former one must have ended.
    void start(std::function<void()> job);

    /// Starts a job and runs the event loop of the calling thread until it has ended.
    void runInside(QEventLoop& loop, const std::function<void()>& job);

private:
    Worker();
    ~Worker();

    void run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::function<void()> m_job; // guarded
    bool m_quit = false;         // guarded
    std::thread m_thread;        // last: it uses the others
};

/// Latencies of single calls, for their median and 99th percentile.
class Latencies
{
public:
    void add(Clock::duration time) { m_times.push_back(time); }

    /// Sets the counters p50_ns and p99_ns.
    void report(benchmark::State& state);

private:
    std::vector<Clock::duration> m_times;
};

inline double seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

} // namespace bench
