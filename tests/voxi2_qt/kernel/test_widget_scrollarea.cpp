// Scroll areas get their events through the viewport, some of them twice; reported they are once
// and in the widget's own coordinates. And events that the program has happen as if the user had.

#include "probe.h"
#include "reports.h"
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
        m_reports.takeAfterTurn();
    }

    static void send(QWidget* to, QEvent&& event) { QApplication::sendEvent(to, &event); }

    /// With the left button held.
    void moveMouse(QPointF to) const
    {
        send(m_viewport, QMouseEvent(QEvent::MouseMove, to, m_viewport->mapToGlobal(to),
                                     Qt::NoButton, Qt::LeftButton, {}));
    }

    void enterDrag() const
    {
        QMimeData data;
        data.setText(QStringLiteral("x"));
        QDragEnterEvent enter(QPoint(1, 2), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(m_viewport, &enter);
        EXPECT_TRUE(enter.isAccepted());
    }

    /// Two fingers on a widget, 20 pixels apart at first and 60 at last.
    void spreadFingers(QWidget* on) const
    {
        const auto touch = [&] { return QTest::touchEvent(on, m_screen.get()); };
        touch().press(0, QPoint(60, 60), on).press(1, QPoint(80, 60), on);
        touch().move(0, QPoint(50, 60), on).move(1, QPoint(90, 60), on);
        touch().move(0, QPoint(40, 60), on).move(1, QPoint(100, 60), on);
        touch().release(0, QPoint(40, 60), on).release(1, QPoint(100, 60), on);
        turn();
    }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window, VXProbe2::ScrollArea);
    QtAreaProbe2& m_area = area(m_probe);
    QWidget* m_viewport = m_area.viewport();
    Reports m_reports{m_probe};
    std::unique_ptr<QPointingDevice> m_screen{QTest::createTouchDevice()};
};

TEST_F(ScrollAreaEvents, comeOnceAndInWidgetCoordinates)
{
    ASSERT_EQ(m_viewport->pos(), QPoint(5, 5));
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(m_reports.take(), "mousePressed 15,15 Left/Left");
    moveMouse(QPointF(12, 13));
    EXPECT_EQ(m_reports.takeAfterTurn(), "mouseMoved 17,18 No/Left");
    send(m_viewport, QWheelEvent(QPointF(1, 2), m_viewport->mapToGlobal(QPointF(1, 2)), QPoint(),
                                 QPoint(0, 120), {}, {}, Qt::NoScrollPhase, false));
    EXPECT_EQ(m_reports.takeAfterTurn(), "wheelTurned 6,7 No/No by 0,120");
    // On the frame there is no viewport; the area's own events are reported.
    QTest::mousePress(&m_area, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(m_reports.take(), "mousePressed 2,2 Left/Left");

    const Log parentPresses(m_window.mousePressed());
    m_probe.setEventConsumed(WidgetEvent::MousePress, true);
    m_area.forget();
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(m_reports.take(), "mousePressed 15,15 Left/Left");
    EXPECT_FALSE(m_area.saw(QEvent::MouseButtonPress));
    EXPECT_TRUE(parentPresses.isEmpty()) << "swallowed, so the parent does not get it either";

    m_area.hide();
    m_area.show();
    m_area.resize(210, 160);
    m_area.move(11, 21);
    QTest::keyPress(&m_area, Qt::Key_Down);
    for (QWidget* widget : {static_cast<QWidget*>(&m_area), m_viewport})
        send(widget, QEnterEvent(QPointF(1, 1), QPointF(1, 1), widget->mapToGlobal(QPointF(1, 1))));
    EXPECT_EQ(m_reports.takeAfterTurn(), "hidden; shown; moved 10,20>11,21; mouseEntered; "
                                         "resized 200x150>210x160; keyPressed Down")
        << "the area's size, not the viewport's";
}

TEST_F(ScrollAreaEvents, gesturesAndTouch)
{
    auto gestures = Log(m_probe.gestured());
    auto touches = Log(m_probe.touchBegan());
    spreadFingers(m_viewport);
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
    spreadFingers(m_viewport);
    EXPECT_TRUE(gestures.isEmpty());
}

TEST_F(ScrollAreaEvents, otherWidgetsGetGesturesWhenTouchIsEnabled)
{
    VXProbe2 probe;
    probe.setPosition({20, 20, 200, 150});
    probe.show();
    turn();
    auto gestures = Log(probe.gestured());
    const auto pinch = [&] {
        gestures.clear();
        spreadFingers(qt(probe));
        int pinches = 0;
        for (int i = 0; i < gestures.count(); ++i)
            pinches += gestures[std::size_t(i)].details().type == GestureType::Pinch;
        return pinches;
    };
    EXPECT_EQ(pinch(), 0);
    probe.setTouchEnabled(true);
    probe.setEventConsumed(WidgetEvent::TouchBegin, true);
    EXPECT_GE(pinch(), 3);
    probe.setTouchEnabled(false);
    EXPECT_FALSE(probe.isTouchEnabled());
    EXPECT_EQ(pinch(), 0);
}

TEST_F(ScrollAreaEvents, dragsOnce)
{
    QApplication::setStartDragDistance(10);
    QTest::mousePress(m_viewport, Qt::LeftButton, {}, QPoint(30, 40));
    moveMouse(QPointF(60, 60));
    EXPECT_EQ(m_reports.takeAfterTurn(), "mousePressed 35,45 Left/Left; dragDetected 35,45 "
                                         "No/Left; mouseMoved 65,65 No/Left");

    VXDragDelegate2 delegate;
    m_probe.setDragDelegate(&delegate);
    m_probe.setAcceptDrops(true);
    auto entered = Log(delegate.entered());
    TROV::Listener listener;
    delegate.entered().connect(&listener,
                               [](const VXDragEvent2& event) { event.acceptProposed(); });
    enterDrag();
    ASSERT_EQ(entered.count(), 1);
    EXPECT_EQ(entered.last().position(), (VXPoint<int>{6, 7}));
    send(m_viewport, QDragLeaveEvent());
    EXPECT_EQ(m_reports.take(), "dragEntered 6,7; dragLeft 0,0");
}

TEST_F(ScrollAreaEvents, onceWhereverThePointerIs)
{
    QWindow* const window = qt(m_window)->windowHandle();
    const auto inWindow = [&](int x, int y) { return m_area.mapTo(qt(m_window), QPoint(x, y)); };
    for (int round = 0; round < 2; ++round) {
        QTest::mousePress(window, Qt::LeftButton, {}, inWindow(6, 6));
        m_reports.takeAfterTurn();
        QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(-1, 4));
        EXPECT_EQ(m_reports.take(),
                  "mouseReleased -1,4 Left/No; mouseLeft; mouseMoved -1,4 No/Left");
        send(m_viewport, QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(5, 5),
                                           m_viewport->mapToGlobal(QPoint(5, 5))));
        EXPECT_EQ(m_reports.take(), "contextMenuRequested 10,10 Mouse");
        // The key goes to the area, with a place in its middle.
        send(&m_area, QContextMenuEvent(QContextMenuEvent::Keyboard, QPoint(10, 10),
                                        m_area.mapToGlobal(QPoint(10, 10))));
        EXPECT_EQ(m_reports.take(), "contextMenuRequested 10,10 Keyboard");
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
    m_probe.imitateMouse(WidgetEvent::MousePress,
                         VXMouseEvent2(&m_probe, WidgetEvent::MousePress, {30, 40}, {},
                                       MouseButton::Left, MouseButton::Left, {}));
    EXPECT_EQ(m_reports.take(), "mousePressed 30,40 Left/Left");
    EXPECT_TRUE(m_area.saw(QEvent::MouseButtonPress));
    m_probe.imitateContextMenu({30, 40}, m_probe.mapToGlobal({30, 40}));
    EXPECT_EQ(m_reports.take(), "contextMenuRequested 30,40 Other");
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

TEST_F(Imitation, ofWindowsIsReported)
{
    Reports reports(m_window);
    m_window.imitate(WidgetEvent::Hide);
    EXPECT_FALSE(m_window.isVisible());
    m_window.imitate(WidgetEvent::Show);
    EXPECT_TRUE(m_window.isVisible());
    m_window.imitate(WidgetEvent::Close);
    EXPECT_FALSE(m_window.isVisible());
    EXPECT_EQ(reports.take(), "hidden; shown; closing; hidden");
}

TEST_F(Imitation, ofFocusGeometryAndInputIsReported)
{
    Reports reports(m_probe);
    ASSERT_TRUE(m_probe.hasFocus()) << "as the only one that can";
    m_probe.imitateFocus(WidgetEvent::FocusOut);
    EXPECT_FALSE(m_probe.hasFocus());
    EXPECT_EQ(reports.take(), "focusLost Other");
    m_probe.imitateFocus(WidgetEvent::FocusIn);
    EXPECT_TRUE(m_probe.hasFocus());
    EXPECT_EQ(reports.take(), "focusGained Other");
    m_probe.imitateMove({1, 2});
    m_probe.imitateResize({33, 44});
    EXPECT_EQ(reports.takeAfterTurn(), "moved 10,20>1,2; resized 80x60>33x44");
    m_probe.imitateContextMenu({5, 6}, {105, 206});
    EXPECT_EQ(reports.take(), "contextMenuRequested 5,6 on the screen 105,206 Other") << "at once";
    m_probe.imitateKey(WidgetEvent::KeyRelease,
                       VXKeyEvent2(&m_probe, WidgetEvent::KeyRelease, Key::F4, Modifier::Alt,
                                   L"t\u00e9", true, 2));
    EXPECT_EQ(reports.takeAfterTurn(), "keyReleased F4 Alt 't\xc3\xa9' repeated 2 times");

    const VXMouseEvent2 mouse(&m_probe, WidgetEvent::MouseDoubleClick, {7, 8}, {},
                              MouseButton::Middle, MouseButton::Middle | MouseButton::Left,
                              Modifier::Shift, {0, -120});
    m_probe.imitateMouse(WidgetEvent::MouseDoubleClick, mouse);
    EXPECT_EQ(reports.take(), "mouseDoubleClicked 7,8 Middle/Left|Middle Shift");
    m_probe.imitateMouse(WidgetEvent::Wheel, mouse);
    EXPECT_EQ(reports.takeAfterTurn(), "wheelTurned 7,8 No/Left|Middle Shift by 0,-120");
}

TEST_F(Imitation, ofOtherEventsDoesNothing)
{
    m_probe.setFocus();
    plain(m_probe).forget();
    const VXMouseEvent2 mouse(&m_probe, WidgetEvent::MousePress, {7, 8}, {}, MouseButton::Left,
                              MouseButton::Left, {});
    const VXKeyEvent2 key(&m_probe, WidgetEvent::KeyPress, Key::A);
    using E = WidgetEvent;
    for (unsigned i = 0; i <= WidgetEventCount; ++i) {
        const auto event = static_cast<E>(i);
        const auto isOneOf = [&](std::initializer_list<E> events) {
            return std::find(events.begin(), events.end(), event) != events.end();
        };
        if (!isOneOf({E::Close, E::Hide, E::Show}))
            m_probe.imitate(event);
        if (!isOneOf({E::FocusIn, E::FocusOut}))
            m_probe.imitateFocus(event);
        if (!isOneOf({E::KeyPress, E::KeyRelease}))
            m_probe.imitateKey(event, key);
        if (event < E::MouseDoubleClick || event > E::Wheel)
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
