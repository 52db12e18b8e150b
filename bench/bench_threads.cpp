// What a worker thread asks of the GUI thread, whose Qt event loop runs: queued calls from the
// first sending to the last running, and calls that wait for their answer.

#include "benchsupport.h"
#include "qtcounter.h"
#include "requestcounter.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QPushButton>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using bench::Clock;

constexpr int QueuedCalls = 10'000;
constexpr int BlockingCalls = 1'000;
constexpr int IdleCalls = 500;
// Long enough for both threads to go to sleep, short enough for a bench.
constexpr auto IdleTime = std::chrono::microseconds(400);

/// Times `QueuedCalls` calls of `send(i)` on the worker until the GUI thread has run all of them.
/// `send` must queue exactly one call; `finish` queues its argument behind them.
template <class Send, class Finish>
void timeQueued(benchmark::State& state, Send send, Finish finish)
{
    while (state.KeepRunningBatch(QueuedCalls)) {
        QEventLoop loop;
        Clock::time_point begin;
        Clock::time_point end;
        bench::Worker::instance().runInside(loop, [&] {
            begin = Clock::now();
            for (int i = 0; i < QueuedCalls; ++i)
                send(i);
            finish([&end] { end = Clock::now(); });
        });
        bench::settle();
        state.SetIterationTime(bench::seconds(end - begin));
    }
}

// A small packet behind the others, in the same queue.
template <class Function>
void queueInToolkit(TROV::Thread* thread, Function function)
{
    thread->post(std::move(function));
}

void queuedRequestVoxi(benchmark::State& state)
{
    bench::CounterEmitters emitters;
    bench::CounterPeer peer(emitters);
    TROV::Thread* const gui = TROV::Thread::getCurrentThread();
    timeQueued(
        state, [&](int i) { emitters.count(i); },
        [&](auto function) { queueInToolkit(gui, function); });
    if (peer.m_count != static_cast<long>(state.iterations()))
        state.SkipWithError("requests were lost");
}
BENCHMARK(queuedRequestVoxi)->Name("QueuedRequest/voxi")->UseManualTime();

void queuedRequestQt(benchmark::State& state)
{
    bench::QtCounter counter;
    timeQueued(
        state,
        [&](int i) {
            QMetaObject::invokeMethod(
                &counter, [&counter, i] { counter.count(i); }, Qt::QueuedConnection);
        },
        [&](auto function) {
            QMetaObject::invokeMethod(&counter, function, Qt::QueuedConnection);
        });
    if (counter.m_count != static_cast<long>(state.iterations()))
        state.SkipWithError("calls were lost");
}
BENCHMARK(queuedRequestQt)->Name("QueuedRequest/qt")->UseManualTime();

void queuedSetLabelVoxi(benchmark::State& state)
{
    const auto panel = std::make_unique<VOXI::VXPanel2>();
    auto* button = new VOXI::VXButton2(panel.get());
    TROV::Thread* const gui = TROV::Thread::getCurrentThread();
    timeQueued(
        state, [&](int i) { button->setLabel(bench::labelText(i % 2)); },
        [&](auto function) { queueInToolkit(gui, function); });
}
BENCHMARK(queuedSetLabelVoxi)->Name("QueuedSetLabel/voxi")->UseManualTime();

void queuedSetLabelQt(benchmark::State& state)
{
    const auto panel = std::make_unique<QWidget>();
    auto* button = new QPushButton(panel.get());
    timeQueued(
        state,
        [&](int i) {
            const std::string& text = bench::labelText(i % 2);
            QMetaObject::invokeMethod(
                button,
                [button,
                 label = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()))] {
                    button->setText(label);
                },
                Qt::QueuedConnection);
        },
        [&](auto function) { QMetaObject::invokeMethod(button, function, Qt::QueuedConnection); });
}
BENCHMARK(queuedSetLabelQt)->Name("QueuedSetLabel/qt")->UseManualTime();

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

void blockingRequest(benchmark::State& state, Ask ask)
{
    Asked asked;
    bench::Latencies latencies;
    long wrong = 0;
    while (state.KeepRunningBatch(BlockingCalls)) {
        QEventLoop loop;
        Clock::duration time{};
        bench::Worker::instance().runInside(loop, [&] {
            const Clock::time_point begin = Clock::now();
            Clock::time_point last = begin;
            for (int i = 0; i < BlockingCalls; ++i) {
                wrong += ask(asked, i) != i + 1;
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
BENCHMARK_CAPTURE(blockingRequest, voxi, &askVoxi)->Name("BlockingRequest/voxi")->UseManualTime();
BENCHMARK_CAPTURE(blockingRequest, qt, &askQt)->Name("BlockingRequest/qt")->UseManualTime();

/// Before each question both threads sleep. The sides take turns question by question whichever is
/// being timed, so that both meet the processor in the same state.
void blockingRequestIdle(benchmark::State& state, Ask ask, Ask other)
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
                wrong += other(asked, i) != i + 1;
                std::this_thread::sleep_for(IdleTime);
                const Clock::time_point begin = Clock::now();
                wrong += ask(asked, i) != i + 1;
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
BENCHMARK_CAPTURE(blockingRequestIdle, voxi, &askVoxi, &askQt)
    ->Name("BlockingRequestIdle/voxi")
    ->UseManualTime()
    ->Iterations(4 * IdleCalls);
BENCHMARK_CAPTURE(blockingRequestIdle, qt, &askQt, &askVoxi)
    ->Name("BlockingRequestIdle/qt")
    ->UseManualTime()
    ->Iterations(4 * IdleCalls);

} // namespace
