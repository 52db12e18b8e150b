#include "counter.h"
#include "support/inparallel.h"

#include <latch>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace TROV {
namespace {

class WaitingTest : public VOXI::WatchedTest
{};

TEST_F(WaitingTest, AGetAfterASetSeesTheSet)
{
    Counter counter;
    for (int i = 0; i < 2000; ++i) {
        counter.m_emitters.set(i);
        ASSERT_EQ(counter.m_emitters.get(), i);
    }
}

TEST_F(WaitingTest, ThreadsMayAskEachOtherInARing)
{
    for (const std::size_t size : {2u, 3u}) {
        std::vector<Counter> ring(size);
        for (std::size_t i = 0; i < size; ++i)
            ring[i].m_peer->m_ask = [&next = ring[(i + 1) % size]](int depth) {
                return depth ? 1 + next.m_emitters.ask(depth - 1) : 0;
            };
        VOXI::inParallel(int(size), [&](int i) {
            for (int turn = 0; turn < 200; ++turn)
                ASSERT_EQ(ring[std::size_t(i)].m_emitters.ask(10), 10);
        });
    }
}

TEST_F(WaitingTest, AWaitingThreadServesTheAskersEarlierCallsFirst)
{
    Counter a;
    Counter b;
    // While b answers, a waits: what b sends to a must be done before what it asks.
    b.m_peer->m_ask = [&](int value) {
        a.m_emitters.set(-1);
        std::thread([&] { a.m_emitters.set(-2); }).join(); // another's may stay behind
        a.m_emitters.set(value);
        return a.m_emitters.get();
    };
    a.m_peer->m_ask = [&](int value) { return b.m_emitters.ask(value); };
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(a.m_emitters.ask(i), i);
}

TEST_F(WaitingTest, ManyEarlierCallsAreServedInNoTimeToSpeakOf)
{
    Counter a;
    Counter b;
    constexpr int Calls = 100'000; // over many chunks; a search from the front for each never ends
    int inOrder = 0;
    a.m_peer->m_whenSet = [&](int value) { inOrder += value == inOrder; };
    b.m_peer->m_ask = [&](int) {
        for (int i = 0; i < Calls; ++i)
            a.m_emitters.set(i);
        return a.m_emitters.get();
    };
    a.m_peer->m_ask = [&](int value) {
        b.m_emitters.ask(value);
        return inOrder;
    };
    EXPECT_EQ(a.m_emitters.ask(0), Calls);
}

TEST_F(WaitingTest, CallsRunOutOfTurnMayRunTheQueueThemselves)
{
    Counter a;
    Counter b;
    std::vector<int> seen;
    a.m_peer->m_whenSet = [&](int value) {
        seen.push_back(value);
        if (value % 300 == 0)
            a.m_worker.thread()->process(std::chrono::nanoseconds(1));
        if (value == 1500)
            a.m_worker.thread()->process();
    };
    b.m_peer->m_ask = [&](int) {
        for (int i = 0; i < 12000; ++i)
            a.m_emitters.set(i);
        return a.m_emitters.get();
    };
    a.m_peer->m_ask = [&](int value) { return b.m_emitters.ask(value); };
    for (int turn = 0; turn < 2; ++turn) { // the second finds as many spare chunks as are kept
        seen.clear();
        a.m_emitters.ask(0);
        ASSERT_EQ(seen.size(), 12000u);
        EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    }
}

TEST_F(WaitingTest, AWaitingThreadGivesUpTheLockItHolds)
{
    WaitLock waitLock;
    Counter counter;
    counter.m_peer->m_ask = [&](int value) {
        const std::lock_guard lock(waitLock);
        return value + 1;
    };
    {
        const std::lock_guard outer(waitLock);
        const std::lock_guard inner(waitLock);
        EXPECT_EQ(counter.m_emitters.ask(1), 2);
        EXPECT_TRUE(waitLock.isHeldByCurrentThread());
        std::thread([&] { EXPECT_FALSE(waitLock.try_lock()); }).join();
        {
            // As a host does around its sleep.
            const WaitRelease released;
            EXPECT_FALSE(waitLock.isHeldByCurrentThread());
        }
        EXPECT_TRUE(waitLock.isHeldByCurrentThread());
    }
    EXPECT_FALSE(waitLock.isHeldByCurrentThread());

    // A loop that is entered under the lock does not sleep with it either.
    std::thread([&] {
        const std::lock_guard lock(waitLock);
        Thread* const thread = Thread::getCurrentThread();
        const std::jthread quitter([&] {
            const std::lock_guard wanted(waitLock);
            thread->quit();
        });
        thread->exec();
    }).join();
}

TEST_F(WaitingTest, ExceptionsAreCarriedBack)
{
    Counter counter;
    counter.m_peer->m_ask = [](int) -> int { throw std::out_of_range("far away"); };
    EXPECT_THROW(counter.m_emitters.ask(1), std::out_of_range);
    EXPECT_EQ(counter.m_emitters.get(), 0);
}

// What ends a wait --------------------------------------------------------------------------------

/// A thread that does not come round to its queue until `end` is called, with somebody who waits
/// for it.
class Standstill
{
public:
    Standstill()
    {
        m_peerThread = std::thread([this] {
            Thread* const thread = Thread::getCurrentThread();
            m_peer.emplace(m_emitters);
            m_connection = m_emitter.connect(&m_listener, [] { return 5; });
            m_ready.set_value(thread);
            m_stuck.get_future().get()();
        });
        m_thread = m_ready.get_future().get();
    }

    /// Lets a second thread ask, then the stuck one run `end` and join the asker: it must be free.
    int ask(std::function<int(Standstill&)> question, std::function<void(Standstill&)> end)
    {
        int answer = -1;
        std::thread asker([&] { answer = question(*this); });
        m_stuck.set_value([&] {
            end(*this);
            asker.join();
        });
        m_peerThread.join();
        return answer;
    }

    CounterEmitters m_emitters;
    std::optional<CounterPeer> m_peer;
    Emitter0<int> m_emitter;
    Listener m_listener;
    ConnectionHandle m_connection;
    Thread* m_thread = nullptr;

private:
    std::promise<Thread*> m_ready;
    std::promise<std::function<void()>> m_stuck;
    std::thread m_peerThread;
};

// Each of these comes before the question, in the middle of it or after it, as the threads happen
// to run; in none of the cases may the asker be left waiting.
TEST_F(WaitingTest, CuttingEndsTheWaitWithADefaultAnswer)
{
    using Question = std::function<int(Standstill&)>;
    using End = std::function<void(Standstill&)>;
    const Question get = [](Standstill& s) { return s.m_emitters.get(); };
    const Question emit = [](Standstill& s) { return s.m_emitter(); };
    const std::vector<std::pair<Question, End>> cases = {
        {get, [](Standstill& s) { s.m_peer.reset(); }},
        {get, [](Standstill& s) { s.m_peer->m_binding.unbind(); }},
        {get, [](Standstill& s) { s.m_emitters.get.disconnect(&*s.m_peer); }},
        {get,
         [](Standstill& s) {
             s.m_thread->bindWakeUp([] {});
             s.m_thread->unbindWakeUp();
         }},
        {get,
         [](Standstill& s) {
             s.m_thread->quit();
             s.m_thread->exec();
         }},
        {emit, [](Standstill& s) { s.m_connection.disconnect(); }},
        {emit, [](Standstill& s) { s.m_listener.disconnect(); }},
        {emit, [](Standstill& s) { s.m_emitter.disconnect(&s.m_listener); }},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        for (int turn = 0; turn < 60; ++turn) {
            Standstill standstill;
            standstill.m_peer->m_value = 7;
            ASSERT_EQ(standstill.ask(cases[i].first, cases[i].second), 0) << "case " << i;
        }
    }
}

// What is cut between the look at it and the question must not be waited for: this thread will not
// answer, and nobody will cut it again.
TEST_F(WaitingTest, NobodyWaitsForWhatWasCutJustBefore)
{
    Thread* const stuck = Thread::getCurrentThread();
    int answer = -1;
    std::thread([&] {
        const int target = 0;
        answer = stuck->callAndWait<int>(
            &target, nullptr, [] { return false; }, [] { return 1; });
    }).join();
    EXPECT_EQ(answer, 0);
    EXPECT_FALSE(stuck->process());
}

// A cut ends the waiting for what was cut, not for what has come in its place.
TEST_F(WaitingTest, OnlyWhoWaitsForTheCutIsReleased)
{
    Worker worker;
    std::latch asked(1);
    const int target = 0;
    std::atomic<bool> wanted{true};
    int answer = -1;
    std::thread asker;
    worker.run([&] {
        asker = std::thread([&] {
            answer = worker.thread()->callAndWait<int>(
                &target, nullptr,
                [&] {
                    if (!asked.try_wait())
                        asked.count_down();
                    return wanted.load();
                },
                [] { return 1; });
        });
        asked.wait();
        worker.thread()->releaseWaiters(&target);
    });
    asker.join();
    EXPECT_EQ(answer, 1);
}

TEST_F(WaitingTest, DestroyingTheObjectEndsTheWait)
{
    // The object is another thread's than the asker's and the peer's; the asker is known to wait
    // when its own thread serves a request.
    for (int turn = 0; turn < 60; ++turn) {
        auto emitters = std::make_unique<CounterEmitters>();
        std::promise<void> bound;
        std::promise<void> mayEnd;
        std::thread stuck([&] {
            CounterPeer peer(*emitters);
            bound.set_value();
            mayEnd.get_future().wait();
        });
        bound.get_future().wait();
        std::promise<Thread*> asking;
        int answer = -1;
        std::thread asker([&] {
            asking.set_value(Thread::getCurrentThread());
            answer = emitters->ask(3);
        });
        Thread* const waiting = asking.get_future().get();
        int served = 0;
        ask(waiting, [&] { ++served; });
        EXPECT_EQ(served, 1);
        emitters.reset();
        asker.join();
        EXPECT_EQ(answer, 0);
        mayEnd.set_value();
        stuck.join();
    }
}

TEST_F(WaitingTest, AnEndedThreadAnswersWithDefaults)
{
    Standstill standstill;
    EXPECT_EQ(standstill.ask([](Standstill& s) { return s.m_emitters.get(); },
                             [](Standstill& s) {
                                 s.m_thread->process();
                                 s.m_peer->m_value = 1;
                                 s.m_thread->quit();
                                 s.m_thread->exec();
                             }),
              0);
    standstill.m_emitters.set(3);
    EXPECT_EQ(standstill.m_emitters.get(), 0);
    EXPECT_EQ(standstill.m_emitter(), 0);
    EXPECT_FALSE(standstill.m_thread->isAccepting());

    // The same while somebody waits, at the very end of the thread.
    for (int turn = 0; turn < 100; ++turn) {
        std::promise<Thread*> born;
        std::promise<void> mayEnd;
        std::thread brief([&] {
            born.set_value(Thread::getCurrentThread());
            mayEnd.get_future().wait();
        });
        Emitter0<int> emitter;
        Listener listener;
        emitter.connect(
            &listener, [] { return 1; }, born.get_future().get());
        std::thread asker([&] { EXPECT_EQ(emitter(), 0); });
        mayEnd.set_value();
        brief.join();
        asker.join();
    }
}

} // namespace
} // namespace TROV
