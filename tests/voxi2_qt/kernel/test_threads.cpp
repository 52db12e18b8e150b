// Widgets used from other threads than their own.

#include "support/waitfor.h"
#include "support/watchdog.h"
#include "toolkit.h"
#include "trov/thread.h"
#include "voxi/vxbridge.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtext2.h"
#include "voxi2/kernel/vxhandle.h"

#include <QApplication>
#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <thread>

namespace VOXI {
namespace {

class WidgetThreads : public testing::Test
{
protected:
    /// Runs `work` on a thread of its own while the event loop runs here.
    template <class Work>
    static void onWorker(Work&& work)
    {
        // A real loop: it wakes up at once for every request.
        QEventLoop loop;
        std::thread worker([&] {
            work();
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
        loop.exec();
        worker.join();
        runDeletions();
    }

private:
    Watchdog m_watchdog{std::chrono::seconds(55),
                        testing::UnitTest::GetInstance()->current_test_info()->name()};
};

TEST_F(WidgetThreads, aHundredThousandLabelsComeInOrderWhileTheWindowAnswers)
{
    constexpr int Count = 100000;
    VXWindow2 window;
    auto* panel = new VXPanel2(&window);
    auto* layout = new VXBoxLayout2(panel);
    auto* button = new VXButton2(panel);
    auto* other = new VXButton2(panel);
    layout->addWidget(button);
    layout->addWidget(other);
    window.setCentralWidget(panel);
    window.show();

    // Every single one, in its order: a listener beside the peer hears what the peer is asked.
    int next = 0;
    int misplaced = 0;
    button->buttonEmitters()->setLabel.signal().connect(other, [&](const std::string& label) {
        misplaced += label != std::to_string(next);
        ++next;
    });
    int ticks = 0;
    int clicks = 0;
    int clickedAt = 0;
    other->clicked().connect(other, [&] {
        ++clicks;
        clickedAt = next;
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (next == Count)
            return;
        if (++ticks == 2)
            QTest::mouseClick(qt(*other), Qt::LeftButton);
    });
    timer.start(0);

    onWorker([&] {
        for (int i = 0; i < Count; ++i) {
            button->setLabel(std::to_string(i));
            if (i % 20000 == 7) {
                EXPECT_EQ(button->label(), std::to_string(i));
            }
        }
        EXPECT_EQ(button->label(), std::to_string(Count - 1));
    });
    EXPECT_EQ(next, Count);
    EXPECT_EQ(misplaced, 0);
    EXPECT_EQ(static_cast<QPushButton*>(qt(*button))->text(), QString::number(Count - 1));
    EXPECT_EQ(clicks, 1);
    EXPECT_LT(clickedAt, Count);
}

TEST_F(WidgetThreads, makeUseAndEndWidgets)
{
    runDeletions();
    const auto before = QApplication::allWidgets().size();
    std::atomic<int> clicks{0};
    onWorker([&] {
        for (int i = 0; i < 100; ++i) {
            auto* window = new VXWindow2;
            auto* panel = new VXPanel2(window);
            auto* layout = new VXBoxLayout2(panel, Direction::TopToBottom);
            auto* text = new VXText2(panel);
            auto* button = new VXButton2(panel);
            layout->addWidget(text);
            layout->addWidget(button);
            window->setCentralWidget(panel);
            button->clicked().connect(
                static_cast<TROV::Listener*>(text), [&] { ++clicks; },
                VXBridge::getBridge(StringID("qt"))->thread());
            text->setText("text " + std::to_string(i));
            EXPECT_EQ(text->text(), "text " + std::to_string(i));
            button->imitateClick();
            EXPECT_EQ(window->centralWidget(), panel);
            if (i % 3 == 0)
                delete button;
            window->show();
            window->destroy();
        }
    });
    EXPECT_EQ(clicks, 100);
    turn();
    runDeletions();
    EXPECT_EQ(QApplication::allWidgets().size(), before);
}

TEST_F(WidgetThreads, areThrownWhatTheirRequestsThrow)
{
    VXPanel2 panel;
    onWorker([&] {
        EXPECT_THROW(
            static_cast<void>(panel.isEventConsumed(static_cast<WidgetEvent>(WidgetEventCount))),
            std::out_of_range);
    });
}

TEST_F(WidgetThreads, askEachOtherThroughWidgets)
{
    VXButton2 button;
    button.setLabel("label");
    TROV::Emitter0<std::string> ask;
    std::promise<TROV::Thread*> born;
    VXPanel2 listener;
    std::thread answering([&] {
        TROV::Thread* const self = TROV::Thread::getCurrentThread();
        // Answered on this thread by asking the widget on the other.
        ask.connect(
            &listener, [&] { return button.label() + "!"; }, self);
        born.set_value(self);
        self->exec();
    });
    TROV::Thread* const thread = born.get_future().get();
    onWorker([&] {
        for (int i = 0; i < 500; ++i)
            EXPECT_EQ(ask() + button.label(), "label!label");
    });
    for (int i = 0; i < 500; ++i)
        EXPECT_EQ(ask(), "label!");
    // Both at the same time.
    std::atomic<bool> stop{false};
    std::thread asking([&] {
        while (!stop)
            EXPECT_EQ(button.label(), "label");
    });
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(ask(), "label!");
        if (i % 16 == 0)
            turn();
    }
    stop = true;
    onWorker([&] { asking.join(); });
    thread->quit();
    answering.join();
}

TEST_F(WidgetThreads, holdTheObjectLockWhileTheyAsk)
{
    VXButton2 button;
    button.setLabel("label");
    std::atomic<bool> stop{false};
    int taken = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        const VXObjectDataLocker lock;
        ++taken;
    });
    timer.start(0);
    onWorker([&] {
        const VXHandle<VXButton2> handle(&button);
        for (int i = 0; i < 1000; ++i) {
            const VXObjectDataLocker lock;
            EXPECT_EQ(button.label(), "label");
            EXPECT_EQ(handle->label(), "label");
            EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
            button.setToolTip("tip");
        }
    });
    EXPECT_GT(taken, 0);
    EXPECT_EQ(button.toolTip(), "tip");
}

TEST_F(WidgetThreads, handlersOfOneThreadMayEndWhatAnotherUses)
{
    for (int i = 0; i < 50; ++i) {
        auto* button = new VXButton2;
        button->setLabel("label");
        const VXHandle<VXButton2> handle(button);
        std::atomic<bool> asked{false};
        std::thread user([&] {
            while (handle) {
                const std::string label = handle->label();
                EXPECT_TRUE(label == "label" || label.empty()) << label;
                handle->setToolTip("tip");
                asked = true;
            }
        });
        EXPECT_TRUE(waitFor([&] { return asked.load(); }));
        delete button;
        user.join();
        runDeletions();
    }
}

TEST_F(WidgetThreads, areReleasedWhenTheLoopEndsWhileTheyAsk)
{
    VXButton2 button;
    button.setLabel("label");
    std::atomic<int> answers{0};
    std::atomic<int> defaults{0};
    std::atomic<bool> stop{false};
    std::thread user([&] {
        while (!stop)
            ++(button.label() == "label" ? answers : defaults);
    });
    EXPECT_TRUE(waitFor([&] { return answers > 10; }));
    eventLoopBinding().reset();
    while (defaults == 0)
        std::this_thread::yield();
    eventLoopBinding() = std::make_unique<EventLoopBinding>();
    const int before = answers;
    EXPECT_TRUE(waitFor([&] { return answers > before + 10; }));
    stop = true;
    onWorker([&] { user.join(); });
}

} // namespace
} // namespace VOXI
