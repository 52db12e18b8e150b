#include "fakebackend.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxactiongroup2.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"

#include <memory>

namespace VOXI {
namespace {

TEST(WithoutBackEnd, objectsAnswerWithDefaults)
{
    ASSERT_EQ(VXFactory2::current(), nullptr);
    VXWindow2 window;
    auto* panel = new VXPanel2(&window);
    auto* button = new VXButton2(panel);
    auto* layout = new VXBoxLayout2(panel, Direction::TopToBottom);
    EXPECT_EQ(lookup(button), nullptr);
    EXPECT_EQ(button->widgetEmitters()->show.numberOfConnections(), 0);

    button->setLabel("label");
    button->imitateClick();
    button->setFocusProxy(button);
    button->setFocusProxy(nullptr);
    button->setDragDelegate(nullptr);
    button->setEventConsumed(static_cast<WidgetEvent>(26), true);
    button->setFont(VXFont("Sans"));
    button->restoreGeometry("no geometry");
    button->imitate(WidgetEvent::Close);
    button->imitateKey(WidgetEvent::KeyPress, VXKeyEvent2(nullptr, WidgetEvent::KeyPress, Key()));
    EXPECT_EQ(button->label(), "");
    EXPECT_EQ(button->focusProxy(), nullptr);
    EXPECT_FALSE(button->isEventConsumed(WidgetEvent::Close));
    EXPECT_EQ(button->font(), VXFont());
    EXPECT_EQ(button->mapToGlobal({3, 4}), VXPoint<int>());
    EXPECT_EQ(button->winId(), 0u);
    EXPECT_EQ(button->saveGeometry(), "");
    EXPECT_EQ(button->peerParent(), nullptr);
    EXPECT_TRUE(button->peerChildren(true).empty());

    window.setCentralWidget(panel);
    window.setCentralWidget(nullptr);
    EXPECT_EQ(window.centralWidget(), nullptr);
    EXPECT_FALSE(window.close());
    layout->addWidget(button);
    layout->addWidget(nullptr);
    layout->insertWidget(nullptr, -5);
    layout->removeWidget(nullptr);
    EXPECT_EQ(layout->spacing(), 0);
}

TEST(WithoutBackEnd, objectsHaveTheirNamesAndKinds)
{
    struct Mine : VXButton2
    {};
    Mine mine;
    EXPECT_EQ(mine.objectName(), "");
    mine.setObjectName("name");
    EXPECT_EQ(mine.objectName(), "name");
    EXPECT_EQ(mine.kind(), "Button");
    EXPECT_EQ(VXActionGroup2().kind(), "ActionGroup");

    // Handles of all dead objects lead to the same one.
    const VXHandle<VXAction2> gone(std::make_unique<VXAction2>().get());
    gone->setObjectName("nobody's");
    EXPECT_EQ(gone->objectName(), "");
}

TEST(WithoutBackEnd, objectsOfTheSystemAreNotMade)
{
    const StringID nobody("nobody's key");
    VXClipboard2::initImpl(nobody);
    VXDragManager2::createImpl(nobody);
    EXPECT_EQ(VXClipboard2::instance(), nullptr);
    EXPECT_EQ(VXDragManager2::instance(), nullptr);
}

TEST(WithoutBackEnd, handlersConnectAndAreCutWithTheirObject)
{
    auto listener = std::make_unique<VXPanel2>();
    VXButton2 button;
    int clicks = 0;
    button.clicked().connect(listener.get(), [&] { ++clicks; });
    EXPECT_EQ(button.clicked().numberOfConnections(), 1);
    button.buttonEmitters()->clicked(VXButtonClickEvent2(&button));
    EXPECT_EQ(clicks, 1);
    listener.reset();
    EXPECT_EQ(button.clicked().numberOfConnections(), 0);
    button.buttonEmitters()->clicked(VXButtonClickEvent2(&button));
    EXPECT_EQ(clicks, 1);
}

TEST(WithoutBackEnd, windowsAreListedOldestFirst)
{
    const auto before = VXAbstractWindow2::windows();
    EXPECT_TRUE(before.empty());
    auto first = std::make_unique<VXWindow2>();
    VXWindow2 second(first.get());
    auto third = std::make_unique<VXWindow2>();
    EXPECT_EQ(VXAbstractWindow2::windows(),
              (std::vector<VXAbstractWindow2*>{first.get(), &second, third.get()}));
    second.setParent(nullptr);
    first.reset();
    EXPECT_EQ(VXAbstractWindow2::windows(),
              (std::vector<VXAbstractWindow2*>{&second, third.get()}));
}

} // namespace
} // namespace VOXI
