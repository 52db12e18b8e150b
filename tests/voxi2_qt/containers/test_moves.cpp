// Widgets that the program moves from each kind of holder to each other one.

#include "holders.h"

#include <gtest/gtest.h>

namespace VOXI {
namespace {

class Moves : public testing::Test
{
protected:
    Moves()
    {
        for (const Holder& each : s_holders)
            m_holders.emplace_back(each.m_make());
        turn();
    }
    ~Moves() override
    {
        m_holders.clear();
        runDeletions();
    }

    std::vector<std::unique_ptr<VXWidget2>> m_holders; // one of each kind
};

TEST_F(Moves, fromEachHolderToEachOtherUnheardAndInSight)
{
    const std::size_t count = m_holders.size();
    for (std::size_t i = 0; i < count * count * 2; ++i) {
        const bool dropped = i % 2;
        const std::size_t source = i / 2 / count;
        const std::size_t target = i / 2 % count;
        const Holder& from = s_holders[source];
        const Holder& to = s_holders[target];
        SCOPED_TRACE(std::string(from.m_name) + (dropped ? ", nowhere, " : ", ") + to.m_name);
        if (dropped && !from.m_drop)
            continue;
        VXTab2 widget;
        from.m_put(*m_holders[source], &widget);
        turn();
        EXPECT_TRUE(from.m_holds(*m_holders[source], &widget));
        Log hidden(widget.hidden());
        if (dropped)
            from.m_drop(*m_holders[source], &widget);
        to.m_put(*m_holders[target], &widget);
        turn();
        EXPECT_TRUE(widget.isVisible() || to.m_name == std::string("hidden page"));
        EXPECT_TRUE(hidden.isEmpty()) << "the program did it";
        for (std::size_t other = 0; other < count; ++other)
            EXPECT_EQ(s_holders[other].m_holds(*m_holders[other], &widget), other == target)
                << s_holders[other].m_name;
    }
}

TEST_F(Moves, whatMakesWayLivesOn)
{
    for (std::size_t i = 0; i < m_holders.size(); ++i) {
        const Holder& kind = s_holders[i];
        VXWidget2& holder = *m_holders[i];
        SCOPED_TRACE(kind.m_name);
        VXTab2 first;
        VXTab2 second;
        kind.m_put(holder, &first);
        kind.m_put(holder, &second);
        runDeletions();
        for (VXTab2* each : {&first, &second}) {
            ASSERT_NE(lookup(each), nullptr);
            EXPECT_TRUE(kind.m_holds(holder, each) || qt(*each)->isHidden());
        }
        kind.m_put(holder, &first);
        EXPECT_TRUE(kind.m_holds(holder, &first));
        if (!kind.m_drop)
            continue;
        kind.m_drop(holder, &first);
        kind.m_drop(holder, &first);
        runDeletions();
        EXPECT_FALSE(kind.m_holds(holder, &first));
        ASSERT_NE(lookup(&first), nullptr);
        EXPECT_TRUE(qt(first)->isHidden());
        delete qt(second); // as whoever holds the widget may
        kind.m_put(holder, &first);
        EXPECT_TRUE(kind.m_holds(holder, &first));
    }
}

TEST_F(Moves, thatCannotBeAreIgnored)
{
    for (std::size_t i = 0; i < m_holders.size(); ++i) {
        const Holder& kind = s_holders[i];
        VXWidget2& holder = *m_holders[i];
        SCOPED_TRACE(kind.m_name);
        VXTab2 widget;
        VXTab2 around;
        kind.m_put(holder, nullptr);
        kind.m_put(holder, &widget);
        holder.setParent(&around);
        kind.m_put(holder, &around);
        holder.setParent(nullptr);
        auto* const dead = new VXTab2;
        delete dead;
        kind.m_put(holder, dead);
        EXPECT_TRUE(kind.m_holds(holder, &widget));
        EXPECT_EQ(qt(around)->parentWidget(), nullptr);
    }
}

TEST(MovedWindow, aWindowThatWasChangedOutlivesTheOneItIsPutInto)
{
    VXPanel2 panel;
    VXBoxLayout2 layout(&panel);
    VXWindow2 window;
    panel.show();
    window.show();
    VXWindow2 widget;
    widget.show();
    widget.hide();
    widget.setWindowFlags(WindowFlagTool);
    layout.addWidget(&widget);
    EXPECT_EQ(qt(widget)->windowHandle(), nullptr) << "it would die with that of the panel";
    window.setCentralWidget(&panel); // whose own window ends
    turn();
    widget.show();
    EXPECT_TRUE(widget.isVisible());
}

TEST(MovedWindow, aWindowForgetsTheFocusOfAPaneThatBecameAWindow)
{
    VXSplitter2 splitter;
    VXPanel2 other;
    splitter.show();
    auto* const pane = new VXWindow2;
    auto* const child = new VXButton2(pane);
    splitter.addWidget(pane);
    pane->show();
    child->show();
    qt(*child)->setFocus();
    ASSERT_EQ(qt(splitter)->focusWidget(), qt(*child));
    pane->setWindowFlags(WindowFlagTool);
    pane->setParent(&other);
    EXPECT_EQ(qt(splitter)->focusWidget(), nullptr);
    delete pane;
}

TEST(MovedBars, goFromWindowToWindowUnheard)
{
    VXWindow2 window;
    VXWindow2 other;
    window.show();
    other.show();
    VXMenuBar2 menus;
    VXToolBar2 tools;
    window.setMenuBar(&menus);
    window.addToolBar(&tools);
    turn();
    Log hidden(menus.hidden());
    Log shown(menus.shown());
    Log toolsHidden(tools.hidden());
    Log toolsShown(tools.shown());
    other.setMenuBar(&menus);
    other.addToolBar(&tools);
    turn();
    EXPECT_EQ(window.menuBar(), nullptr);
    EXPECT_EQ(other.menuBar(), &menus);
    EXPECT_TRUE(menus.isVisible() && tools.isVisible());
    other.setMenuBar(nullptr);
    EXPECT_FALSE(menus.isVisible());
    other.removeToolBar(&tools);
    EXPECT_FALSE(tools.isVisible());
    other.addToolBar(&tools);
    EXPECT_TRUE(tools.isVisible());
    turn();
    EXPECT_TRUE(hidden.isEmpty() && shown.isEmpty());
    EXPECT_TRUE(toolsHidden.isEmpty() && toolsShown.isEmpty());
}

} // namespace
} // namespace VOXI
