#include "framework/Thread.h"

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <semaphore>
#include <string>

#include "tests/Eventually.h"

namespace {

/// A thread that does what it is given.
class TestThread : public TThread {
public:
    explicit TestThread(std::function<int32(TestThread&)> work, std::atomic<int>* deleted = nullptr,
        const char* name = "test thread", int32 priority = B_NORMAL_PRIORITY)
        : TThread(name, priority), fWork(std::move(work)), fDeleted(deleted) {}
    ~TestThread() override {
        KillThread();
        if (fDeleted != nullptr)
            (*fDeleted)++;
    }

    int32 Execute() override { return fWork(*this); }

    using TThread::IsTerminateRequested;

private:
    const std::function<int32(TestThread&)> fWork;
    std::atomic<int>* const fDeleted;
};

TEST(Thread, WaitsForItsFirstResume) {
    std::atomic<bool> ran = false;
    TestThread thread([&](TestThread&) {
        ran = true;
        return 7;
    });
    EXPECT_GT(thread.ThreadID(), 0);
    EXPECT_TRUE(thread.IsSuspended());
    EXPECT_FALSE(thread.IsTerminated());
    EXPECT_FALSE(ran);

    EXPECT_EQ(thread.Resume(), B_OK);
    int32 result = 0;
    EXPECT_EQ(thread.Wait(&result), B_OK);
    EXPECT_EQ(result, 7);
    EXPECT_TRUE(ran);
    EXPECT_TRUE(thread.IsTerminated());
    EXPECT_FALSE(thread.IsSuspended());
}

TEST(Thread, IsWaitedForWithoutAResult) {
    TestThread thread([](TestThread&) { return 0; });
    thread.Resume();
    EXPECT_EQ(thread.Wait(nullptr), B_OK);
    EXPECT_TRUE(thread.IsTerminated());
}

TEST(Thread, TerminatingBeforeTheFirstResumeOnlySetsTheFlag) {
    TestThread thread([](TestThread& self) { return self.IsTerminateRequested() ? 1 : 2; });
    EXPECT_EQ(thread.Terminate(), B_OK);
    EXPECT_TRUE(thread.IsSuspended());
    EXPECT_FALSE(thread.IsTerminated());
    thread.Resume();
    int32 result = 0;
    thread.Wait(&result);
    EXPECT_EQ(result, 1);
}

TEST(Thread, StopsWhenAsked) {
    std::atomic<bool> running = false;
    TestThread thread([&](TestThread& self) {
        running = true;
        while (!self.IsTerminateRequested())
            snooze(1000);
        return 3;
    });
    thread.Resume();
    EXPECT_TRUE(eventually([&] { return running.load(); }));
    EXPECT_FALSE(thread.IsTerminated());
    thread.Terminate();
    int32 result = 0;
    EXPECT_EQ(thread.Wait(&result), B_OK);
    EXPECT_EQ(result, 3);
}

TEST(Thread, DeletesItselfWhenItIsToldTo) {
    std::atomic<int> deleted = 0;
    auto* thread = new TestThread([](TestThread&) { return 0; }, &deleted);
    EXPECT_EQ(thread->SetAutoDelete(true), B_OK);
    const thread_id id = thread->ThreadID();
    thread->Resume();
    int32 result = 0;
    (void)wait_for_thread(id, &result);
    EXPECT_TRUE(eventually([&] { return deleted == 1; }));
}

TEST(Thread, BelongsToItsOwnerOtherwise) {
    std::atomic<int> deleted = 0;
    auto thread = std::make_unique<TestThread>([](TestThread&) { return 0; }, &deleted);
    thread->SetAutoDelete(true);
    thread->SetAutoDelete(false);
    thread->Resume();
    thread->Wait(nullptr);
    EXPECT_EQ(deleted, 0);
    thread.reset();
    EXPECT_EQ(deleted, 1);
}

TEST(Thread, IsKilledWithItsObjectBeforeItRan) {
    std::atomic<bool> ran = false;
    auto thread = std::make_unique<TestThread>([&](TestThread&) {
        ran = true;
        return 0;
    });
    const thread_id id = thread->ThreadID();
    thread.reset();
    thread_info info;
    EXPECT_NE(get_thread_info(id, &info), B_OK);
    EXPECT_FALSE(ran);
}

TEST(Thread, IsKilledWithItsObjectWhileItRuns) {
    std::atomic<bool> running = false;
    auto thread = std::make_unique<TestThread>([&](TestThread&) {
        for (;;) {
            running = true;
            snooze(1000);
        }
        return 0;
    });
    const thread_id id = thread->ThreadID();
    thread->Resume();
    EXPECT_TRUE(eventually([&] { return running.load(); }));
    thread.reset();
    thread_info info;
    EXPECT_NE(get_thread_info(id, &info), B_OK);
}

// The owner learns from the thread's last message that it is done, and deletes it while it may
// still be on its way out.
TEST(Thread, MayBeDeletedWhileItEnds) {
    for (int i = 0; i < 500; i++) {
        std::binary_semaphore done(0);
        auto thread = std::make_unique<TestThread>([&](TestThread&) {
            done.release();
            return 0;
        });
        thread->Resume();
        done.acquire();
        thread.reset();
    }
}

TEST(Thread, MayBeDeletedAsSoonAsItIsSeenToHaveEnded) {
    for (int i = 0; i < 500; i++) {
        auto thread = std::make_unique<TestThread>([](TestThread&) { return 0; });
        thread->Resume();
        ASSERT_TRUE(eventually([&] { return thread->IsTerminated(); }));
        thread.reset();
    }
}

TEST(Thread, IsLeftToItselfWhileItRuns) {
    std::atomic<int> deleted = 0;
    std::binary_semaphore begun(0);
    std::binary_semaphore mayEnd(0);
    std::atomic<bool> asked = false;
    auto* thread = new TestThread(
        [&](TestThread& self) {
            begun.release();
            mayEnd.acquire();
            asked = self.IsTerminateRequested();
            return 0;
        },
        &deleted);
    const thread_id id = thread->ThreadID();
    thread->Resume();
    begun.acquire();
    thread->Abandon();
    EXPECT_EQ(deleted, 0);
    EXPECT_EQ(TThread::CountAbandoned(), 1);
    thread_info info;
    ASSERT_EQ(get_thread_info(id, &info), B_OK);
    EXPECT_EQ(info.priority, B_LOWEST_ACTIVE_PRIORITY);
    mayEnd.release();
    EXPECT_TRUE(eventually([] { return TThread::CountAbandoned() == 0; }));
    EXPECT_EQ(deleted, 1);
    EXPECT_TRUE(asked);
}

TEST(Thread, IsDeletedOnceWheneverItIsAbandoned) {
    constexpr int kThreads = 500;
    std::atomic<int> deleted = 0;
    for (int i = 0; i < kThreads; i++) {
        auto* thread = new TestThread([](TestThread&) { return 0; }, &deleted);
        thread->Resume();
        if (i % 3 == 0)
            EXPECT_TRUE(eventually([&] { return thread->IsTerminated(); }));
        else if (i % 3 == 1)
            snooze(i);
        thread->Abandon();
    }
    EXPECT_TRUE(eventually([] { return TThread::CountAbandoned() == 0; }));
    EXPECT_EQ(deleted, kThreads);
}

TEST(Thread, IsDeletedWhenItIsAbandonedBeforeItRan) {
    std::atomic<int> deleted = 0;
    std::atomic<bool> ran = false;
    auto* thread = new TestThread(
        [&](TestThread&) {
            ran = true;
            return 0;
        },
        &deleted);
    thread->Abandon();
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(TThread::CountAbandoned(), 0);
    EXPECT_FALSE(ran);
}

TEST(Thread, HasANameAndAPriority) {
    TestThread thread([](TestThread&) { return 0; }, nullptr, "first", B_LOW_PRIORITY);
    thread_info info;
    ASSERT_EQ(get_thread_info(thread.ThreadID(), &info), B_OK);
    EXPECT_STREQ(info.name, "first");
    EXPECT_EQ(info.priority, B_LOW_PRIORITY);

    EXPECT_EQ(thread.SetName("second"), B_OK);
    EXPECT_GE(thread.SetPriority(B_URGENT_DISPLAY_PRIORITY), B_OK);
    ASSERT_EQ(get_thread_info(thread.ThreadID(), &info), B_OK);
    EXPECT_STREQ(info.name, "second");
    EXPECT_EQ(info.priority, B_URGENT_DISPLAY_PRIORITY);
}

TEST(Thread, CanBeSuspendedAgain) {
    std::atomic<int> rounds = 0;
    TestThread thread([&](TestThread& self) {
        while (!self.IsTerminateRequested()) {
            rounds++;
            snooze(1000);
        }
        return 0;
    });
    thread.Resume();
    EXPECT_TRUE(eventually([&] { return rounds > 0; }));
    EXPECT_EQ(thread.Suspend(), B_OK);
    EXPECT_TRUE(thread.IsSuspended());
    EXPECT_EQ(thread.Resume(), B_OK);
    EXPECT_FALSE(thread.IsSuspended());
    const int before = rounds;
    EXPECT_TRUE(eventually([&] { return rounds > before; }));
    thread.Terminate();
    thread.Wait(nullptr);
}

}  // namespace
