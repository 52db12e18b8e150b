#include "testobject.h"
#include "trov/thread.h"
#include "trov/waithooks.h"

#include <future>
#include <thread>

namespace VOXI {
namespace {

class ObjectLock : public WatchedTest
{
protected:
    /// Whether another thread could take the object lock at this moment.
    static bool isFreeForOthers()
    {
        return std::async(std::launch::async,
                          [] {
                              if (!VXObject::m_lock.try_lock())
                                  return false;
                              VXObject::m_lock.unlock();
                              return true;
                          })
            .get();
    }
};

TEST_F(ObjectLock, isHeldForTheScopeAndInsideItself)
{
    EXPECT_TRUE(isFreeForOthers());
    {
        const VXObjectDataLocker outer;
        {
            const VXObjectDataLocker inner;
            EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        }
        EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        EXPECT_FALSE(isFreeForOthers());
    }
    EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
    EXPECT_TRUE(isFreeForOthers());
}

TEST_F(ObjectLock, isGivenUpWholeWhileAThreadWaits)
{
    const VXObjectDataLocker outer;
    const VXObjectDataLocker inner;
    {
        const TROV::WaitRelease waiting;
        EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
        EXPECT_TRUE(isFreeForOthers());
    }
    EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
    EXPECT_FALSE(isFreeForOthers());
}

TEST_F(ObjectLock, doesNotKeepAWaiterFromItsAnswer)
{
    std::promise<TROV::Thread*> born;
    std::thread server([&] {
        born.set_value(TROV::Thread::getCurrentThread());
        TROV::Thread::getCurrentThread()->exec();
    });
    TROV::Thread* const thread = born.get_future().get();
    int answer = 0;
    {
        const VXObjectDataLocker lock;
        answer = thread->callAndWait<int>(
            nullptr, nullptr, [] { return true; },
            [] {
                const VXObjectDataLocker needed;
                return 42;
            });
        EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
    }
    EXPECT_EQ(answer, 42);
    thread->quit();
    server.join();
}

} // namespace
} // namespace VOXI
