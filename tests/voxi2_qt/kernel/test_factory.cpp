// What the peer factory does with creation and destruction requests at the edges.

#include "toolkit.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxbutton2.h"
#include "voxi2/kernel/vxdragdelegate2.h"

#include <QLayout>
#include <QPointer>
#include <QPushButton>

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace VOXI {
namespace {

VXFactory2& factory() { return *VXFactory2::current(); }

TEST(FactoryCreates, theParentsChildWhereTheParentIsAWidget)
{
    VXWindow2 window;
    auto* panel = new VXPanel2(&window);
    auto* button = new VXButton2(panel);
    auto* owned = new VXWindow2(panel);
    auto* layout = new VXBoxLayout2(panel, Direction::BottomToTop);
    EXPECT_EQ(qt(*panel)->parentWidget(), qt(window));
    EXPECT_EQ(qt(*button)->parentWidget(), qt(*panel));
    EXPECT_TRUE(qt(*owned)->isWindow());
    EXPECT_EQ(qt(*panel)->layout(), qObjectOf(lookup(layout)));
    EXPECT_EQ(static_cast<QBoxLayout*>(qt(*panel)->layout())->direction(), QBoxLayout::BottomToTop);
    EXPECT_EQ(button->peerParent(), panel);
}

TEST(FactoryCreates, withoutAParentWhereThatIsNoneOrNoWidget)
{
    const VXButton2 alone(nullptr);
    EXPECT_TRUE(qt(alone)->isWindow());

    VXPanel2 panel;
    auto* layout = new VXBoxLayout2(&panel);
    const VXButton2 inLayout(layout);
    EXPECT_EQ(qt(inLayout)->parentWidget(), nullptr);
    auto* delegate = new VXDragDelegate2(&panel);
    const VXButton2 inDelegate(delegate);
    EXPECT_EQ(qt(inDelegate)->parentWidget(), nullptr);
    // A second layout of the same widget gets no widget to lay out.
    const VXBoxLayout2 second(&panel);
    EXPECT_EQ(qt(panel)->layout(), qObjectOf(lookup(layout)));
    EXPECT_EQ(qObjectOf(lookup(&second))->parent(), nullptr);

    VXObject2* dead = new VXPanel2;
    delete dead;
    const auto orphan = std::make_unique<VXButton2>(dead);
    EXPECT_EQ(qt(*orphan)->parentWidget(), nullptr);
    EXPECT_EQ(orphan->parent(), nullptr);

    // A parent that lives but has lost its peer.
    factory().destroyObject(panel.id());
    auto* child = new VXButton2(&panel);
    EXPECT_EQ(qt(*child)->parentWidget(), nullptr);
    EXPECT_EQ(child->parent(), &panel);
}

TEST(FactoryDestroys, laterWhatReportsNothingAnyMore)
{
    VXPanel2 panel;
    auto* button = new VXButton2(&panel);
    button->setLabel("label");
    auto* const shown = static_cast<QPushButton*>(qt(*button));
    factory().destroyObject(button->id());
    EXPECT_EQ(shown->text(), QStringLiteral("label"));
    int clicks = 0;
    button->clicked().connect(&panel, [&] { ++clicks; });
    shown->click();
    EXPECT_EQ(clicks, 0);
    runDeletions();
}

TEST(FactoryDestroys, nothingForIdsThatNameNoPeer)
{
    struct Foreign : GuiObject
    {
    } foreign;
    const unsigned foreignId = 0xfffffff0u;
    addObject(foreignId, &foreign);
    const VXButton2 button;
    for (const unsigned id : {0u, button.id() + 100000, 0xffffffffu, foreignId})
        factory().destroyObject(id);
    EXPECT_EQ(lookup(foreignId), &foreign);
    EXPECT_NE(lookup(&button), nullptr);
    removeObject(foreignId);
}

TEST(FactoryDestroys, onItsOwnThreadWhereverItIsAsked)
{
    const VXButton2 button;
    const QPointer<QWidget> widget = qt(button);
    std::atomic<int> ended = 0;
    std::thread stranger([&] {
        factory().destroyObject.emitAndWait(0);
        ++ended;
    });
    std::thread worker([&] {
        factory().destroyObject(button.id());
        EXPECT_EQ(button.label(), "");
        ++ended;
    });
    while (ended < 2)
        turn();
    stranger.join();
    worker.join();
    EXPECT_EQ(lookup(&button), nullptr);
    runDeletions();
    EXPECT_TRUE(widget.isNull());
}

} // namespace
} // namespace VOXI
