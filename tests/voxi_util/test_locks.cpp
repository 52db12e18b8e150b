#include "support/inparallel.h"
#include "voxi_util/recursivelock.h"
#include "voxi_util/spinlock.h"

#include <atomic>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>
#include <utility>

namespace VOXI {
namespace {

TEST(RecursiveLock, guardsWhatManyThreadsChange)
{
    RecursiveLock lock;
    int counter = 0;
    inParallel(4, [&](int) {
        for (int round = 0; round < 5000; ++round) {
            const std::lock_guard outer(lock);
            const int before = counter;
            {
                const std::lock_guard inner(lock);
                counter = before + 1;
            }
            if (round % 64 == 0)
                lock.reacquire(lock.releaseAll());
        }
    });
    EXPECT_EQ(counter, 20000);
    EXPECT_EQ(lock.releaseAll(), 0u);
}

TEST(RecursiveLock, letsNobodyStarve)
{
    RecursiveLock lock;
    std::atomic<bool> done{false};
    std::atomic<int> rounds{0};
    std::thread greedy([&] {
        while (!done) {
            const std::lock_guard hold(lock);
            for (int work = 0; work < 2'000'000; ++work)
                static_cast<void>(done.load());
            ++rounds;
        }
    });
    int waited = 0;
    for (int turn = 0; turn < 20; ++turn) {
        const int before = rounds;
        while (rounds == before) // it is at work
            std::this_thread::yield();
        const std::lock_guard hold(lock);
        waited += rounds - before;
    }
    done = true;
    greedy.join();
    EXPECT_LT(waited, 20 * 60);
}

TEST(RecursiveLock, handsItsHoldsBackByNumber)
{
    RecursiveLock lock;
    lock.lock();
    lock.lock();
    EXPECT_TRUE(lock.try_lock());
    std::thread([&] { EXPECT_FALSE(lock.try_lock()); }).join();
    const unsigned holds = lock.releaseAll();
    EXPECT_EQ(holds, 3u);
    EXPECT_FALSE(lock.isHeldByCurrentThread());
    std::thread([&] {
        EXPECT_TRUE(lock.try_lock());
        lock.unlock();
    }).join();
    EXPECT_EQ(lock.releaseAll(), 0u);
    lock.reacquire(0);
    EXPECT_FALSE(lock.isHeldByCurrentThread());

    // What was taken meanwhile adds to what comes back.
    lock.lock();
    lock.reacquire(holds);
    EXPECT_EQ(lock.releaseAll(), 4u);
}

// A lock that takes back what its thread gave up when that undoes a hold.
unsigned s_givenUp = 0;
RecursiveLock s_recalled([]() noexcept { s_recalled.reacquire(std::exchange(s_givenUp, 0u)); });

TEST(RecursiveLock, noticesAnUnlockByAStranger)
{
    {
        const std::lock_guard outer(s_recalled);
        s_givenUp = s_recalled.releaseAll();
    }
    EXPECT_EQ(s_givenUp, 0u);
    EXPECT_TRUE(s_recalled.try_lock());
    EXPECT_EQ(s_recalled.releaseAll(), 1u);
#ifndef NDEBUG
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    static RecursiveLock plain;
    for (RecursiveLock* lock : {&s_recalled, &plain}) {
        EXPECT_DEATH(lock->unlock(), "does not hold it");
        EXPECT_DEATH(
            {
                lock->lock();
                std::thread([lock] { lock->unlock(); }).join();
            },
            "does not hold it");
    }
#endif
}

TEST(SpinLock, guardsWhatManyThreadsChange)
{
    SpinLock lock;
    int counter = 0;
    inParallel(4, [&](int) {
        for (int round = 0; round < 5000; ++round) {
            const std::lock_guard guard(lock);
            ++counter;
        }
    });
    EXPECT_EQ(counter, 20000);
    EXPECT_TRUE(lock.try_lock());
    EXPECT_FALSE(lock.try_lock());
    lock.unlock();
    EXPECT_TRUE(lock.try_lock());
}

} // namespace
} // namespace VOXI
