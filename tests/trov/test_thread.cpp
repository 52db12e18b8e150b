#include "support/reportederrors.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/emitter.h"

#include <array>
#include <condition_variable>
#include <filesystem>
#include <latch>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace TROV {
namespace {

class ThreadTest : public VOXI::WatchedTest
{
protected:
    Thread* m_self = Thread::getCurrentThread();
    std::vector<int> m_seen;

    /// Runs the test on a thread of its own: one that has closed its queue stays closed.
    void onItsOwnThread(const std::function<void()>& test)
    {
        std::thread([&] {
            m_self = Thread::getCurrentThread();
            test();
        }).join();
    }

    void post(int value)
    {
        m_self->post([this, value] { m_seen.push_back(value); });
    }
};

/// A host's loop: sleeps until the wake-up function was called.
class TestLoop
{
public:
    explicit TestLoop(Thread* thread) : m_thread(thread)
    {
        m_thread->bindWakeUp([this] {
            const std::lock_guard lock(m_mutex);
            ++m_wakes;
            m_condition.notify_one();
        });
    }
    ~TestLoop() { m_thread->unbindWakeUp(); }

    template <class Predicate>
    void runUntil(Predicate done)
    {
        bool left = false;
        while (!done()) {
            if (!left) {
                std::unique_lock lock(m_mutex);
                m_condition.wait(lock, [this] { return m_wakes != m_served; });
                m_served = m_wakes;
            }
            left = m_thread->process(m_budget);
        }
    }

    std::chrono::nanoseconds m_budget = std::chrono::nanoseconds::max();

private:
    Thread* m_thread;
    std::mutex m_mutex;
    std::condition_variable m_condition;
    int m_wakes = 0;
    int m_served = 0;
};

TEST_F(ThreadTest, IsFoundByTheNameGivenLast)
{
    EXPECT_EQ(Thread::find("KESTRA"), nullptr);
    EXPECT_EQ(Thread::find(""), nullptr);
    m_self->setName("KESTRA");
    {
        Worker worker;
        worker.thread()->setName("KESTRA");
        EXPECT_EQ(Thread::find("KESTRA"), worker.thread());
        m_self->setName("KESTRA");
        EXPECT_EQ(Thread::find("KESTRA"), m_self);
        m_self->setName("");
        EXPECT_EQ(worker.thread()->name(), "KESTRA");
    }
    EXPECT_EQ(Thread::find("KESTRA"), nullptr);
}

TEST_F(ThreadTest, RunsCallsInOrderAndDropsThemAtItsEnd)
{
    const auto watched = std::make_shared<int>();
    Worker worker;
    int runs = 0;
    worker.run([&] {
        worker.thread()->post([&] { worker.thread()->quit(); });
        for (int i = 0; i < 1000; ++i)
            worker.thread()->post([&, i] { runs += runs == i; });
    });
    worker.stop();
    // One turn runs everything; quitting takes effect after it.
    EXPECT_EQ(runs, 1000);
    worker.thread()->post([watched] {});
    EXPECT_FALSE(worker.thread()->isAccepting());
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(ThreadTest, TheLibraryStartsNoThread)
{
    const auto tasks = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    };
    const auto before = tasks();
    onItsOwnThread([&] {
        const TestLoop loop(m_self);
        Emitter0<> emitter;
        Listener listener;
        emitter.connect(&listener, [] {});
        emitter.sendPacket(Packet(new Payload0<void>()), SendQueued, false);
        m_self->process();
        EXPECT_LE(tasks(), before + 1); // this one
    });
}

TEST_F(ThreadTest, QuitBeforeExecEndsTheNextOne)
{
    onItsOwnThread([this] {
        m_self->quit();
        m_self->exec();
        EXPECT_FALSE(m_self->isAccepting());
        m_self->post([&] { m_seen.push_back(-1); });
        m_self->process();
        EXPECT_TRUE(m_seen.empty());
        TestLoop loop(m_self); // opens it again
        post(1);
        m_self->process();
        EXPECT_EQ(m_seen, std::vector{1});
    });
}

TEST_F(ThreadTest, NestedExecLeavesTheOuterLoopAlive)
{
    onItsOwnThread([this] {
        m_self->post([&] {
            post(1);
            m_self->post([&] { m_self->quit(); });
            m_self->exec(); // a modal dialog
            m_seen.push_back(2);
            EXPECT_TRUE(m_self->isAccepting());
            post(3);
            m_self->post([&] { m_self->quit(); });
        });
        m_self->exec();
    });
    EXPECT_EQ(m_seen, (std::vector{1, 2, 3}));
}

TEST_F(ThreadTest, ExecRunsInsideAHostsLoop)
{
    onItsOwnThread([this] {
        const TestLoop loop(m_self);
        const std::jthread sender([&] {
            for (int i = 0; i < 100; ++i)
                post(i);
            m_self->post([&] { m_self->quit(); });
        });
        m_self->exec();
        EXPECT_EQ(m_seen.size(), 100u);
        EXPECT_TRUE(m_self->isAccepting());
    });
}

TEST_F(ThreadTest, WakesTheHostNeverTooSeldom)
{
    onItsOwnThread([this] {
        post(-1); // before there is anybody to wake
        TestLoop loop(m_self);
        loop.runUntil([&] { return !m_seen.empty(); });
        // One call at a time, each sent when the last has been seen: every wake-up counts.
        std::atomic<int> done{0};
        std::thread sender([&] {
            for (int i = 0; i < 5000; ++i) {
                m_self->post([&] {
                    ++done;
                    done.notify_one();
                });
                if (i % 2)
                    done.wait(i);
            }
        });
        loop.runUntil([&] { return done == 5000; });
        sender.join();
    });
}

TEST_F(ThreadTest, ALimitedTurnTellsWhatIsLeft)
{
    for (int i = 0; i < 100; ++i)
        post(i);
    int turns = 0;
    while (m_self->process(std::chrono::nanoseconds(1))) {
        ++turns;
        ASSERT_LT(m_seen.size(), 100u);
    }
    EXPECT_GT(turns, 5);
    EXPECT_EQ(m_seen.size(), 100u);
    EXPECT_TRUE(std::is_sorted(m_seen.begin(), m_seen.end()));
    EXPECT_FALSE(m_self->process(std::chrono::seconds(1)));
}

TEST_F(ThreadTest, ProcessingInsideACallGoesOnWithTheRest)
{
    // Over several chunks of the queue, and with the outer calls still using theirs.
    constexpr int Calls = 5000;
    int depth = 0;
    for (int i = 0; i < Calls; ++i) {
        m_self->post([&, i, text = std::string(50, 'x')] {
            m_seen.push_back(i);
            if (i % 100 == 0 && depth < 20) {
                ++depth;
                m_self->process(std::chrono::nanoseconds(1));
                m_self->process();
                --depth;
            }
            ASSERT_EQ(text, std::string(50, 'x'));
        });
    }
    m_self->process();
    ASSERT_EQ(m_seen.size(), std::size_t{Calls});
    EXPECT_TRUE(std::is_sorted(m_seen.begin(), m_seen.end()));
}

TEST_F(ThreadTest, AThrowingCallIsReportedAndTheQueueGoesOn)
{
    std::vector<std::string> errors;
    Thread::setExceptionHandler([&](std::exception_ptr error) {
        errors.push_back(textOf(error));
        std::rethrow_exception(error); // not even this stops the queue
    });
    Emitter0<> emitter;
    Listener listener;
    emitter.connect(&listener, [] { throw std::runtime_error("emitted"); });
    testing::internal::CaptureStderr();
    m_self->post([] { throw std::runtime_error("posted"); });
    emitter.sendPacket(Packet(new Payload0<void>), SendQueued, false);
    post(1);
    m_self->process();
    EXPECT_EQ(errors, (std::vector<std::string>{"posted", "emitted"}));
    EXPECT_EQ(m_seen, std::vector{1});
    testing::internal::GetCapturedStderr();

    Thread::setExceptionHandler({});
    testing::internal::CaptureStderr();
    m_self->post([] { throw std::runtime_error("to stderr"); });
    m_self->post([] { throw 5; });
    m_self->process();
    const std::string text = testing::internal::GetCapturedStderr();
    EXPECT_NE(text.find("to stderr"), std::string::npos);
    EXPECT_NE(text.find("unknown"), std::string::npos);
}

TEST_F(ThreadTest, CarriesLargeAlignedAndThrowingArguments)
{
    struct ThrowingMove
    {
        ThrowingMove() = default;
        ThrowingMove(const ThrowingMove& other) noexcept(false) : m_value(other.m_value) {}
        std::string m_value = std::string(30, 't');
    };
    struct alignas(64) Wide
    {
        std::array<int, 16> m_values{};
    };
    const auto watched = std::make_shared<int>();
    m_self->post([this, large = std::array<int, 20000>{7}] { m_seen.push_back(large[0]); });
    m_self->post([this, value = ThrowingMove()] { m_seen.push_back(int(value.m_value.size())); });
    m_self->post([this, wide = Wide(), watched] {
        m_seen.push_back(int(reinterpret_cast<std::uintptr_t>(&wide) % 64));
    });
    m_self->post([this, number = 1.5L] {
        m_seen.push_back(int(reinterpret_cast<std::uintptr_t>(&number) % alignof(long double)));
    });
    m_self->process();
    EXPECT_EQ(m_seen, (std::vector{7, 30, 0, 0}));
    EXPECT_EQ(watched.use_count(), 1);
}

TEST_F(ThreadTest, AnUnboundLoopIsNeverWokenAgain)
{
    onItsOwnThread([this] {
        auto loop = std::make_unique<TestLoop>(m_self);
        std::atomic<bool> stop{false};
        std::latch running(1);
        std::thread sender([&] {
            running.count_down();
            while (!stop)
                m_self->post([] {});
        });
        running.wait();
        for (int i = 0; i < 200; ++i) {
            loop.reset(); // a call of the wake-up function after this touches freed memory
            loop = std::make_unique<TestLoop>(m_self);
        }
        stop = true;
        sender.join();
    });
}

TEST_F(ThreadTest, ThreadsAreRecycledClean)
{
    std::set<Thread*> identities;
    int wakes = 0;
    const auto watched = std::make_shared<int>();
    for (int i = 0; i < 300; ++i) {
        std::thread([&] {
            Thread* const thread = Thread::getCurrentThread();
            identities.insert(thread);
            ASSERT_TRUE(thread->isAccepting());
            ASSERT_EQ(thread->name(), "");
            ASSERT_FALSE(thread->process());
            thread->setName("brief");
            thread->post([watched] {});
            thread->quit();
            // Not unbound: it must not be called for the next thread of that identity.
            thread->bindWakeUp([watched, &wakes] { ++wakes; });
        }).join();
        ASSERT_EQ(watched.use_count(), 1);
        ASSERT_EQ(wakes, i + 1);
    }
    EXPECT_LT(identities.size(), 10u);
}

TEST_F(ThreadTest, QuitThatComesTooLateDoesNotEndTheNextOne)
{
    Thread* ended = nullptr;
    std::thread([&] { ended = Thread::getCurrentThread(); }).join();
    ended->quit();
    bool hasRun = false;
    std::thread([&] {
        Thread* const thread = Thread::getCurrentThread();
        ASSERT_EQ(thread, ended) << "recycled";
        thread->post([&] {
            hasRun = true;
            thread->quit();
        });
        thread->exec();
    }).join();
    EXPECT_TRUE(hasRun);
}

TEST_F(ThreadTest, AReferenceKeepsTheIdentityOfAnEndedThread)
{
    ThreadRef ended;
    std::thread([&] { ended = ThreadRef(Thread::getCurrentThread()); }).join();
    std::thread([&] { EXPECT_NE(Thread::getCurrentThread(), ended.get()); }).join();
    const ThreadRef copy = ended;
    ended = ThreadRef();
    EXPECT_FALSE(copy->isAccepting());
}

struct SendsWhenItGoes
{
    Emitter1<int, int>* m_emitter = nullptr;
    int* m_result = nullptr;
    ~SendsWhenItGoes()
    {
        if (m_emitter) {
            *m_result = (*m_emitter)(4);
            Thread::getCurrentThread()->post([] { ADD_FAILURE() << "run by nobody"; });
            m_emitter = nullptr;
        }
    }
};
thread_local SendsWhenItGoes s_sendsWhenItGoes;

TEST_F(ThreadTest, LastDestructorsOfAThreadMayStillSend)
{
    Worker worker;
    Emitter1<int, int> emitter;
    Listener listener;
    emitter.connect(
        &listener, [](int a) { return a * a; }, worker.thread());
    int result = 0;
    std::thread([&] {
        s_sendsWhenItGoes.m_emitter = &emitter; // made first, so it goes last
        s_sendsWhenItGoes.m_result = &result;
        EXPECT_EQ(emitter(3), 9);
    }).join();
    EXPECT_EQ(result, 16);
}

} // namespace
} // namespace TROV
