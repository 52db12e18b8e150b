#include "qthost/eventloopbinding.h"
#include "support/reportederrors.h"
#include "support/waitfor.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "voxi/vxobject.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace VOXI {
namespace {

/// Counts the house events that the application delivers, and can keep them from their receivers.
class HouseEvents : public QObject
{
public:
    HouseEvents() { qApp->installEventFilter(this); }

    int m_count = 0;
    bool m_swallow = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() < QEvent::User)
            return false;
        ++m_count;
        return m_swallow;
    }
};

class EventLoopBindingTest : public WatchedTest
{
protected:
    TROV::Thread* const m_gui = TROV::Thread::getCurrentThread();
    std::optional<EventLoopBinding> m_binding{std::in_place};
};

TEST_F(EventLoopBindingTest, aBurstCostsOneWakeUp)
{
    int run = 0;
    QCoreApplication::processEvents();
    HouseEvents events;
    for (int burst = 1; burst <= 3; ++burst) {
        std::thread([&] {
            for (int i = 0; i < 1000; ++i)
                m_gui->post([&] { ++run; });
        }).join();
        EXPECT_TRUE(waitFor([&] { return run == 1000 * burst; }));
        EXPECT_EQ(events.m_count, burst);
    }
}

TEST_F(EventLoopBindingTest, aFloodDoesNotStarvePaintingTimersAndEvents)
{
    class Painted : public QWidget
    {
    public:
        int m_paints = 0;

    protected:
        void paintEvent(QPaintEvent*) override { ++m_paints; }
    } widget;
    widget.show();
    ASSERT_TRUE(waitFor([&] { return widget.m_paints > 0; }));

    constexpr int Calls = 100000;
    int run = 0;
    std::thread([&] {
        for (int i = 0; i < Calls; ++i) {
            m_gui->post([&] {
                // Real work: a call that shows something takes about that long.
                QElapsedTimer clock;
                clock.start();
                while (clock.nsecsElapsed() < 5000) {
                }
                ++run;
            });
        }
    }).join();

    struct Ticks
    {
        QTimer m_timer;
        int m_count = 0;
        explicit Ticks(int interval, const int& callsRun, QWidget* painted = nullptr)
        {
            QObject::connect(&m_timer, &QTimer::timeout, [this, &callsRun, painted] {
                if (callsRun == Calls)
                    return;
                ++m_count;
                if (painted)
                    painted->update();
            });
            m_timer.start(interval);
        }
    };
    Ticks idle(0, run, &widget);
    Ticks regular(20, run);
    const int paintsBefore = widget.m_paints;
    bool posted = false;
    QMetaObject::invokeMethod(
        &widget, [&] { posted = run < Calls; }, Qt::QueuedConnection);
    ASSERT_TRUE(waitFor([&] { return run == Calls; }, std::chrono::seconds(40)));
    // The flood is half a second of work at least, which is some sixty turns.
    EXPECT_GE(idle.m_count, 10);
    EXPECT_GE(regular.m_count, 5);
    EXPECT_GE(widget.m_paints - paintsBefore, 10);
    EXPECT_TRUE(posted);
}

TEST_F(EventLoopBindingTest, theLoopTurnsHoweverManyWorkersAsk)
{
    // What they ask takes a millisecond, and there is always more of it.
    constexpr int Turns = 60;
    std::atomic<bool> stop{false};
    std::atomic<int> working{8};
    std::vector<std::thread> workers;
    int calls = 0;
    const auto work = [&] {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 1) {
        }
        ++calls;
    };
    workers.reserve(static_cast<std::size_t>(working));
    for (int i = 0; i < working; ++i) {
        workers.emplace_back([&, i] {
            while (!stop) {
                if (i % 2 == 0)
                    m_gui->post(work);
                TROV::ask(m_gui, work);
            }
            --working;
        });
    }

    int turns = 0;
    int callsBefore = 0;
    int mostCalls = 0;
    const auto begin = [&] {
        mostCalls = std::max(mostCalls, calls - std::exchange(callsBefore, calls));
        ++turns;
    };
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        // The user's handlers and the deletion of what has ended.
        ++ticks;
        (new QObject)->deleteLater();
    });
    {
        const QMetaObject::Connection awake = QObject::connect(
            QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, begin);
        timer.start(0);
        EXPECT_TRUE(waitFor([&] { return ticks >= Turns; }, std::chrono::seconds(40)));
        timer.stop();
        QObject::disconnect(awake);
    }
    stop = true;
    EXPECT_TRUE(waitFor([&] { return working == 0; }));
    for (std::thread& worker : workers)
        worker.join();
    EXPECT_GE(turns, Turns);
    EXPECT_GT(calls, Turns);
    // Eight milliseconds, and the call that went beyond them.
    EXPECT_LE(mostCalls, 9);
}

TEST_F(EventLoopBindingTest, nestedLoopsRunWhatCameInTheSameBurst)
{
    // The first call opens a loop that only the second one ends: it waits already by then.
    bool nested = false;
    std::thread([&] {
        auto loop = std::make_shared<QEventLoop*>(nullptr);
        m_gui->post([&, loop] {
            QEventLoop inner;
            *loop = &inner;
            inner.exec();
            nested = true;
        });
        m_gui->post([loop] { (*loop)->quit(); });
    }).join();
    EXPECT_TRUE(waitFor([&] { return nested; }, std::chrono::seconds(20)));
}

TEST_F(EventLoopBindingTest, modalDialogsOpenedByACallGoOnDelivering)
{
    QDialog dialog;
    int answered = 0;
    std::optional<int> result;
    std::thread worker([&] {
        m_gui->post([&] { result = dialog.exec(); });
        for (int i = 0; i < 100; ++i) {
            answered += TROV::ask(m_gui, [&] { return dialog.isVisible(); });
        }
        m_gui->post([&] { dialog.accept(); });
    });
    EXPECT_TRUE(waitFor([&] { return result.has_value(); }, std::chrono::seconds(20)));
    worker.join();
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(answered, 100);
}

TEST_F(EventLoopBindingTest, theObjectLockIsFreeWhileANestedLoopSleepsAndBackAfterwards)
{
    using End = void (*)(QEventLoop*, TROV::Thread*);
    const End ends[] = {
        [](QEventLoop* loop, TROV::Thread*) {
            QMetaObject::invokeMethod(loop, &QEventLoop::quit, Qt::QueuedConnection);
        },
        [](QEventLoop* loop, TROV::Thread* gui) { gui->post([loop] { loop->quit(); }); },
        [](QEventLoop* loop, TROV::Thread*) {
            QMetaObject::invokeMethod(
                loop, [loop] { QTimer::singleShot(1, loop, [loop] { loop->quit(); }); },
                Qt::QueuedConnection);
        },
        // Not an event: the lock finds it out itself.
        [](QEventLoop* loop, TROV::Thread*) { loop->exit(); },
    };
    for (const End& end : ends) {
        const bool isEvent = &end != std::end(ends) - 1;
        std::thread worker;
        {
            const VXObjectDataLocker outer;
            {
                const VXObjectDataLocker inner;
                QEventLoop loop;
                worker = std::thread([&] {
                    const VXObjectDataLocker mine;
                    end(&loop, m_gui);
                });
                loop.exec();
                if (isEvent) {
                    EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
                    std::thread([] { EXPECT_FALSE(VXObject::m_lock.try_lock()); }).join();
                }
            }
            EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        }
        EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
        worker.join();
    }
}

TEST_F(EventLoopBindingTest, whoAsksAfterTheLoopGetsADefaultAnswer)
{
    const auto ask = [this] { return TROV::ask(m_gui, [] { return 7; }); };
    // Before the first loop one waits for it.
    int early = -1;
    std::thread first([&] {
        early = ask();
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QApplication::exec();
    first.join();
    EXPECT_EQ(early, 7);

    bool sent = false;
    std::thread([&] {
        m_gui->post([&] { sent = true; });
        EXPECT_EQ(ask(), 0);
    }).join();
    EXPECT_FALSE(sent);
    std::thread second([&] {
        while (ask() != 7)
            std::this_thread::yield();
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QApplication::exec();
    second.join();
    EXPECT_TRUE(sent) << "what was only sent was kept";
    std::thread([&] { EXPECT_EQ(ask(), 0); }).join();
}

TEST_F(EventLoopBindingTest, itsEndReleasesWhoeverWaits)
{
    QCoreApplication::processEvents(); // the binding's own first wake-up
    HouseEvents events;
    events.m_swallow = true;
    int answer = 1;
    bool ran = false;
    std::thread worker([&] {
        answer = TROV::ask(m_gui, [&] {
            ran = true;
            return 2;
        });
    });
    // The loop was roused: the question is in the queue.
    ASSERT_TRUE(waitFor([&] { return events.m_count == 1; }));
    m_binding.reset();
    worker.join();
    EXPECT_EQ(answer, 0);
    EXPECT_FALSE(ran);

    // Later calls are dropped, until there is a loop again.
    EXPECT_FALSE(m_gui->isAccepting());
    events.m_swallow = false;
    m_binding.emplace();
    std::thread([&] { m_gui->post([&] { ran = true; }); }).join();
    EXPECT_TRUE(waitFor([&] { return ran; }));
}

TEST_F(EventLoopBindingTest, whatCallsThrowDoesNotPassThroughTheLoop)
{
    TROV::ReportedErrors errors;
    bool after = false;
    std::thread worker([&] {
        m_gui->post([] { throw std::runtime_error("queued"); });
        EXPECT_THROW(TROV::ask(m_gui, [] { throw std::runtime_error("asked"); }),
                     std::runtime_error);
        m_gui->post([&] { after = true; });
    });
    EXPECT_TRUE(waitFor([&] { return after; }));
    worker.join();
    EXPECT_EQ(errors.take(), std::vector<std::string>{"queued"});
}

} // namespace
} // namespace VOXI
