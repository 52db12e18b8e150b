#include "../kernel/toolkit.h"
#include "support/steppedclock.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2_qt/kernel/qtanchor.h"

#include <QApplication>
#include <QLabel>
#include <QProxyStyle>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

using namespace std::chrono_literals;

class ToolTipWindow : public testing::Test
{
protected:
    ToolTipWindow()
    {
        m_window->setCentralWidget(m_page);
        m_window->setPosition({200, 200, 300, 200});
        m_window->show();
        m_anchor->setPosition({20, 30, 80, 24});
        m_tip->setText("Press here");
        m_tip->setTimeout(0);
        turn();
    }
    ~ToolTipWindow() override
    {
        delete m_tip;
        delete m_window;
        runDeletions();
    }

    QRect anchorRect() const
    {
        return {qt(*m_anchor)->mapToGlobal(QPoint(0, 0)), qt(*m_anchor)->size()};
    }
    QRect tipRect() const { return qt(*m_tip)->geometry(); }
    void expectBelow() const
    {
        EXPECT_EQ(tipRect().left(), anchorRect().left());
        EXPECT_GT(tipRect().top(), anchorRect().bottom());
        EXPECT_LT(tipRect().top(), anchorRect().bottom() + 10);
    }

    VXWindow2* m_window = new VXWindow2;
    VXPanel2* m_page = new VXPanel2(m_window);
    VXPanel2* m_inner = new VXPanel2(m_page);
    VXButton2* m_anchor = new VXButton2(m_page);
    VXToolTipWindow2* m_tip = new VXToolTipWindow2;
};

TEST_F(ToolTipWindow, keepsWhatItIsGiven)
{
    EXPECT_EQ(spokenName(*m_tip), QStringLiteral("Press here"));
    m_tip->setText(L"<b>\u20ac</b>");
    m_tip->setRichText(true);
    EXPECT_EQ(m_tip->textU(), L"<b>\u20ac</b>");
    const int narrow = qt(*m_tip)->sizeHint().width();
    m_tip->setIcon(Icon::fromPixmap(Pixmap(16, 16, std::vector<std::uint32_t>(256, ~0u))));
    EXPECT_GE(qt(*m_tip)->sizeHint().width(), narrow + 16);
    EXPECT_EQ(VXToolTipWindow2().timeout(), -1);
    m_tip->setAnchor(m_anchor, {1, 2, 3, 4}, AnchorSide::Left);
    EXPECT_EQ(m_tip->anchorRect(), (VXRect<int>{1, 2, 3, 4}));
    EXPECT_EQ(m_tip->anchorSide(), AnchorSide::Left);
    m_tip->setAnchor(m_anchor);
    EXPECT_EQ(m_tip->anchorRect(), (VXRect<int>{0, 0, 80, 24}));
    m_tip->setAnchor(m_tip);
    VXButton2* const dead = m_anchor;
    VXButton2 other(m_page);
    m_tip->setAnchor(&other);
    delete std::exchange(m_anchor, nullptr);
    m_tip->setAnchor(dead);
    EXPECT_EQ(m_tip->anchor(), &other);
    m_tip->setAnchor(nullptr);
    EXPECT_EQ(m_tip->anchor(), nullptr);
}

TEST_F(ToolTipWindow, twoMayFollowEachOther)
{
    VXToolTipWindow2 other;
    other.setTimeout(0);
    m_tip->popup(m_anchor);
    other.popup(m_tip, AnchorSide::Right);
    m_tip->setAnchor(&other);
    m_tip->moveTo({5, 5});
    turn();
    EXPECT_TRUE(m_tip->isVisible());
    EXPECT_TRUE(other.isVisible());
}

TEST_F(ToolTipWindow, isAWindowThatTakesNoFocus)
{
    m_anchor->setFocus();
    QApplication::setActiveWindow(qt(*m_window));
    m_tip->setParent(m_page);
    m_tip->popup(m_anchor);
    m_tip->setVisible(false);
    EXPECT_FALSE(m_tip->isVisible());
    m_tip->setVisible(true);
    m_tip->setActiveWindow();
    m_tip->setFocus();
    turn();
    EXPECT_TRUE(m_tip->isVisible());
    EXPECT_EQ(qt(*m_tip)->windowType(), Qt::ToolTip) << "inside a parent, too";
    EXPECT_EQ(QApplication::focusWidget(), qt(*m_anchor));
    EXPECT_TRUE(m_window->isActiveWindow());
    const QColor base = QToolTip::palette().color(QPalette::ToolTipBase);
    const QImage image = qt(*m_tip)->grab().toImage();
    EXPECT_EQ(image.pixelColor(2, 2), base);
    EXPECT_NE(image.pixelColor(0, 0), base) << "a frame";
    m_tip->setColor(ColorRole::Background, Color(1, 2, 3));
    EXPECT_EQ(qt(*m_tip)->grab().toImage().pixelColor(2, 2), QColor(1, 2, 3));
}

TEST_F(ToolTipWindow, isAsLargeAsItsContent)
{
    m_tip->popup(m_anchor);
    const QSize small = tipRect().size();
    m_tip->setText("Press here\nand see what comes of it");
    EXPECT_GT(tipRect().width(), small.width());
    EXPECT_GT(tipRect().height(), small.height());
    expectBelow();
    m_tip->setText("Press here");
    EXPECT_EQ(tipRect().size(), small);
    m_tip->setAnchor(m_anchor, AnchorSide::Above);
    m_tip->setText("One\nTwo");
    EXPECT_LT(tipRect().bottom(), anchorRect().top()) << "it grows away from the anchor";
    m_tip->resize({150, 90});
    m_tip->setText("x");
    EXPECT_EQ(tipRect().size(), QSize(150, 90));
}

TEST_F(ToolTipWindow, aLayoutStandsInPlaceOfTheText)
{
    m_tip->popup(m_anchor);
    auto* row = new VXBoxLayout2(m_tip);
    auto* button = new VXButton2(m_tip);
    row->addWidget(button);
    button->setLabel("A button in it");
    button->show();
    turn();
    EXPECT_TRUE(tipRect().size().width() > qt(*button)->width());
    EXPECT_FALSE(qt(*m_tip)->findChild<QLabel*>()->isVisible());
    Log clicks(button->clicked());
    QTest::mouseClick(qt(*button), Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_TRUE(m_tip->isVisible()) << "the click was the button's";
}

TEST(PlaceBeside, keepsToTheScreenAndItsSide)
{
    constexpr QRect screen(0, 0, 800, 600);
    constexpr QSize size(100, 40);
    const auto place = [&](const QRect& anchor, AnchorSide side,
                           Qt::LayoutDirection direction = Qt::LeftToRight) {
        return QRect(placeBeside(anchor, size, side, screen, direction), size);
    };
    constexpr QRect middle(300, 300, 50, 20);
    EXPECT_GT(place(middle, AnchorSide::Below).top(), middle.bottom());
    EXPECT_LT(place(middle, AnchorSide::Above).bottom(), middle.top());
    EXPECT_GT(place(middle, AnchorSide::Right).left(), middle.right());
    EXPECT_LT(place(middle, AnchorSide::Left).right(), middle.left());
    EXPECT_EQ(place(middle, AnchorSide::Below).left(), middle.left());
    EXPECT_EQ(place(middle, AnchorSide::Above, Qt::RightToLeft).right(), middle.right());
    // Where there is no room it takes the other side.
    EXPECT_LT(place({300, 570, 50, 20}, AnchorSide::Below).bottom(), 570);
    EXPECT_GT(place({300, 10, 50, 20}, AnchorSide::Above).top(), 29);
    EXPECT_LT(place({740, 300, 50, 20}, AnchorSide::Right).right(), 740);
    EXPECT_GT(place({10, 300, 50, 20}, AnchorSide::Left).left(), 59);
    // And along that side it stays on the screen.
    EXPECT_EQ(place({780, 300, 50, 20}, AnchorSide::Below).right(), 799);
    EXPECT_EQ(place({-30, 300, 50, 20}, AnchorSide::Below).left(), 0);
    EXPECT_TRUE(screen.contains(place(screen, AnchorSide::Below))) << "no room anywhere";
}

TEST_F(ToolTipWindow, followsItsAnchor)
{
    Log hidden(m_tip->hidden());
    m_tip->popup(m_anchor);
    expectBelow();
    Log moved(m_tip->moved());
    m_anchor->moveTo({60, 70});
    expectBelow();
    m_anchor->resize({90, 40});
    expectBelow();
    m_window->moveTo({250, 100});
    turn();
    expectBelow();
    EXPECT_TRUE(moved.isEmpty()) << "nobody dragged it";
    m_inner->setPosition({50, 50, 200, 100});
    m_anchor->setParent(m_inner);
    EXPECT_FALSE(m_tip->isVisible()) << "moving it elsewhere hides it";
    m_inner->show();
    m_anchor->moveTo({0, 0});
    m_anchor->show();
    m_tip->show();
    m_inner->moveTo({10, 90});
    expectBelow();
    m_tip->setAnchor(m_anchor, {50, 10, 0, 12});
    EXPECT_EQ(tipRect().left(), anchorRect().left() + 50);
    EXPECT_LT(tipRect().top(), anchorRect().bottom());
    m_tip->setAnchor(nullptr);
    const QRect last = tipRect();
    m_inner->moveTo({20, 20});
    EXPECT_EQ(tipRect(), last);
    EXPECT_TRUE(m_tip->isVisible());
    EXPECT_EQ(hidden.count(), 1);
}

TEST_F(ToolTipWindow, followsItsAnchorWhileThatIsScrolled)
{
    auto* view = new VXScrollView2(m_page);
    auto* content = new VXPanel2(view);
    content->setMinimumSize({100, 1000});
    view->setWidget(content);
    view->setPosition({0, 0, 150, 150});
    view->show();
    m_anchor->setParent(content);
    m_anchor->moveTo({10, 100});
    m_anchor->show();
    turn();
    m_tip->popup(m_anchor);
    const QRect before = tipRect();
    view->scrollBy({0, 60});
    EXPECT_EQ(tipRect(), before.translated(0, -60));
    expectBelow();
    view->scrollBy({0, 60});
    EXPECT_TRUE(m_tip->isVisible()) << "some of the anchor is in view";
    view->scrollBy({0, 60});
    EXPECT_FALSE(m_tip->isVisible());
}

TEST_F(ToolTipWindow, goesWithItsAnchor)
{
    Log hidden(m_tip->hidden());
    m_tip->popup(m_anchor);
    m_page->hide();
    EXPECT_FALSE(m_tip->isVisible());
    EXPECT_TRUE(hidden.takeOne());
    m_tip->show();
    EXPECT_FALSE(m_tip->isVisible()) << "as long as the anchor is not";
    m_page->show();
    EXPECT_FALSE(m_tip->isVisible());
    m_tip->show();
    EXPECT_TRUE(m_tip->isVisible());
    m_window->setWindowState(WindowState::Minimized);
    turn();
    EXPECT_TRUE(hidden.takeOne());
    m_window->setWindowState({});
    turn();
    m_tip->show();
    m_anchor->moveTo({-200, 0});
    EXPECT_TRUE(hidden.takeOne()) << "out of view";
    m_anchor->moveTo({0, 0});
    m_tip->show();
    EXPECT_TRUE(m_tip->isVisible());
    delete std::exchange(m_anchor, nullptr);
    runDeletions();
    EXPECT_FALSE(m_tip->isVisible());
    EXPECT_TRUE(hidden.takeOne());
    m_tip->show();
    EXPECT_FALSE(m_tip->isVisible()) << "there is nothing that it could stand beside";
}

TEST_F(ToolTipWindow, aClickClosesItAndIsReported)
{
    Log clicks(m_tip->clicked());
    Log hidden(m_tip->hidden());
    m_tip->popup(m_anchor);
    m_tip->hide();
    EXPECT_TRUE(clicks.isEmpty() && hidden.isEmpty());
    m_tip->show();
    QTest::mousePress(qt(*m_tip), Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseRelease(qt(*m_tip), Qt::LeftButton, {}, QPoint(5, 500));
    EXPECT_TRUE(m_tip->isVisible()) << "let go elsewhere";
    QTest::mouseClick(qt(*m_tip), Qt::RightButton);
    EXPECT_TRUE(m_tip->isVisible());
    QTest::mouseClick(qt(*m_tip), Qt::LeftButton);
    EXPECT_FALSE(m_tip->isVisible());
    EXPECT_EQ(clicks.only().window(), m_tip);
    EXPECT_TRUE(hidden.takeOne());

    auto next = m_tip->clicked().connect(m_anchor, [this] { m_tip->show(); });
    m_tip->show();
    QTest::mouseClick(qt(*m_tip), Qt::LeftButton);
    EXPECT_TRUE(m_tip->isVisible()) << "the handler's will";
    next.disconnect();
    m_tip->hidden().connect(m_anchor, [this] { delete std::exchange(m_tip, nullptr); });
    QTest::mouseClick(qt(*m_tip), Qt::LeftButton);
    EXPECT_EQ(m_tip, nullptr);
}

TEST_F(ToolTipWindow, itsTimeEnds)
{
    {
        SteppedClock clock;
        Log hidden(m_tip->hidden());
        m_tip->setTimeout(-1);
        m_tip->popup(m_anchor);
        clock.advance(9999ms);
        EXPECT_TRUE(m_tip->isVisible());
        clock.advance(1ms);
        EXPECT_TRUE(hidden.takeOne()) << "a short text, ten seconds";

        m_tip->setTimeout(0);
        m_tip->show();
        clock.advance(24h);
        EXPECT_TRUE(m_tip->isVisible());
        m_tip->setTimeout(20); // while it is shown
        m_tip->hide();
        m_tip->show();
        hidden.clear();
        clock.advance(19ms);
        EXPECT_TRUE(m_tip->isVisible()) << "every showing has its whole time";
        clock.advance(1ms);
        EXPECT_TRUE(hidden.takeOne());
    }
    m_tip->setTimeout(1);
    m_tip->show();
    EXPECT_TRUE(waitFor([&] { return !m_tip->isVisible(); })) << "by Qt's time";
}

/// A style that lets things fade.
class FadingStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? 20
                   : QProxyStyle::styleHint(hint, option, widget, answer);
    }
};

TEST_F(ToolTipWindow, fadesWhereTheDesktopLetsIt)
{
    FadingStyle style;
    qt(*m_tip)->setStyle(&style);
    const bool general = QApplication::isEffectEnabled(Qt::UI_General);
    QApplication::setEffectEnabled(Qt::UI_General, true);
    QApplication::setEffectEnabled(Qt::UI_FadeTooltip, true);
    ASSERT_TRUE(QApplication::isEffectEnabled(Qt::UI_FadeTooltip));
    Log hidden(m_tip->hidden());
    m_tip->popup(m_anchor);
    EXPECT_LT(qt(*m_tip)->windowOpacity(), 0.5);
    EXPECT_TRUE(waitFor([&] { return qt(*m_tip)->windowOpacity() == 1; }));
    m_tip->hide();
    EXPECT_FALSE(m_tip->isVisible()) << "it is on its way";
    EXPECT_TRUE(qt(*m_tip)->isVisible());
    m_tip->show();
    EXPECT_TRUE(waitFor([&] { return qt(*m_tip)->windowOpacity() == 1; }));
    EXPECT_TRUE(m_tip->isVisible());
    m_tip->hide();
    EXPECT_TRUE(waitFor([&] { return !qt(*m_tip)->isVisible(); }));
    EXPECT_TRUE(hidden.isEmpty());
    m_tip->show();
    m_page->hide();
    EXPECT_FALSE(qt(*m_tip)->isVisible()) << "at once";
    QApplication::setEffectEnabled(Qt::UI_FadeTooltip, false);
    QApplication::setEffectEnabled(Qt::UI_General, general);
    m_page->show();
    m_tip->show();
    EXPECT_EQ(qt(*m_tip)->windowOpacity(), 1);
    qt(*m_tip)->setStyle(nullptr);
}

} // namespace
} // namespace VOXI
