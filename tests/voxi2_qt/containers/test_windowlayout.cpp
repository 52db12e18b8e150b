// What belongs to a window besides its content: status bar, docked panes and bars, and the texts
// that say where all of it was.

#include "../kernel/toolkit.h"
#include "support/steppedclock.h"
#include "support/waitfor.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxtoolbar2.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>
#include <QStatusBar>
#include <QStatusTipEvent>

#include <gtest/gtest.h>
#include <memory>

namespace VOXI {
namespace {

using namespace std::chrono_literals;

class WindowLayout : public testing::Test
{
protected:
    struct Docks
    {
        explicit Docks(int count)
        {
            m_window.setCentralWidget(new VXPanel2(&m_window));
            m_window.resize({700, 500});
            m_window.addToolBar(m_bar);
            for (int i = 0; i < count; ++i) {
                m_docks.push_back(new VXDockWidget2(&m_window));
                m_window.addDockWidget(m_docks.back());
            }
            m_window.show();
            turn();
        }
        DockArea area(std::size_t i) { return m_window.dockArea(m_docks.at(i)); }
        VXDockWidget2* operator[](std::size_t i) { return m_docks.at(i); }

        VXWindow2 m_window;
        VXToolBar2* m_bar = new VXToolBar2(&m_window);
        std::vector<VXDockWidget2*> m_docks;
    };

    ~WindowLayout() override { runDeletions(); }

    static QMainWindow* main(VXWindow2& window) { return qobject_cast<QMainWindow*>(qt(window)); }
    static QDockWidget* pane(VXDockWidget2* dock) { return qobject_cast<QDockWidget*>(qt(*dock)); }
};

TEST_F(WindowLayout, statusTextComesBack)
{
    VXWindow2 window;
    EXPECT_FALSE(window.isStatusBarVisible());
    EXPECT_EQ(window.statusText(), "");
    window.setStatusText("");
    window.setStatusBarVisible(false);
    EXPECT_EQ(qt(window)->findChild<QStatusBar*>(), nullptr) << "nothing was to be shown yet";
    window.show();
    window.setStatusText(L"\x20ac");
    turn();
    EXPECT_TRUE(window.isStatusBarVisible());
    EXPECT_TRUE(main(window)->statusBar()->isVisible());
    EXPECT_EQ(window.statusTextU(), L"\x20ac");

    SteppedClock clock;
    window.setStatusText("soon gone", 30);
    EXPECT_EQ(main(window)->statusBar()->currentMessage(), QStringLiteral("soon gone"));
    clock.advance(20ms);
    window.setStatusText("soon gone", 30);
    clock.advance(20ms);
    EXPECT_EQ(window.statusText(), "soon gone") << "it began anew";
    clock.advance(10ms);
    EXPECT_EQ(window.statusTextU(), L"\x20ac");
    for (const QString& tip : {QStringLiteral("tip"), QString()}) {
        QStatusTipEvent event(tip);
        QCoreApplication::sendEvent(qt(window), &event);
    }
    EXPECT_EQ(window.statusTextU(), L"\x20ac");
    window.setStatusText("stays", 30);
    window.setStatusText("stays");
    clock.advance(30ms);
    EXPECT_EQ(window.statusText(), "stays");
    window.setStatusText("");
    EXPECT_EQ(window.statusText(), "");
    window.setStatusBarVisible(false);
    EXPECT_TRUE(main(window)->statusBar()->isSizeGripEnabled());
    window.setStatusText("unseen");
    EXPECT_FALSE(window.isStatusBarVisible());
}

TEST_F(WindowLayout, statusWidgetsStandInTheirOrder)
{
    VXWindow2 window;
    auto* first = new VXButton2(&window);
    auto* second = new VXButton2(&window);
    window.show();
    window.addStatusWidget(&window);
    window.addStatusWidget(first);
    window.addStatusWidget(second, 1);
    window.setStatusText("text");
    ASSERT_TRUE(waitFor([&] { return first->isVisible() && second->isVisible(); }));
    EXPECT_LT(first->globalPosition().x, second->globalPosition().x);
    window.addStatusWidget(first); // to the end
    EXPECT_TRUE(waitFor([&] { return first->globalPosition().x > second->globalPosition().x; }));
    EXPECT_TRUE(first->isVisible());
}

TEST_F(WindowLayout, panesAreDockedAndMoved)
{
    Docks docks(3);
    EXPECT_EQ(docks.area(0), DockArea::Left);
    docks.m_window.addDockWidget(docks[0], DockArea::Bottom);
    EXPECT_EQ(docks.area(0), DockArea::Bottom);
    for (const DockArea none : {DockArea::None, static_cast<DockArea>(3)}) {
        docks.m_window.removeDockWidget(docks[0]);
        docks.m_window.addDockWidget(docks[0], none);
        EXPECT_EQ(main(docks.m_window)->dockWidgetArea(pane(docks[0])), Qt::LeftDockWidgetArea);
    }
    docks[0]->setFloating(true);
    docks.m_window.addDockWidget(docks[0], DockArea::Right);
    EXPECT_FALSE(docks[0]->isFloating()) << "docked is docked";
    EXPECT_TRUE(docks[0]->isVisible());

    docks.m_window.tabifyDockWidget(docks[1], docks[2]);
    turn();
    EXPECT_EQ(main(docks.m_window)->tabifiedDockWidgets(pane(docks[1])),
              QList<QDockWidget*>{pane(docks[2])});
    docks.m_window.raiseDockWidget(docks[1]);
    turn();
    EXPECT_FALSE(qt(*docks[1])->visibleRegion().isEmpty());
    EXPECT_TRUE(qt(*docks[2])->visibleRegion().isEmpty());
    docks.m_window.splitDockWidget(docks[0], docks[2], Orientation::Horizontal);
    turn();
    EXPECT_EQ(docks.area(2), DockArea::Right);
    EXPECT_EQ(qt(*docks[0])->y(), qt(*docks[2])->y());
    EXPECT_LT(qt(*docks[0])->x(), qt(*docks[2])->x());

    docks.m_window.removeDockWidget(docks[1]);
    docks.m_window.removeDockWidget(docks[1]);
    EXPECT_EQ(docks.area(1), DockArea::None);
    EXPECT_FALSE(docks[1]->isVisible());
    docks.m_window.raiseDockWidget(docks[1]);
    docks.m_window.tabifyDockWidget(docks[1], docks[0]); // beside what has no place
    docks.m_window.tabifyDockWidget(docks[0], docks[0]);
    docks.m_window.splitDockWidget(docks[0], nullptr, Orientation::Vertical);
    EXPECT_FALSE(docks[1]->isVisible());
    EXPECT_EQ(docks.area(0), DockArea::Right);
    docks.m_window.addDockWidget(docks[1], DockArea::Top);
    EXPECT_TRUE(docks[1]->isVisible());
}

TEST_F(WindowLayout, panesMoveBetweenWindows)
{
    Docks from(2);
    Docks to(1);
    from[1]->setFloating(true);
    for (VXDockWidget2* dock : from.m_docks) {
        to.m_window.tabifyDockWidget(to[0], dock);
        turn();
        EXPECT_EQ(from.m_window.dockArea(dock), DockArea::None);
        EXPECT_EQ(to.m_window.dockArea(dock), DockArea::Left);
        EXPECT_EQ(qt(*dock)->window(), qt(to.m_window));
        EXPECT_FALSE(dock->isFloating());
    }
    from.m_window.addDockWidget(from[0], DockArea::Right);
    EXPECT_EQ(from.area(0), DockArea::Right);
    EXPECT_EQ(main(to.m_window)->tabifiedDockWidgets(pane(to[0])).size(), 1);

    // A window inside a pane cannot hold that pane.
    auto* inner = new VXWindow2(from[0]);
    inner->setWindowFlags(0);
    from[0]->setWidget(inner);
    inner->addDockWidget(from[0]);
    inner->setStatusText("inside");
    EXPECT_FALSE(main(*inner)->statusBar()->isSizeGripEnabled()) << "no corner of its own";
    EXPECT_EQ(from.area(0), DockArea::Right);
}

TEST_F(WindowLayout, isSavedAndRestored)
{
    std::string text;
    {
        Docks docks(4);
        docks.m_window.addDockWidget(docks[0], DockArea::Bottom);
        docks[3]->setFloating(true);
        docks[3]->setPosition({320, 240, 210, 160});
        docks.m_window.tabifyDockWidget(docks[1], docks[2]);
        docks.m_window.addToolBar(docks.m_bar, ToolBarArea::Left);
        docks[0]->hide();
        docks[1]->setObjectName("same");
        docks[2]->setObjectName("same");
        text = docks.m_window.saveLayout();
        EXPECT_EQ(docks[0]->objectName(), "");
        EXPECT_EQ(docks[2]->objectName(), "same");
        EXPECT_EQ(text.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "0123456789+/=:-"),
                  std::string::npos);
    }
    Docks docks(5);
    docks[1]->setObjectName("same");
    docks[2]->setObjectName("same");
    docks.m_window.addDockWidget(docks[4], DockArea::Top);
    docks[1]->setFloating(true);
    EXPECT_TRUE(docks.m_window.restoreLayout(text));
    turn();
    EXPECT_EQ(docks.area(0), DockArea::Bottom);
    EXPECT_FALSE(docks[0]->isVisible());
    EXPECT_FALSE(docks[1]->isFloating());
    EXPECT_EQ(main(docks.m_window)->tabifiedDockWidgets(pane(docks[1])).size(), 1);
    EXPECT_EQ(docks.m_window.toolBarArea(docks.m_bar), ToolBarArea::Left);
    EXPECT_TRUE(docks[3]->isFloating());
    EXPECT_EQ(docks[3]->position(), (VXRect<int>{320, 240, 210, 160}));
    EXPECT_EQ(docks.area(4), DockArea::Top) << "not in the text: it stays";
    EXPECT_TRUE(docks[4]->isVisible());
}

TEST_F(WindowLayout, isSavedBeforeItWasSeen)
{
    const auto fill = [](VXWindow2& window, std::vector<VXDockWidget2*>& panes) {
        window.setCentralWidget(new VXPanel2(&window));
        for (int i = 0; i < 3; ++i) {
            auto* const pane = new VXDockWidget2(&window);
            auto* const content = new VXPanel2(pane);
            content->setMinimumSize({90, 60});
            pane->setWidget(content);
            window.addDockWidget(pane, i == 2 ? DockArea::Bottom : DockArea::Left);
            panes.push_back(pane);
        }
    };
    VXWindow2 unseen;
    std::vector<VXDockWidget2*> panes;
    fill(unseen, panes);
    const Log resized(unseen.resized());
    const VXRect<int> before = unseen.position();
    const std::string saved = unseen.saveLayout();
    turn();
    EXPECT_TRUE(resized.isEmpty());
    EXPECT_EQ(unseen.position(), before);

    VXWindow2 window;
    panes.clear();
    fill(window, panes);
    window.resize({900, 700});
    window.show();
    EXPECT_TRUE(window.restoreLayout(saved));
    turn();
    for (std::size_t i = 0; i < panes.size(); ++i) {
        EXPECT_GE(pane(panes[i])->widget()->height(), 60) << i;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(pane(panes[i])->geometry().intersects(pane(panes[j])->geometry()));
    }
}

TEST_F(WindowLayout, foreignTextsAreRefused)
{
    Docks docks(2);
    docks.m_window.setPosition({50, 60, 400, 300});
    const std::string layout = docks.m_window.saveLayout();
    const std::string geometry = docks.m_window.savePlacement();
    docks.m_window.addDockWidget(docks[1], DockArea::Top);
    docks.m_window.setPosition({90, 90, 600, 500});
    auto moved = Log(docks.m_window.moved());
    auto resized = Log(docks.m_window.resized());
    const auto expectRefused = [&](std::string text) {
        EXPECT_FALSE(docks.m_window.restorePlacement(text)) << text;
        EXPECT_FALSE(docks.m_window.restoreLayout(text)) << text;
    };
    for (const std::string& good : {layout, geometry}) {
        for (std::size_t end = 0; end < good.size(); ++end)
            expectRefused(good.substr(0, end));
        for (std::size_t at = 0; at < good.size(); at += 7) {
            std::string bad = good;
            bad[at] = bad[at] == 'A' ? 'B' : 'A';
            expectRefused(bad);
        }
        expectRefused(good + "A");
    }
    EXPECT_FALSE(docks.m_window.restoreLayout(geometry));
    EXPECT_FALSE(docks.m_window.restorePlacement(layout));
    expectRefused(qt(docks.m_window)->saveGeometry().toBase64().toStdString());
    expectRefused(std::string("\0\xff", 2));
    turn();
    EXPECT_EQ(docks.m_window.position(), (VXRect<int>{90, 90, 600, 500}));
    EXPECT_EQ(docks.area(1), DockArea::Top);

    EXPECT_TRUE(docks.m_window.restorePlacement(geometry));
    turn();
    EXPECT_EQ(docks.m_window.position(), (VXRect<int>{50, 60, 400, 300}));
    docks.m_window.setPosition({90, 90, 600, 500});
    static_cast<VXWidget2&>(docks.m_window).restoreGeometry(geometry);
    EXPECT_EQ(docks.m_window.position(), (VXRect<int>{50, 60, 400, 300}));
    VXWindow2 hidden;
    auto hiddenResized = Log(hidden.resized());
    EXPECT_TRUE(hidden.restorePlacement(geometry));
    hidden.show();
    turn();
    EXPECT_EQ(hidden.position(), (VXRect<int>{50, 60, 400, 300}));
    EXPECT_TRUE(moved.isEmpty() && resized.isEmpty() && hiddenResized.isEmpty());
}

TEST(WindowPanes, haveTheirSizesFromTheFirstShowing)
{
    VXWindow2 window;
    auto* const left = new VXDockWidget2("left", &window);
    auto* const below = new VXDockWidget2("below", &window);
    auto* const tab = new VXDockWidget2("tab", &window);
    VXDockWidget2 stranger;
    window.setCentralWidget(new VXPanel2(&window));
    for (VXDockWidget2* each : {left, below, tab})
        each->setWidget(new VXPanel2(each));
    window.addDockWidget(left, DockArea::Left);
    window.addDockWidget(below, DockArea::Bottom);
    window.setDockSize(left, 230, Orientation::Horizontal);
    window.setDockSize(below, 120, Orientation::Vertical);
    window.setDockSize(&stranger, 120, Orientation::Vertical);
    window.setDockCorner(DockCorner::BottomLeft, DockArea::Left);
    window.setDockCorner(DockCorner::BottomLeft, DockArea::Top);
    EXPECT_EQ(window.dockCorner(DockCorner::BottomLeft), DockArea::Left);
    EXPECT_EQ(window.dockCorner(DockCorner::TopRight), DockArea::Top);
    window.resize({800, 600});
    window.show();
    turn();
    EXPECT_EQ(qt(*left)->width(), 230);
    EXPECT_EQ(qt(*below)->height(), 120);
    EXPECT_GE(qt(*below)->x(), 230) << "the corner is the left side's";
    window.setDockSize(left, 300, Orientation::Horizontal);
    turn();
    EXPECT_EQ(qt(*left)->width(), 300);

    EXPECT_TRUE(window.dockTabs(left).empty());
    window.tabifyDockWidget(left, tab);
    EXPECT_EQ(window.dockTabs(tab), (std::vector<VXDockWidget2*>{tab, left}));
    EXPECT_TRUE(window.dockTabs(&stranger).empty());
    EXPECT_EQ(window.dockTabPosition(DockArea::Left), TabPosition::South);
    window.setDockTabPosition(DockArea::Left, TabPosition::North);
    EXPECT_EQ(window.dockTabPosition(DockArea::Left), TabPosition::North);
    EXPECT_EQ(window.dockTabPosition(DockArea::Right), TabPosition::South);
}

TEST(WindowPanes, thatStandAloneWaitForTheirWindow)
{
    std::string layout;
    for (const bool again : {false, true}) {
        VXWindow2 window;
        auto* const pane = new VXDockWidget2("pane", &window);
        window.addDockWidget(pane);
        if (!again) {
            window.show();
            pane->setFloating(true);
            layout = window.saveLayout();
            continue;
        }
        const Log visible(pane->visibilityChanged());
        ASSERT_TRUE(window.restoreLayout(layout));
        turn();
        EXPECT_TRUE(pane->isFloating());
        EXPECT_FALSE(pane->isVisible());
        window.show();
        turn();
        EXPECT_TRUE(pane->isVisible());
        EXPECT_TRUE(visible.isEmpty()) << "the user has done nothing";
    }
}

} // namespace
} // namespace VOXI
