// The gesture that starts a drag, and what a widget and its delegate make of drags over them.

#include "probe.h"
#include "reports.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/kernel/vxdragdelegate2.h"
#include "voxi2/kernel/vxdragmanager2.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>
#include <optional>

namespace VOXI {
namespace {

class DragGesture : public testing::Test
{
protected:
    DragGesture()
    {
        QApplication::setStartDragDistance(10);
        m_probe->resize({200, 100});
        m_probe->moveTo({50, 60});
        m_probe->show();
        turn();
    }

    void press(Qt::MouseButton button, QPoint at)
    {
        QTest::mousePress(qt(*m_probe), button, {}, at);
    }
    void move(QPoint to, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(to), qt(*m_probe)->mapToGlobal(QPointF(to)),
                          Qt::NoButton, buttons, Qt::ShiftModifier);
        QApplication::sendEvent(qt(*m_probe), &event);
    }

    std::unique_ptr<VXProbe2> m_probe = std::make_unique<VXProbe2>();
};

TEST_F(DragGesture, needsMoreThanTheDragDistance)
{
    Reports reports(*m_probe);
    press(Qt::LeftButton, {20, 30});
    reports.take();
    move({25, 35});
    move({15, 25});
    move({26, 34});
    EXPECT_EQ(reports.take(), "") << "10 on the way";
    plain(*m_probe).forget();
    move({26, 35});
    EXPECT_EQ(reports.take(), "dragDetected 20,30 No/Left Shift") << "where it began";
    EXPECT_TRUE(plain(*m_probe).saw(QEvent::MouseMove)) << "the widget moves on as ever";
    move({90, 90});
    EXPECT_EQ(reports.take(), "") << "once for a press";
}

TEST_F(DragGesture, belongsToTheFirstPressOfTheLeftButton)
{
    auto drags = Log(m_probe->dragDetected());
    press(Qt::RightButton, {20, 30});
    move({90, 90}, Qt::RightButton);
    EXPECT_TRUE(drags.isEmpty());

    press(Qt::LeftButton, {20, 30});
    press(Qt::LeftButton, {80, 80}); // the first one counts
    move({80, 81});
    ASSERT_EQ(drags.count(), 1);
    EXPECT_EQ(drags.last().position(), (VXPoint<int>{20, 30}));

    for (const bool consumed : {false, true}) {
        m_probe->setEventConsumed(WidgetEvent::MouseRelease, consumed);
        press(Qt::LeftButton, {20, 30});
        QTest::mouseRelease(qt(*m_probe), Qt::LeftButton, {}, QPoint(20, 30));
        move({90, 90}, consumed ? Qt::NoButton : Qt::LeftButton);
        EXPECT_EQ(drags.count(), 1) << "the press has ended";
    }

    // Nobody listened: the press is used up all the same.
    drags.disconnect();
    press(Qt::LeftButton, {20, 30});
    move({60, 60});
    auto late = Log(m_probe->dragDetected());
    move({90, 90});
    EXPECT_TRUE(late.isEmpty());
    press(Qt::LeftButton, {80, 80});
    move({20, 20});
    ASSERT_EQ(late.count(), 1);
    EXPECT_EQ(late.last().position(), (VXPoint<int>{80, 80}));
}

TEST_F(DragGesture, beginsWhereThePressWas)
{
    auto drags = Log(m_probe->dragDetected());
    const VXPoint<int> onScreen = m_probe->mapToGlobal({20, 30});
    press(Qt::LeftButton, {20, 30});
    m_probe->moveTo({5, 6}); // scrolled under the pointer
    move({90, 90});
    ASSERT_EQ(drags.count(), 1);
    EXPECT_EQ(drags.last().position(), (VXPoint<int>{20, 30}));
    EXPECT_EQ(drags.last().globalPosition(), onScreen);
}

TEST_F(DragGesture, survivesTheEndOfItsWidget)
{
    TROV::Listener listener;
    m_probe->dragDetected().connect(&listener, [&] { m_probe.reset(); });
    press(Qt::LeftButton, {20, 30});
    move({90, 90});
    EXPECT_EQ(m_probe, nullptr);
    runDeletions();
}

class Drops : public testing::Test
{
protected:
    Drops()
    {
        m_target.setAcceptDrops(true);
        m_target.resize({100, 100});
        m_target.show();
        turn();
        m_data.setText(QStringLiteral("payload"));
    }

    /// The action that was accepted.
    std::optional<Qt::DropAction> sendEvent(QDropEvent&& event)
    {
        QApplication::sendEvent(qt(m_target), &event);
        return event.isAccepted() ? std::optional(event.dropAction()) : std::nullopt;
    }
    auto enter(Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction)
    {
        return sendEvent(
            QDragEnterEvent(QPoint(5, 6), possible, &m_data, Qt::LeftButton, Qt::ShiftModifier));
    }
    auto move()
    {
        return sendEvent(QDragMoveEvent(QPoint(7, 8), Qt::CopyAction | Qt::MoveAction, &m_data,
                                        Qt::LeftButton, {}));
    }
    auto drop()
    {
        return sendEvent(QDropEvent(QPointF(9, 10), Qt::CopyAction | Qt::MoveAction, &m_data,
                                    Qt::LeftButton, {}));
    }
    void leave()
    {
        QDragLeaveEvent event;
        QApplication::sendEvent(qt(m_target), &event);
    }

    VXButton2 m_target;
    VXDragDelegate2 m_delegate;
    TROV::Listener m_listener;
    QMimeData m_data;
};

TEST_F(Drops, theDelegateDecides)
{
    m_target.setDragDelegate(&m_delegate);
    EXPECT_EQ(m_target.dragDelegate(), &m_delegate);
    auto entered = Log(m_delegate.entered());
    auto moved = Log(m_delegate.moved());
    auto left = Log(m_delegate.left());
    auto dropped = Log(m_delegate.dropped());

    EXPECT_FALSE(enter()) << "nobody accepted";
    ASSERT_EQ(entered.count(), 1);
    const VXDragEvent2& event = entered.last();
    EXPECT_EQ(event.widget(), &m_target);
    EXPECT_EQ(event.type(), WidgetEvent::DragEnter);
    EXPECT_EQ(event.position(), (VXPoint<int>{5, 6}));
    EXPECT_EQ(event.formats(), std::vector<StringID>{StringID("text/plain")});
    EXPECT_EQ(event.mimeData().text(), L"payload");
    EXPECT_EQ(event.possibleActions(), DropAction::Copy | DropAction::Move);
    EXPECT_EQ(event.proposedAction(), DropAction::Move) << "shift is held";
    EXPECT_EQ(event.buttons(), MouseButton::Left);
    EXPECT_EQ(event.modifiers(), Modifier::Shift);
    EXPECT_EQ(event.source(), nullptr);
    EXPECT_FALSE(move());
    EXPECT_TRUE(moved.isEmpty()) << "not wanted here";

    m_delegate.entered().connect(&m_listener, [](const VXDragEvent2& e) { e.acceptProposed(); });
    EXPECT_EQ(enter(), Qt::MoveAction);
    EXPECT_FALSE(move()) << "no answer changes nothing";
    EXPECT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.last().position(), (VXPoint<int>{7, 8}));
    leave();
    EXPECT_EQ(left.count(), 1);
    EXPECT_EQ(left.last().widget(), &m_target);

    m_delegate.moved().connect(&m_listener,
                               [](const VXDragEvent2& e) { e.accept(DropAction::Copy); });
    m_delegate.dropped().connect(&m_listener,
                                 [](const VXDragEvent2& e) { e.accept(DropAction::Move); });
    enter();
    EXPECT_EQ(move(), Qt::CopyAction);
    EXPECT_EQ(drop(), Qt::MoveAction);
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.last().type(), WidgetEvent::Drop);
    EXPECT_EQ(dropped.last().position(), (VXPoint<int>{9, 10}));

    m_delegate.entered().connect(&m_listener, [](const VXDragEvent2& e) { e.ignore(); });
    EXPECT_FALSE(enter()) << "the last answer counts";
}

TEST_F(Drops, theWidgetsOwnHandlersMayDecide)
{
    Reports reports(m_target);
    auto left = Log(m_target.dragLeft());
    auto dropped = Log(m_target.dropped());
    EXPECT_FALSE(enter()) << "without delegate and handlers only Qt decides";
    EXPECT_EQ(reports.take(), "dragEntered 5,6");
    const auto accept = [](const VXDragEvent2& event) { event.accept(DropAction::Copy); };
    m_target.dragEntered().connect(&m_listener, accept);
    m_target.dropped().connect(&m_listener, accept);
    EXPECT_TRUE(enter());
    move();
    leave();
    EXPECT_EQ(reports.takeAfterTurn(), "dragEntered 5,6; dragLeft 0,0; dragMoved 7,8");
    EXPECT_TRUE(left.last().formats().empty());

    enter();
    EXPECT_EQ(drop(), Qt::CopyAction);
    EXPECT_EQ(dropped.last().mimeData().text(), L"payload");

    m_target.setDragDelegate(&m_delegate);
    m_delegate.entered().connect(&m_listener, [](const VXDragEvent2& e) { e.ignore(); });
    EXPECT_FALSE(enter()) << "the delegate has the last word";
    reports.take();
    auto entered = Log(m_delegate.entered());
    m_target.setEventConsumed(WidgetEvent::DragEnter, true);
    enter();
    EXPECT_EQ(reports.take(), "dragEntered 5,6");
    EXPECT_TRUE(entered.isEmpty()) << "but does not get what is consumed";
}

TEST_F(Drops, delegatesMayGo)
{
    {
        VXDragDelegate2 passing;
        m_target.setDragDelegate(&passing);
        passing.entered().connect(&m_listener, [](const VXDragEvent2& e) { e.acceptProposed(); });
        EXPECT_TRUE(enter());
    }
    EXPECT_EQ(m_target.dragDelegate(), nullptr);
    EXPECT_FALSE(enter());

    m_target.setDragDelegate(&m_delegate);
    m_target.setDragDelegate(nullptr);
    EXPECT_EQ(m_target.dragDelegate(), nullptr);

    // In its own handler.
    auto* const brief = new VXDragDelegate2;
    m_target.setDragDelegate(brief);
    brief->entered().connect(&m_listener, [&](const VXDragEvent2& event) {
        event.acceptProposed();
        delete brief;
    });
    EXPECT_TRUE(enter());
    EXPECT_EQ(m_target.dragDelegate(), nullptr);
    runDeletions();
}

TEST(DragManager, refusesWhatCannotBeDragged)
{
    VXDragManager2& manager = *VXDragManager2::instance();
    auto finished = Log(manager.finished());
    VXPanel2 source;
    VXDrag2 drag;
    drag.mimeData.setText(L"x");
    manager.startDrag(drag); // from nowhere
    drag.source = new VXPanel2;
    delete drag.source;
    manager.startDrag(drag); // from a dead widget
    drag.source = &source;
    drag.mimeData.clear();
    manager.startDrag(drag); // nothing
    EXPECT_FALSE(manager.isDragging());
    manager.cancelDrag();
    turn();
    EXPECT_TRUE(finished.isEmpty());
}

} // namespace
} // namespace VOXI
