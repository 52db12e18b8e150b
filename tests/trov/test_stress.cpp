#include "counter.h"
#include "support/inparallel.h"

#include <future>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#if defined(__linux__)
#include <sched.h>
#endif

namespace TROV {
namespace {

using VOXI::inParallel;

class StressTest : public VOXI::WatchedTest
{};

TEST_F(StressTest, EightProducersKeepTheirOrder)
{
    constexpr int Producers = 8;
    constexpr int Calls = 5000;
    Counter counter;
    std::vector<int> last(Producers, -1);
    bool inOrder = true;
    counter.m_peer->m_whenSet = [&](int value) {
        int& former = last[std::size_t(value % Producers)];
        inOrder = inOrder && value / Producers == former + 1;
        former = value / Producers;
    };
    counter.m_peer->m_ask = [&](int sender) { return last[std::size_t(sender)]; };
    inParallel(Producers, [&](int sender) {
        for (int i = 0; i < Calls; ++i) {
            counter.m_emitters.set(i * Producers + sender);
            if (i % 100 == sender) {
                ASSERT_EQ(counter.m_emitters.ask(sender), i);
            }
        }
    });
    counter.m_worker.run([&] {
        EXPECT_TRUE(inOrder);
        EXPECT_EQ(last, std::vector<int>(Producers, Calls - 1));
    });
}

#if defined(__linux__)
TEST_F(StressTest, QuestionsAreAnsweredOnASharedProcessor)
{
    // Who asks needs the processor of who answers, and the other way round; a third one has it.
    cpu_set_t usual;
    ASSERT_EQ(sched_getaffinity(0, sizeof usual, &usual), 0);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(sched_getcpu(), &one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    {
        Counter counter;
        Worker asked;
        Listener listener;
        Emitter1<int, int> askBack;
        askBack.connect(
            &listener, [&](int value) { return counter.m_emitters.ask(value); }, asked.thread());
        std::atomic<bool> stop{false};
        inParallel(4, [&](int sender) {
            while (sender == 3 && !stop) {
            }
            for (int i = 0; i < 2000 && sender < 3; ++i) {
                counter.m_emitters.set(i);
                ASSERT_EQ(counter.m_emitters.ask(i), i);
                if (i % 4 == sender) {
                    ASSERT_EQ(askBack(i), i);
                }
            }
            stop = true;
        });
    }
    sched_setaffinity(0, sizeof usual, &usual);
}
#endif

TEST_F(StressTest, ConnectionsComeAndGoWhileOthersEmit)
{
    constexpr int Rounds = 3000;
    Emitter1<int, std::string> asking;
    Emitter1<void, std::string> telling;
    Worker worker;
    Listener lasting;
    std::atomic<int> asked{0};
    std::atomic<int> received{0};
    const auto sizeOf = [](const std::string& text) { return int(text.size()); };
    asking.connect(
        &lasting, [&](const std::string& text) { return ++asked, sizeOf(text); }, worker.thread());
    asking.connect(&lasting, sizeOf, worker.thread());
    telling.connect(
        &lasting, [&](const std::string& text) { received += sizeOf(text); }, worker.thread());
    const auto watched = std::make_shared<std::string>("alive");
    inParallel(4, [&](int id) {
        for (int i = 0; i < Rounds; ++i) {
            if (id < 2) {
                telling("12");
                const int size = asking("four");
                ASSERT_TRUE(size == 4 || size == 5 || size == 0) << size;
            } else {
                // Who waits for this thread, which runs no loop, is released by the listener's end.
                Listener brief;
                auto handle = asking.connect(&brief, [watched] { return int(watched->size()); });
                asking.connect(&brief, [watched] { return int(watched->size()); });
                telling.connect(
                    &brief, [watched] { ASSERT_EQ(*watched, "alive"); }, worker.thread());
                if (i % 2)
                    handle.disconnect();
            }
        }
    });
    worker.run([] {});
    EXPECT_EQ(asked, 2 * Rounds);
    EXPECT_EQ(received, 2 * 2 * Rounds);
    EXPECT_EQ(asking.numberOfConnections(), 2);
    // Nothing is left of what was cut; what an emission was in at that moment goes with this.
    asking.connect(&lasting, [] { return 0; }).disconnect();
    telling.connect(&lasting, [] {}).disconnect();
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(StressTest, BlocksGrowAndShrinkUnderEmissionsInOneOrder)
{
    static constexpr int Changers = 3;
    Emitter1<void, std::vector<int>&> emitter;
    const auto watched = std::make_shared<std::string>("alive");
    std::promise<Thread*> emitting;
    const auto emittingThread = emitting.get_future().share();
    std::atomic<int> changing{Changers};
    inParallel(1 + Changers, [&](int id) {
        if (id == Changers) {
            emitting.set_value(Thread::getCurrentThread());
            while (changing > 0) {
                // Of each changer the serial number that was called last.
                std::vector<int> last(Changers, -1);
                emitter(last);
            }
            return;
        }
        std::vector<std::unique_ptr<Listener>> listeners;
        for (int serial = 0; serial < 3000; ++serial) {
            listeners.push_back(std::make_unique<Listener>());
            ConnectionHandle handle = emitter.connect(
                listeners.back().get(),
                [&emitter, id, serial, watched](std::vector<int>& seen) {
                    ASSERT_EQ(*watched, "alive");
                    ASSERT_LT(std::exchange(seen[std::size_t(id)], serial), serial);
                    if (serial % 100 == 50 && seen.size() == Changers) {
                        std::vector<int> nested(Changers + 1, -1);
                        emitter(nested);
                    }
                },
                emittingThread.get());
            if (serial % 5 == 0)
                handle.disconnect();
            // Up to some hundred, then few are left, the middle ones first.
            if (serial % 300 == 299) {
                listeners.erase(listeners.begin() + 50, listeners.end() - 50);
                listeners.erase(listeners.begin() + serial % 7, listeners.end());
            }
        }
        listeners.clear();
        --changing;
    });
    EXPECT_EQ(emitter.numberOfConnections(), 0);
    Listener lasting;
    emitter.connect(&lasting, [] {}).disconnect();
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(StressTest, PeersComeAndGoWhileOthersAsk)
{
    CounterEmitters emitters;
    std::atomic<bool> stop{false};
    Worker worker;
    Listener beside;
    std::vector<std::jthread> senders;
    senders.reserve(2);
    for (int sender = 0; sender < 2; ++sender)
        senders.emplace_back([&] {
            while (!stop) {
                emitters.set(1);
                const int value = emitters.get();
                ASSERT_TRUE(value == 1 || value == 0) << value;
                emitters.set.numberOfConnections();
            }
        });
    for (int i = 0; i < 400; ++i)
        worker.run([&] {
            CounterPeer first(emitters);
            worker.thread()->process();
            if (i % 3 == 0)
                emitters.set.disconnect(&first);
            const CounterPeer second(emitters);
            worker.thread()->process();
            if (i == 200)
                emitters.set.signal().connect(&beside, [] {});
        });
    stop = true;
    senders.clear();
    EXPECT_EQ(emitters.set.numberOfConnections(), 1);
}

TEST_F(StressTest, ObjectsComeAndGoWhileTheirPeersRun)
{
    // The object's thread destroys it, the peer's thread unbinds: either may be the first.
    Worker worker;
    inParallel(2, [&](int) {
        for (int i = 0; i < 500; ++i) {
            auto emitters = std::make_unique<CounterEmitters>();
            auto peer = std::make_shared<std::unique_ptr<CounterPeer>>();
            worker.run([&] { *peer = std::make_unique<CounterPeer>(*emitters); });
            Listener listener;
            emitters->changed.signal().connect(&listener, [] {});
            emitters->set(0);
            worker.thread()->post([peer] { peer->reset(); });
            emitters.reset();
        }
    });
}

TEST_F(StressTest, BriefThreadsSendAskAndEnd)
{
    Counter counter;
    inParallel(4, [&](int sender) {
        for (int i = 0; i < 100; ++i)
            std::thread([&] {
                counter.m_emitters.set(i);
                ASSERT_EQ(counter.m_emitters.ask(sender), sender);
                Worker asked;
                Listener listener;
                Emitter0<int> emitter;
                emitter.connect(
                    &listener, [&] { return counter.m_emitters.ask(i); }, asked.thread());
                ASSERT_EQ(emitter(), i);
            }).join();
    });
}

} // namespace
} // namespace TROV
