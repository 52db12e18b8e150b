#pragma once

#include "../kernel/toolkit.h"
#include "support/waitfor.h"
#include "support/watchdog.h"
#include "voxi2/containers/vxwindow2.h"

#include <QApplication>
#include <QEventLoop>
#include <QMetaObject>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <utility>

namespace VOXI {

/// Runs `act` in the next turn of whatever loop runs then.
template <class Act>
void soon(Act&& act)
{
    QTimer::singleShot(0, qApp, std::forward<Act>(act));
}

/// Runs `act` as soon as the condition holds, in whatever loop runs then.
template <class Condition, class Act>
void when(Condition condition, Act act)
{
    soon([condition, act] {
        if (condition())
            act();
        else
            QTimer::singleShot(1, qApp, [condition, act] { when(condition, act); });
    });
}

/// A thread of its own; its end is waited for while the event loop runs here.
class Worker
{
public:
    template <class Work>
    explicit Worker(Work work)
        : m_thread([this, work] {
              work();
              m_done = true;
              QMetaObject::invokeMethod(
                  qApp, [] {}, Qt::QueuedConnection);
          })
    {}
    ~Worker()
    {
        EXPECT_TRUE(waitFor([this] { return m_done.load(); }, std::chrono::seconds(40)));
        m_thread.join();
        runDeletions();
    }

private:
    std::atomic<bool> m_done{false};
    std::thread m_thread;
};

/// With a window; whatever is shown ends with it, and nothing hangs.
class DialogTest : public testing::Test
{
protected:
    ~DialogTest() override
    {
        delete m_window;
        runDeletions();
        EXPECT_TRUE(VXAbstractWindow2::windows().empty()) << "messages go when they are answered";
    }

    Watchdog m_watchdog{std::chrono::seconds(100),
                        testing::UnitTest::GetInstance()->current_test_info()->name()};
    VXWindow2* m_window = new VXWindow2;
};

} // namespace VOXI
