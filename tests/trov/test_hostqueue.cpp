#include "counter.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <latch>
#include <mutex>
#include <thread>
#include <utility>

namespace TROV {
namespace {

/// This thread as a host, which runs calls when the test says so.
class HostTest : public VOXI::WatchedTest
{
protected:
    HostTest()
    {
        m_self->bindWakeUp([] {});
    }
    // Still a host: a thread that has closed its queue would not take the other tests' calls.
    ~HostTest() override
    {
        m_self->bindWakeUp([] {});
        m_self->setQueueBound(0);
        m_self->process();
    }

    template <class Function>
    void processUntil(Function isDone)
    {
        while (!isDone())
            m_self->process();
    }

    Thread* const m_self = Thread::getCurrentThread();
    std::atomic<std::latch*> m_flooded{nullptr};
    CounterEmitters m_emitters;
    CounterPeer m_peer{m_emitters};
};

TEST_F(HostTest, AnEndedLoopAnswersWithDefaultsUntilItTurnsAgain)
{
    m_peer.m_value = 1;
    int answer = -1;
    std::atomic<bool> done{false};
    const auto askElsewhere = [&] {
        answer = -1;
        return std::thread([&] {
            answer = m_emitters.get();
            done = true;
        });
    };
    // One who waits already, or is about to.
    std::thread asker = askElsewhere();
    m_self->suspendAnswers();
    asker.join();
    EXPECT_EQ(answer, 0);

    bool sent = false;
    m_self->post([&] { sent = true; });
    askElsewhere().join();
    EXPECT_EQ(answer, 0);

    // A worker that we wait for gets its answer.
    Counter counter;
    counter.m_peer->m_ask = [&](int value) {
        m_emitters.set(value);
        return m_emitters.get();
    };
    EXPECT_EQ(counter.m_emitters.ask(3), 3);
    askElsewhere().join();
    EXPECT_EQ(answer, 0);
    EXPECT_FALSE(sent) << "what is only sent waits";

    m_self->resumeAnswers();
    done = false;
    asker = askElsewhere();
    processUntil([&] { return done.load(); });
    asker.join();
    EXPECT_EQ(answer, 3);
    EXPECT_TRUE(sent);
}

TEST_F(HostTest, SendersWaitWhileTheQueueIsFull)
{
    WaitLock waitLock;
    constexpr int Bound = 20;
    constexpr int Calls = 20'000;
    for (const bool holdsLock : {false, true}) {
        int run = 0;
        std::atomic<int> sent{0};
        int longest = 0;
        m_self->setQueueBound(Bound);
        m_self->process();
        std::thread sender([&] {
            std::unique_lock lock(waitLock, std::defer_lock);
            if (holdsLock)
                lock.lock();
            for (int i = 0; i < Calls; ++i) {
                m_self->post([&] {
                    const std::lock_guard wanted(waitLock);
                    longest = std::max(longest, sent - run);
                    ++run;
                });
                ++sent;
            }
        });
        processUntil([&] { return run == Calls; });
        sender.join();
        EXPECT_LE(longest, Bound + 1) << "with the one that runs";
        EXPECT_GT(longest, 0);
    }
    // Itself it never waits for.
    for (int i = 0; i < 3 * Bound; ++i)
        m_self->post([] {});
}

TEST_F(HostTest, WhoWaitsForRoomAnswersRequests)
{
    m_self->setQueueBound(5);
    m_self->process();
    Counter counter;
    std::atomic<bool> done{false};
    counter.m_worker.thread()->post([&] {
        for (int i = 1; i <= 1000; ++i)
            m_emitters.set(i);
        done = true;
    });
    for (int asked = 0; !done || m_peer.m_value < 1000; ++asked) {
        m_self->process(std::chrono::nanoseconds(0));
        ASSERT_EQ(counter.m_emitters.ask(asked), asked);
    }
}

TEST_F(HostTest, NobodyWaitsForRoomThatNobodyMakes)
{
    const std::function<void()> ends[] = {[&] { m_self->unbindWakeUp(); },
                                          [&] { m_self->suspendAnswers(); },
                                          [&] { m_self->setQueueBound(0); },
                                          [&] { // waits itself, for one who does not look
                                              Counter counter;
                                              std::latch flooded(1);
                                              m_flooded = &flooded;
                                              counter.m_peer->m_ask = [&](int) {
                                                  flooded.wait();
                                                  return 0;
                                              };
                                              counter.m_emitters.ask(0);
                                          }};
    for (const auto& end : ends) {
        std::latch alone(1);
        m_flooded = &alone;
        m_self->bindWakeUp([] {});
        m_self->process();
        m_self->setQueueBound(5);
        std::atomic<int> sent{0};
        std::thread sender([&] {
            for (int i = 0; i < 100; ++i) {
                m_self->post([] {});
                ++sent;
            }
            m_flooded.load()->count_down();
        });
        while (sent < 5)
            std::this_thread::yield();
        EXPECT_EQ(sent, 5);
        end();
        sender.join();
        m_self->process();
    }
    // Two that flood each other go on.
    Worker one;
    Worker other;
    std::latch done(2);
    for (const auto& [from, to] : {std::pair(&one, &other), std::pair(&other, &one)}) {
        from->run([from = from] { from->thread()->setQueueBound(5); });
        from->thread()->post([&, to = to] {
            for (int i = 0; i < 5000; ++i)
                to->thread()->post([] {});
            done.count_down();
        });
    }
    done.wait();
}

} // namespace
} // namespace TROV
