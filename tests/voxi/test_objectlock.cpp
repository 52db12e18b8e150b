#include "support/worker.h"
#include "testobject.h"
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

TEST_F(ObjectLock, isHeldForTheScopeAndGivenUpWholeWhileAThreadWaits)
{
    EXPECT_TRUE(isFreeForOthers());
    {
        const VXObjectDataLocker outer;
        {
            const VXObjectDataLocker inner;
            EXPECT_FALSE(isFreeForOthers());
            {
                const TROV::WaitRelease waiting;
                EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
                EXPECT_TRUE(isFreeForOthers());
            }
        }
        EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
        EXPECT_FALSE(isFreeForOthers());
    }
    EXPECT_FALSE(VXObject::m_lock.isHeldByCurrentThread());
    EXPECT_TRUE(isFreeForOthers());
}

TEST_F(ObjectLock, doesNotKeepAWaiterFromItsAnswer)
{
    const TROV::Worker server;
    const VXObjectDataLocker lock;
    EXPECT_EQ(TROV::ask(server.thread(),
                        [] {
                            const VXObjectDataLocker needed;
                            return 42;
                        }),
              42);
    EXPECT_TRUE(VXObject::m_lock.isHeldByCurrentThread());
}

} // namespace
} // namespace VOXI
