#include <gtest/gtest.h>

#include <thread>

#include "Waiting.h"

TEST(Suspend, StopsAThreadWhereItIsUntilItIsResumed) {
    if (kThreadSanitizer)
        GTEST_SKIP() << "this sanitizer holds signals back while a thread computes";
    std::atomic<uint64> counter{0};
    std::atomic<bool> stop{false};
    auto body = [&] {
        while (!stop)
            counter++;
        return 0;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return counter > 1000; }));
    EXPECT_EQ(suspend_thread(thread), B_OK);
    EXPECT_EQ(state_of(thread), B_THREAD_SUSPENDED);
    EXPECT_EQ(suspend_thread(thread), B_OK);

    // It has stopped when the counter stays the same over many looks.
    const auto stays = [&] {
        const uint64 before = counter;
        for (int i = 0; i < 1000; i++)
            std::this_thread::yield();
        return counter == before;
    };
    EXPECT_TRUE(eventually(stays));
    const uint64 before = counter;
    EXPECT_EQ(resume_thread(thread), B_OK);
    EXPECT_TRUE(eventually([&] { return counter > before; }));
    EXPECT_NE(state_of(thread), B_THREAD_SUSPENDED);
    stop = true;
    EXPECT_EQ(run_to_end(thread), 0);
}

TEST(Suspend, ItselfWaitsForResume) {
    std::atomic<int> step{0};
    auto body = [&] {
        step = 1;
        EXPECT_EQ(suspend_thread(find_thread(nullptr)), B_OK);
        step = 2;
        return 0;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return step == 1 && state_of(thread) == B_THREAD_SUSPENDED; }));
    EXPECT_EQ(step, 1);
    EXPECT_EQ(resume_thread(thread), B_OK);
    EXPECT_EQ(run_to_end(thread), 0);
    EXPECT_EQ(step, 2);
}

TEST(Suspend, WaitingForASuspendedThreadResumesIt) {
    auto body = [] { return suspend_thread(find_thread(nullptr)) == B_OK ? 11 : 0; };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_SUSPENDED; }));
    EXPECT_EQ(run_to_end(thread), 11);
}

TEST(Suspend, OneThatSleepsStopsBeforeItGoesOn) {
    const sem_id sem = create_sem(0, "asleep");
    std::atomic<bool> passed{false};
    auto body = [&] {
        const status_t status = acquire_sem(sem);
        passed = true;
        return status;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_WAITING; }));
    EXPECT_EQ(suspend_thread(thread), B_OK);
    EXPECT_EQ(state_of(thread), B_THREAD_SUSPENDED);
    EXPECT_EQ(release_sem(sem), B_OK);
    // The unit is handed to it, but it does not come out with it.
    int32 count = -1;
    EXPECT_EQ(get_sem_count(sem, &count), B_OK);
    EXPECT_EQ(count, 0);
    auto other = [] { return 0; };
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(run_to_end(spawn(other)), 0);
    EXPECT_FALSE(passed);
    EXPECT_EQ(resume_thread(thread), B_OK);
    EXPECT_EQ(run_to_end(thread), B_OK);
    delete_sem(sem);
}

TEST(Suspend, ManyTimesInARowLosesNothing) {
    std::atomic<uint64> counter{0};
    std::atomic<bool> stop{false};
    auto body = [&] {
        while (!stop) {
            counter++;
            snooze(0);
        }
        return 0;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    for (int i = 0; i < 500; i++) {
        EXPECT_EQ(suspend_thread(thread), B_OK);
        EXPECT_EQ(resume_thread(thread), B_OK);
    }
    const uint64 before = counter;
    EXPECT_TRUE(eventually([&] { return counter > before + 10; }));
    stop = true;
    EXPECT_EQ(run_to_end(thread), 0);
}

TEST(Suspend, AThreadOfOtherOriginCanBeToo) {
    std::atomic<thread_id> id{0};
    std::atomic<bool> stop{false};
    std::thread other([&] {
        id = find_thread(nullptr);
        while (!stop)
            snooze(100);
    });
    EXPECT_TRUE(eventually([&] { return id != 0; }));
    EXPECT_EQ(suspend_thread(id), B_OK);
    EXPECT_EQ(state_of(id), B_THREAD_SUSPENDED);
    EXPECT_EQ(resume_thread(id), B_OK);
    stop = true;
    other.join();
    EXPECT_EQ(suspend_thread(id), B_BAD_THREAD_ID);
}
