// Real input, as the abstract object's listeners get it, and what becomes of consumed events.

#include "probe.h"
#include "reports.h"
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

    void send(QEvent&& event) const { QApplication::sendEvent(m_widget, &event); }

    void moveMouse(QPointF to, Qt::MouseButtons held, Qt::KeyboardModifiers modifiers = {}) const
    {
        send(QMouseEvent(QEvent::MouseMove, to, m_widget->mapToGlobal(to), Qt::NoButton, held,
                         modifiers));
    }

    VXPanel2 m_window;
    VXProbe2& m_probe = *new VXProbe2(&m_window);
    QWidget* m_widget = qt(m_probe);
};

TEST_F(WidgetEvents, ofThePointer)
{
    Reports reports(m_probe);
    QTest::mousePress(m_widget, Qt::RightButton, Qt::ControlModifier | Qt::ShiftModifier,
                      QPoint(11, 12));
    EXPECT_EQ(reports.take(), "mousePressed 11,12 Right/Right Shift|Control");
    moveMouse(QPointF(5, 6), Qt::RightButton | Qt::LeftButton, Qt::AltModifier);
    EXPECT_EQ(reports.take(), "") << "delivered with the next turn";
    EXPECT_EQ(reports.takeAfterTurn(), "mouseMoved 5,6 No/Left|Right Alt");
    QTest::mouseRelease(m_widget, Qt::RightButton, {}, QPoint(11, 12));
    EXPECT_EQ(reports.take(), "mouseReleased 11,12 Right/No");
    QTest::mouseDClick(m_widget, Qt::LeftButton, {}, QPoint(1, 2));
    EXPECT_EQ(reports.take(), "mouseDoubleClicked 1,2 Left/Left");

    send(QWheelEvent(QPointF(7, 8), m_widget->mapToGlobal(QPointF(7, 8)), QPoint(),
                     QPoint(-15, 240), Qt::LeftButton, Qt::MetaModifier, Qt::NoScrollPhase, false));
    EXPECT_EQ(reports.takeAfterTurn(), "wheelTurned 7,8 No/Left Meta by -15,240");
    for (const auto reason :
         {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard, QContextMenuEvent::Other})
        send(QContextMenuEvent(reason, QPoint(3, 4), m_widget->mapToGlobal(QPoint(3, 4))));
    EXPECT_EQ(reports.take(), "contextMenuRequested 3,4 Mouse; contextMenuRequested 3,4 Keyboard; "
                              "contextMenuRequested 3,4 Other");
}

TEST_F(WidgetEvents, ofKeysAndFocus)
{
    auto& other = *new VXProbe2(&m_window);
    other.setFocusPolicy(FocusPolicy::Strong);
    other.show();
    other.setFocus();
    Reports reports(m_probe);
    QTest::mouseClick(m_widget, Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_EQ(reports.take(),
              "focusGained Mouse; mousePressed 1,1 Left/Left; mouseReleased 1,1 Left/No");
    QTest::keyPress(m_widget, Qt::Key_A);
    QTest::keyRelease(m_widget, Qt::Key_Escape);
    EXPECT_EQ(reports.takeAfterTurn(), "keyPressed A 'a'; keyReleased Esc '\x1b'");
    send(QKeyEvent(QEvent::KeyPress, Qt::Key_Left, Qt::KeypadModifier, QString(), true, 3));
    EXPECT_EQ(reports.takeAfterTurn(), "keyPressed Left Keypad repeated 3 times");
    QTest::keyClick(m_widget, Qt::Key_Tab);
    EXPECT_EQ(reports.take(), "focusLost Tab");
}

TEST_F(WidgetEvents, ofTheWidgetItself)
{
    Reports reports(m_probe);
    m_widget->hide();
    m_widget->show();
    m_widget->move(40, 50);
    m_widget->resize(60, 70);
    send(QEnterEvent(QPointF(1, 1), QPointF(41, 51), m_widget->mapToGlobal(QPointF(1, 1))));
    send(QEvent(QEvent::Leave));
    EXPECT_TRUE(m_widget->close());
    EXPECT_EQ(reports.takeAfterTurn(), "hidden; shown; moved 20,30>40,50; mouseEntered; "
                                       "mouseLeft; closing; hidden; resized 100x90>60x70");
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
    Reports reports(m_probe);
    QWindow* const window = qt(m_window)->windowHandle(); // leaves the real pointer where it is
    QTest::mouseMove(window, QPoint(50, 60));
    reports.takeAfterTurn();
    QTest::mouseMove(window, QPoint(55, 60));
    EXPECT_EQ(reports.takeAfterTurn(), "");
    m_probe.setMouseTracking(true);
    QTest::mouseMove(window, QPoint(60, 60));
    EXPECT_EQ(reports.takeAfterTurn(), "mouseMoved 40,30 No/No");
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
    const VXPoint<int> global = m_probe.mapToGlobal({10, 20});
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

TEST_F(WidgetEvents, switchesAndConsumption)
{
    Reports reports(m_probe);
    int size = 50;
    const struct
    {
        WidgetEvent m_event;
        QEvent::Type m_type;
        std::function<void()> m_act;
        std::string m_reported;
    } ways[] = {
        {WidgetEvent::MousePress, QEvent::MouseButtonPress,
         [&] { QTest::mousePress(m_widget, Qt::LeftButton, {}, QPoint(1, 1)); },
         "mousePressed 1,1 Left/Left"},
        {WidgetEvent::MouseMove, QEvent::MouseMove,
         [&] { moveMouse(QPointF(2, 2), Qt::LeftButton); }, "mouseMoved 2,2 No/Left"},
        {WidgetEvent::KeyPress, QEvent::KeyPress, [&] { QTest::keyPress(m_widget, Qt::Key_B); },
         "keyPressed B 'b'"},
        {WidgetEvent::ContextMenu, QEvent::ContextMenu,
         [&] {
             send(QContextMenuEvent(QContextMenuEvent::Mouse, QPoint(3, 4),
                                    m_widget->mapToGlobal(QPoint(3, 4))));
         },
         "contextMenuRequested 3,4 Mouse"},
        {WidgetEvent::MouseLeave, QEvent::Leave, [&] { send(QEvent(QEvent::Leave)); }, "mouseLeft"},
        {WidgetEvent::Resize, QEvent::Resize, [&] { m_widget->resize(++size, 50); }, "resized"},
        {WidgetEvent::Hide, QEvent::Hide, [&] { m_widget->hide(); }, "hidden"},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.m_reported);
        for (const bool broadcast : {true, false}) {
            for (const bool consumed : {false, true}) {
                if (broadcast)
                    peer(m_probe).enableEventBroadcasting(way.m_event);
                else
                    peer(m_probe).disableEventBroadcasting(way.m_event);
                m_probe.setEventConsumed(way.m_event, consumed);
                m_probe.show();
                reports.takeAfterTurn();
                plain(m_probe).forget();
                way.m_act();
                const std::string reported = reports.takeAfterTurn();
                EXPECT_EQ(reported.substr(0, way.m_reported.size()),
                          broadcast ? way.m_reported : std::string());
                EXPECT_EQ(plain(m_probe).saw(way.m_type), !consumed);
            }
        }
        peer(m_probe).enableEventBroadcasting(way.m_event);
        m_probe.setEventConsumed(way.m_event, false);
    }

    peer(m_probe).disableEventBroadcasting();
    plain(m_probe).forget();
    QTest::mousePress(m_widget, Qt::LeftButton);
    EXPECT_EQ(reports.take(), "");
    EXPECT_TRUE(plain(m_probe).saw(QEvent::MouseButtonPress)) << "a plain widget of Qt";
}

} // namespace
} // namespace VOXI
