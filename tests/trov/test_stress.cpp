#include "trov/emitterstable.h"
#include "trov/requestbinding.h"
#include "worker.h"

#include <barrier>
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

class StressTest : public WatchedTest
{
protected:
    static void inParallel(int count, const std::function<void(int)>& function)
    {
        std::barrier start(count);
        std::vector<std::thread> threads;
        threads.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                function(i);
            });
        for (std::thread& thread : threads)
            thread.join();
    }
};

struct Emitters : EmittersTable<void>
{
    Request<void(int, int)> add{*this};
    Request<int(int)> last{*this};
    RequestsEnd requestsEnd{*this};
    Event<void(std::string)> said{*this};
};

struct Peer : Listener
{
    explicit Peer(Emitters& emitters) { bind(emitters); }
    void bind(Emitters& emitters)
    {
        static const auto table =
            operations(row<&Emitters::add, &Peer::doAdd>(), row<&Emitters::last, &Peer::doLast>());
        m_binding.bind(emitters, this, table);
    }
    void doAdd(int sender, int value)
    {
        auto& values = m_values[static_cast<std::size_t>(sender)];
        m_inOrder = m_inOrder && value == values + 1;
        values = value;
    }
    int doLast(int sender) { return m_values[static_cast<std::size_t>(sender)]; }

    RequestBinding m_binding;
    std::vector<int> m_values = std::vector<int>(8, -1);
    bool m_inOrder = true;
};

TEST_F(StressTest, EightProducersKeepTheirOrder)
{
    constexpr int Calls = 5000;
    Emitters emitters;
    std::optional<Peer> peer;
    Worker worker;
    worker.run([&] { peer.emplace(emitters); });
    inParallel(8, [&](int sender) {
        for (int i = 0; i < Calls; ++i) {
            emitters.add(sender, i);
            if (i % 100 == sender) {
                ASSERT_EQ(emitters.last(sender), i);
            }
        }
    });
    worker.run([&] {
        EXPECT_TRUE(peer->m_inOrder);
        EXPECT_EQ(peer->m_values, std::vector<int>(8, Calls - 1));
        peer.reset();
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
        Emitters emitters;
        std::optional<Peer> peer;
        Worker worker;
        worker.run([&] { peer.emplace(emitters); });
        Worker asked;
        Listener listener;
        Emitter1<int, int> askBack;
        askBack.connect(
            &listener, [&](int sender) { return emitters.last(sender); }, asked.thread());
        std::atomic<bool> stop{false};
        inParallel(4, [&](int sender) {
            while (sender == 3 && !stop) {
            }
            for (int i = 0; i < 2000 && sender < 3; ++i) {
                emitters.add(sender, i);
                ASSERT_EQ(emitters.last(sender), i);
                if (i % 4 == sender) {
                    ASSERT_EQ(askBack(sender), i);
                }
            }
            stop = true;
        });
        worker.run([&] { peer.reset(); });
    }
    sched_setaffinity(0, sizeof usual, &usual);
}
#endif

TEST_F(StressTest, ConnectionsComeAndGoWhileOthersEmit)
{
    Emitter1<int, std::string> emitter;
    Worker worker;
    Listener lasting;
    std::atomic<int> calls{0};
    emitter.connect(
        &lasting, [&](const std::string& text) { return ++calls, int(text.size()); },
        worker.thread());
    emitter.connect(
        &lasting, [](const std::string& text) { return int(text.size()); }, worker.thread());
    const auto watched = std::make_shared<std::string>("alive");
    inParallel(4, [&](int id) {
        for (int i = 0; i < 1500; ++i) {
            if (id < 2) {
                const int size = emitter("four");
                ASSERT_TRUE(size == 4 || size == 5 || size == 0) << size;
            } else {
                Listener brief;
                auto handle = emitter.connect(&brief, [watched] { return int(watched->size()); });
                emitter.connect(&brief, [watched] { return int(watched->size()); });
                if (i % 2)
                    handle.disconnect();
                // Who waits for this thread, which runs no loop, is released by the listener's end.
            }
        }
    });
    EXPECT_EQ(emitter.numberOfConnections(), 2);
    EXPECT_EQ(calls, 3000);
    // Nothing is left of what was cut; what an emission was in at that moment goes with this.
    emitter.connect(&lasting, [] { return 0; }).disconnect();
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

TEST_F(StressTest, EmissionsUnderWayOutliveWhatIsCut)
{
    Emitter1<void, std::string> emitter;
    Worker worker;
    Listener lasting;
    std::atomic<int> received{0};
    emitter.connect(
        &lasting, [&](const std::string& text) { received += int(text.size()); }, worker.thread());
    const auto watched = std::make_shared<std::string>("alive");
    inParallel(4, [&](int id) {
        for (int i = 0; i < 5000; ++i) {
            if (id < 2) {
                emitter("12");
            } else {
                Listener brief;
                emitter.connect(
                    &brief, [watched] { ASSERT_EQ(*watched, "alive"); }, worker.thread());
            }
        }
    });
    worker.run([] {});
    EXPECT_EQ(received, 2 * 2 * 5000);
    emitter.connect(&lasting, [] {}).disconnect();
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(StressTest, PeersComeAndGoWhileOthersAsk)
{
    Emitters emitters;
    std::atomic<bool> stop{false};
    Worker worker;
    Listener beside;
    std::atomic<int> heard{0};
    std::vector<std::thread> senders;
    senders.reserve(2);
    for (int sender = 0; sender < 2; ++sender)
        senders.emplace_back([&, sender] {
            while (!stop) {
                emitters.add(sender, 1);
                const int last = emitters.last(sender);
                ASSERT_TRUE(last == 1 || last == 0 || last == -1) << last;
                emitters.add.numberOfConnections();
            }
        });
    for (int i = 0; i < 400; ++i)
        worker.run([&] {
            Peer first(emitters);
            worker.thread()->process();
            if (i % 3 == 0)
                emitters.add.disconnect(&first);
            const Peer second(emitters);
            worker.thread()->process();
            if (i == 200)
                emitters.add.signal().connect(&beside, [&] { ++heard; });
        });
    stop = true;
    for (std::thread& sender : senders)
        sender.join();
    EXPECT_EQ(emitters.add.numberOfConnections(), 1);
}

TEST_F(StressTest, ObjectsComeAndGoWhileTheirPeersRun)
{
    // The object's thread destroys it, the peer's thread unbinds: either may be the first.
    Worker worker;
    inParallel(2, [&](int) {
        for (int i = 0; i < 500; ++i) {
            auto emitters = std::make_unique<Emitters>();
            auto peer = std::make_shared<std::unique_ptr<Peer>>();
            worker.thread()->post(
                [peer, raw = emitters.get()] { *peer = std::make_unique<Peer>(*raw); });
            worker.run([] {});
            Listener listener;
            emitters->said.signal().connect(&listener, [] {});
            emitters->add(0, 0);
            worker.thread()->post([peer] { peer->reset(); });
            emitters.reset();
        }
    });
}

TEST_F(StressTest, BriefThreadsSendAskAndEnd)
{
    Emitters emitters;
    std::optional<Peer> peer;
    Worker worker;
    worker.run([&] { peer.emplace(emitters); });
    inParallel(4, [&](int sender) {
        for (int i = 0; i < 100; ++i)
            std::thread([&] {
                emitters.add(sender, i);
                ASSERT_EQ(emitters.last(sender), i);
                Worker asked;
                Listener listener;
                Emitter0<int> emitter;
                emitter.connect(
                    &listener, [&] { return emitters.last(sender); }, asked.thread());
                ASSERT_EQ(emitter(), i);
            }).join();
    });
    worker.run([&] { peer.reset(); });
}

} // namespace
} // namespace TROV
