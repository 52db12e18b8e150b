// What a worker thread asks of the GUI thread, whose Qt event loop runs: queued calls from the
// first sending to the last running, a form of widgets, and calls that wait for their answer.

#include "benchsupport.h"
#include "qtcounter.h"
#include "qtform.h"
#include "requestcounter.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxiform.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QThread>

#include <future>
#include <memory>
#include <optional>
#include <sched.h>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using bench::Clock;

constexpr int QueuedCalls = 10'000;
constexpr int BlockingCalls = 1'000;
constexpr int IdleCalls = 500;
// Long enough for both threads to go to sleep, short enough for a bench.
constexpr auto IdleTime = std::chrono::microseconds(400);

/// Times `work` on the worker, and what it queues, until the last of it has run. `finish` queues
/// its argument behind the rest.
template <class Work, class Finish>
void timeOnWorker(benchmark::State& state, Work work, Finish finish)
{
    QEventLoop loop;
    Clock::duration time{};
    bench::Worker::instance().runInside(loop, [&] {
        std::promise<Clock::time_point> end;
        const Clock::time_point begin = Clock::now();
        work();
        finish([&end] { end.set_value(Clock::now()); });
        time = end.get_future().get() - begin;
    });
    bench::settle();
    state.SetIterationTime(bench::seconds(time));
}

/// The same for many calls of `send(i)`, each of which queues one.
template <class Send, class Finish>
void timeQueued(benchmark::State& state, Send send, Finish finish)
{
    while (state.KeepRunningBatch(QueuedCalls)) {
        timeOnWorker(
            state,
            [&send] {
                for (int i = 0; i < QueuedCalls; ++i)
                    send(i);
            },
            finish);
    }
}

/// Queues behind what was sent to the GUI thread, for `timeOnWorker`.
auto finishInToolkit()
{
    return [gui = TROV::Thread::getCurrentThread()](auto function) { gui->post(function); };
}
auto finishInQt(QObject* receiver)
{
    return [receiver](auto function) {
        QMetaObject::invokeMethod(receiver, function, Qt::QueuedConnection);
    };
}

void queuedRequestVoxi(benchmark::State& state)
{
    bench::CounterEmitters emitters;
    bench::CounterPeer peer(emitters);
    timeQueued(
        state, [&](int i) { emitters.count(i); }, finishInToolkit());
    if (peer.m_count != static_cast<long>(state.iterations()))
        state.SkipWithError("requests were lost");
}

void queueInQt(benchmark::State& state, bench::QtCounter& counter)
{
    timeQueued(
        state,
        [&](int i) {
            QMetaObject::invokeMethod(
                &counter, [&counter, i] { counter.count(i); }, Qt::QueuedConnection);
        },
        finishInQt(&counter));
    if (counter.m_count != static_cast<long>(state.iterations()))
        state.SkipWithError("calls were lost");
}

void queuedRequestQt(benchmark::State& state)
{
    bench::QtCounter counter;
    queueInQt(state, counter);
}

/// The receiver is a thread whose loop is Qt's own: in the GUI thread's, GLib's is chosen before
/// the first bench runs.
void queuedRequestQtNoGlib(benchmark::State& state)
{
    bench::QtCounter counter;
    QThread thread;
    counter.moveToThread(&thread);
    const bool hadGlib = qEnvironmentVariableIsEmpty("QT_NO_GLIB");
    qputenv("QT_NO_GLIB", "1");
    std::promise<void> started;
    QObject::connect(
        &thread, &QThread::started, &thread, [&started] { started.set_value(); },
        Qt::DirectConnection);
    thread.start();
    started.get_future().wait();
    if (hadGlib)
        qunsetenv("QT_NO_GLIB");
    queueInQt(state, counter);
    thread.quit();
    thread.wait();
}

void queuedSetLabelVoxi(benchmark::State& state)
{
    const auto panel = std::make_unique<VOXI::VXPanel2>();
    auto* button = new VOXI::VXButton2(panel.get());
    timeQueued(
        state, [&](int i) { button->setLabel(bench::labelText(i % 2)); }, finishInToolkit());
}

void queuedSetLabelQt(benchmark::State& state)
{
    const auto panel = std::make_unique<QWidget>();
    auto* button = new QPushButton(panel.get());
    timeQueued(
        state,
        [&](int i) {
            QMetaObject::invokeMethod(
                button, [button, label = bench::qtLabelText(i % 2)] { button->setText(label); },
                Qt::QueuedConnection);
        },
        finishInQt(button));
}

// Building ----------------------------------------------------------------------------------------

constexpr int BuiltRows = 100; // of three widgets each

void buildFromWorkerVoxi(benchmark::State& state)
{
    for (auto _ : state) {
        std::optional<bench::VoxiForm> form;
        timeOnWorker(
            state,
            [&form] {
                form.emplace().addRows(BuiltRows);
                form->showUnpainted();
            },
            finishInToolkit());
        if (bench::widgetOf(form->m_rows.back()[2])->isHidden())
            state.SkipWithError("the form is not shown");
    }
}

void buildFromWorkerQt(benchmark::State& state)
{
    for (auto _ : state) {
        std::optional<bench::QtForm> form;
        timeOnWorker(
            state,
            [&form] {
                QMetaObject::invokeMethod(
                    qApp,
                    [&form] {
                        form.emplace().addRows(BuiltRows);
                        form->showUnpainted();
                    },
                    Qt::BlockingQueuedConnection);
            },
            finishInQt(qApp));
    }
}

// Waiting for the answer --------------------------------------------------------------------------

/// The two ways to ask the GUI thread for one number more; made on the GUI thread.
struct Asked
{
    bench::CounterEmitters m_emitters;
    bench::CounterPeer m_peer{m_emitters};
    bench::QtCounter m_counter;

    int askVoxi(int value) const { return m_emitters.answer(value); }

    int askQt(int value)
    {
        int answer = 0;
        QMetaObject::invokeMethod(
            &m_counter, [this, value] { return m_counter.answer(value); },
            Qt::BlockingQueuedConnection, &answer);
        return answer;
    }
};

using Ask = int (*)(Asked&, int);

int askVoxi(Asked& asked, int value) { return asked.askVoxi(value); }
int askQt(Asked& asked, int value) { return asked.askQt(value); }

/// Keeps the calling thread on the first of the processors that it may use.
class OneProcessor
{
public:
    OneProcessor()
    {
        sched_getaffinity(0, sizeof m_former, &m_former);
        int first = 0;
        while (!CPU_ISSET(first, &m_former))
            ++first;
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(first, &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OneProcessor() { sched_setaffinity(0, sizeof m_former, &m_former); }
    OneProcessor(const OneProcessor&) = delete;
    OneProcessor& operator=(const OneProcessor&) = delete;

private:
    cpu_set_t m_former;
};

/// As many threads as processors that have something else to do all the time.
class BusyProcessors
{
public:
    BusyProcessors()
    {
        for (unsigned i = 0; i < std::thread::hardware_concurrency(); ++i)
            m_threads.emplace_back([](const std::stop_token& token) {
                while (!token.stop_requested()) {
                }
            });
    }

private:
    std::vector<std::jthread> m_threads;
};

struct Unhindered
{};

/// Question after question. `Where` is what both threads have to put up with meanwhile.
template <Ask TheAsk, class Where>
void blockingRequest(benchmark::State& state)
{
    constexpr bool isOneProcessor = std::is_same_v<Where, OneProcessor>;
    Asked asked;
    bench::Latencies latencies;
    long wrong = 0;
    [[maybe_unused]] const Where guiThread;
    while (state.KeepRunningBatch(BlockingCalls)) {
        QEventLoop loop;
        Clock::duration time{};
        bench::Worker::instance().runInside(loop, [&] {
            [[maybe_unused]] const std::conditional_t<isOneProcessor, Where, Unhindered> worker;
            const Clock::time_point begin = Clock::now();
            Clock::time_point last = begin;
            for (int i = 0; i < BlockingCalls; ++i) {
                wrong += TheAsk(asked, i) != i + 1;
                const Clock::time_point now = Clock::now();
                latencies.add(now - last);
                last = now;
            }
            time = last - begin;
        });
        state.SetIterationTime(bench::seconds(time));
    }
    latencies.report(state);
    if (wrong != 0)
        state.SkipWithError("wrong answers");
}

/// Before each question both threads sleep. The sides take turns question by question whichever is
/// being timed, so that both meet the processor in the same state.
template <Ask TheAsk, Ask Other>
void blockingRequestIdle(benchmark::State& state)
{
    Asked asked;
    bench::Latencies latencies;
    long wrong = 0;
    while (state.KeepRunningBatch(IdleCalls)) {
        QEventLoop loop;
        Clock::duration time{};
        bench::Worker::instance().runInside(loop, [&] {
            for (int i = 0; i < IdleCalls; ++i) {
                std::this_thread::sleep_for(IdleTime);
                wrong += Other(asked, i) != i + 1;
                std::this_thread::sleep_for(IdleTime);
                const Clock::time_point begin = Clock::now();
                wrong += TheAsk(asked, i) != i + 1;
                const Clock::duration taken = Clock::now() - begin;
                latencies.add(taken);
                time += taken;
            }
        });
        state.SetIterationTime(bench::seconds(time));
    }
    latencies.report(state);
    if (wrong != 0)
        state.SkipWithError("wrong answers");
}

const bool s_added = bench::addPairs({
    {"QueuedRequest", queuedRequestVoxi, queuedRequestQt},
    {"QueuedRequestNoGlib", queuedRequestVoxi, queuedRequestQtNoGlib},
    {"QueuedSetLabel", queuedSetLabelVoxi, queuedSetLabelQt},
    {"BuildFromWorker300", buildFromWorkerVoxi, buildFromWorkerQt},
    {"BlockingRequest", blockingRequest<askVoxi, Unhindered>, blockingRequest<askQt, Unhindered>},
    {"BlockingRequestPinned", blockingRequest<askVoxi, OneProcessor>,
     blockingRequest<askQt, OneProcessor>},
    {"BlockingRequestBusy", blockingRequest<askVoxi, BusyProcessors>,
     blockingRequest<askQt, BusyProcessors>},
    {"BlockingRequestIdle", blockingRequestIdle<askVoxi, askQt>,
     blockingRequestIdle<askQt, askVoxi>, 4 * IdleCalls},
});

} // namespace
