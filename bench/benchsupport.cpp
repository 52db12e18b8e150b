#include "benchsupport.h"

#include "voxi/guiobject.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <ctime>
#include <utility>

namespace bench {

bool addPairs(std::initializer_list<Pair> pairs)
{
    for (const Pair& pair : pairs) {
        for (const auto& [side, function] : {std::pair("/voxi", pair.m_voxi), {"/qt", pair.m_qt}}) {
            auto* bench = benchmark::RegisterBenchmark((pair.m_name + side).c_str(), function);
            bench->UseManualTime();
            if (pair.m_iterations != 0)
                bench->Iterations(pair.m_iterations);
        }
    }
    return true;
}

void measure(benchmark::State& state, const std::function<void()>& job)
{
    const auto seconds = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    const double begin = seconds();
    job();
    state.SetIterationTime(seconds() - begin);
}

void HeapGrowth::report(benchmark::State& state, std::int64_t objects) const
{
    const auto growth = static_cast<double>(heapInUse()) - static_cast<double>(m_before);
    state.counters["bytes"] = growth / static_cast<double>(objects);
}

const std::string& labelText(bool second)
{
    static const std::string texts[] = {"Apply changes", "Close project"};
    return texts[second ? 1 : 0];
}

const QString& qtLabelText(bool second)
{
    static const QString texts[] = {QString::fromStdString(labelText(false)),
                                    QString::fromStdString(labelText(true))};
    return texts[second ? 1 : 0];
}

QWidget* widgetOf(const VOXI::VXObject* object)
{
    return dynamic_cast<QWidget*>(VOXI::lookup(object));
}

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// Worker ------------------------------------------------------------------------------------------

Worker& Worker::instance()
{
    static Worker worker;
    return worker;
}

Worker::Worker() : m_thread([this] { run(); }) {}

Worker::~Worker()
{
    {
        std::lock_guard lock(m_mutex);
        m_quit = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

void Worker::start(std::function<void()> job)
{
    {
        std::lock_guard lock(m_mutex);
        m_job = std::move(job);
    }
    m_wake.notify_one();
}

void Worker::runInside(QEventLoop& loop, const std::function<void()>& job)
{
    start([&] {
        job();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
}

void Worker::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_quit || m_job; });
        if (m_quit)
            return;
        const auto job = std::exchange(m_job, nullptr);
        lock.unlock();
        job();
        lock.lock();
    }
}

// Latencies ---------------------------------------------------------------------------------------

void Latencies::report(benchmark::State& state)
{
    if (m_times.empty())
        return;
    const auto percentile = [this](std::size_t percent) {
        const auto at =
            m_times.begin() + static_cast<std::ptrdiff_t>((m_times.size() - 1) * percent / 100);
        std::nth_element(m_times.begin(), at, m_times.end());
        return std::chrono::duration<double, std::nano>(*at).count();
    };
    state.counters["p50_ns"] = percentile(50);
    state.counters["p99_ns"] = percentile(99);
}

} // namespace bench
