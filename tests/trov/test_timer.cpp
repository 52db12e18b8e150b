#include "support/reportederrors.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/timer.h"

#include <atomic>
#include <latch>
#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace TROV {
namespace {

using namespace std::chrono_literals;

/// Counts, and ends the loop of its thread when there is enough.
struct Bell : Listener
{
    int m_rings = 0;
    int m_most = 1;

    void ring()
    {
        if (++m_rings >= m_most)
            Thread::getCurrentThread()->quit();
    }
};

class TimerTest : public VOXI::WatchedTest
{
protected:
    /// On a thread of its own, whose loop is the test's to run.
    void onItsOwnThread(const std::function<void()>& test)
    {
        std::thread([&test] {
            // It takes calls between its loops, too.
            Thread::getCurrentThread()->bindWakeUp([] {});
            test();
            Thread::getCurrentThread()->unbindWakeUp();
        }).join();
    }
};

TEST_F(TimerTest, RingsOnTheThreadThatStartsItAsOftenAsItShould)
{
    onItsOwnThread([] {
        Thread* const self = Thread::getCurrentThread();
        Timer timer;
        Bell bell;
        timer.elapsed().connect(&bell, &Bell::ring);
        const auto begin = Thread::Clock::now();
        timer.startOnce(3ms);
        EXPECT_TRUE(timer.isRunning());
        EXPECT_EQ(timer.interval(), 3ms);
        self->exec();
        EXPECT_GE(Thread::Clock::now() - begin, 3ms);
        EXPECT_FALSE(timer.isRunning());

        bell = {};
        bell.m_most = 5;
        timer.start(-1ms);
        EXPECT_EQ(timer.interval(), 1ms);
        self->exec();
        EXPECT_EQ(bell.m_rings, 5);
        EXPECT_TRUE(timer.isRunning());
        timer.startOnce(Timer::Duration::max()); // begins anew
        timer.startOnce(0ms);
        self->exec();
        EXPECT_EQ(bell.m_rings, 6);
    });
}

TEST_F(TimerTest, SaysNothingAfterItWasStoppedThoughItsTimeWasOver)
{
    onItsOwnThread([] {
        Thread* const self = Thread::getCurrentThread();
        Bell bell;
        Timer stopped;
        auto ended = std::make_optional<Timer>();
        stopped.elapsed().connect(&bell, &Bell::ring);
        ended->elapsed().connect(&bell, &Bell::ring);
        std::atomic<bool> areOver = false;
        stopped.startOnce(0ms);
        ended->start(0ms);
        // A later one is sent behind them.
        Worker other;
        other.run([&] { Timer::once(5ms, nullptr, [&areOver] { areOver = true; }); });
        while (!areOver)
            std::this_thread::yield();
        stopped.stop();
        ended.reset();
        self->post([self] { self->quit(); });
        self->exec();
        EXPECT_EQ(bell.m_rings, 0);
    });
}

TEST_F(TimerTest, GoesOnAfterAHandlerThatThrowsAndNotWithinOne)
{
    onItsOwnThread([] {
        Thread* const self = Thread::getCurrentThread();
        ReportedErrors errors;
        Listener listener;
        int rings = 0;
        Timer timer;
        timer.elapsed().connect(&listener, [&] {
            if (++rings == 1)
                throw std::runtime_error("first");
            if (rings > 2)
                return self->quit();
            // Would come before this is over, if it came.
            Timer::once(10ms, &listener, [self] { self->quit(); });
            self->exec();
            EXPECT_EQ(rings, 2);
        });
        timer.start(1ms);
        self->exec();
        EXPECT_EQ(rings, 3);
        EXPECT_EQ(errors.take(), std::vector<std::string>{"first"});
    });
}

TEST_F(TimerTest, EndsInAnyOrder)
{
    onItsOwnThread([] {
        Thread* const self = Thread::getCurrentThread();
        const auto kept = std::make_shared<int>();
        Bell bell;
        // By its own handler.
        auto own = std::make_unique<Timer>();
        own->elapsed().connect(nullptr, [&own, kept] { own.reset(); });
        own->start(1ms);
        // With its listener, or by its handle; both before and behind the clock.
        auto listener = std::make_unique<Listener>();
        Timer::every(1ms, listener.get(), [kept] {});
        Timer::once(1h, listener.get(), [kept] {});
        ConnectionHandle handle;
        handle = Timer::every(1ms, nullptr, [&, kept, rings = 0]() mutable {
            if (++rings == 3) {
                handle.disconnect();
                listener.reset();
                Timer::once(0ms, &bell, &Bell::ring);
            }
        });
        self->exec();
        EXPECT_EQ(bell.m_rings, 1);
        EXPECT_EQ(own, nullptr);
        // With the thread, which takes no more.
        Timer orphan;
        {
            Worker worker;
            worker.run([&] {
                orphan.elapsed().connect(nullptr, [kept] {});
                orphan.start(1ms);
            });
        }
        while (orphan.isRunning())
            std::this_thread::yield();
        EXPECT_LE(kept.use_count(), 3); // that of `orphan`, and what the clock is just letting go
    });
}

TEST_F(TimerTest, IsStartedAndStoppedFromManyThreads)
{
    Timer timer;
    std::atomic<int> rings = 0;
    timer.elapsed().connect(nullptr, [&rings] { ++rings; });
    std::vector<std::unique_ptr<Worker>> workers(4);
    std::latch all(4);
    for (auto& worker : workers) {
        worker = std::make_unique<Worker>();
        worker->thread()->post([&] {
            Listener listener;
            for (int i = 0; i < 300; ++i) {
                timer.start(1ms);
                timer.elapsed().connect(&listener, [&rings] { ++rings; });
                Timer::every(1ms, &listener, [&rings] { ++rings; });
                if (i % 3 == 0)
                    timer.stop();
                if (i % 50 == 0)
                    listener.disconnect();
            }
            all.count_down();
        });
    }
    all.wait();
    timer.stop();
    EXPECT_FALSE(timer.isRunning());
}

} // namespace
} // namespace TROV
