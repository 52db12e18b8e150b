#include "fakebackend.h"
#include "voxi2/kernel/initialize.h"
#include "voxi2/kernel/vxclipboard2.h"
#include "voxi2/kernel/vxdragmanager2.h"

namespace VOXI {
namespace {

TEST(Terminate, takesAllPeersAndLeavesTheObjects)
{
    initialize_voxi2();
    initialize_voxi2();
    FakeBackEnd backEnd;
    FakeBackEnd other("other");
    const StringID key("fake");
    VXClipboard2::initImpl(key);
    VXDragManager2::createImpl(key);
    VXClipboard2* const clipboard = VXClipboard2::instance();
    ASSERT_NE(clipboard, nullptr);
    ASSERT_NE(VXDragManager2::instance(), nullptr);
    VXClipboard2::initImpl(key);
    EXPECT_EQ(VXClipboard2::instance(), clipboard);

    VXPanel2 root;
    auto* button = new VXButton2(&root);
    EXPECT_EQ(FakePeer::s_alive, 2);
    terminate_voxi2();

    EXPECT_EQ(FakePeer::s_alive, 0);
    EXPECT_EQ(VXClipboard2::instance(), nullptr);
    EXPECT_EQ(VXDragManager2::instance(), nullptr);
    EXPECT_EQ(VXFactory2::current(), nullptr);
    EXPECT_EQ(VXFactory2::getFactory(StringID("other")), nullptr);
    EXPECT_TRUE(VXObject::isObjectValid(button));
    EXPECT_EQ(button->parent(), &root);
    button->setLabel("nothing");
    EXPECT_EQ(button->peerParent(), nullptr);
    EXPECT_EQ(lookup(new VXButton2(&root)), nullptr);

    // What is down is not taken down; it may come up again, for another back end.
    FakeBackEnd later("later");
    terminate_voxi2();
    EXPECT_EQ(VXFactory2::current(), &later.factory());
    initialize_voxi2();
    EXPECT_EQ(lookup(button), nullptr);
    VXButton2 served;
    EXPECT_EQ(FakePeer::s_alive, 1);
    terminate_voxi2();
    EXPECT_EQ(FakePeer::s_alive, 0);
    EXPECT_EQ(VXFactory2::current(), nullptr);
}

} // namespace
} // namespace VOXI
