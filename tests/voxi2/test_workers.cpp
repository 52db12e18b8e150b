// Objects made, used and ended by many threads at once, against a back end that only counts. Free
// of Qt, so that the thread sanitizer sees everything.

#include "fakebackend.h"
#include "support/inparallel.h"
#include "support/worker.h"

#include <array>
#include <atomic>
#include <mutex>
#include <optional>

namespace VOXI {
namespace {

class Workers : public WatchedTest
{
protected:
    /// The back end lives on a thread of its own, as a toolkit does.
    Workers()
    {
        m_toolkit.run([this] { m_backEnd.emplace(); });
    }
    ~Workers() override { endToolkit(); }

    /// After all that was sent to it.
    void endToolkit()
    {
        if (!m_backEnd)
            return;
        m_toolkit.run([this] { m_backEnd.reset(); });
        m_toolkit.stop();
    }

    TROV::Worker m_toolkit;

private:
    std::optional<FakeBackEnd> m_backEnd;
};

/// A panel that anybody may look for, use and end.
class Shared
{
public:
    VXHandle<VXPanel2> exchange(VXHandle<VXPanel2> panel)
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_panel, panel);
    }
    VXHandle<VXPanel2> get() const
    {
        const std::lock_guard lock(m_mutex);
        return m_panel;
    }

private:
    mutable std::mutex m_mutex;
    VXHandle<VXPanel2> m_panel;
};

TEST_F(Workers, createSetAskAndDestroyAtTheSameTime)
{
    constexpr int Count = 8;
    constexpr int Rounds = 150;
    std::array<Shared, Count> shared;
    std::atomic<int> ended{0};
    m_toolkit.thread()->post([this] { m_toolkit.thread()->setQueueBound(50); });
    inParallel(Count, [&](int number) {
        TROV::Thread* const self = TROV::Thread::getCurrentThread();
        TROV::Listener listener;
        for (int round = 0; round < Rounds; ++round) {
            auto* const panel = new VXPanel2;
            const VXHandle<VXPanel2> mine(panel);
            auto* const button = new VXButton2(panel);
            const VXHandle<VXButton2> child(button);
            button->destroyed().connect(&listener, [&ended] { ++ended; });
            EXPECT_EQ(button->peerParent(), button); // so the fake answers
            VXHandle<VXPanel2> former = shared[std::size_t(number)].exchange(mine);
            const VXHandle<VXPanel2> others = shared[std::size_t((number + 1) % Count)].get();
            {
                const VXObjectDataLocker lock;
                if (VXPanel2* const adopting = others.get())
                    child->setParent(adopting);
            }
            (void)child->peerParent();
            (void)others->peerChildren();
            child->setVisible(round % 2 == 0);
            if (round % 3 == 0)
                others->destroy();
            if (round % 5 == 0)
                child->destroy();
            former->destroy();
            self->process();
        }
        // What of it is still somebody's, is ended by whoever comes last.
        listener.disconnect();
    });
    for (Shared& each : shared)
        each.get()->destroy();
    endToolkit();
    EXPECT_EQ(FakePeer::s_alive, 0);
    EXPECT_GT(ended, 0);
}

} // namespace
} // namespace VOXI
