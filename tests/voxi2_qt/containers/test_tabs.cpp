#include "../kernel/toolkit.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2_qt/kernel/qtgeometry.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class Tabs : public testing::Test
{
protected:
    ~Tabs() override
    {
        delete m_container;
        delete m_other;
        runDeletions();
    }

    QTabWidget* qtTabs() const { return static_cast<QTabWidget*>(qt(*m_container)); }
    QTabBar* bar() const { return qtTabs()->tabBar(); }

    void show()
    {
        for (VXTab2* tab : {m_first, m_second, m_third})
            m_container->addTab(tab);
        m_container->resize({500, 200});
        m_container->show();
        QApplication::setActiveWindow(qtTabs());
        turn();
    }

    QPoint onTab(VXTab2* tab) const { return bar()->tabRect(m_container->indexOf(tab)).center(); }
    void click(VXTab2* tab) { QTest::mouseClick(bar(), Qt::LeftButton, {}, onTab(tab)); }
    void clickCloseButton(VXTab2* tab)
    {
        const int index = m_container->indexOf(tab);
        QWidget* button = bar()->tabButton(index, QTabBar::RightSide);
        ASSERT_NE(button, nullptr);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    /// Presses the tab and moves it by so many tabs' widths, without letting it go.
    void drag(VXTab2* tab, int tabs)
    {
        const QPoint start = onTab(tab);
        const int width = bar()->tabRect(0).width();
        QTest::mousePress(bar(), Qt::LeftButton, {}, start);
        for (int i = 1; i <= 4; ++i)
            QTest::mouseMove(bar(), start + QPoint(tabs * width * i / 4, 0));
    }
    void drop() { QTest::mouseRelease(bar(), Qt::LeftButton, {}, QPoint(1, 1)); }

    static VXTab2* tab(VXObject2* owner, const char* text)
    {
        auto* result = new VXTab2(owner);
        result->setText(text);
        return result;
    }

    VXPanel2 m_owner;
    VXTabContainer2* m_container = new VXTabContainer2;
    VXTabContainer2* m_other = new VXTabContainer2;
    VXTab2* m_first = tab(&m_owner, "First");
    VXTab2* m_second = tab(&m_owner, "Second");
    VXTab2* m_third = tab(&m_owner, "Third");
};

TEST_F(Tabs, standInTheirOrder)
{
    m_container->addTab(m_first);
    m_container->insertTab(m_third, 99);
    m_container->insertTab(m_second, 1);
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{m_first, m_second, m_third}));
    EXPECT_EQ(m_container->tabAt(1), m_second);
    EXPECT_EQ(m_container->tabAt(3), nullptr);
    EXPECT_EQ(m_container->currentTab(), m_first);
    EXPECT_EQ(m_second->container(), m_container);
    EXPECT_EQ(m_second->peerParent(), m_container);
    EXPECT_EQ(m_container->peerChildren().size(), 3u);
    EXPECT_EQ(m_container->peerChildren(true).size(), 3u);
    m_container->insertTab(m_first, -1);
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{m_second, m_third, m_first}));
    EXPECT_EQ(m_container->currentTab(), m_first) << "it remains what it was";
    m_container->insertTab(m_first, 1);
    EXPECT_EQ(qtTabs()->indexOf(qt(*m_first)), 1);
    m_container->removeTab(m_first);
    for (VXTab2* const none : {m_first, static_cast<VXTab2*>(nullptr)}) {
        m_container->removeTab(none);
        m_container->setCurrentTab(none);
        EXPECT_EQ(m_container->indexOf(none), -1);
    }
    EXPECT_EQ(m_first->container(), nullptr);
}

TEST_F(Tabs, aContainerAsParentTakesTheTab)
{
    auto* made = new VXTab2(m_container);
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{made}));
    m_first->setParent(m_container);
    EXPECT_EQ(m_container->indexOf(m_first), 1);
    made->setParent(m_other);
    EXPECT_EQ(made->container(), m_other);
    EXPECT_EQ(m_container->count(), 1);
    made->setParent(&m_owner);
    EXPECT_EQ(m_other->count(), 0);
    EXPECT_EQ(qt(*made)->parentWidget(), qt(m_owner));
    m_container->setParent(made);
    made->setParent(m_container); // which lies in it
    m_container->addTab(made);
    EXPECT_EQ(m_container->count(), 1);
    m_container->setParent(nullptr);
}

TEST_F(Tabs, whatTheTabShowsFollowsThePage)
{
    m_first->setText(L"&Price \u20ac");
    m_first->setTabToolTip("about the first");
    m_first->setIcon(Icon::fromPixmap(Pixmap(1, 1, {0xff0000ffu})));
    m_container->addTab(m_first);
    m_first->setTextColor(Color(200, 10, 20));
    m_first->setTabEnabled(false);
    m_other->addTab(m_second);
    const auto expect = [&](VXTabContainer2& container, const QString& text, const QString& toolTip,
                            const QColor& color, bool plain) {
        const QTabBar& tabs = *static_cast<QTabWidget*>(qt(container))->tabBar();
        const int index = container.indexOf(m_first);
        EXPECT_EQ(tabs.tabText(index), text);
        EXPECT_EQ(tabs.tabToolTip(index), toolTip);
        EXPECT_EQ(tabs.tabTextColor(index), color);
        EXPECT_EQ(tabs.tabIcon(index).isNull(), plain);
        EXPECT_EQ(tabs.isTabEnabled(index), plain);
        EXPECT_TRUE(m_first->isEnabled()) << "the page is another thing";
    };
    for (VXTabContainer2* container : {m_container, m_other}) {
        container->addTab(m_first);
        expect(*container, QStringLiteral("&Price \u20ac"), QStringLiteral("about the first"),
               QColor(200, 10, 20), false);
    }
    m_first->setText(u"Later");
    m_first->setTabToolTip(L"tip \u20ac");
    m_first->setIcon(Icon());
    m_first->unsetTextColor();
    m_first->setTabEnabled(true);
    expect(*m_other, QStringLiteral("Later"), QStringLiteral("tip \u20ac"), QColor(), true);
    m_container->addTab(m_first);
    expect(*m_container, QStringLiteral("Later"), QStringLiteral("tip \u20ac"), QColor(), true);
    m_container->removeTab(m_first);
    EXPECT_EQ(m_first->text(), "Later");
    EXPECT_TRUE(m_first->isTabEnabled());
}

TEST_F(Tabs, scrollButtonsAreSetAndAnswered)
{
    m_container->setScrollButtons(false);
    EXPECT_FALSE(qtTabs()->usesScrollButtons() || m_container->hasScrollButtons());
}

TEST_F(Tabs, theUserChoosesByMouseAndKeys)
{
    show();
    Log changes(m_container->currentTabChanged());
    click(m_third);
    EXPECT_EQ(m_container->currentTab(), m_third);
    EXPECT_EQ(changes.only().tab(), m_third);
    EXPECT_EQ(changes.last().container(), m_container);
    click(m_third);
    EXPECT_EQ(changes.count(), 1);
    m_second->setTabEnabled(false);
    bar()->setFocus();
    QTest::keyClick(bar(), Qt::Key_Left);
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(changes.last().tab(), m_first) << "the one between cannot be chosen";
    m_second->setTabEnabled(true);
    QTest::keyClick(qtTabs(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(changes.last().tab(), m_second);
    m_third->setText("&Third");
    QTest::keyClick(qtTabs(), Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(changes.count(), 4);
    EXPECT_EQ(changes.last().tab(), m_third);
    Log doubleClicks(m_container->tabDoubleClicked());
    QTest::mouseDClick(bar(), Qt::LeftButton, {}, onTab(m_first));
    EXPECT_EQ(doubleClicks.only().tab(), m_first);
}

TEST_F(Tabs, aTabThatTheProgramHasLeftMeanwhileIsNotReported)
{
    show();
    Log changes(m_container->currentTabChanged());
    m_second->shown().connect(m_container, [&] { m_container->setCurrentTab(m_third); });
    click(m_second);
    EXPECT_EQ(m_container->currentTab(), m_third);
    EXPECT_TRUE(changes.isEmpty()) << "what the press changed is past";
}

TEST_F(Tabs, whatTheProgramDoesIsNotReported)
{
    show();
    m_container->setMovable(true);
    Log changes(m_container->currentTabChanged());
    Log moves(m_container->tabMoved());
    Log shown(m_second->shown());
    Log hidden(m_first->hidden());
    m_container->setCurrentTab(m_second);
    EXPECT_TRUE(m_second->isVisible());
    m_container->insertTab(m_second, 0);
    m_container->insertTab(m_second, 2);
    m_second->setTabEnabled(false);
    EXPECT_EQ(m_container->currentTab(), m_third);
    auto* extra = new VXTab2(&m_owner);
    m_container->insertTab(extra, 0);
    m_container->removeTab(m_first);
    EXPECT_EQ(m_container->currentTab(), m_third) << "which has another position now";
    EXPECT_TRUE(shown.isEmpty() && hidden.isEmpty());
    m_container->setCurrentTab(extra);
    delete extra;
    m_container->removeTab(m_third);
    m_container->addTab(m_first);
    m_container->setCurrentTab(m_first);
    delete qt(*m_first); // as whoever holds the widget may
    m_second->setParent(nullptr);
    EXPECT_EQ(m_container->count(), 0);
    m_container->addTab(m_third);
    turn();
    EXPECT_TRUE(changes.isEmpty() && moves.isEmpty());

    m_container->addTab(m_second);
    m_second->setTabEnabled(true);
    click(m_second);
    EXPECT_TRUE(changes.takeOne()) << "the user is heard as before";
}

TEST_F(Tabs, hidingAndShowingAreTheTabs)
{
    show();
    Log changes(m_container->currentTabChanged());
    Comings comings({m_first, m_second, m_third});
    m_first->hide();
    EXPECT_FALSE(bar()->isTabVisible(0));
    EXPECT_EQ(m_container->count(), 3);
    m_first->show();
    EXPECT_TRUE(bar()->isTabVisible(0));
    EXPECT_FALSE(m_first->isVisible()) << "another page is shown";
    EXPECT_TRUE(m_second->isVisible());
    EXPECT_FALSE(comings.areReported());
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(Tabs, thePageThatComesInsteadIsNotReported)
{
    show();
    Comings comings({m_first, m_second, m_third});
    m_container->removeTab(m_first);
    EXPECT_TRUE(m_second->isVisible());
    EXPECT_FALSE(comings.areReported()) << "removed";
    m_second->setTabEnabled(false);
    EXPECT_TRUE(m_third->isVisible());
    EXPECT_FALSE(comings.areReported()) << "disabled";
    m_second->setTabEnabled(true);
    m_container->insertTab(m_third, 0);
    EXPECT_TRUE(m_third->isVisible());
    EXPECT_FALSE(comings.areReported()) << "moved";
    for (VXTab2* tab : {m_second, m_third})
        tab->setTabEnabled(false);
    m_container->addTab(m_first);
    m_container->setCurrentTab(m_first);
    m_container->removeTab(m_first);
    EXPECT_FALSE(comings.areReported()) << "none can be chosen";
    m_second->setTabEnabled(true);
    m_other->addTab(m_third);
    EXPECT_TRUE(m_second->isVisible());
    EXPECT_FALSE(comings.areReported()) << "put elsewhere";
    m_container->insertTab(m_first, 0);
    delete m_second;
    EXPECT_TRUE(m_first->isVisible());
    EXPECT_FALSE(comings.areReported()) << "ended";
}

TEST_F(Tabs, theFocusGoesOnUnheard)
{
    VXButton2 inFirst(m_first);
    VXButton2 inSecond(m_second);
    show();
    for (VXButton2* each : {&inSecond, &inFirst}) {
        m_container->setCurrentTab(each == &inFirst ? m_first : m_second);
        each->setFocus();
        turn();
    }
    ASSERT_TRUE(inFirst.hasFocus());
    Log firstGained(inFirst.focusGained());
    Log secondGained(inSecond.focusGained());
    m_container->insertTab(m_first, 2);
    turn();
    EXPECT_EQ(m_container->currentTab(), m_first);
    EXPECT_TRUE(firstGained.isEmpty() && secondGained.isEmpty());
    EXPECT_TRUE(inFirst.hasFocus());
    m_container->removeTab(m_first);
    turn();
    EXPECT_TRUE(firstGained.isEmpty() && secondGained.isEmpty());
}

TEST_F(Tabs, closingIsTheProgramsDecision)
{
    show();
    m_container->setTabsClosable(true);
    Log requests(m_container->tabCloseRequested());
    clickCloseButton(m_second);
    EXPECT_EQ(requests.only().tab(), m_second);
    EXPECT_EQ(m_container->count(), 3);

    // In its own handler a tab may be taken out, or end.
    bool destroy = false;
    m_container->tabCloseRequested().connect(m_container, [&](const VXTabEvent2& event) {
        if (destroy)
            delete event.tab();
        else
            event.container()->removeTab(event.tab());
    });
    clickCloseButton(m_second);
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{m_first, m_third}));
    destroy = true;
    clickCloseButton(m_first);
    clickCloseButton(m_third);
    EXPECT_EQ(m_container->count(), 0);
    runDeletions();
    EXPECT_NE(lookup(m_second), nullptr);
}

TEST_F(Tabs, aDragThatLeadsElsewhereIsReportedOnceItIsOver)
{
    show();
    m_container->setMovable(true);
    Log changes(m_container->currentTabChanged());
    Log moves(m_container->tabMoved());
    const QPoint start = onTab(m_first);
    drag(m_first, 1);
    QTest::mouseMove(bar(), start);
    QTest::mouseRelease(bar(), Qt::LeftButton, {}, start);
    EXPECT_EQ(m_container->indexOf(m_first), 0);
    EXPECT_TRUE(moves.isEmpty()) << "there and back";

    drag(m_first, 2);
    QTest::mousePress(bar(), Qt::RightButton, {}, onTab(m_third));
    QTest::mouseRelease(bar(), Qt::RightButton, {}, onTab(m_third));
    EXPECT_TRUE(moves.isEmpty()) << "the left button is still down";
    drop();
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{m_second, m_third, m_first}));
    EXPECT_EQ(moves.only().tab(), m_first);
    EXPECT_EQ(moves.last().from(), 0);
    EXPECT_EQ(moves.last().to(), 2);
    EXPECT_TRUE(changes.isEmpty()) << "the same tab is current";

    drag(m_first, -1); // and the release is lost
    click(m_second);
    EXPECT_EQ(moves.count(), 1) << "of that tab nothing was dragged";
}

TEST_F(Tabs, areMovedAndClosedByKeysAsByThePointer)
{
    show();
    m_container->setCurrentTab(m_first);
    Log moves(m_container->tabMoved());
    Log closings(m_container->tabCloseRequested());
    bar()->setFocus();
    QTest::keyClick(bar(), Qt::Key_Right, Qt::AltModifier);
    QTest::keyClick(bar(), Qt::Key_Delete);
    EXPECT_TRUE(moves.isEmpty());
    EXPECT_TRUE(closings.isEmpty());
    m_container->setMovable(true);
    m_container->setTabsClosable(true);
    m_container->setCurrentTab(m_first);
    QTest::keyClick(bar(), Qt::Key_Left, Qt::AltModifier); // it is the first
    EXPECT_TRUE(moves.isEmpty());
    QTest::keyClick(bar(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(moves.only().tab(), m_first);
    EXPECT_EQ(moves.only().to(), 1);
    EXPECT_EQ(m_container->indexOf(m_first), 1);
    QTest::keyClick(bar(), Qt::Key_Delete);
    EXPECT_EQ(closings.only().tab(), m_first);
}

TEST_F(Tabs, mayGoWhileTheyAreDragged)
{
    show();
    m_container->setMovable(true);
    Log moves(m_container->tabMoved());
    drag(m_second, 1);
    delete m_second;
    runDeletions();
    QTest::mouseMove(bar(), QPoint(5, 5));
    drop();
    EXPECT_EQ(m_container->count(), 2);
    EXPECT_TRUE(moves.isEmpty());
    drag(m_first, 1);
    delete m_third; // the one that was dragged over
    QTest::mouseMove(bar(), QPoint(5, 5));
    drop();
    EXPECT_EQ(m_container->tabs(), (std::vector<VXTab2*>{m_first}));

    m_container->tabMoved().connect(m_container,
                                    [&] { delete std::exchange(m_container, nullptr); });
    m_container->addTab(tab(&m_owner, "Other"));
    drag(m_first, 1);
    QTest::mouseRelease(bar(), Qt::LeftButton, {}, QPoint(1, 1));
    EXPECT_EQ(m_container, nullptr);
}

TEST_F(Tabs, thousandsAreNoTrouble)
{
    m_container->show();
    for (int i = 0; i < 1000; ++i)
        (new VXTab2(m_container))->setText("Tab " + std::to_string(i));
    const auto tabs = m_container->tabs();
    ASSERT_EQ(tabs.size(), 1000u);
    Log changes(m_container->currentTabChanged());
    m_container->setCurrentTab(tabs[999]);
    for (std::size_t i = 0; i < 1000; i += 2)
        m_other->addTab(tabs[i]);
    EXPECT_EQ(m_container->count(), 500);
    EXPECT_EQ(m_other->tabAt(499)->text(), "Tab 998");
    EXPECT_EQ(m_container->currentTab(), tabs[999]);
    for (std::size_t i = 0; i < 1000; i += 3)
        delete tabs[i];
    EXPECT_EQ(m_container->count(), 333);
    EXPECT_TRUE(changes.isEmpty());
}

TEST(TabCorners, holdWhatMayGo)
{
    VXPanel2 owner;
    VXTabContainer2 tabs;
    new VXTab2("one", &tabs);
    auto* const first = new VXButton2("first", &owner);
    auto* const second = new VXButton2("second", &owner);
    tabs.setCornerWidget(first);
    tabs.setCornerWidget(second, TabCorner::Leading);
    tabs.resize({300, 200});
    tabs.show();
    turn();
    EXPECT_EQ(tabs.cornerWidget(), first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_LT(second->globalPosition().x, first->globalPosition().x);
    tabs.setCornerWidget(second);
    EXPECT_EQ(tabs.cornerWidget(), second);
    EXPECT_EQ(tabs.cornerWidget(TabCorner::Leading), nullptr);
    EXPECT_FALSE(first->isVisible());
    delete second;
    runDeletions();
    EXPECT_EQ(tabs.cornerWidget(), nullptr);
    tabs.resize({400, 200});
    tabs.setCornerWidget(first);
    tabs.setCornerWidget(&tabs);
    turn();
    EXPECT_EQ(tabs.cornerWidget(), first);
    EXPECT_TRUE(first->isVisible());
    tabs.setCornerWidget(nullptr);
    EXPECT_EQ(tabs.cornerWidget(), nullptr);
}

TEST(TabMenus, areThoseOfTheTabUnderThePointerAsAreItsCloseButtons)
{
    VXTabContainer2 tabs;
    auto* const one = new VXTab2("one", &tabs);
    auto* const two = new VXTab2("two", &tabs);
    two->setClosable(false);
    tabs.setTabsClosable(true);
    auto* const three = new VXTab2("three");
    three->setClosable(false);
    tabs.addTab(three);
    tabs.resize({400, 200});
    tabs.show();
    turn();
    QTabBar& bar = *static_cast<QTabWidget*>(qt(tabs))->tabBar();
    const auto hasButton = [&](int index) { return bar.tabButton(index, QTabBar::RightSide); };
    EXPECT_TRUE(hasButton(0) && !hasButton(1) && !hasButton(2));
    two->setClosable(true);
    EXPECT_TRUE(hasButton(0) && hasButton(1) && !hasButton(2));
    one->setClosable(false);
    EXPECT_FALSE(hasButton(0));

    const Log menus(tabs.contextMenuRequested());
    const QPoint place = bar.tabRect(1).center();
    const auto ask = [&] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, bar.mapToGlobal(place));
        QApplication::sendEvent(&bar, &event);
    };
    ask();
    EXPECT_EQ(menus.count(), 1) << "nobody has one for the tab";
    const Log tabMenus(tabs.tabMenuRequested());
    ask();
    EXPECT_EQ(tabMenus.only().tab(), two);
    EXPECT_EQ(tabMenus.only().globalPosition(), Qt2VX(bar.mapToGlobal(place)));
    EXPECT_EQ(menus.count(), 1);
    EXPECT_EQ(tabs.currentTab(), one);
}

} // namespace
} // namespace VOXI
