#include "../kernel/toolkit.h"
#include "support/steppedclock.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxframe2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxeditarea2.h"
#include "voxi2/controls/vxmimicsource2.h"
#include "voxi2/controls/vxmimicview2.h"
#include "voxi2/controls/vxslider2.h"
#include "voxi2/kernel/vxdragdelegate2.h"

#include <QAbstractNativeEventFilter>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QImage>
#include <QInputMethodEvent>
#include <QPointer>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

using namespace std::chrono_literals;

const Color Red(255, 0, 0);
const Color Blue(0, 0, 255);

class Mimic : public testing::Test
{
protected:
    Mimic()
    {
        m_panel.resize({100, 50});
        m_panel.setColor(ColorRole::Background, Red);
        m_view.resize({200, 200});
        m_view.setSource(&m_source);
        m_source.setWidget(&m_panel);
    }

    void showBoth()
    {
        for (VXWidget2* each : std::initializer_list<VXWidget2*>{&m_panel, &m_view}) {
            each->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(*each)));
        }
        settle();
    }

    /// Runs what was painted, and has the pictures taken that are due.
    void settle(std::chrono::milliseconds time = 1s)
    {
        turn();
        m_clock.advance(time);
        turn();
    }

    QColor shown(const QPoint& at) { return qt(m_view)->grab().toImage().pixelColor(at); }

    SteppedClock m_clock;
    VXPanel2 m_panel;
    VXMimicView2 m_view;
    VXMimicSource2 m_source;
};

TEST_F(Mimic, showsWhatIsPaintedScaled)
{
    showBoth();
    EXPECT_EQ(m_source.size(), (Size<int>{100, 50}));
    EXPECT_EQ(m_source.picture().pixels()[0], Red.rgba());
    EXPECT_EQ(m_view.pictureRect(), (VXRect<int>{0, 50, 200, 100}));
    EXPECT_EQ(shown({100, 100}), QColor(Qt::red));
    EXPECT_NE(shown({100, 20}), QColor(Qt::red)) << "beside the picture";
    m_view.setAspectKept(false);
    EXPECT_EQ(shown({100, 20}), QColor(Qt::red));
    EXPECT_FALSE(m_view.isAspectKept());

    auto* const inside = new VXPanel2(&m_panel); // what comes later is seen as well
    inside->setPosition({0, 0, 50, 50});
    inside->setColor(ColorRole::Background, Blue);
    inside->show();
    settle();
    EXPECT_EQ(shown({40, 100}), QColor(Qt::blue));
    delete inside;
    runDeletions();
    settle();
    EXPECT_EQ(shown({40, 100}), QColor(Qt::red));
}

TEST_F(Mimic, takesNoMorePicturesThanItMay)
{
    showBoth();
    m_source.setMaximumRate(10);
    settle();
    Log refreshed(m_source.refreshed());
    const auto paint = [&](int i) {
        m_panel.setColor(ColorRole::Background, Color(i, 0, 9));
        turn();
    };
    paint(1);
    m_clock.advance(0ms);
    EXPECT_EQ(refreshed.count(), 1);
    for (int i = 2; i < 9; ++i) {
        paint(i);
        m_clock.advance(10ms);
    }
    EXPECT_EQ(refreshed.count(), 1);
    m_clock.advance(100ms);
    EXPECT_EQ(refreshed.count(), 2);
    EXPECT_EQ(refreshed.last().size(), (Size<int>{100, 50}));
    EXPECT_EQ(m_source.picture().pixels()[0], Color(8, 0, 9).rgba()) << "the last one";
    m_panel.update();
    settle(5s);
    EXPECT_EQ(refreshed.count(), 2) << "it looks the same";

    m_source.setMaximumRate(0);
    paint(50);
    settle(5s);
    EXPECT_EQ(refreshed.count(), 2);
    m_source.refresh();
    EXPECT_EQ(m_source.picture().pixels()[0], Color(50, 0, 9).rgba());
    EXPECT_EQ(refreshed.count(), 2) << "the program has asked for it";
    m_source.setMaximumRate(2147483647);
    EXPECT_EQ(m_source.maximumRate(), VXMimicSource2::HighestRate);
}

TEST_F(Mimic, followsItsSourceToItsEnd)
{
    VXMimicView2 second;
    second.setSource(&m_source);
    second.show();
    showBoth();
    EXPECT_FALSE(second.pictureRect().isEmpty());

    m_panel.hide();
    settle();
    EXPECT_EQ(shown({100, 100}), QColor(Qt::red)) << "the last picture stays";
    VXPanel2 window;
    auto* const moved = new VXPanel2;
    moved->setColor(ColorRole::Background, Blue);
    m_source.setWidget(moved);
    EXPECT_TRUE(m_view.pictureRect().isEmpty());
    moved->setParent(&window);
    moved->setPosition({5, 5, 60, 60});
    moved->show();
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(window)));
    settle();
    EXPECT_EQ(shown({100, 100}), QColor(Qt::blue));
    moved->resize({60, 30});
    settle();
    EXPECT_EQ(m_view.pictureRect(), (VXRect<int>{0, 50, 200, 100}));

    delete moved;
    runDeletions();
    settle();
    EXPECT_EQ(m_source.widget(), nullptr);
    EXPECT_TRUE(m_source.picture().isNull());
    EXPECT_NE(shown({100, 100}), QColor(Qt::blue));

    auto* const shortLived = new VXMimicSource2(&window);
    shortLived->setWidget(&window);
    m_view.setSource(shortLived);
    settle();
    EXPECT_FALSE(m_view.pictureRect().isEmpty());
    delete shortLived;
    runDeletions();
    EXPECT_EQ(m_view.source(), nullptr);
    EXPECT_TRUE(m_view.pictureRect().isEmpty());
    m_view.setSource(&m_source);
    m_view.setSource(nullptr);
    EXPECT_EQ(m_view.source(), nullptr);
}

/// In the middle of it, in the view.
QPoint inView(const VXMimicView2& view, const VXWidget2& widget, const VXWidget2& source)
{
    const QPoint middle = qt(widget)->mapTo(qt(source), qt(widget)->rect().center());
    const VXRect<int> picture = view.pictureRect();
    const QSize size = qt(source)->size();
    return {picture.x + middle.x() * picture.width / size.width(),
            picture.y + middle.y() * picture.height / size.height()};
}

TEST_F(Mimic, letsItsUserWorkInIt)
{
    auto* const button = new VXButton2("press", &m_panel);
    button->setPosition({2, 2, 46, 20});
    auto* const edit = new VXEdit2(&m_panel);
    edit->setPosition({2, 26, 46, 20});
    auto* const slider = new VXSlider2(&m_panel);
    slider->setPosition({52, 5, 46, 20});
    showBoth();
    Log clicked(button->clicked());
    Log pressed(m_view.mousePressed());
    QWidget* const view = qt(m_view);
    const auto at = [&](const VXWidget2& widget) { return inView(m_view, widget, m_panel); };

    QTest::mouseClick(view, Qt::LeftButton, {}, at(*button));
    EXPECT_TRUE(clicked.isEmpty());
    EXPECT_TRUE(pressed.takeOne());
    m_view.setForwarding(true);
    EXPECT_EQ(m_view.focusPolicy(), FocusPolicy::Strong);
    QTest::mouseClick(view, Qt::LeftButton, {}, at(*button));
    EXPECT_TRUE(clicked.takeOne());
    EXPECT_TRUE(pressed.takeOne());
    // What was pressed keeps the pointer.
    QTest::mousePress(view, Qt::LeftButton, {}, at(*button));
    QTest::mouseMove(view, at(*slider));
    QTest::mouseRelease(view, Qt::LeftButton, {}, at(*slider));
    EXPECT_TRUE(clicked.isEmpty()) << "it was released elsewhere";
    EXPECT_EQ(slider->value(), 0);

    QTest::mouseClick(view, Qt::LeftButton, {}, at(*edit));
    QTest::keyClicks(view, QStringLiteral("text"));
    EXPECT_EQ(edit->text(), "text");
    const QPoint turned = at(*slider);
    QWheelEvent wheel(turned, view->mapToGlobal(turned), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view, &wheel);
    EXPECT_GT(slider->value(), 0);

    m_panel.hide();
    QTest::mouseClick(view, Qt::LeftButton, {}, at(*button));
    QTest::keyClicks(view, QStringLiteral("more"));
    EXPECT_TRUE(clicked.isEmpty());
    EXPECT_EQ(edit->text(), "text");
}

TEST_F(Mimic, isWorkedInByKeysAlone)
{
    auto* const edit = new VXEdit2(&m_panel);
    edit->setPosition({2, 2, 46, 20});
    auto* const area = new VXEditArea2(&m_panel);
    area->setPosition({2, 24, 46, 24});
    auto* const last = new VXEdit2(&m_panel);
    last->setPosition({52, 2, 46, 20});
    VXButton2 outside(&m_view);
    showBoth();
    m_view.setForwarding(true);
    m_view.setActiveWindow();
    QWidget* const view = qt(m_view);
    ASSERT_TRUE(QTest::qWaitForWindowActive(view->window()));
    m_view.setFocus();
    Log pressed(m_view.keyPressed());
    QTest::keyClick(view, Qt::Key_Tab);
    turn();
    EXPECT_FALSE(pressed.isEmpty());
    EXPECT_TRUE(view->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(view, QStringLiteral("a"));
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u732b"));
    QCoreApplication::sendEvent(view, &composed);
    EXPECT_EQ(edit->textU(), L"a\u732b");
    // Where it is composed: in the picture, twice as large.
    const QRect place = view->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QRect there = qt(*edit)->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    EXPECT_EQ(place.x(), 2 * (2 + there.x()));
    EXPECT_EQ(place.y(), 50 + 2 * (2 + there.y()));

    QTest::keyClick(view, Qt::Key_Tab);
    QTest::keyClick(view, Qt::Key_Tab);
    EXPECT_EQ(area->text(), "\t") << "it has a use of its own for the key";
    QTest::mouseClick(view, Qt::LeftButton, {}, inView(m_view, *last, m_panel));
    QTest::keyClick(view, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClicks(view, QStringLiteral("b"));
    EXPECT_EQ(area->text(), "\tb");
    QTest::mouseClick(view, Qt::LeftButton, {}, inView(m_view, *last, m_panel));
    QTest::keyClick(view, Qt::Key_Tab);
    QTest::keyClicks(view, QStringLiteral("c"));
    EXPECT_EQ(edit->textU(), L"a\u732bc") << "round";
    EXPECT_TRUE(view->hasFocus());
    QTest::keyClick(view, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(qt(outside)->hasFocus());
    m_view.setForwarding(false);
    EXPECT_FALSE(view->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_F(Mimic, looksAsItsSourceUnderThePointer)
{
    auto* const inside = new VXPanel2(&m_panel);
    inside->setPosition({0, 0, 50, 50});
    inside->setCursor(Cursor(CursorShape::Cross));
    inside->setToolTip("of the source");
    inside->setMouseTracking(true);
    showBoth();
    m_view.setCursor(Cursor(CursorShape::Busy));
    m_view.setForwarding(true);
    QWidget* const view = qt(m_view);
    Log moved(inside->mouseMoved());
    const auto hover = [&](QEvent::Type type, const QPoint& at) {
        QHoverEvent event(type, at, view->mapToGlobal(at), {-1, -1});
        QCoreApplication::sendEvent(view, &event);
        turn();
    };
    hover(QEvent::HoverMove, {50, 100});
    EXPECT_EQ(view->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(m_view.cursor(), Cursor(CursorShape::Busy)) << "what the program has set";
    EXPECT_EQ(moved.count(), 1);
    hover(QEvent::HoverMove, {150, 100});
    EXPECT_EQ(view->cursor().shape(), qt(m_panel)->cursor().shape());
    hover(QEvent::HoverMove, {50, 20});
    EXPECT_EQ(view->cursor().shape(), Qt::BusyCursor) << "beside the picture";
    hover(QEvent::HoverMove, {50, 100});
    hover(QEvent::HoverLeave, {-1, -1});
    EXPECT_EQ(view->cursor().shape(), Qt::BusyCursor);
    hover(QEvent::HoverMove, {50, 100});
    m_view.unsetCursor();
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);
    hover(QEvent::HoverMove, {50, 100});
    m_view.setForwarding(false);
    EXPECT_EQ(view->cursor().shape(), Qt::ArrowCursor);

    const auto askForTip = [&] {
        QHelpEvent help(QEvent::ToolTip, {50, 100}, view->mapToGlobal(QPoint(50, 100)));
        QCoreApplication::sendEvent(view, &help);
    };
    askForTip();
    EXPECT_FALSE(QToolTip::isVisible());
    m_view.setForwarding(true);
    askForTip();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("of the source"));
    m_view.setToolTip("its own");
    askForTip();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("its own"));
    QToolTip::hideText();
}

/// Hidden pages are laid out when they are shown, not for a picture of what is beside them.
TEST_F(Mimic, leavesWhatIsHiddenAlone)
{
    auto* const page = new VXPanel2(&m_panel);
    auto* const inside = new VXPanel2(page);
    showBoth();
    page->hide();
    Log pageSizes(page->resized());
    Log insideSizes(inside->resized());
    page->setPosition({0, 0, 40, 40});
    inside->setPosition({0, 0, 20, 20});
    m_panel.setColor(ColorRole::Background, Blue);
    settle();
    EXPECT_EQ(shown({100, 100}), QColor(Qt::blue));
    EXPECT_TRUE(pageSizes.isEmpty() && insideSizes.isEmpty());
    EXPECT_TRUE(qt(*page)->testAttribute(Qt::WA_PendingResizeEvent)) << "it hears of it later";
}

TEST_F(Mimic, standsHandlersThatDestroyAll)
{
    auto* const view = new VXMimicView2;
    view->resize({100, 50});
    auto* const panel = new VXPanel2;
    panel->resize({100, 50});
    auto* const button = new VXButton2("press", panel);
    button->resize({100, 50});
    auto* const source = new VXMimicSource2(view);
    source->setWidget(panel);
    view->setSource(source);
    view->setForwarding(true);
    panel->show();
    view->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(qt(*view)));
    settle();
    bool destroyed = false;
    button->clicked().connect(nullptr, [&] {
        delete panel;
        delete view;
        runDeletions();
        destroyed = true;
    });
    QTest::mouseClick(qt(*view), Qt::LeftButton, {}, {50, 25});
    EXPECT_TRUE(destroyed);
    runDeletions();
}

TEST_F(Mimic, mayBePicturedByWhatLiesInIt)
{
    VXPanel2 panel;
    auto* const part = new VXPanel2(&panel);
    new VXPanel2(part);
    auto* const source = new VXMimicSource2(part);
    source->setWidget(&panel);
    const QPointer<QWidget> gone(qt(*part));
    delete part;
    runDeletions();
    EXPECT_FALSE(gone);
}

TEST_F(Mimic, comesToRestWhereItShowsItself)
{
    auto* const inside = new VXMimicView2(&m_panel);
    inside->setPosition({30, 10, 60, 30});
    inside->setSource(&m_source);
    inside->setForwarding(true);
    VXMimicSource2 other; // and the two show each other
    other.setWidget(&m_view);
    auto* const mutual = new VXMimicView2(&m_panel);
    mutual->setPosition({2, 2, 20, 20});
    mutual->setSource(&other);
    showBoth();
    Log refreshed(m_source.refreshed());
    int quiet = 0;
    for (int i = 0; i < 400 && quiet < 20; ++i) {
        refreshed.clear();
        settle(50ms);
        quiet = refreshed.isEmpty() ? quiet + 1 : 0;
    }
    EXPECT_EQ(quiet, 20) << "there is always another picture";
    // The point in the middle of the view is in its picture's view again.
    for (int x = 31; x < 90; x += 4)
        QTest::mouseClick(qt(*inside), Qt::LeftButton, {}, {x - 30, 15});
    QTest::keyClicks(qt(*inside), QStringLiteral("keys"));
}

TEST_F(Mimic, picturesWindowsByTheirIds)
{
    showBoth();
    Log ended(m_source.ended());
    m_source.setNativeWindow(m_panel.winId());
    EXPECT_EQ(m_source.widget(), nullptr);
    settle();
    EXPECT_EQ(shown({100, 100}), QColor(Qt::red));
    m_panel.setColor(ColorRole::Background, Blue);
    settle();
    settle();
    EXPECT_EQ(shown({100, 100}), QColor(Qt::blue)) << "nobody has said that it paints";
    EXPECT_TRUE(ended.isEmpty());
    m_source.setNativeWindow(0x7fffffff);
    settle();
    EXPECT_TRUE(ended.takeOne());
    EXPECT_EQ(m_source.nativeWindow(), 0U);
    EXPECT_TRUE(m_view.pictureRect().isEmpty());
}

/// Sees what the X server says of the wheel, which Qt leaves out where it has other words for it.
struct WheelClicks : QAbstractNativeEventFilter
{
    WheelClicks() { qApp->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const auto* const event = static_cast<const unsigned char*>(message);
        constexpr int Press = 4;
        constexpr int Forward = 4;
        m_number += (event[0] & 0x7f) == Press && event[1] == Forward ? 1 : 0;
        return false;
    }

    int m_number = 0;
};

/// By the X server, for which a window of this program is as any other.
TEST_F(Mimic, forwardsToWindowsByTheirIds)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        GTEST_SKIP() << "there is no X server";
    showBoth();
    VXButton2 button(&m_panel);
    button.setPosition({0, 0, 50, 20});
    VXEdit2 edit(&m_panel);
    edit.setPosition({0, 20, 100, 30});
    for (VXWidget2* const each : std::initializer_list<VXWidget2*>{&button, &edit})
        each->show();
    m_source.setNativeWindow(m_panel.winId());
    m_view.setForwarding(true);
    settle();
    const Log clicks(button.clicked());
    QTest::mouseClick(qt(m_view), Qt::LeftButton, {}, {40, 70});
    EXPECT_TRUE(waitFor([&] { return clicks.count() == 1; }));
    WheelClicks turns;
    QWheelEvent wheel({140, 70}, qt(m_view)->mapToGlobal(QPointF(140, 70)), {}, {0, 120}, {}, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(qt(m_view), &wheel);
    EXPECT_TRUE(waitFor([&] { return turns.m_number == 1; }));
    QTest::mouseClick(qt(m_view), Qt::LeftButton, {}, {40, 110});
    m_panel.setActiveWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(qt(m_panel)));
    EXPECT_TRUE(waitFor([&] { return qt(edit)->hasFocus(); }));
    constexpr int ScanCodeOfA = 38;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_A, {}, ScanCodeOfA, 0, 0, QStringLiteral("a"));
        QApplication::sendEvent(qt(m_view), &key);
    }
    EXPECT_TRUE(waitFor([&] { return edit.textU() == L"a"; }));

    // Where the view itself lies there it would get again what it sends.
    m_source.setNativeWindow(m_view.winId());
    QTest::mouseClick(qt(m_view), Qt::LeftButton, {}, {40, 70});
    m_source.setNativeWindow(0x7fffffff);
    QTest::mouseClick(qt(m_view), Qt::LeftButton, {}, {40, 70});
    settle();
    EXPECT_EQ(clicks.count(), 1);
}

TEST(MimicSource, hasWidgetsAsParentsAlone)
{
    VXPanel2 panel;
    VXDragDelegate2 noWidget;
    auto* const inWidget = new VXMimicSource2(&panel);
    auto* const inOther = new VXMimicSource2(&noWidget);
    EXPECT_EQ(qObjectOf(lookup(inWidget))->parent(), qt(panel));
    EXPECT_EQ(qObjectOf(lookup(inOther))->parent(), nullptr);
}

} // namespace
} // namespace VOXI
