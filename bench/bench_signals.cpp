// Emitting a signal to nobody, one and ten listeners on the same thread: again and again from the
// same sender, and from many senders in random order, where memory counts.

#include "qtcounter.h"
#include "requestcounter.h"
#include "trov/emitter.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t ColdSenders = 20'000;

struct VoxiCounter : TROV::Listener
{
    void count(int value)
    {
        m_sum += value;
        ++m_count;
    }

    long m_sum = 0;
    long m_count = 0;
};

/// A toolkit signal on its own, in an object that may have more.
struct VoxiSender
{
    void send(int value) const { m_changed(value); }
    void connect(VoxiCounter& counter) { m_changed.connect(&counter, &VoxiCounter::count); }

    TROV::Emitter1<void, int> m_changed;
};

/// An event of an abstract object.
struct VoxiTableSender
{
    void send(int value) const { m_emitters.changed(value); }
    void connect(VoxiCounter& counter)
    {
        m_emitters.changed.signal().connect(&counter, &VoxiCounter::count);
    }

    bench::CounterEmitters m_emitters;
};

struct QtSenderAndConnect : bench::QtSender
{
    void connect(bench::QtCounter& counter)
    {
        QObject::connect(this, &QtSender::changed, &counter, &bench::QtCounter::count,
                         Qt::DirectConnection);
    }
};

template <class Sender, class Counter>
void emitHot(benchmark::State& state, int listeners)
{
    std::vector<std::unique_ptr<Counter>> counters;
    Sender sender;
    for (int i = 0; i < listeners; ++i) {
        counters.push_back(std::make_unique<Counter>());
        sender.connect(*counters.back());
    }
    int value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(sender);
        sender.send(++value);
    }
    for (const auto& counter : counters) {
        if (counter->m_count != static_cast<long>(state.iterations()))
            state.SkipWithError("a listener missed emissions");
    }
}

/// All senders in random order per iteration; every listener has one sender.
template <class Sender, class Counter>
void emitCold(benchmark::State& state, int listeners)
{
    std::vector<std::unique_ptr<Counter>> counters;
    std::vector<std::unique_ptr<Sender>> senders;
    for (std::size_t i = 0; i < ColdSenders; ++i) {
        senders.push_back(std::make_unique<Sender>());
        for (int k = 0; k < listeners; ++k) {
            counters.push_back(std::make_unique<Counter>());
            senders.back()->connect(*counters.back());
        }
    }
    std::shuffle(senders.begin(), senders.end(), std::mt19937(1));
    while (state.KeepRunningBatch(ColdSenders)) {
        for (const auto& sender : senders)
            sender->send(1);
    }
    for (const auto& counter : counters) {
        if (counter->m_count * static_cast<long>(ColdSenders)
            != static_cast<long>(state.iterations()))
            state.SkipWithError("a listener missed emissions");
    }
}

template <class Sender, class Counter>
void addPair(const char* side, const char* kind)
{
    for (const int listeners : {0, 1, 10}) {
        const std::string name = kind + std::to_string(listeners);
        benchmark::RegisterBenchmark((name + '/' + side).c_str(), &emitHot<Sender, Counter>,
                                     listeners);
        benchmark::RegisterBenchmark((name + "Cold/" + side).c_str(), &emitCold<Sender, Counter>,
                                     listeners);
    }
}

const bool s_added = [] {
    addPair<VoxiSender, VoxiCounter>("voxi", "Emit");
    addPair<QtSenderAndConnect, bench::QtCounter>("qt", "Emit");
    addPair<VoxiTableSender, VoxiCounter>("voxi", "EmitEvent");
    addPair<QtSenderAndConnect, bench::QtCounter>("qt", "EmitEvent");
    return true;
}();

} // namespace
