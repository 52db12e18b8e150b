// Widgets that the program moves from each kind of holder to each other one.

#include "../kernel/toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxdialog2.h"
#include "voxi2/containers/vxdockwidget2.h"
#include "voxi2/containers/vxflowlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxscrollview2.h"
#include "voxi2/containers/vxsplitter2.h"
#include "voxi2/containers/vxtabcontainer2.h"
#include "voxi2/containers/vxtooltipwindow2.h"
#include "voxi2/containers/vxwidgetstack2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/controls/vxmenubar2.h"
#include "voxi2/controls/vxtoolbar2.h"

#include <QLayout>

#include <functional>
#include <gtest/gtest.h>

namespace VOXI {
namespace {

/// A place for a widget: how it gets there, whether it is there, and how it is taken out.
struct Holder
{
    const char* m_name;
    std::function<void(VXWidget2*)> m_put;
    std::function<bool(VXWidget2*)> m_holds;
    std::function<void(VXWidget2*)> m_drop = [](VXWidget2*) {};
};

class Moves : public testing::Test
{
protected:
    Moves()
    {
        m_stack.addWidget(new VXPanel2(&m_stack));
        m_window.addDockWidget(&m_dock);
        for (VXWidget2* each : std::initializer_list<VXWidget2*>{
                 &m_panel, &m_splitter, &m_stack, &m_scroll, &m_tabs, &m_window, &m_tip, &m_dialog})
            each->show();
        turn();
    }

    static Holder layoutOf(const char* name, VXLayout2& layout, VXWidget2& parent)
    {
        return {name, [&layout](VXWidget2* w) { layout.addWidget(w); },
                [&parent](VXWidget2* w) {
                    return w->peerParent() == &parent && qt(parent)->layout()->indexOf(qt(*w)) >= 0;
                }};
    }

    VXPanel2 m_panel, m_other;
    VXFlowLayout2 m_flow{&m_panel};
    VXSplitter2 m_splitter;
    VXWidgetStack2 m_stack;
    VXScrollView2 m_scroll;
    VXTabContainer2 m_tabs;
    VXWindow2 m_window;
    VXDockWidget2 m_dock;
    VXToolTipWindow2 m_tip;
    VXBoxLayout2 m_tipBox{&m_tip};
    VXDialog2 m_dialog;
    VXBoxLayout2 m_dialogBox{&m_dialog};

    const std::vector<Holder> m_holders = {
        layoutOf("panel", m_flow, m_panel),
        layoutOf("tool-tip window", m_tipBox, m_tip),
        layoutOf("dialog", m_dialogBox, m_dialog),
        {"splitter", [this](auto* w) { m_splitter.addWidget(w); },
         [this](auto* w) { return m_splitter.widgetIndex(w) >= 0; },
         [this](auto* w) { m_splitter.removeWidget(w); }},
        {"stack",
         [this](auto* w) {
             m_stack.addWidget(w);
             m_stack.raiseWidget(w);
         },
         [this](auto* w) { return m_stack.currentWidget() == w; },
         [this](auto* w) { m_stack.removeWidget(w); }},
        {"hidden page", [this](auto* w) { m_stack.addWidget(w); },
         [this](auto* w) { return m_stack.widgetID(w) >= 0 && m_stack.currentWidget() != w; },
         [this](auto* w) { m_stack.removeWidget(w); }},
        {"scroll view", [this](auto* w) { m_scroll.setWidget(w); },
         [this](auto* w) { return m_scroll.widget() == w; },
         [this](auto*) { m_scroll.setWidget(&m_other); }},
        {"tabs", [this](auto* w) { m_tabs.addTab(dynamic_cast<VXTab2*>(w)); },
         [this](auto* w) { return m_tabs.currentTab() == w; },
         [this](auto* w) { m_tabs.removeTab(dynamic_cast<VXTab2*>(w)); }},
        {"dock", [this](auto* w) { m_dock.setWidget(w); },
         [this](auto* w) { return m_dock.widget() == w; },
         [this](auto*) { m_dock.setWidget(nullptr); }},
        {"dock's title", [this](auto* w) { m_dock.setTitleBarWidget(w); },
         [this](auto* w) { return m_dock.titleBarWidget() == w; },
         [this](auto*) { m_dock.setTitleBarWidget(nullptr); }},
        {"window", [this](auto* w) { m_window.setCentralWidget(w); },
         [this](auto* w) { return m_window.centralWidget() == w; },
         [this](auto*) { m_window.setCentralWidget(nullptr); }},
        {"status bar", [this](auto* w) { m_window.addStatusWidget(w); },
         [](auto* w) { return qt(*w)->parentWidget()->inherits("QStatusBar"); },
         [this](auto* w) { m_window.removeStatusWidget(w); }}};
};

TEST_F(Moves, fromEachHolderToEachOtherUnheardAndInSight)
{
    for (const bool dropped : {false, true}) {
        for (const Holder& from : m_holders) {
            for (const Holder& to : m_holders) {
                SCOPED_TRACE(std::string(from.m_name) + (dropped ? ", nowhere, " : ", ")
                             + to.m_name);
                VXTab2 widget;
                from.m_put(&widget);
                turn();
                EXPECT_TRUE(from.m_holds(&widget));
                Log hidden(widget.hidden());
                if (dropped)
                    from.m_drop(&widget);
                to.m_put(&widget);
                turn();
                EXPECT_TRUE(to.m_holds(&widget));
                EXPECT_TRUE(widget.isVisible() || to.m_name == std::string("hidden page"));
                EXPECT_TRUE(hidden.isEmpty()) << "the program did it";
                for (const Holder& other : m_holders) {
                    EXPECT_TRUE(&other == &to || !other.m_holds(&widget)) << other.m_name;
                }
            }
        }
    }
}

TEST_F(Moves, aWindowThatWasChangedOutlivesTheOneItIsPutInto)
{
    VXWindow2 widget;
    widget.show();
    widget.hide();
    widget.setWindowFlags(WindowFlagTool);
    m_flow.addWidget(&widget);
    EXPECT_EQ(qt(widget)->windowHandle(), nullptr) << "it would die with that of the panel";
    m_window.setCentralWidget(&m_panel); // whose own window ends
    turn();
    widget.show();
    EXPECT_TRUE(widget.isVisible());
    m_window.setCentralWidget(nullptr);
}

TEST_F(Moves, aWindowForgetsTheFocusOfAPaneThatBecameAWindow)
{
    auto* const pane = new VXWindow2;
    auto* const child = new VXButton2(pane);
    m_splitter.addWidget(pane);
    pane->show();
    child->show();
    qt(*child)->setFocus();
    ASSERT_EQ(qt(m_splitter)->focusWidget(), qt(*child));
    pane->setWindowFlags(WindowFlagTool);
    pane->setParent(&m_other);
    EXPECT_EQ(qt(m_splitter)->focusWidget(), nullptr);
    delete pane;
}

TEST_F(Moves, barsGoFromWindowToWindowUnheard)
{
    VXWindow2 other;
    other.show();
    VXMenuBar2 menus;
    VXToolBar2 tools;
    m_window.setMenuBar(&menus);
    m_window.addToolBar(&tools);
    turn();
    Log hidden(menus.hidden());
    Log shown(menus.shown());
    Log toolsHidden(tools.hidden());
    Log toolsShown(tools.shown());
    other.setMenuBar(&menus);
    other.addToolBar(&tools);
    turn();
    EXPECT_EQ(m_window.menuBar(), nullptr);
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
