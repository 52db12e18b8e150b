#include "../kernel/toolkit.h"
#include "support/steppedclock.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxnotificationbar2.h"

#include <QAccessible>
#include <QApplication>
#include <QEnterEvent>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

using namespace std::chrono_literals;

/// A style in which nothing slides, or for so many milliseconds.
class SlidingStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        return hint == SH_Widget_Animation_Duration
                   ? m_duration
                   : QProxyStyle::styleHint(hint, option, widget, answer);
    }

    int m_duration = 0;
};

class NotificationBar : public testing::Test
{
protected:
    NotificationBar()
    {
        qt(*m_bar)->setStyle(&m_style);
        m_layout->addWidget(m_bar);
        m_layout->addWidget(m_below);
        m_layout->addStretch();
        m_page->resize({400, 300});
        m_page->show();
        turn();
    }
    ~NotificationBar() override
    {
        if (VXObject::isObjectValid(m_id))
            qt(*m_bar)->setStyle(nullptr);
        delete m_page;
        runDeletions();
    }

    template <class Widget>
    Widget* find(const char* text = "") const
    {
        for (Widget* each : qt(*m_bar)->findChildren<Widget*>()) {
            if (each->isVisible() && each->text() == QLatin1String(text))
                return each;
        }
        return nullptr;
    }
    void click(const char* button) const
    {
        QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
    }
    std::wstring shown() const { return m_bar->notification().text; }

    SlidingStyle m_style;
    VXPanel2* m_page = new VXPanel2(nullptr);
    VXBoxLayout2* m_layout = new VXBoxLayout2(m_page, Direction::TopToBottom);
    VXNotificationBar2* m_bar = new VXNotificationBar2(m_page);
    unsigned m_id = m_bar->id();
    VXButton2* m_below = new VXButton2("below", m_page);
    Log<VXNotificationButtonEvent2> m_clicks{m_bar->buttonClicked()};
    Log<VXNotificationEndEvent2> m_ends{m_bar->dismissed()};
    Log<VXWidgetEvent2> m_hidden{m_bar->hidden()};
};

TEST_F(NotificationBar, oneIsShownAndOthersWaitOrTakeItsPlace)
{
    EXPECT_FALSE(m_bar->isVisible());
    m_bar->notify("first");
    m_bar->notify({.text = L"second", .uid = 2});
    m_bar->notify({.text = L"third", .uid = 3});
    EXPECT_TRUE(m_bar->isVisible());
    EXPECT_TRUE(find<QLabel>("first"));
    EXPECT_EQ(m_bar->waitingCount(), 2);
    m_bar->notify({.text = L"urgent", .uid = 2}, NotificationArrival::Replaces);
    EXPECT_EQ(shown(), L"urgent");
    EXPECT_EQ(spokenName(*m_bar), QStringLiteral("urgent"));
    EXPECT_EQ(m_bar->waitingCount(), 2);
    m_bar->withdraw(0);
    m_bar->withdraw(2);
    EXPECT_EQ(shown(), L"third");
    EXPECT_EQ(m_bar->waitingCount(), 0);
    m_bar->hide();
    EXPECT_EQ(shown(), L"third");
    m_bar->notify("fourth");
    EXPECT_TRUE(m_bar->isVisible());
    m_bar->dismiss();
    EXPECT_EQ(shown(), L"fourth");
    m_bar->notify("fifth");
    m_bar->clear();
    EXPECT_FALSE(m_bar->isVisible());
    EXPECT_EQ(m_bar->notification(), Notification());

    m_page->hide();
    m_bar->notify("while the page was away");
    m_bar->dismiss();
    m_page->show();
    EXPECT_FALSE(m_bar->isVisible()) << "it is gone";
    turn();
    EXPECT_TRUE(m_ends.isEmpty() && m_hidden.isEmpty());
}

TEST_F(NotificationBar, itsButtonsAreReportedAndDismissIt)
{
    m_bar->notify({.text = L"Really?",
                   .buttons = {{L"Try", 1, false}, {L"Yes", 2}, {L"No", 2}},
                   .isClosable = false,
                   .uid = 7});
    m_bar->notify("next");
    EXPECT_FALSE(find<QToolButton>());
    click("Try");
    EXPECT_EQ(m_clicks.last().buttonId(), 1);
    EXPECT_EQ(shown(), L"Really?");
    m_bar->imitateClose();
    m_bar->imitateButton(5);
    EXPECT_TRUE(m_ends.isEmpty()) << "it has neither";

    std::wstring whenTold;
    m_bar->buttonClicked().connect(m_below, [&] { whenTold = shown(); });
    click("No");
    EXPECT_EQ(m_clicks.last().uid(), 7u);
    EXPECT_EQ(m_clicks.last().buttonId(), 2);
    EXPECT_EQ(m_ends.only().uid(), 7u);
    EXPECT_EQ(m_ends.only().how(), NotificationEnd::ByButton);
    EXPECT_EQ(whenTold, L"next");
    EXPECT_TRUE(m_hidden.isEmpty());
    QTest::mouseClick(find<QToolButton>(), Qt::LeftButton);
    EXPECT_EQ(m_ends.last().how(), NotificationEnd::ByCloseButton);
    EXPECT_FALSE(m_bar->isVisible());
    EXPECT_TRUE(m_hidden.takeOne());
}

TEST_F(NotificationBar, aPressThatHasBegunIsNoClickOnWhatComesInItsPlace)
{
    m_bar->notify({.text = L"Copy?", .buttons = {{L"Copy", 1}}});
    QPushButton* const button = find<QPushButton>("Copy");
    const QPoint place = button->mapTo(qt(*m_page), button->rect().center());
    QTest::mousePress(button, Qt::LeftButton);
    m_bar->notify({.text = L"Erase?", .buttons = {{L"Erase", 2}}}, NotificationArrival::Replaces);
    turn();
    QTest::mouseMove(qt(*m_page)->windowHandle(), place + QPoint(1, 1));
    QTest::mouseRelease(qt(*m_page)->windowHandle(), Qt::LeftButton, {}, place);
    turn();
    EXPECT_TRUE(m_clicks.isEmpty());
}

TEST_F(NotificationBar, handlersMayEndItOrBringOthers)
{
    m_bar->linkActivated().connect(m_below, [this](const VXNotificationLinkEvent2& event) {
        EXPECT_EQ(event.target(), L"page:\u00e4");
        m_bar->notify("came by a link", NotificationKind::Success);
        m_bar->dismiss();
    });
    m_bar->notify(
        {.text = L"<a href='page:\u00e4'>a link to be clicked on</a>", .isRichText = true});
    EXPECT_EQ(spokenName(*m_bar), QStringLiteral("a link to be clicked on"));
    turn();
    auto* const label =
        find<QLabel>("<a href='page:\xe4'>a link to be clicked on</a>"); // as Latin-1
    ASSERT_TRUE(label);
    QTest::mouseClick(label, Qt::LeftButton, {}, {20, label->height() / 2});
    EXPECT_EQ(shown(), L"came by a link");

    m_bar->notify({.buttons = {{L"End", 1}}}, NotificationArrival::Replaces);
    m_bar->notify("never seen");
    m_bar->buttonClicked().connect(m_below, [this] { delete m_bar; });
    click("End");
    runDeletions();
    EXPECT_FALSE(VXObject::isObjectValid(m_id));
    EXPECT_TRUE(m_ends.isEmpty());
}

TEST_F(NotificationBar, itsTimeRunsWhileItIsSeenAndLeftAlone)
{
    SteppedClock clock;
    m_bar->notify("short", NotificationKind::Success, 1000);
    m_bar->notify("next", NotificationKind::Warning, 1000);
    m_bar->notify("stays");
    clock.advance(999ms);
    EXPECT_EQ(shown(), L"short");
    clock.advance(1ms);
    EXPECT_EQ(shown(), L"next");
    EXPECT_EQ(m_ends.only().how(), NotificationEnd::TimedOut);

    const QPointF inside(5, 5);
    QEnterEvent enter(inside, inside, inside);
    QApplication::sendEvent(qt(*m_bar), &enter);
    clock.advance(1h);
    EXPECT_EQ(shown(), L"next") << "the pointer is over it";
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(qt(*m_bar), &leave);
    clock.advance(999ms);
    EXPECT_EQ(shown(), L"next") << "anew";
    m_page->hide();
    clock.advance(1h);
    m_page->show();
    clock.advance(999ms);
    EXPECT_EQ(shown(), L"next");
    clock.advance(1ms);
    EXPECT_EQ(shown(), L"stays");
    clock.advance(1h);
    EXPECT_TRUE(m_bar->isVisible());

    m_bar->notify({.buttons = {{L"Wait", 1, false}}, .timeout = 1000},
                  NotificationArrival::Replaces);
    QApplication::setActiveWindow(qt(*m_page));
    find<QPushButton>("Wait")->setFocus();
    clock.advance(1h);
    EXPECT_TRUE(m_bar->isVisible()) << "the keyboard is in it";
    m_ends.clear();
    QTest::keyClick(find<QPushButton>("Wait"), Qt::Key_Escape);
    EXPECT_EQ(m_ends.only().how(), NotificationEnd::ByCloseButton);
}

TEST_F(NotificationBar, theTabKeyGoesThroughItsButtonsInTheirOrder)
{
    m_bar->notify({.buttons = {{L"One", 1}, {L"Two", 2}, {L"Three", 3}}});
    QApplication::setActiveWindow(qt(*m_page));
    find<QPushButton>("One")->setFocus();
    QStringList way;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const auto* const stop = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
        way.push_back(stop ? stop->text() : QString());
    }
    EXPECT_EQ(way.join(u' '), QStringLiteral("Two Three  below"));
}

TEST_F(NotificationBar, itsColourFollowsThePaletteAndItsKind)
{
    const auto ground = [this](NotificationKind kind) {
        m_bar->notify({.text = L"text", .kind = kind}, NotificationArrival::Replaces);
        turn(); // it is laid out
        return qt(*m_bar)->grab().toImage().pixelColor(7, 2);
    };
    QPalette dark(QColor(30, 30, 30));
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, Qt::white);
    EXPECT_GT(ground(NotificationKind::Error).lightness(), 180);
    qt(*m_page)->setPalette(dark);
    const QColor error = ground(NotificationKind::Error);
    EXPECT_LT(error.lightness(), 80);
    EXPECT_GT(error.red(), error.green());
    EXPECT_GT(ground(NotificationKind::Success).green(), error.green());
    EXPECT_EQ(ground(static_cast<NotificationKind>(-5)), ground(NotificationKind::Information));
}

TEST_F(NotificationBar, slidesWhereTheStyleAnimates)
{
    m_style.m_duration = 20;
    const int top = qt(*m_below)->y();
    m_bar->notify(std::wstring(2'000'000, L'x'));
    EXPECT_LT(qt(*m_bar)->sizeHint().height(), 5);
    const auto isIn = [this] {
        return qt(*m_bar)->height() >= 20
               && qt(*m_bar)->height() == qt(*m_bar)->heightForWidth(qt(*m_bar)->width());
    };
    EXPECT_TRUE(waitFor(isIn));
    EXPECT_GT(qt(*m_below)->y(), top);
    EXPECT_LE(qt(*m_page)->width(), 400) << "a long word makes it no wider";
    m_bar->imitateClose();
    EXPECT_FALSE(m_bar->isVisible()) << "it is on its way";
    EXPECT_TRUE(qt(*m_bar)->isVisible());
    m_bar->imitateClose();
    EXPECT_EQ(m_ends.count(), 1);
    m_bar->notify("back again");
    EXPECT_TRUE(m_bar->isVisible());
    EXPECT_TRUE(waitFor(isIn));
    EXPECT_TRUE(m_hidden.isEmpty());
    m_bar->imitateClose();
    m_page->hide();
    m_page->show();
    EXPECT_TRUE(waitFor([&] { return !qt(*m_bar)->isVisible(); }));
    EXPECT_TRUE(waitFor([&] { return qt(*m_below)->y() == top; }));
}

} // namespace
} // namespace VOXI
