// Widgets that belong to one object and are shown by another one, which ends.

#include "holders.h"
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

/// A holder that a widget lies in, or has just been taken out of.
struct Place
{
    const Holder& m_kind;
    bool m_isFormer;

    std::string name() const { return (m_isFormer ? "former " : "") + std::string(m_kind.m_name); }
    VXWidget2* put(VXTab2* widget) const
    {
        VXWidget2* const holder = m_kind.m_make();
        m_kind.m_put(*holder, widget);
        if (m_isFormer)
            m_kind.m_drop(*holder, widget);
        return holder;
    }
};

std::vector<Place> places()
{
    std::vector<Place> places;
    for (const Holder& each : s_holders) {
        places.push_back({each, false});
        if (each.m_drop)
            places.push_back({each, true});
    }
    return places;
}

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
    for (const Place& place : places()) {
        for (const End& end : s_ends) {
            SCOPED_TRACE(place.name() + ", " + end.m_name);
            VXPanel2 owner;
            auto* const widget = new VXTab2(&owner);
            auto* const inside = new VXButton2(widget);
            VXObject2* const holder = place.put(widget);
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
    for (const Place& place : places()) {
        SCOPED_TRACE(place.name());
        VXPanel2 owner;
        auto* const widget = new VXTab2(&owner);
        delete place.put(widget);
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
        auto* const window = new VXWindow2;
        window->show();
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
        docked->setFloating(true);
        EXPECT_FALSE(docked->isFloating());
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
    VXWidget2* const holder = shown<VXPanel2>();
    (new VXBoxLayout2(holder))->addWidget(&widget);
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
    nested.reserve(static_cast<std::size_t>(count));
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
