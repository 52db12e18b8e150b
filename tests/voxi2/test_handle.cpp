#include "fakebackend.h"

#include <atomic>
#include <memory>
#include <string>

namespace VOXI {
namespace {

TEST(Handle, namesAnObjectAsLongAsItLives)
{
    VXHandle<VXButton2> empty;
    EXPECT_FALSE(empty.isValid());
    EXPECT_EQ(empty.get(), nullptr);
    EXPECT_EQ(VXHandle<VXButton2>(nullptr), empty);

    auto button = std::make_unique<VXButton2>();
    const VXHandle<VXButton2> handle(button.get());
    const VXHandle<VXButton2> copy = handle;
    EXPECT_TRUE(handle.isValid());
    EXPECT_TRUE(copy);
    EXPECT_EQ(copy, handle);
    EXPECT_EQ(handle.get(), button.get());
    EXPECT_EQ(handle->id(), button->id());
    button.reset();
    EXPECT_FALSE(handle);
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_NE(handle.id(), 0u);
}

TEST(Handle, callsOnTheDeadDoNothing)
{
    VXHandle<VXButton2> handle;
    VXPanel2 panel;
    {
        VXButton2 button;
        handle = &button;
    }
    handle->setLabel("gone");
    EXPECT_EQ(handle->label(), "");
    EXPECT_FALSE(handle->isEnabled());

    // What stands in for the dead is shared: nobody may own, move or end it.
    handle->setParent(&panel);
    EXPECT_EQ(handle->parent(), nullptr);
    EXPECT_TRUE(panel.children().empty());
    handle->destroy();
    handle->destroy();
    const std::unique_ptr<VXPanel2> child(new VXPanel2(handle.operator->().operator->()));
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_TRUE(handle->children().empty());
    int called = 0;
    const auto connection = handle->destroyed().connect(&panel, [&] { ++called; });
    EXPECT_EQ(connection.connection(), nullptr);
    EXPECT_EQ(panel.numberOfConnections(), 0);
    handle->destroy();
    EXPECT_EQ(called, 0);
    EXPECT_EQ(handle->label(), "");
}

TEST(Handle, endsItsObject)
{
    VXHandle<VXButton2> handle(new VXButton2);
    handle->destroy();
    EXPECT_FALSE(handle);
    EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
}

TEST(Handle, reachesClassesOfTheApplication)
{
    struct Counter : VXPanel2
    {
        explicit Counter(int& made) { ++made; }
        int next() { return ++m_last; }
        int m_last = 0;
    };
    int made = 0;
    const VXHandle<Counter> handle(new Counter(made));
    EXPECT_EQ(handle.with([](Counter& counter) { return counter.next(); }), 1);
    handle.with([](Counter& counter) {
        EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        counter.destroy();
    });
    EXPECT_EQ(handle.with([](Counter& counter) { return counter.next(); }), 0);
    handle.with([](Counter&) { ADD_FAILURE() << "it is dead"; });
    EXPECT_EQ(made, 1);
}

class HandleThreads : public BackEndTest
{};

TEST_F(HandleThreads, useObjectsThatComeAndGo)
{
    FakeBackEnd backEnd;
    std::atomic<bool> stop{false};
    onWorker([&] {
        std::atomic<int> uses{0};
        VXHandle<VXButton2> current;
        const auto use = [&] {
            while (!stop) {
                VXHandle<VXButton2> mine;
                {
                    const VXObjectDataLocker lock;
                    mine = current;
                }
                mine->setLabel("text");
                mine->setParent(nullptr);
                // A getter waits, and the object may go meanwhile.
                static_cast<void>(mine->peerParent());
                ++uses;
            }
        };
        const std::jthread users[] = {std::jthread(use), std::jthread(use), std::jthread(use)};
        for (int i = 0; i < 60; ++i) {
            auto* button = new VXButton2;
            {
                const VXObjectDataLocker lock;
                current = button;
            }
            const int before = uses;
            while (uses == before)
                std::this_thread::yield();
            delete button;
        }
        stop = true;
    });
    EXPECT_EQ(FakePeer::s_alive, 0);
}

} // namespace
} // namespace VOXI
