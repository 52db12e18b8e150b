// Widgets used from other threads than their own.

#include "support/waitfor.h"
#include "support/watchedtest.h"
#include "support/worker.h"
#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/kernel/vxhandle.h"

#include <QApplication>
#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <gtest/gtest.h>
#include <string>
#include <thread>

namespace VOXI {
namespace {

class WidgetThreads : public WatchedTest
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

TEST_F(WidgetThreads, askEachOtherThroughWidgets)
{
    VXButton2 button;
    button.setLabel("label");
    TROV::Emitter0<std::string> ask;
    VXPanel2 listener;
    TROV::Worker answering; // by asking the widget on the other thread
    ask.connect(
        &listener, [&] { return button.label() + "!"; }, answering.thread());
    onWorker([&] {
        for (int i = 0; i < 500; ++i)
            EXPECT_EQ(ask() + button.label(), "label!label");
    });
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

} // namespace
} // namespace VOXI
