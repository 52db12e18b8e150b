// Emitting a signal to nobody, one and ten listeners on the same thread: again and again from the
// same sender, and from many senders in random order, where memory counts. And connecting many.

#include "benchsupport.h"
#include "qtcounter.h"
#include "requestcounter.h"
#include "trov/emitter.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::size_t ColdSenders = 20'000;
constexpr std::size_t ManyListeners = 1'000;

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
    const auto job = [&] {
        benchmark::DoNotOptimize(sender);
        sender.send(++value);
    };
    bench::repeat(state, job, bench::ShortJobs);
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
        bench::measure(state, [&senders] {
            for (const auto& sender : senders)
                sender->send(1);
        });
    }
    for (const auto& counter : counters) {
        if (counter->m_count * static_cast<long>(ColdSenders)
            != static_cast<long>(state.iterations()))
            state.SkipWithError("a listener missed emissions");
    }
}

/// So many listeners come to one sender, and go, the eldest first.
template <class Sender, class Counter, bool IsEndTimed>
void connectMany(benchmark::State& state)
{
    while (state.KeepRunningBatch(ManyListeners)) {
        std::vector<std::unique_ptr<Counter>> counters;
        for (std::size_t i = 0; i < ManyListeners; ++i)
            counters.push_back(std::make_unique<Counter>());
        Sender sender;
        const auto connect = [&] {
            for (const auto& counter : counters)
                sender.connect(*counter);
        };
        if constexpr (IsEndTimed) {
            connect();
            bench::measure(state, [&counters] {
                for (auto& counter : counters)
                    counter.reset();
            });
        } else {
            bench::measure(state, connect);
        }
    }
}

template <class Sender>
bool addSignalPairs(const std::string& kind)
{
    using namespace std::placeholders;
    for (const int listeners : {0, 1, 10}) {
        const std::string name = kind + std::to_string(listeners);
        bench::addPairs({
            {name, std::bind(emitHot<Sender, VoxiCounter>, _1, listeners),
             std::bind(emitHot<QtSenderAndConnect, bench::QtCounter>, _1, listeners)},
            {name + "Cold", std::bind(emitCold<Sender, VoxiCounter>, _1, listeners),
             std::bind(emitCold<QtSenderAndConnect, bench::QtCounter>, _1, listeners)},
        });
    }
    return true;
}

const bool s_added = addSignalPairs<VoxiSender>("Emit")
                     && addSignalPairs<VoxiTableSender>("EmitEvent")
                     && bench::addPairs({
                         {"Connect1000", connectMany<VoxiTableSender, VoxiCounter, false>,
                          connectMany<QtSenderAndConnect, bench::QtCounter, false>},
                         {"ListenersEnd1000", connectMany<VoxiTableSender, VoxiCounter, true>,
                          connectMany<QtSenderAndConnect, bench::QtCounter, true>},
                     });

} // namespace
