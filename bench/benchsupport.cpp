#include "benchsupport.h"

#include "voxi/guiobject.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <utility>

namespace bench {

const std::string& labelText(bool second)
{
    static const std::string texts[] = {"Apply changes", "Close project"};
    return texts[second ? 1 : 0];
}

QWidget* widgetOf(const VOXI::VXObject* object)
{
    return dynamic_cast<QWidget*>(VOXI::lookup(object));
}

std::size_t heapInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
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
