#include "fakebackend.h"
#include "voxi2/kernel/vxaction2.h"
#include "voxi2/kernel/vxactiongroup2.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"

#include <memory>

namespace VOXI {
namespace {

void expectDefaults(VXWidget2& widget)
{
    widget.setEnabled(true);
    widget.setObjectName("name");
    widget.setToolTip("tip");
    widget.setToolTip(L"tip");
    widget.setFocusProxy(&widget);
    widget.setFocusProxy(nullptr);
    widget.setDragDelegate(nullptr);
    widget.setEventConsumed(static_cast<WidgetEvent>(26), true);
    widget.show();
    widget.setFont(VXFont("Sans"));
    widget.restoreGeometry("no geometry");
    widget.imitate(WidgetEvent::Close);
    widget.imitateKey(WidgetEvent::KeyPress, VXKeyEvent2(nullptr, WidgetEvent::KeyPress, Key()));

    EXPECT_FALSE(widget.isEnabled());
    EXPECT_FALSE(widget.isVisible());
    EXPECT_FALSE(widget.isEventConsumed(WidgetEvent::Close));
    EXPECT_EQ(widget.toolTipU(), L"");
    EXPECT_EQ(widget.focusProxy(), nullptr);
    EXPECT_EQ(widget.dragDelegate(), nullptr);
    EXPECT_EQ(widget.font(), VXFont());
    EXPECT_EQ(widget.position(), VXRect<int>());
    EXPECT_EQ(widget.mapToGlobal({3, 4}), VXPoint<int>());
    EXPECT_EQ(widget.winId(), 0u);
    EXPECT_EQ(widget.saveGeometry(), "");
    EXPECT_EQ(widget.peerParent(), nullptr);
    EXPECT_TRUE(widget.peerChildren(true).empty());
    EXPECT_EQ(widget.widgetEmitters()->show.numberOfConnections(), 0);
    EXPECT_EQ(lookup(&widget), nullptr);
}

TEST(WithoutBackEnd, objectsAnswerWithDefaults)
{
    ASSERT_EQ(VXFactory2::current(), nullptr);
    VXWindow2 window;
    auto* panel = new VXPanel2(&window);
    auto* button = new VXButton2(panel);
    auto* text = new VXText2(panel);
    auto* layout = new VXBoxLayout2(panel, Direction::TopToBottom);
    for (VXWidget2* widget : {static_cast<VXWidget2*>(&window), static_cast<VXWidget2*>(panel),
                              static_cast<VXWidget2*>(button), static_cast<VXWidget2*>(text)})
        expectDefaults(*widget);

    window.setTitle("title");
    window.setCentralWidget(panel);
    window.setCentralWidget(nullptr);
    window.setWindowState(WindowState::Maximized);
    EXPECT_EQ(window.title(), "");
    EXPECT_EQ(window.centralWidget(), nullptr);
    EXPECT_FALSE(window.close());
    EXPECT_EQ(window.windowFlags(), 0u);
    button->setLabel("label");
    button->setChecked(true);
    button->imitateClick();
    EXPECT_EQ(button->label(), "");
    EXPECT_FALSE(button->isChecked());
    text->setBuddy(button);
    EXPECT_EQ(text->buddy(), nullptr);
    layout->addWidget(button);
    layout->addWidget(nullptr);
    layout->insertWidget(nullptr, -5);
    layout->removeWidget(nullptr);
    EXPECT_EQ(layout->spacing(), 0);
    EXPECT_FALSE(layout->isEnabled());
}

TEST(WithoutBackEnd, objectsHaveTheirNamesAndKinds)
{
    struct Mine : VXButton2
    {};
    VXWindow2 window;
    VXAction2 action;
    VXActionGroup2 group;
    Mine mine;
    const VXBoxLayout2 layout(&window, Direction::TopToBottom);
    EXPECT_EQ(action.objectName(), "");
    for (VXObject2* object : {static_cast<VXObject2*>(&window), static_cast<VXObject2*>(&action),
                              static_cast<VXObject2*>(&group), static_cast<VXObject2*>(&mine)}) {
        object->setObjectName("name");
        EXPECT_EQ(object->objectName(), "name");
    }
    EXPECT_EQ(window.kind(), "Window");
    EXPECT_EQ(action.kind(), "Action");
    EXPECT_EQ(group.kind(), "ActionGroup");
    EXPECT_EQ(mine.kind(), "Button");
    EXPECT_EQ(layout.kind(), "BoxLayout");

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
