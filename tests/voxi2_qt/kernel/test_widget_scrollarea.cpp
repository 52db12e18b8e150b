// Scroll areas get their events through the viewport, some of them twice; reported they are once
// and in the widget's own coordinates. And events that the program has happen as if the user had.

#include "probe.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/kernel/vxdragdelegate2.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class ScrollAreaEvents : public testing::Test
{
protected:
    ScrollAreaEvents()
    {
        // A frame, so that the viewport's coordinates are not the widget's.
        m_area.setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
        m_area.setLineWidth(5);
        m_window.setPosition({50, 60, 400, 300});
        m_probe.setPosition({10, 20, 200, 150});
        m_probe.setFocusPolicy(FocusPolicy::Strong);
        m_window.show();
        m_window.setActiveWindow();
        turn();
    }

    VXPoint<int> onScreen(int x, int y) const { return m_probe.mapToGlobal({x, y}); }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window, VXProbe2::ScrollArea);
    QtAreaProbe2& m_area = area(m_probe);
    QWidget* m_viewport = m_area.viewport();
};

TEST_F(ScrollAreaEvents, pointerEventsOnceInWidgetCoordinates)
{
    ASSERT_EQ(m_viewport->pos(), QPoint(5, 5));
    auto presses = Log(m_probe.mousePressed());
    auto moves = Log(m_probe.mouseMoved());
    auto wheel = Log(m_probe.wheelTurned());
    auto menus = Log(m_probe.contextMenuRequested());
    auto parentPresses = Log(m_window.mousePressed());

    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(10, 10));
    ASSERT_EQ(presses.count(), 1);
    EXPECT_EQ(presses.last().position(), (VXPoint<int>{15, 15}));
    EXPECT_EQ(presses.last().globalPosition(), onScreen(15, 15));
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 20), m_viewport->mapToGlobal(QPointF(20, 20)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(m_viewport, &move);
    turn();
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(moves.last().position(), (VXPoint<int>{25, 25}));
    QWheelEvent turned(QPointF(1, 2), m_viewport->mapToGlobal(QPointF(1, 2)), QPoint(),
                       QPoint(0, 120), {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(m_viewport, &turned);
    turn();
    ASSERT_EQ(wheel.count(), 1);
    EXPECT_EQ(wheel.last().position(), (VXPoint<int>{6, 7}));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(3, 4),
                           m_viewport->mapToGlobal(QPoint(3, 4)));
    QApplication::sendEvent(m_viewport, &menu);
    ASSERT_EQ(menus.count(), 1);
    EXPECT_EQ(menus.last().position(), (VXPoint<int>{8, 9}));
    EXPECT_EQ(menus.last().globalPosition(), onScreen(8, 9));

    // On the frame there is no viewport; the area's own events are reported.
    QTest::mousePress(&m_area, Qt::LeftButton, {}, QPoint(2, 2));
    ASSERT_EQ(presses.count(), 2);
    EXPECT_EQ(presses.last().position(), (VXPoint<int>{2, 2}));

    const int above = parentPresses.count();
    m_probe.setEventConsumed(WidgetEvent::MousePress, true);
    m_area.forget();
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(presses.count(), 3);
    EXPECT_FALSE(m_area.saw(QEvent::MouseButtonPress));
    EXPECT_EQ(parentPresses.count(), above) << "swallowed, so the parent does not get it either";
}

TEST_F(ScrollAreaEvents, otherEventsOnce)
{
    auto shown = Log(m_probe.shown());
    auto hidden = Log(m_probe.hidden());
    auto resized = Log(m_probe.resized());
    auto moved = Log(m_probe.moved());
    auto keys = Log(m_probe.keyPressed());
    auto entered = Log(m_probe.mouseEntered());
    m_area.hide();
    m_area.show();
    m_area.resize(210, 160);
    m_area.move(11, 21);
    QTest::keyPress(&m_area, Qt::Key_Down);
    for (QWidget* widget : {static_cast<QWidget*>(&m_area), m_viewport}) {
        QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), widget->mapToGlobal(QPointF(1, 1)));
        QApplication::sendEvent(widget, &enter);
    }
    turn();
    EXPECT_EQ(hidden.count(), 1);
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(moved.count(), 1);
    ASSERT_EQ(resized.count(), 1);
    EXPECT_EQ(resized.last().size(), (Size<int>{210, 160})) << "the area's, not the viewport's";
    EXPECT_EQ(keys.count(), 1);
    EXPECT_EQ(entered.count(), 1);
}

TEST_F(ScrollAreaEvents, gesturesAndTouch)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    auto gestures = Log(m_probe.gestured());
    auto touches = Log(m_probe.touchBegan());
    const auto touch = [&] { return QTest::touchEvent(m_viewport, screen.get()); };
    touch().press(0, QPoint(60, 60), m_viewport).press(1, QPoint(80, 60), m_viewport);
    touch().move(0, QPoint(50, 60), m_viewport).move(1, QPoint(90, 60), m_viewport);
    touch().move(0, QPoint(40, 60), m_viewport).move(1, QPoint(100, 60), m_viewport);
    touch().release(0, QPoint(40, 60), m_viewport).release(1, QPoint(100, 60), m_viewport);
    turn();
    ASSERT_EQ(touches.count(), 1);
    EXPECT_EQ(touches.last().points().at(0).position, (VXPoint<double>{65, 65}));

    std::vector<GestureState> states;
    double scale = 1;
    for (int i = 0; i < gestures.count(); ++i) {
        const auto& details = gestures[static_cast<std::size_t>(i)].details();
        if (details.type == GestureType::Pinch) {
            states.push_back(details.state);
            scale = details.totalScale;
        }
    }
    ASSERT_GE(states.size(), 3u);
    EXPECT_EQ(states.front(), GestureState::Started);
    EXPECT_EQ(states[1], GestureState::Updated);
    EXPECT_EQ(states.back(), GestureState::Finished);
    EXPECT_DOUBLE_EQ(scale, 1.5) << "from 40 pixels apart, when it was recognised, to 60";

    // Switched off the gestures are given back, and no event arrives.
    gestures.clear();
    peer(m_probe).disableEventBroadcasting();
    touch().press(0, QPoint(60, 60), m_viewport).press(1, QPoint(80, 60), m_viewport);
    touch().move(0, QPoint(40, 60), m_viewport).move(1, QPoint(100, 60), m_viewport);
    touch().release(0, QPoint(40, 60), m_viewport).release(1, QPoint(100, 60), m_viewport);
    turn();
    EXPECT_TRUE(gestures.isEmpty());
}

TEST_F(ScrollAreaEvents, otherWidgetsGetGesturesWhenTouchIsEnabled)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    VXProbe2 probe;
    probe.setPosition({20, 20, 200, 150});
    probe.show();
    turn();
    auto gestures = Log(probe.gestured());
    QWidget* const widget = qt(probe);
    const auto pinch = [&] {
        gestures.clear();
        const auto touch = [&] { return QTest::touchEvent(widget, screen.get()); };
        touch().press(0, QPoint(60, 60), widget).press(1, QPoint(80, 60), widget);
        touch().move(0, QPoint(50, 60), widget).move(1, QPoint(90, 60), widget);
        touch().move(0, QPoint(40, 60), widget).move(1, QPoint(100, 60), widget);
        touch().release(0, QPoint(40, 60), widget).release(1, QPoint(100, 60), widget);
        turn();
        int pinches = 0;
        for (int i = 0; i < gestures.count(); ++i)
            pinches += gestures[std::size_t(i)].details().type == GestureType::Pinch;
        return pinches;
    };
    EXPECT_EQ(pinch(), 0);
    EXPECT_FALSE(probe.isTouchEnabled());
    probe.setTouchEnabled(true);
    EXPECT_TRUE(probe.isTouchEnabled());
    probe.setEventConsumed(WidgetEvent::TouchBegin, true);
    EXPECT_GE(pinch(), 3);
    probe.setTouchEnabled(false);
    EXPECT_FALSE(probe.isTouchEnabled());
    EXPECT_EQ(pinch(), 0);
}

TEST_F(ScrollAreaEvents, dragsOnce)
{
    auto entered = Log(m_probe.dragEntered());
    auto left = Log(m_probe.dragLeft());
    TROV::Listener listener;
    m_probe.dragEntered().connect(&listener,
                                  [](const VXDragEvent2& event) { event.acceptProposed(); });
    m_probe.setAcceptDrops(true);
    QMimeData data;
    data.setText(QStringLiteral("x"));
    QDragEnterEvent enter(QPoint(1, 2), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_viewport, &enter);
    EXPECT_TRUE(enter.isAccepted());
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(entered.last().position(), (VXPoint<int>{6, 7}));
    QDragLeaveEvent leave;
    QApplication::sendEvent(m_viewport, &leave);
    EXPECT_EQ(left.count(), 1);
}

TEST_F(ScrollAreaEvents, ofTheGestureAndTheDelegateAreInWidgetCoordinates)
{
    QApplication::setStartDragDistance(10);
    auto drags = Log(m_probe.dragDetected());
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(30, 40));
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 60), m_viewport->mapToGlobal(QPointF(60, 60)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(m_viewport, &move);
    ASSERT_EQ(drags.count(), 1);
    EXPECT_EQ(drags.last().position(), (VXPoint<int>{35, 45}));
    EXPECT_EQ(drags.last().globalPosition(), onScreen(35, 45));

    VXDragDelegate2 delegate;
    m_probe.setDragDelegate(&delegate);
    m_probe.setAcceptDrops(true);
    auto entered = Log(delegate.entered());
    QMimeData data;
    data.setText(QStringLiteral("x"));
    QDragEnterEvent enter(QPoint(1, 2), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_viewport, &enter);
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(entered.last().position(), (VXPoint<int>{6, 7}));
}

TEST_F(ScrollAreaEvents, onceWhereverThePointerIs)
{
    auto presses = Log(m_probe.mousePressed());
    auto releases = Log(m_probe.mouseReleased());
    auto menus = Log(m_probe.contextMenuRequested());
    QWindow* const window = qt(m_window)->windowHandle();
    const auto inWindow = [&](int x, int y) { return m_area.mapTo(qt(m_window), QPoint(x, y)); };
    for (int round = 0; round < 2; ++round) {
        QTest::mousePress(window, Qt::LeftButton, {}, inWindow(10, 10));
        QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(-5, -5));
        EXPECT_TRUE(presses.takeOne());
        ASSERT_EQ(releases.count(), 1);
        EXPECT_EQ(releases.last().position(), (VXPoint<int>{-5, -5}));
        releases.clear();

        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(5, 5),
                                  m_viewport->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(m_viewport, &byMouse);
        EXPECT_TRUE(menus.takeOne());
        // The key goes to the area, with a place in its middle.
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(10, 10),
                                m_area.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(&m_area, &byKey);
        ASSERT_EQ(menus.count(), 1);
        EXPECT_EQ(menus.last().reason(), VXContextMenuEvent2::Reason::Keyboard);
        EXPECT_EQ(menus.last().position(), (VXPoint<int>{10, 10}));
        menus.clear();
    }
}

TEST_F(ScrollAreaEvents, onceAlsoIfAHandlerRunsALoop)
{
    TROV::Listener listener;
    int presses = 0;
    m_probe.mousePressed().connect(&listener, [&] {
        if (++presses == 1) // before Qt hands the first one on to the area
            QTest::mousePress(m_viewport, Qt::RightButton, {}, QPoint(50, 60));
    });
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(presses, 2);
}

TEST_F(ScrollAreaEvents, imitatedPointerEventsComeThroughTheViewport)
{
    auto presses = Log(m_probe.mousePressed());
    auto menus = Log(m_probe.contextMenuRequested());
    m_probe.imitateMouse(WidgetEvent::MousePress,
                         VXMouseEvent2(&m_probe, WidgetEvent::MousePress, {30, 40}, {},
                                       MouseButton::Left, MouseButton::Left, {}));
    ASSERT_EQ(presses.count(), 1);
    EXPECT_EQ(presses.last().position(), (VXPoint<int>{30, 40}));
    EXPECT_TRUE(m_area.saw(QEvent::MouseButtonPress));
    m_probe.imitateContextMenu({30, 40}, onScreen(30, 40));
    ASSERT_EQ(menus.count(), 1);
    EXPECT_EQ(menus.last().position(), (VXPoint<int>{30, 40}));
}

class Imitation : public testing::Test
{
protected:
    Imitation()
    {
        m_probe.setPosition({10, 20, 80, 60});
        m_probe.setFocusPolicy(FocusPolicy::Strong);
        m_window.show();
        m_window.setActiveWindow();
        turn();
    }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window);
};

TEST_F(Imitation, ofWindowsAndFocusIsReported)
{
    auto closing = Log(m_window.closing());
    auto hidden = Log(m_window.hidden());
    auto shown = Log(m_window.shown());
    m_window.imitate(WidgetEvent::Hide);
    EXPECT_FALSE(m_window.isVisible());
    m_window.imitate(WidgetEvent::Show);
    EXPECT_TRUE(m_window.isVisible());
    m_window.imitate(WidgetEvent::Close);
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_EQ(closing.count(), 1);
    EXPECT_EQ(hidden.count(), 2);
    EXPECT_EQ(shown.count(), 1);
    m_window.show();
    turn();

    auto gained = Log(m_probe.focusGained());
    auto lost = Log(m_probe.focusLost());
    ASSERT_TRUE(m_probe.hasFocus()) << "as the only one that can";
    m_probe.imitateFocus(WidgetEvent::FocusOut);
    EXPECT_FALSE(m_probe.hasFocus());
    EXPECT_TRUE(lost.takeOne());
    m_probe.imitateFocus(WidgetEvent::FocusIn);
    EXPECT_TRUE(m_probe.hasFocus());
    EXPECT_TRUE(gained.takeOne());
}

TEST_F(Imitation, ofGeometryAndInputIsReported)
{
    auto moved = Log(m_probe.moved());
    auto resized = Log(m_probe.resized());
    m_probe.imitateMove({1, 2});
    m_probe.imitateResize({33, 44});
    turn();
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved.last().position(), (VXPoint<int>{1, 2}));
    ASSERT_EQ(resized.count(), 1);
    EXPECT_EQ(resized.last().size(), (Size<int>{33, 44}));

    auto menus = Log(m_probe.contextMenuRequested());
    m_probe.imitateContextMenu({5, 6}, {105, 206});
    ASSERT_EQ(menus.count(), 1) << "at once";
    EXPECT_EQ(menus.last().position(), (VXPoint<int>{5, 6}));
    EXPECT_EQ(menus.last().globalPosition(), (VXPoint<int>{105, 206}));
    EXPECT_EQ(menus.last().reason(), VXContextMenuEvent2::Reason::Other);

    auto keys = Log(m_probe.keyReleased());
    m_probe.imitateKey(WidgetEvent::KeyRelease,
                       VXKeyEvent2(&m_probe, WidgetEvent::KeyRelease, Key::F4, Modifier::Alt,
                                   L"t\u00e9", true, 2));
    turn();
    ASSERT_EQ(keys.count(), 1);
    EXPECT_EQ(keys.last().key(), Key::F4);
    EXPECT_EQ(keys.last().modifiers(), Modifier::Alt);
    EXPECT_EQ(keys.last().text(), L"t\u00e9");
    EXPECT_TRUE(keys.last().isAutoRepeat());
    EXPECT_EQ(keys.last().count(), 2);

    auto doubles = Log(m_probe.mouseDoubleClicked());
    auto wheel = Log(m_probe.wheelTurned());
    const VXMouseEvent2 mouse(&m_probe, WidgetEvent::MouseDoubleClick, {7, 8}, {},
                              MouseButton::Middle, MouseButton::Middle | MouseButton::Left,
                              Modifier::Shift, {0, -120});
    m_probe.imitateMouse(WidgetEvent::MouseDoubleClick, mouse);
    ASSERT_EQ(doubles.count(), 1);
    EXPECT_EQ(doubles.last().position(), (VXPoint<int>{7, 8}));
    EXPECT_EQ(doubles.last().globalPosition(), m_probe.mapToGlobal({7, 8}));
    EXPECT_EQ(doubles.last().button(), MouseButton::Middle);
    EXPECT_EQ(doubles.last().buttons(), MouseButton::Middle | MouseButton::Left);
    EXPECT_EQ(doubles.last().modifiers(), Modifier::Shift);
    m_probe.imitateMouse(WidgetEvent::Wheel, mouse);
    turn();
    ASSERT_EQ(wheel.count(), 1);
    EXPECT_EQ(wheel.last().wheelDelta(), (VXPoint<int>{0, -120}));
}

TEST_F(Imitation, ofOtherEventsDoesNothing)
{
    m_probe.setFocus();
    plain(m_probe).forget();
    const VXMouseEvent2 mouse(&m_probe, WidgetEvent::MousePress, {7, 8}, {}, MouseButton::Left,
                              MouseButton::Left, {});
    const VXKeyEvent2 key(&m_probe, WidgetEvent::KeyPress, Key::A);
    for (unsigned i = 0; i <= WidgetEventCount; ++i) {
        const auto event = static_cast<WidgetEvent>(i);
        const bool isPlain =
            event == WidgetEvent::Close || event == WidgetEvent::Hide || event == WidgetEvent::Show;
        const bool isFocus = event == WidgetEvent::FocusIn || event == WidgetEvent::FocusOut;
        const bool isKey = event == WidgetEvent::KeyPress || event == WidgetEvent::KeyRelease;
        const bool isMouse =
            (event >= WidgetEvent::MouseDoubleClick && event <= WidgetEvent::Wheel);
        if (!isPlain)
            m_probe.imitate(event);
        if (!isFocus)
            m_probe.imitateFocus(event);
        if (!isKey)
            m_probe.imitateKey(event, key);
        if (!isMouse)
            m_probe.imitateMouse(event, mouse);
    }
    for (const auto type : {QEvent::Close, QEvent::Hide, QEvent::FocusOut, QEvent::KeyPress,
                            QEvent::MouseButtonPress, QEvent::Enter, QEvent::Leave, QEvent::Drop})
        EXPECT_FALSE(plain(m_probe).saw(type)) << type;
    EXPECT_TRUE(m_probe.isVisible());
    EXPECT_TRUE(m_probe.hasFocus());
}

} // namespace
} // namespace VOXI
