#include "testobject.h"
#include "trov/thread.h"

#include <memory>
#include <thread>

namespace VOXI {
namespace {

class GuiObjectDeletion : public WatchedTest
{
protected:
    /// Runs `function` on a thread of its own that has a queue.
    template <class Function>
    static void onThread(Function&& function)
    {
        std::thread([&] { function(*TROV::Thread::getCurrentThread()); }).join();
    }
};

TEST_F(GuiObjectDeletion, comesAfterTheCodeThatAsked)
{
    onThread([](TROV::Thread& thread) {
        int deletions = 0;
        auto* peer = new TestPeer(&deletions);
        thread.post([&, peer] {
            peer->scheduleDelete();
            peer->scheduleDelete(); // as good as once
            EXPECT_EQ(deletions, 0);
        });
        thread.process();
        EXPECT_EQ(deletions, 1);
    });
}

TEST_F(GuiObjectDeletion, happensAlsoWhenTheThreadEndsBefore)
{
    int deletions = 0;
    onThread([&](TROV::Thread&) { (new TestPeer(&deletions))->scheduleDelete(); });
    EXPECT_EQ(deletions, 1);
}

} // namespace
} // namespace VOXI
