// Frequent events: at most one of each kind is on its way, and no kind gets stuck.

#include "probe.h"
#include "reports.h"
#include "support/reportederrors.h"
#include "support/waitfor.h"
#include "support/worker.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2_qt/kernel/qteventthrottler.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>

#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace VOXI {
namespace {

using Handler = std::function<void()>;

class Throttling : public testing::Test
{
protected:
    Throttling()
    {
        m_probe->setPosition({0, 0, 100, 100});
        m_probe->show();
        turn();
    }

    void move(int x)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, 0),
                          qt(*m_probe)->mapToGlobal(QPointF(x, 0)), Qt::NoButton, Qt::LeftButton,
                          {});
        QApplication::sendEvent(qt(*m_probe), &event);
    }
    void wheel()
    {
        QWheelEvent event({}, qt(*m_probe)->mapToGlobal(QPointF()), {}, QPoint(0, 120), {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(qt(*m_probe), &event);
    }
    void key(QEvent::Type type)
    {
        QKeyEvent event(type, Qt::Key_A, {});
        QApplication::sendEvent(qt(*m_probe), &event);
    }

    std::unique_ptr<VXProbe2> m_probe = std::make_unique<VXProbe2>();
    QMimeData m_data;
};

TEST_F(Throttling, aFloodCollapsesToTheFirstOfEachKind)
{
    m_data.setText(QStringLiteral("x"));
    m_probe->setAcceptDrops(true);
    Reports reports(*m_probe);
    TROV::Listener listener;
    m_probe->dragEntered().connect(&listener, [](const VXDragEvent2& e) { e.acceptProposed(); });
    QDragEnterEvent enter(QPoint(1, 1), Qt::CopyAction, &m_data, Qt::LeftButton, {});
    QApplication::sendEvent(qt(*m_probe), &enter);
    reports.take();

    // The oldest of a kind is the one on its way; but of sizes the last comes as well.
    for (const auto& [width, firstSize, lastSize] :
         {std::tuple(101, "100x100>101x120", "101x120>150x120"),
          std::tuple(201, "150x120>201x120", "201x120>250x120")}) {
        for (int i = 0; i < 50; ++i) {
            move(i + 1);
            wheel();
            QDragMoveEvent drag(QPoint(i + 1, 2), Qt::CopyAction, &m_data, Qt::LeftButton, {});
            QApplication::sendEvent(qt(*m_probe), &drag);
            qt(*m_probe)->resize(width + i, 120);
            key(QEvent::KeyPress);
            key(QEvent::KeyRelease);
        }
        EXPECT_EQ(reports.take(), "") << "nothing before the next turn";
        for (int i = 0; i < 4; ++i)
            turn();
        EXPECT_EQ(reports.take(),
                  std::string("mouseMoved 1,0 No/Left; wheelTurned 0,0 No/No by 0,120; "
                              "dragMoved 1,2; resized ")
                      + firstSize + "; keyPressed A; keyReleased A; resized " + lastSize);
    }
}

TEST_F(Throttling, sizesEndWithTheLastUnlessItIsTheProgramsOwn)
{
    const auto userResizes = [&](int width) { qt(*m_probe)->resize(width, 100); };
    std::vector<int> widths;
    TROV::Listener listener;
    Handler inside;
    m_probe->resized().connect(&listener, [&](const VXResizeEvent2& event) {
        widths.push_back(event.size().width);
        if (const auto once = std::exchange(inside, nullptr))
            once();
    });
    const auto expect = [&](const std::vector<int>& expected) {
        for (int i = 0; i < 4; ++i)
            turn();
        EXPECT_EQ(std::exchange(widths, {}), expected);
    };
    userResizes(110);
    userResizes(120);
    userResizes(110);
    expect({110}); // and so it is

    userResizes(300);
    m_probe->resize({50, 50});
    expect({}); // the program knows better

    userResizes(310);
    m_probe->resize({60, 50});
    userResizes(320);
    expect({320});

    userResizes(330);
    userResizes(340);
    m_probe->setPosition({0, 0, 70, 50});
    expect({});

    // What happens in a loop that a handler runs.
    inside = [&] {
        turn();
        userResizes(400);
        turn();
        userResizes(500);
        turn();
    };
    userResizes(350);
    expect({350, 500});
    inside = [&] {
        userResizes(400);
        m_probe->resize({80, 50});
        turn();
    };
    userResizes(350);
    expect({350});

    // What was hidden, and told when it is shown.
    userResizes(360);
    m_probe->hide();
    m_probe->resize({90, 50});
    m_probe->show();
    expect({});
}

TEST_F(Throttling, otherEventsAreNotHeldBack)
{
    auto presses = Log(m_probe->mousePressed());
    for (int i = 0; i < 3; ++i)
        QTest::mousePress(qt(*m_probe), Qt::LeftButton);
    EXPECT_EQ(presses.count(), 3);
    using E = WidgetEvent;
    const std::set throttledEvents{E::MouseMove, E::DragMove, E::Wheel,
                                   E::Resize,    E::KeyPress, E::KeyRelease};
    for (unsigned i = 0; i < WidgetEventCount; ++i) {
        const auto event = static_cast<WidgetEvent>(i);
        const bool throttled = throttledEvents.contains(event);
        EXPECT_EQ(EventThrottler::pendingBit(event) != 0, throttled) << i;
    }
}

TEST_F(Throttling, theNextOfAKindIsPostedOnlyAfterTheHandler)
{
    TROV::Listener listener;
    int calls = 0;
    m_probe->mouseMoved().connect(&listener, [&] {
        ++calls;
        move(1); // while one is being delivered
    });
    move(1);
    turn();
    turn();
    EXPECT_EQ(calls, 1);
    move(2);
    turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(Throttling, aHandlerThatThrowsBlocksNothing)
{
    TROV::ReportedErrors errors;
    TROV::Listener listener;
    m_probe->keyPressed().connect(&listener, [] { throw std::runtime_error("handler"); });
    for (int i = 1; i <= 3; ++i) {
        key(QEvent::KeyPress);
        turn();
        EXPECT_EQ(errors.take(), std::vector<std::string>{"handler"});
    }
}

TEST_F(Throttling, listenersThatLeaveBlockNothing)
{
    {
        auto moves = Log(m_probe->mouseMoved());
        move(1);
    }
    turn();
    auto moves = Log(m_probe->mouseMoved());
    move(2);
    turn();
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.last().position().x, 2);
}

TEST_F(Throttling, theWidgetMayGoInTheHandlerOrBefore)
{
    TROV::Listener listener;
    int calls = 0;
    m_probe->mouseMoved().connect(&listener, [&] {
        ++calls;
        m_probe.reset();
    });
    move(1);
    turn();
    EXPECT_EQ(calls, 1);
    runDeletions();

    m_probe = std::make_unique<VXProbe2>();
    m_probe->mouseMoved().connect(&listener, [&] { ++calls; });
    move(1);
    m_probe.reset();
    turn();
    runDeletions();
    EXPECT_EQ(calls, 1);

    // The peer alone, and its filter with all switches.
    m_probe = std::make_unique<VXProbe2>();
    m_probe->mouseMoved().connect(&listener, [&] { ++calls; });
    move(1);
    peer(*m_probe).disableEventBroadcasting();
    turn();
    EXPECT_EQ(calls, 1);
    peer(*m_probe).enableEventBroadcasting();
    move(2);
    turn();
    EXPECT_EQ(calls, 2);
}

TEST_F(Throttling, anEndedEventLoopBlocksNothing)
{
    auto moves = Log(m_probe->mouseMoved());
    auto keys = Log(m_probe->keyPressed());
    move(1);
    eventLoopBinding().reset(); // what is queued is dropped
    key(QEvent::KeyPress);      // nobody takes it
    turn();
    EXPECT_EQ(moves.count() + keys.count(), 0);

    eventLoopBinding() = std::make_unique<EventLoopBinding>();
    move(2);
    key(QEvent::KeyPress);
    turn();
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.last().position().x, 2);
    EXPECT_EQ(keys.count(), 1);
}

TEST_F(Throttling, anotherThreadMayListen)
{
    TROV::Worker worker;
    std::atomic<int> calls{0};
    TROV::Listener listener;
    m_probe->mouseMoved().connect(
        &listener, [&] { ++calls; }, worker.thread());
    for (int i = 1; i <= 3; ++i) {
        move(i);
        EXPECT_TRUE(waitFor([&] { return calls == i; }));
    }
}

} // namespace
} // namespace VOXI
