#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include <support/Autolock.h>
#include <support/Locker.h>

TEST(Locker, MayBeLockedAgainByWhoHoldsIt) {
    BLocker lock("lock");
    EXPECT_EQ(lock.InitCheck(), B_OK);
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_EQ(lock.LockingThread(), B_ERROR);
    EXPECT_EQ(lock.CountLocks(), 0);
    EXPECT_TRUE(lock.Lock());
    EXPECT_TRUE(lock.Lock());
    EXPECT_EQ(lock.LockWithTimeout(0), B_OK);
    EXPECT_EQ(lock.CountLocks(), 3);
    EXPECT_EQ(lock.CountLockRequests(), 3);
    EXPECT_EQ(lock.LockingThread(), find_thread(nullptr));
    lock.Unlock();
    lock.Unlock();
    EXPECT_TRUE(lock.IsLocked());
    lock.Unlock();
    EXPECT_FALSE(lock.IsLocked());
    EXPECT_EQ(lock.LockingThread(), B_ERROR);
    lock.Unlock();
    EXPECT_EQ(lock.CountLocks(), 0);
    EXPECT_TRUE(lock.Lock());
    lock.Unlock();
}

TEST(Locker, BelongsToOneThread) {
    BLocker lock;
    lock.Lock();
    std::thread([&] {
        EXPECT_FALSE(lock.IsLocked());
        lock.Unlock();
        EXPECT_EQ(lock.LockWithTimeout(0), B_TIMED_OUT);
        EXPECT_EQ(lock.LockWithTimeout(-1), B_TIMED_OUT);
        const bigtime_t before = system_time();
        EXPECT_EQ(lock.LockWithTimeout(3000), B_TIMED_OUT);
        EXPECT_GE(system_time() - before, 3000);
    }).join();
    EXPECT_EQ(lock.CountLocks(), 1);
    EXPECT_EQ(lock.CountLockRequests(), 1);
    lock.Unlock();
}

TEST(Locker, IsHandedOver) {
    BLocker lock(false);
    lock.Lock();
    std::atomic<bool> got{false};
    std::thread other([&] {
        EXPECT_EQ(lock.LockWithTimeout(B_INFINITE_TIMEOUT), B_OK);
        got = true;
        lock.Unlock();
    });
    const bigtime_t end = system_time() + 30000000;
    while (lock.CountLockRequests() < 2 && system_time() < end)
        std::this_thread::yield();
    EXPECT_EQ(lock.CountLockRequests(), 2);
    EXPECT_FALSE(got);
    lock.Unlock();
    other.join();
    EXPECT_TRUE(got);
}

TEST(Locker, KeepsThreadsApart) {
    BLocker lock("counter", true);
    int counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&] {
            for (int n = 0; n < 5000; n++) {
                const BAutolock outer(lock);
                const BAutolock inner(&lock);
                counter++;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 20000);
}

TEST(Autolock, LocksForItsLife) {
    BLocker lock;
    {
        BAutolock holder(lock);
        EXPECT_TRUE(holder.IsLocked());
        EXPECT_TRUE(lock.IsLocked());
        holder.Unlock();
        EXPECT_FALSE(holder.IsLocked());
        EXPECT_FALSE(lock.IsLocked());
        holder.Unlock();
        EXPECT_TRUE(holder.Lock());
        EXPECT_TRUE(holder.Lock());
        EXPECT_EQ(lock.CountLocks(), 1);
    }
    EXPECT_FALSE(lock.IsLocked());
}

TEST(Autolock, KnowsWhenItWasRefused) {
    struct Gone {
        int unlocks = 0;
        bool Lock() { return false; }
        void Unlock() { unlocks++; }
    } gone;
    {
        const BAutolock holder(gone);
        EXPECT_FALSE(holder.IsLocked());
    }
    EXPECT_EQ(gone.unlocks, 0);
    const BAutolock none(static_cast<BLocker*>(nullptr));
    EXPECT_FALSE(none.IsLocked());
}

TEST(Atomic, ReturnsTheValueBefore) {
    int32 value = 5;
    EXPECT_EQ(atomic_add(&value, 3), 5);
    EXPECT_EQ(atomic_or(&value, 0x10), 8);
    EXPECT_EQ(atomic_and(&value, 0x18), 0x18);
    EXPECT_EQ(atomic_get(&value), 0x18);
    EXPECT_EQ(min_c(3, 4), 3);
    EXPECT_EQ(max_c(3, 4), 4);

    int32 sum = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([&] {
            for (int n = 0; n < 1000; n++)
                atomic_add(&sum, 1);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(sum, 4000);
}
