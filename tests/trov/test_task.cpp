#include "support/reportederrors.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "trov/task.h"

#include <atomic>
#include <latch>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace TROV {
namespace {

class TaskTest : public VOXI::WatchedTest
{
protected:
    /// On a thread of its own, whose loop is the test's to run.
    template <class Test>
    void onItsOwnThread(Test test)
    {
        std::thread([&] {
            m_self = Thread::getCurrentThread();
            m_self->bindWakeUp([] {}); // it takes calls between its loops, too
            test();
            m_self->unbindWakeUp();
        }).join();
    }

    /// Until a task that was begun here by then has ended.
    void runUntilEnded(const Task& task)
    {
        Listener listener;
        const auto quit = [self = m_self] { self->quit(); };
        task.ended().connect(&listener, quit);
        if (task.isRunning())
            m_self->exec();
    }

    Thread* m_self = nullptr;
};

struct Page : Listener
{
    std::vector<std::string> m_seen;
    Thread* m_thread = nullptr;

    void show(const std::string& text)
    {
        m_seen.push_back(text);
        m_thread = Thread::getCurrentThread();
    }
    void take(TaskOutcome<std::unique_ptr<int>>& outcome)
    {
        m_seen.push_back(outcome.isCancelled() ? "cancelled"
                         : outcome.error()     ? textOf(outcome.error())
                                               : std::to_string(*outcome.value()));
    }
};

TEST_F(TaskTest, HandsItsResultOverWhereItWasBegun)
{
    onItsOwnThread([this] {
        Page page;
        Thread* worker = nullptr;
        Task task = Task::run(
            &page,
            [&worker] {
                worker = Thread::getCurrentThread();
                return std::string("done");
            },
            &Page::show);
        EXPECT_TRUE(page.m_seen.empty());
        task.ended().connect(&page, [&] { page.m_seen.push_back("ended"); });
        runUntilEnded(task);
        EXPECT_EQ(page.m_seen, (std::vector<std::string>{"ended", "done"}));
        EXPECT_EQ(page.m_thread, m_self);
        EXPECT_NE(worker, m_self);
        task.cancel();
        EXPECT_FALSE(task.isCancelled()); // too late
        EXPECT_FALSE(Task().isRunning());
    });
}

TEST_F(TaskTest, CarriesExceptionsAndSaysThatItWasCancelled)
{
    onItsOwnThread([this] {
        ReportedErrors errors;
        Page page;
        const auto run = [&](auto work, bool cancels) {
            const Task task = Task::run(&page, work, &Page::take);
            if (cancels)
                Task(task).cancel();
            runUntilEnded(task);
            EXPECT_EQ(task.isCancelled(), cancels);
        };
        const auto fails = []() -> std::unique_ptr<int> { throw std::runtime_error("failed"); };
        run([] { return std::make_unique<int>(7); }, false);
        run(fails, false);
        run([] { return std::make_unique<int>(8); }, true); // however far it had come
        run(fails, true);
        run(
            [](TaskContext& context) {
                while (true)
                    context.throwIfCancelled();
                return std::unique_ptr<int>();
            },
            true);
        EXPECT_EQ(page.m_seen,
                  (std::vector<std::string>{"7", "failed", "cancelled", "cancelled", "cancelled"}));
        EXPECT_TRUE(errors.take().empty());
        // Who takes values only leaves the rest to the handler of exceptions.
        runUntilEnded(Task::run(&page, [] { throw std::runtime_error("alone"); }));
        EXPECT_EQ(errors.take(), std::vector<std::string>{"alone"});
    });
}

TEST_F(TaskTest, TellsTheLatestOfItsProgress)
{
    onItsOwnThread([this] {
        Listener listener;
        std::vector<TaskProgress> seen;
        std::latch listens(1);
        Task task = Task::run(&listener, [&listens](TaskContext& context) {
            listens.wait();
            for (int i = 0; i < 100000; ++i)
                context.setProgress(i / 99999.0, L"step");
            context.setProgress(0.0 / 0.0);
            context.setProgress(2, "last");
        });
        EXPECT_EQ(task.progress(), TaskProgress());
        task.progressed().connect(&listener,
                                  [&](const TaskProgress& progress) { seen.push_back(progress); });
        listens.count_down();
        runUntilEnded(task);
        ASSERT_FALSE(seen.empty());
        EXPECT_LT(seen.size(), 50000u);
        EXPECT_EQ(seen.back(), (TaskProgress{1, L"last"}));
        EXPECT_EQ(task.progress(), seen.back());
    });
}

TEST_F(TaskTest, EndsInAnyOrder)
{
    onItsOwnThread([this] {
        const auto kept = std::make_shared<int>();
        std::latch goesOn(1);
        std::atomic<int> began = 0;
        std::atomic<int> cancelled = 0;
        const auto work = [&, kept](TaskContext& context) {
            ++began;
            goesOn.wait();
            cancelled += context.isCancelled();
        };
        const auto never = [kept] { ADD_FAILURE(); };
        // Its listener first; its thread first; no handle at all.
        auto listener = std::make_unique<Listener>();
        Task withoutListener = Task::run(listener.get(), work, never);
        withoutListener.ended().connect(nullptr, [withoutListener, kept] {});
        Task withoutThread;
        std::thread([&] {
            withoutThread = Task::run(nullptr, work, never);
            withoutThread.progressed().connect(nullptr, [withoutThread, kept] {});
        }).join();
        while (began != 2)
            std::this_thread::yield();
        listener.reset();
        goesOn.count_down();
        runUntilEnded(withoutListener);
        while (withoutThread.isRunning())
            std::this_thread::yield();
        EXPECT_EQ(cancelled, 1);

        // One that waits for its turn is cancelled without one, and its work never begins.
        std::latch ends(1);
        std::vector<Task> tasks;
        for (unsigned i = 0; i < Task::mostAtOnce(); ++i)
            tasks.push_back(Task::run(nullptr, [&ends] { ends.wait(); }));
        bool wasCancelled = false;
        Task last = Task::run(
            nullptr, [never] { never(); },
            [&](TaskOutcome<void>& outcome) {
                wasCancelled = outcome.isCancelled();
                EXPECT_THROW(outcome.value(), TaskCancelled);
            });
        last.cancel();
        runUntilEnded(last);
        EXPECT_TRUE(wasCancelled);
        ends.count_down();
        for (const Task& task : tasks)
            runUntilEnded(task);
        while (kept.use_count() > 4) // here, `work`, `never`, and its copy in the frame above
            std::this_thread::yield();
    });
}

TEST_F(TaskTest, ManyThreadsBeginAndCancelThem)
{
    std::atomic<int> handedOver = 0;
    std::atomic<int> values = 0;
    std::atomic<int> worked = 0;
    std::vector<std::unique_ptr<Worker>> workers(4);
    constexpr int Each = 200;
    for (auto& worker : workers) {
        worker = std::make_unique<Worker>();
        worker->thread()->post([&] {
            for (int i = 0; i < Each; ++i) {
                Task task = Task::run(
                    nullptr,
                    [&worked, i](TaskContext& context) {
                        context.setProgress(i);
                        return ++worked;
                    },
                    [&](TaskOutcome<int>& outcome) {
                        values += outcome.hasValue();
                        ++handedOver;
                    });
                task.progressed().connect(nullptr, [] {});
                if (i % 2 == 0)
                    task.cancel();
            }
        });
    }
    while (handedOver != 4 * Each)
        std::this_thread::yield();
    EXPECT_EQ(values, 4 * Each / 2);
    EXPECT_GE(worked, values);
}

} // namespace
} // namespace TROV
