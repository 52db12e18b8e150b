// Widgets that belong to one object and are shown by another one, which ends.

#include "../kernel/kinds.h"
#include "support/waitfor.h"
#include "support/watchdog.h"

#include <QMenu>
#include <QPointer>

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

namespace VOXI {
namespace {

template <class Holder, class... Arguments>
Holder* shown(Arguments... arguments)
{
    auto* const holder = new Holder(arguments...);
    holder->show();
    return holder;
}

/// A place for a widget; the answer is the object that shows it from then on.
struct Place
{
    const char* m_name;
    VXObject2* (*m_put)(VXTab2* widget);
};

template <class Layout>
VXObject2* putIntoLayout(VXTab2* widget)
{
    auto* const panel = shown<VXPanel2>();
    panel->setContentsMargins(VXRect<int>::margins(2, 2, 2, 2)); // a flow has no size at first
    (new Layout(panel))->addWidget(widget);
    return panel;
}

template <class Holder, auto Put>
VXObject2* put(VXTab2* widget)
{
    auto* const holder = shown<Holder>();
    (holder->*Put)(widget);
    return holder;
}

const Place s_places[] = {
    {"box", &putIntoLayout<VXBoxLayout2>},
    {"flow", &putIntoLayout<VXFlowLayout2>},
    {"grid", &putIntoLayout<VXGridLayout2>},
    {"splitter",
     [](VXTab2* widget) -> VXObject2* {
         auto* const splitter = shown<VXSplitter2>();
         splitter->addWidget(new VXPanel2(splitter));
         splitter->addWidget(widget);
         return splitter;
     }},
    {"stack",
     [](VXTab2* widget) -> VXObject2* {
         auto* const stack = shown<VXWidgetStack2>();
         stack->addWidget(widget);
         stack->addWidget(new VXPanel2(stack));
         return stack;
     }},
    {"hidden page",
     [](VXTab2* widget) -> VXObject2* {
         auto* const stack = shown<VXWidgetStack2>();
         stack->addWidget(new VXPanel2(stack));
         stack->addWidget(widget);
         return stack;
     }},
    {"tabs", &put<VXTabContainer2, &VXTabContainer2::addTab>},
    {"scroll view", &put<VXScrollView2, &VXScrollView2::setWidget>},
    {"dock", &put<VXDockWidget2, &VXDockWidget2::setWidget>},
    {"dock's title", &put<VXDockWidget2, &VXDockWidget2::setTitleBarWidget>},
    {"docked pane",
     [](VXTab2* widget) -> VXObject2* {
         auto* const window = shown<VXWindow2>();
         auto* const dock = new VXDockWidget2(window);
         dock->setWidget(widget);
         window->addDockWidget(dock);
         return window;
     }},
    {"former content",
     [](VXTab2* widget) -> VXObject2* {
         auto* const dock = new VXDockWidget2;
         dock->setWidget(widget);
         dock->setWidget(nullptr);
         return dock;
     }},
    {"former title",
     [](VXTab2* widget) -> VXObject2* {
         auto* const dock = new VXDockWidget2;
         dock->setTitleBarWidget(widget);
         dock->setTitleBarWidget(nullptr);
         return dock;
     }},
    {"centre", &put<VXWindow2, &VXWindow2::setCentralWidget>},
    {"former centre",
     [](VXTab2* widget) -> VXObject2* {
         auto* const window = shown<VXWindow2>();
         window->setCentralWidget(widget);
         window->setCentralWidget(nullptr);
         return window;
     }},
    {"status bar",
     [](VXTab2* widget) -> VXObject2* {
         auto* const window = shown<VXWindow2>();
         window->addStatusWidget(widget);
         return window;
     }},
    {"former status widget",
     [](VXTab2* widget) -> VXObject2* {
         auto* const window = shown<VXWindow2>();
         window->addStatusWidget(widget);
         window->removeStatusWidget(widget);
         return window;
     }},
    {"tabs in a pane in a window",
     [](VXTab2* widget) -> VXObject2* {
         auto* const window = shown<VXWindow2>();
         auto* const dock = new VXDockWidget2(window);
         auto* const tabs = new VXTabContainer2(window);
         dock->setWidget(tabs);
         window->addDockWidget(dock);
         tabs->addTab(widget);
         return window;
     }},
};

struct End
{
    const char* m_name;
    void (*m_end)(VXObject2* holder);
    bool m_objectRemains = false;
};

const End s_ends[] = {
    {"deleted", [](VXObject2* holder) { delete holder; }},
    {"deleted by a worker",
     [](VXObject2* holder) {
         std::atomic<bool> done{false};
         std::thread worker([&] {
             delete holder;
             done = true;
         });
         EXPECT_TRUE(waitFor([&] { return done.load(); }));
         worker.join();
         turn();
     }},
    {"cut off", [](VXObject2* holder) { VXFactory2::current()->destroyObject(holder->id()); },
     true},
    {"deleted by Qt", [](VXObject2* holder) { delete qObjectOf(lookup(holder)); }, true},
};

class OtherOwners : public testing::Test
{
protected:
    ~OtherOwners() override { runDeletions(); }

    static void expectAlone(VXWidget2& widget)
    {
        ASSERT_NE(lookup(&widget), nullptr) << "it belongs to another object";
        EXPECT_EQ(qt(widget)->parentWidget(), nullptr);
        EXPECT_TRUE(qt(widget)->isHidden());
    }
};

TEST_F(OtherOwners, liveOnWhenWhatShowsThemEnds)
{
    for (const Place& place : s_places) {
        for (const End& end : s_ends) {
            SCOPED_TRACE(std::string(place.m_name) + ", " + end.m_name);
            VXPanel2 owner;
            auto* const widget = new VXTab2(&owner);
            auto* const inside = new VXButton2(widget);
            VXObject2* const holder = place.m_put(widget);
            turn();
            Log hidden(widget->hidden());
            end.m_end(holder);
            if (end.m_objectRemains) {
                EXPECT_EQ(lookup(holder), nullptr);
            }
            runDeletions();
            expectAlone(*widget);
            EXPECT_TRUE(hidden.isEmpty()) << "the program did it";

            VXPanel2 other;
            other.show();
            (new VXBoxLayout2(&other))->addWidget(widget);
            turn();
            EXPECT_TRUE(inside->isVisible());
            widget->setParent(nullptr);
            widget->show();
            EXPECT_TRUE(widget->isVisible());
            if (end.m_objectRemains)
                delete holder;
        }
    }
}

TEST_F(OtherOwners, standAloneAsSoonAsTheContainerIsDestroyed)
{
    for (const Place& place : s_places) {
        SCOPED_TRACE(place.m_name);
        VXPanel2 owner;
        auto* const widget = new VXTab2(&owner);
        delete place.m_put(widget);
        turn();
        expectAlone(*widget); // also where it has not come into sight yet
        widget->show();
        runDeletions();
        EXPECT_TRUE(widget->isVisible()) << "what the program did since holds";
    }
}

TEST_F(OtherOwners, barsAndPanesOutliveTheirWindow)
{
    for (const End& end : s_ends) {
        SCOPED_TRACE(end.m_name);
        VXPanel2 owner;
        auto* const menus = new VXMenuBar2(&owner);
        auto* const tools = new VXToolBar2(&owner);
        auto* const docked = new VXDockWidget2(&owner);
        auto* const floating = new VXDockWidget2(&owner);
        auto* const removed = new VXDockWidget2(&owner);
        auto* const window = shown<VXWindow2>();
        const auto place = [&](VXWindow2& target) {
            target.setMenuBar(menus);
            target.addToolBar(tools);
            for (VXDockWidget2* dock : {docked, floating, removed})
                target.addDockWidget(dock);
        };
        place(*window);
        floating->setFloating(true);
        window->removeDockWidget(removed);
        turn();
        Log hidden(docked->hidden());
        Log visibility(docked->visibilityChanged());
        end.m_end(window);
        runDeletions();
        turn();
        EXPECT_TRUE(hidden.isEmpty() && visibility.isEmpty());
        for (VXWidget2* each :
             std::initializer_list<VXWidget2*>{menus, tools, docked, floating, removed})
            expectAlone(*each);
        if (end.m_objectRemains)
            delete window;

        VXWindow2 other;
        other.show();
        place(other);
        turn();
        EXPECT_TRUE(menus->isVisible() && tools->isVisible() && docked->isVisible());
        EXPECT_EQ(other.dockArea(floating), DockArea::Left);
        EXPECT_FALSE(floating->isFloating());
    }
}

TEST_F(OtherOwners, whatBelongsToTheContainerGoesWithIt)
{
    VXPanel2 owner;
    auto* const panel = new VXPanel2;
    auto* const layout = new VXBoxLayout2(panel);
    auto* const row = new VXPanel2(panel);
    auto* const owned = new VXButton2(new VXDragDelegate2(panel)); // over an owner without a place
    auto* const others = new VXPanel2(&owner);
    auto* const ownedByOthers = new VXButton2(others);
    layout->addWidget(row);
    layout->addWidget(owned);
    (new VXBoxLayout2(row))->addWidget(others);
    layout->addWidget(ownedByOthers); // beside its owner, not in it
    VXFactory2::current()->destroyObject(panel->id());
    runDeletions();
    for (VXObject2* each : std::initializer_list<VXObject2*>{panel, layout, row, owned})
        EXPECT_EQ(lookup(each), nullptr);
    expectAlone(*others);
    expectAlone(*ownedByOthers);
    delete panel;
}

TEST_F(OtherOwners, whatTheProgramHasHiddenStaysSo)
{
    VXPanel2 owner;
    VXButton2 widget(&owner);
    VXObject2* const holder = shown<VXPanel2>();
    (new VXBoxLayout2(static_cast<VXWidget2*>(holder)))->addWidget(&widget);
    widget.hide();
    delete holder;
    VXPanel2 other;
    other.show();
    (new VXBoxLayout2(&other))->addWidget(&widget);
    turn();
    EXPECT_FALSE(widget.isVisible());
}

TEST_F(OtherOwners, mayEndEachOtherOnTheWay)
{
    VXPanel2 owner;
    auto* const panel = shown<VXPanel2>();
    auto* const layout = new VXBoxLayout2(panel);
    std::vector<VXPanel2*> widgets;
    for (int i = 0; i < 3; ++i) {
        widgets.push_back(new VXPanel2(&owner));
        (new VXBoxLayout2(widgets.back()))->addWidget(new VXButton2(widgets.back()));
        layout->addWidget(widgets.back());
    }
    turn();
    // Of what is inside the event is reported, and its handler may do anything.
    auto* const button = static_cast<VXWidget2*>(widgets[0]->children()[1]);
    VXScrollView2 view;
    button->hidden().connect(&owner, [&] {
        delete std::exchange(widgets[1], nullptr);
        view.setWidget(widgets[2]);
    });
    delete panel;
    runDeletions();
    EXPECT_EQ(widgets[1], nullptr) << "the handler ran";
    expectAlone(*widgets[0]);
    EXPECT_EQ(view.widget(), widgets[2]);
}

/// Objects each of which owns the next; `function` gets the outermost, and its peer's end is run
/// alone: how objects end is another matter.
template <class Object>
void withNested(int count, const std::function<void(VXObject2*)>& function)
{
    std::vector<VXObject2*> nested;
    for (int i = 0; i < count; ++i)
        nested.push_back(new Object(nested.empty() ? nullptr : nested.back()));
    function(nested.front());
    for (; !nested.empty(); nested.pop_back())
        delete nested.back();
}

TEST_F(OtherOwners, whatLeavesAContainerThatGoesEndsAlone)
{
    auto* const panel = new VXPanel2;
    auto* const child = new VXPanel2(panel);
    const QPointer<QWidget> widget(qt(*child));
    delete panel; // it goes, and the child with it
    widget->setParent(nullptr);
    runDeletions();
    EXPECT_TRUE(widget.isNull());
}

TEST_F(OtherOwners, popupsCloseBeforeWhatIsAroundThemEnds)
{
    auto* const panel = shown<VXPanel2>();
    auto* const early = new VXRadioButton2(panel);
    auto* const focused = new VXRadioButton2(panel);
    auto* const box = new VXCheckBox2(panel);
    auto* const menu = new VXMenu2(box);
    menu->addAction("entry");
    panel->setActiveWindow();
    ASSERT_TRUE(waitFor([&] { return panel->isActiveWindow(); }));
    focused->setFocus();
    menu->popup(0, 0);
    ASSERT_TRUE(qt(*menu)->isVisible());
    // With the menu the focus comes back, and a radio button looks for those beside it.
    const QPointer<QWidget> sibling(qt(*early));
    int closed = 0;
    QObject::connect(static_cast<QMenu*>(qt(*menu)), &QMenu::aboutToHide,
                     [&] { closed += !sibling.isNull(); });
    delete panel;
    runDeletions();
    EXPECT_TRUE(sibling.isNull());
    EXPECT_EQ(closed, 1);
}

TEST_F(OtherOwners, theDeepestTreeEndsWithoutOverflowingTheStack)
{
    const Watchdog watchdog(std::chrono::seconds(60));
    const auto end = [](VXObject2* outermost) {
        VXFactory2::current()->destroyObject(outermost->id());
        runDeletions();
        EXPECT_EQ(lookup(outermost->children().front()), nullptr);
    };
    withNested<VXAction2>(100'000, end);
    withNested<VXPanel2>(2000, end); // Qt takes more than quadratic time to make them
}

} // namespace
} // namespace VOXI
