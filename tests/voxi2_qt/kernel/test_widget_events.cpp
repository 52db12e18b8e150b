// Real input, as the abstract object's listeners get it, and what becomes of consumed events.

#include "probe.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"

#include <QApplication>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>

namespace VOXI {
namespace {

class WidgetEvents : public testing::Test
{
protected:
    WidgetEvents()
    {
        m_window.setPosition({100, 80, 300, 200});
        m_probe.setPosition({20, 30, 100, 90});
        m_probe.setFocusPolicy(FocusPolicy::Strong);
        m_window.show();
        m_window.setActiveWindow();
        turn();
    }

    VXPoint<int> onScreen(int x, int y) const { return m_probe.mapToGlobal({x, y}); }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window);
    QWidget* m_widget = qt(m_probe);
};

TEST_F(WidgetEvents, mouse)
{
    auto presses = Log(m_probe.mousePressed());
    auto releases = Log(m_probe.mouseReleased());
    auto doubles = Log(m_probe.mouseDoubleClicked());
    auto moves = Log(m_probe.mouseMoved());

    QTest::mousePress(m_widget, Qt::RightButton, Qt::ControlModifier | Qt::ShiftModifier,
                      QPoint(11, 12));
    ASSERT_EQ(presses.count(), 1);
    const VXMouseEvent2& press = presses.last();
    EXPECT_EQ(press.widget(), &m_probe);
    EXPECT_EQ(press.type(), WidgetEvent::MousePress);
    EXPECT_EQ(press.position(), (VXPoint<int>{11, 12}));
    EXPECT_EQ(press.globalPosition(), onScreen(11, 12));
    EXPECT_EQ(press.button(), MouseButton::Right);
    EXPECT_EQ(press.buttons(), MouseButton::Right);
    EXPECT_EQ(press.modifiers(), Modifier::Control | Modifier::Shift);
    EXPECT_EQ(press.wheelDelta(), (VXPoint<int>{}));

    QMouseEvent move(QEvent::MouseMove, QPointF(5, 6), m_widget->mapToGlobal(QPointF(5, 6)),
                     Qt::NoButton, Qt::RightButton | Qt::LeftButton, Qt::AltModifier);
    QApplication::sendEvent(m_widget, &move);
    EXPECT_TRUE(moves.isEmpty()) << "delivered with the next turn";
    turn();
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.last().type(), WidgetEvent::MouseMove);
    EXPECT_EQ(moves.last().position(), (VXPoint<int>{5, 6}));
    EXPECT_EQ(moves.last().globalPosition(), onScreen(5, 6));
    EXPECT_EQ(moves.last().button(), MouseButton::None);
    EXPECT_EQ(moves.last().buttons(), MouseButton::Right | MouseButton::Left);
    EXPECT_EQ(moves.last().modifiers(), Modifier::Alt);

    QTest::mouseRelease(m_widget, Qt::RightButton, {}, QPoint(11, 12));
    ASSERT_EQ(releases.count(), 1);
    EXPECT_EQ(releases.last().button(), MouseButton::Right);
    EXPECT_EQ(releases.last().buttons(), MouseButton::None);
    QTest::mouseDClick(m_widget, Qt::LeftButton, {}, QPoint(1, 2));
    ASSERT_EQ(doubles.count(), 1);
    EXPECT_EQ(doubles.last().type(), WidgetEvent::MouseDoubleClick);
    EXPECT_EQ(doubles.last().position(), (VXPoint<int>{1, 2}));
}

TEST_F(WidgetEvents, wheelAndContextMenu)
{
    auto wheel = Log(m_probe.wheelTurned());
    auto menus = Log(m_probe.contextMenuRequested());
    QWheelEvent turned(QPointF(7, 8), m_widget->mapToGlobal(QPointF(7, 8)), QPoint(),
                       QPoint(-15, 240), Qt::LeftButton, Qt::MetaModifier, Qt::NoScrollPhase,
                       false);
    QApplication::sendEvent(m_widget, &turned);
    turn();
    ASSERT_EQ(wheel.count(), 1);
    EXPECT_EQ(wheel.last().type(), WidgetEvent::Wheel);
    EXPECT_EQ(wheel.last().wheelDelta(), (VXPoint<int>{-15, 240}));
    EXPECT_EQ(wheel.last().position(), (VXPoint<int>{7, 8}));
    EXPECT_EQ(wheel.last().globalPosition(), onScreen(7, 8));
    EXPECT_EQ(wheel.last().buttons(), MouseButton::Left);
    EXPECT_EQ(wheel.last().modifiers(), Modifier::Meta);

    using Reason = VXContextMenuEvent2::Reason;
    for (const auto& [reason, expected] : {std::pair(QContextMenuEvent::Mouse, Reason::Mouse),
                                           std::pair(QContextMenuEvent::Keyboard, Reason::Keyboard),
                                           std::pair(QContextMenuEvent::Other, Reason::Other)}) {
        QContextMenuEvent wanted(reason, QPoint(3, 4), m_widget->mapToGlobal(QPoint(3, 4)));
        QApplication::sendEvent(m_widget, &wanted);
        EXPECT_EQ(menus.last().position(), (VXPoint<int>{3, 4}));
        EXPECT_EQ(menus.last().globalPosition(), onScreen(3, 4));
        EXPECT_EQ(menus.last().reason(), expected);
    }
    EXPECT_EQ(menus.count(), 3);
}

TEST_F(WidgetEvents, keysAndFocus)
{
    auto presses = Log(m_probe.keyPressed());
    auto releases = Log(m_probe.keyReleased());
    auto gained = Log(m_probe.focusGained());
    auto lost = Log(m_probe.focusLost());
    auto& other = *new VXProbe2(&m_window);
    other.setFocusPolicy(FocusPolicy::Strong);
    other.show();
    other.setFocus();

    lost.clear();
    QTest::mouseClick(m_widget, Qt::LeftButton);
    ASSERT_EQ(gained.count(), 1);
    EXPECT_EQ(gained.last().type(), WidgetEvent::FocusIn);
    EXPECT_EQ(gained.last().reason(), FocusReason::Mouse);

    QTest::keyPress(m_widget, Qt::Key_A);
    QTest::keyRelease(m_widget, Qt::Key_Escape);
    turn();
    ASSERT_EQ(presses.count(), 1);
    EXPECT_EQ(presses.last().type(), WidgetEvent::KeyPress);
    EXPECT_EQ(presses.last().key(), Key::A);
    EXPECT_EQ(presses.last().text(), L"a");
    EXPECT_EQ(presses.last().modifiers(), Modifier::None);
    EXPECT_FALSE(presses.last().isAutoRepeat());
    ASSERT_EQ(releases.count(), 1);
    EXPECT_EQ(releases.last().type(), WidgetEvent::KeyRelease);
    EXPECT_EQ(releases.last().key(), Key::Escape);

    QKeyEvent held(QEvent::KeyPress, Qt::Key_Left, Qt::KeypadModifier, QString(), true, 3);
    QApplication::sendEvent(m_widget, &held);
    turn();
    EXPECT_EQ(presses.last().key(), Key::Left);
    EXPECT_EQ(presses.last().modifiers(), Modifier::Keypad);
    EXPECT_TRUE(presses.last().isAutoRepeat());
    EXPECT_EQ(presses.last().count(), 3);
    EXPECT_TRUE(presses.last().text().empty());

    QTest::keyClick(m_widget, Qt::Key_Tab);
    ASSERT_EQ(lost.count(), 1);
    EXPECT_EQ(lost.last().type(), WidgetEvent::FocusOut);
    EXPECT_EQ(lost.last().reason(), FocusReason::Tab);
}

TEST_F(WidgetEvents, showHideMoveResizeEnterLeaveClose)
{
    auto shown = Log(m_probe.shown());
    auto hidden = Log(m_probe.hidden());
    auto moved = Log(m_probe.moved());
    auto resized = Log(m_probe.resized());
    auto entered = Log(m_probe.mouseEntered());
    auto left = Log(m_probe.mouseLeft());
    auto closing = Log(m_probe.closing());
    m_widget->hide();
    m_widget->show();
    m_widget->move(40, 50);
    m_widget->resize(60, 70);
    QEnterEvent enter(QPointF(1, 1), QPointF(41, 51), m_widget->mapToGlobal(QPointF(1, 1)));
    QApplication::sendEvent(m_widget, &enter);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(m_widget, &leave);
    turn();
    EXPECT_EQ(hidden.count(), 1);
    EXPECT_EQ(hidden.last().type(), WidgetEvent::Hide);
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(shown.last().type(), WidgetEvent::Show);
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.last().oldPosition(), (VXPoint<int>{20, 30}));
    EXPECT_EQ(moved.last().position(), (VXPoint<int>{40, 50}));
    ASSERT_EQ(resized.count(), 1);
    EXPECT_EQ(resized.last().oldSize(), (Size<int>{100, 90}));
    EXPECT_EQ(resized.last().size(), (Size<int>{60, 70}));
    EXPECT_EQ(entered.last().type(), WidgetEvent::MouseEnter);
    EXPECT_EQ(left.last().type(), WidgetEvent::MouseLeave);
    EXPECT_TRUE(m_widget->close());
    EXPECT_EQ(closing.count(), 1);
}

TEST_F(WidgetEvents, closingCanBeRefused)
{
    bool refuse = true;
    TROV::Listener listener;
    m_window.closing().connect(&listener, [&](const VXCloseEvent2& event) {
        if (refuse)
            event.refuse();
    });
    EXPECT_FALSE(qt(m_window)->close());
    EXPECT_TRUE(qt(m_window)->isVisible());
    refuse = false;
    EXPECT_TRUE(qt(m_window)->close());
    EXPECT_FALSE(qt(m_window)->isVisible());
    EXPECT_NE(lookup(&m_window), nullptr) << "closed, not deleted";

    qt(m_window)->show();
    m_window.setEventConsumed(WidgetEvent::Close, true);
    EXPECT_FALSE(qt(m_window)->close());
    EXPECT_TRUE(qt(m_window)->isVisible());
}

TEST_F(WidgetEvents, movesWithoutAButtonWhenTracked)
{
    auto moves = Log(m_probe.mouseMoved());
    QWindow* const window = qt(m_window)->windowHandle(); // leaves the real pointer where it is
    QTest::mouseMove(window, QPoint(50, 60));
    turn();
    QTest::mouseMove(window, QPoint(55, 60));
    turn();
    EXPECT_EQ(moves.count(), 0);
    m_probe.setMouseTracking(true);
    EXPECT_TRUE(m_probe.hasMouseTracking());
    QTest::mouseMove(window, QPoint(60, 60));
    turn();
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.last().position(), (VXPoint<int>{40, 30}));
    EXPECT_EQ(moves.last().buttons(), MouseButton::None);
}

TEST_F(WidgetEvents, touchAndWhatBecomesOfIt)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    auto began = Log(m_probe.touchBegan());
    auto changed = Log(m_probe.touchMoved());
    auto ended = Log(m_probe.touchEnded());
    auto presses = Log(m_probe.mousePressed());

    m_probe.setTouchEnabled(true);
    m_probe.setEventConsumed(WidgetEvent::TouchBegin, true);
    QTest::touchEvent(m_widget, screen.get()).press(4, QPoint(10, 20), m_widget);
    QTest::touchEvent(m_widget, screen.get())
        .move(4, QPoint(15, 25), m_widget)
        .press(6, QPoint(50, 60), m_widget);
    QTest::touchEvent(m_widget, screen.get())
        .release(4, QPoint(15, 25), m_widget)
        .release(6, QPoint(50, 60), m_widget);
    ASSERT_EQ(began.count(), 1);
    ASSERT_EQ(began.last().points().size(), 1u);
    const TouchPoint& point = began.last().points().front();
    EXPECT_EQ(point.state, TouchPoint::State::Pressed);
    EXPECT_EQ(point.position, (VXPoint<double>{10, 20}));
    const VXPoint<int> global = onScreen(10, 20);
    EXPECT_EQ(point.globalPosition, (VXPoint<double>{double(global.x), double(global.y)}));
    ASSERT_EQ(changed.count(), 1);
    ASSERT_EQ(changed.last().points().size(), 2u);
    EXPECT_EQ(changed.last().points()[0].id, point.id) << "the same finger";
    EXPECT_EQ(changed.last().points()[0].state, TouchPoint::State::Updated);
    EXPECT_EQ(changed.last().points()[1].state, TouchPoint::State::Pressed);
    EXPECT_EQ(changed.last().points()[1].position, (VXPoint<double>{50, 60}));
    ASSERT_EQ(ended.count(), 1);
    EXPECT_EQ(ended.last().points()[0].state, TouchPoint::State::Released);
    EXPECT_TRUE(presses.isEmpty()) << "consumed";

    // Touches that nobody wants work as the mouse does.
    VXButton2 button;
    button.setTouchEnabled(true);
    button.show();
    auto clicks = Log(button.clicked());
    auto touched = Log(button.touchBegan());
    QTest::touchEvent(qt(button), screen.get()).press(1, QPoint(5, 5), qt(button));
    QTest::touchEvent(qt(button), screen.get()).release(1, QPoint(5, 5), qt(button));
    turn();
    EXPECT_EQ(touched.count(), 1);
    EXPECT_EQ(clicks.count(), 1);
}

/// How many events of some kinds were reported, whatever was in them.
class Counter
{
public:
    explicit Counter(const VXWidget2& widget)
    {
        const auto count = [this] { ++m_count; };
        widget.mousePressed().connect(&m_listener, count);
        widget.mouseMoved().connect(&m_listener, count);
        widget.keyPressed().connect(&m_listener, count);
        widget.hidden().connect(&m_listener, count);
        widget.resized().connect(&m_listener, count);
        widget.contextMenuRequested().connect(&m_listener, count);
        widget.mouseLeft().connect(&m_listener, count);
    }

    /// Since it was asked last.
    int take()
    {
        turn();
        return std::exchange(m_count, 0);
    }

private:
    int m_count = 0;
    TROV::Listener m_listener;
};

TEST_F(WidgetEvents, switchesAndConsumption)
{
    Counter reported(m_probe);
    int size = 50;
    const struct
    {
        WidgetEvent m_event;
        QEvent::Type m_type;
        std::function<void()> m_act;
    } ways[] = {
        {WidgetEvent::MousePress, QEvent::MouseButtonPress,
         [&] { QTest::mousePress(m_widget, Qt::LeftButton); }},
        {WidgetEvent::MouseMove, QEvent::MouseMove,
         [&] {
             QMouseEvent move(QEvent::MouseMove, QPointF(1, 1),
                              m_widget->mapToGlobal(QPointF(1, 1)), Qt::NoButton, Qt::LeftButton,
                              {});
             QApplication::sendEvent(m_widget, &move);
         }},
        {WidgetEvent::KeyPress, QEvent::KeyPress, [&] { QTest::keyPress(m_widget, Qt::Key_B); }},
        {WidgetEvent::Hide, QEvent::Hide, [&] { m_widget->show(), m_widget->hide(); }},
        {WidgetEvent::Resize, QEvent::Resize,
         [&] { m_widget->show(), m_widget->resize(++size, 50); }},
        {WidgetEvent::ContextMenu, QEvent::ContextMenu,
         [&] {
             QContextMenuEvent wanted(QContextMenuEvent::Mouse, QPoint(3, 4), QPoint(3, 4));
             QApplication::sendEvent(m_widget, &wanted);
         }},
        {WidgetEvent::MouseLeave, QEvent::Leave,
         [&] {
             QEvent leave(QEvent::Leave);
             QApplication::sendEvent(m_widget, &leave);
         }},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(static_cast<unsigned>(way.m_event));
        for (const bool broadcast : {true, false}) {
            for (const bool consumed : {false, true}) {
                if (broadcast)
                    peer(m_probe).enableEventBroadcasting(way.m_event);
                else
                    peer(m_probe).disableEventBroadcasting(way.m_event);
                m_probe.setEventConsumed(way.m_event, consumed);
                reported.take();
                plain(m_probe).forget();
                way.m_act();
                EXPECT_EQ(reported.take(), broadcast ? 1 : 0);
                EXPECT_EQ(plain(m_probe).saw(way.m_type), !consumed);
            }
        }
        peer(m_probe).enableEventBroadcasting(way.m_event);
        m_probe.setEventConsumed(way.m_event, false);
    }
}

TEST_F(WidgetEvents, withoutBroadcastingTheWidgetIsPlainQt)
{
    Counter reported(m_probe);
    peer(m_probe).disableEventBroadcasting();
    plain(m_probe).forget();
    QTest::mousePress(m_widget, Qt::LeftButton);
    EXPECT_EQ(reported.take(), 0);
    EXPECT_TRUE(plain(m_probe).saw(QEvent::MouseButtonPress));
}

} // namespace
} // namespace VOXI
