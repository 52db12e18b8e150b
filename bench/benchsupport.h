#pragma once

#include "heap.h"
#include "voxi/vxobject.h"

#include <QEventLoop>
#include <QString>

#include <benchmark/benchmark.h>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class QWidget;

namespace bench {

using Clock = std::chrono::steady_clock;

/// One job done by both sides, as the benches NAME/voxi and NAME/qt. What the plain side does, and
/// what the goals are, is said in pairs.json.
struct Pair
{
    std::string m_name;
    std::function<void(benchmark::State&)> m_voxi;
    std::function<void(benchmark::State&)> m_qt;
    std::int64_t m_iterations = 0; ///< 0: as many as good figures take
};

/// Each bench says itself what of it is timed: with `repeat`, `measure` or `SetIterationTime`.
bool addPairs(std::initializer_list<Pair> pairs);

/// Runs the part of a bench that is timed, by what this thread uses of a processor: what else the
/// machine does adds little to it. Where instructions are counted, they are those in here:
/// tools/bench_counts.py knows this function by its name.
void measure(benchmark::State& state, const std::function<void()>& job);

/// The whole bench is one job, again and again; so many in one measurement that neither the clock
/// nor the first one counts.
template <class Job>
void repeat(benchmark::State& state, Job job, benchmark::IterationCount batch = 1)
{
    while (state.KeepRunningBatch(batch)) {
        measure(state, [&] {
            for (benchmark::IterationCount i = 0; i < batch; ++i)
                job();
        });
    }
}

constexpr benchmark::IterationCount ShortJobs = 10'000;

/// What stays on the heap, for each of some objects, since this was made. Means nothing but in a
/// fresh process, where no block of former jobs is used again.
class HeapGrowth
{
public:
    void report(benchmark::State& state, std::int64_t objects) const;

private:
    std::size_t m_before = heapInUse();
};

/// Two texts of the same length to change between, as each side has its texts.
const std::string& labelText(bool second);
const QString& qtLabelText(bool second);

/// The Qt widget behind an abstract object; never null for one that has a peer.
QWidget* widgetOf(const VOXI::VXObject* object);
inline QWidget* widgetOf(QWidget* widget) { return widget; }

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

inline double seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

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

} // namespace bench
