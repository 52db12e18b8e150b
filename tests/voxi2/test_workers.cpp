// Objects made, used and ended by many threads at once, against a back end that only counts. Free
// of Qt, so that the thread sanitizer sees everything.

#include "fakebackend.h"

#include <array>
#include <atomic>
#include <future>
#include <mutex>
#include <optional>

namespace VOXI {
namespace {

class Workers : public testing::Test
{
protected:
    /// The back end lives on a thread of its own, as a toolkit does.
    Workers()
    {
        std::promise<TROV::Thread*> ready;
        m_toolkitThread = std::thread([&] {
            m_backEnd.emplace();
            ready.set_value(TROV::Thread::getCurrentThread());
            TROV::Thread::getCurrentThread()->exec();
            m_backEnd.reset();
        });
        m_toolkit = ready.get_future().get();
    }
    ~Workers() override
    {
        if (m_toolkitThread.joinable())
            endToolkit();
    }

    /// After all that was sent to it.
    void endToolkit()
    {
        m_toolkit->post([this] { m_toolkit->quit(); });
        m_toolkitThread.join();
    }

    TROV::Thread* m_toolkit = nullptr;

private:
    std::optional<FakeBackEnd> m_backEnd;
    std::thread m_toolkitThread;
    Watchdog m_watchdog{std::chrono::seconds(50),
                        testing::UnitTest::GetInstance()->current_test_info()->name()};
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
    constexpr std::size_t Count = 8;
    constexpr int Rounds = 150;
    std::array<Shared, Count> shared;
    std::atomic<int> ended{0};
    std::vector<std::thread> workers;
    m_toolkit->post([this] { m_toolkit->setQueueBound(50); });
    for (std::size_t number = 0; number < Count; ++number) {
        workers.emplace_back([&, number] {
            TROV::Thread* const self = TROV::Thread::getCurrentThread();
            TROV::Listener listener;
            for (int round = 0; round < Rounds; ++round) {
                auto* const panel = new VXPanel2;
                const VXHandle<VXPanel2> mine(panel);
                auto* const button = new VXButton2(panel);
                const VXHandle<VXButton2> child(button);
                button->destroyed().connect(&listener, [&ended] { ++ended; });
                EXPECT_EQ(button->peerParent(), button); // so the fake answers
                VXHandle<VXPanel2> former = shared[number].exchange(mine);
                const VXHandle<VXPanel2> others = shared[(number + 1) % Count].get();
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
    }
    for (std::thread& worker : workers)
        worker.join();
    for (Shared& each : shared)
        each.get()->destroy();
    endToolkit();
    EXPECT_EQ(FakePeer::s_alive, 0);
    EXPECT_GT(ended, 0);
}

} // namespace
} // namespace VOXI
