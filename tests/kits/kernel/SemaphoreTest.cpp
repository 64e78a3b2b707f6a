#include <gtest/gtest.h>

#include <mutex>
#include <vector>

#include "Waiting.h"

namespace {

/// A semaphore for the length of a test.
struct Sem {
    sem_id id;
    explicit Sem(int32 count, const char* name = "test") : id(create_sem(count, name)) {}
    ~Sem() { delete_sem(id); }
    int32 Count() const {
        int32 count = INT32_MIN;
        EXPECT_EQ(get_sem_count(id, &count), B_OK);
        return count;
    }
};

}  // namespace

TEST(Semaphore, CountsItsUnits) {
    const Sem sem(2, "a semaphore with quite a long name indeed");
    ASSERT_GT(sem.id, 0);
    EXPECT_EQ(acquire_sem(sem.id), B_OK);
    EXPECT_EQ(sem.Count(), 1);
    EXPECT_EQ(acquire_sem(sem.id), B_OK);
    EXPECT_EQ(sem.Count(), 0);
    EXPECT_EQ(release_sem_etc(sem.id, 5, B_DO_NOT_RESCHEDULE), B_OK);
    EXPECT_EQ(sem.Count(), 5);
    EXPECT_EQ(acquire_sem_etc(sem.id, 5, 0, 0), B_OK);

    sem_info info;
    EXPECT_EQ(get_sem_info(sem.id, &info), B_OK);
    EXPECT_EQ(info.sem, sem.id);
    EXPECT_STREQ(info.name, "a semaphore with quite a long n");
    EXPECT_EQ(info.count, 0);
    EXPECT_EQ(info.latest_holder, find_thread(nullptr));
}

TEST(Semaphore, RefusesBadValues) {
    EXPECT_EQ(create_sem(-1, "negative"), B_BAD_VALUE);
    const Sem sem(INT32_MAX, nullptr);
    EXPECT_EQ(release_sem(sem.id), B_BAD_VALUE);
    EXPECT_EQ(sem.Count(), INT32_MAX);
    for (const int32 count : {0, -1, INT32_MIN}) {
        EXPECT_EQ(acquire_sem_etc(sem.id, count, 0, 0), B_BAD_VALUE);
        EXPECT_EQ(release_sem_etc(sem.id, count, 0), B_BAD_VALUE);
    }
    EXPECT_EQ(get_sem_count(sem.id, nullptr), B_BAD_VALUE);
    EXPECT_EQ(get_sem_info(sem.id, nullptr), B_BAD_VALUE);

    const sem_id deleted = create_sem(1, "deleted");
    EXPECT_EQ(delete_sem(deleted), B_OK);
    int32 count = 0;
    sem_info info;
    for (const sem_id bad : {deleted, 0, -1, INT32_MAX}) {
        EXPECT_EQ(delete_sem(bad), B_BAD_SEM_ID);
        EXPECT_EQ(acquire_sem(bad), B_BAD_SEM_ID);
        EXPECT_EQ(release_sem(bad), B_BAD_SEM_ID);
        EXPECT_EQ(get_sem_count(bad, &count), B_BAD_SEM_ID);
        EXPECT_EQ(get_sem_info(bad, &info), B_BAD_SEM_ID);
    }
}

TEST(Semaphore, TimesOut) {
    const Sem sem(1);
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_RELATIVE_TIMEOUT, 0), B_OK);
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_RELATIVE_TIMEOUT, 0), B_WOULD_BLOCK);
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_RELATIVE_TIMEOUT, -5), B_WOULD_BLOCK);

    const bigtime_t before = system_time();
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_RELATIVE_TIMEOUT, 2000), B_TIMED_OUT);
    EXPECT_GE(system_time() - before, 2000);
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_ABSOLUTE_TIMEOUT, before), B_TIMED_OUT);
    const bigtime_t deadline = system_time() + 2000;
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_ABSOLUTE_TIMEOUT, deadline), B_TIMED_OUT);
    EXPECT_GE(system_time(), deadline);
    EXPECT_EQ(sem.Count(), 0);
}

TEST(Semaphore, InfiniteTimeoutsWaitForARelease) {
    for (const uint32 flags : {uint32{0}, uint32{B_RELATIVE_TIMEOUT}, uint32{B_ABSOLUTE_TIMEOUT}}) {
        const Sem sem(0);
        auto body = [&] { return acquire_sem_etc(sem.id, 1, flags, B_INFINITE_TIMEOUT); };
        const thread_id thread = spawn(body);
        resume_thread(thread);
        EXPECT_TRUE(eventually([&] { return sem.Count() == -1; }));
        EXPECT_EQ(release_sem(sem.id), B_OK);
        EXPECT_EQ(run_to_end(thread), B_OK);
    }
}

TEST(Semaphore, WakesWhoWaitsWhenItIsDeleted) {
    const sem_id sem = create_sem(0, "deleted");
    auto body = [&] { return acquire_sem(sem); };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_WAITING; }));
    EXPECT_EQ(delete_sem(sem), B_OK);
    EXPECT_EQ(run_to_end(thread), B_BAD_SEM_ID);
}

TEST(Semaphore, ServesInTheOrderTheyCame) {
    const Sem sem(0);
    std::mutex lock;
    std::vector<thread_id> order;
    auto body = [&] {
        const status_t status = acquire_sem(sem.id);
        const std::lock_guard guard(lock);
        order.push_back(find_thread(nullptr));
        return status;
    };
    std::vector<thread_id> threads;
    for (int i = 0; i < 5; i++) {
        threads.push_back(spawn(body));
        resume_thread(threads.back());
        EXPECT_TRUE(eventually([&] { return sem.Count() == -1 - i; }));
    }
    for (std::size_t i = 0; i < threads.size(); i++) {
        EXPECT_EQ(release_sem(sem.id), B_OK);
        EXPECT_EQ(run_to_end(threads[i]), B_OK);
    }
    EXPECT_EQ(order, threads);
}

TEST(Semaphore, OneThatGivesUpLetsThoseBehindItPass) {
    const Sem sem(1);
    auto wantsTwo = [&] { return acquire_sem_etc(sem.id, 2, 0, 0); };
    auto wantsOne = [&] { return acquire_sem(sem.id); };
    const thread_id first = spawn(wantsTwo);
    resume_thread(first);
    EXPECT_TRUE(eventually([&] { return sem.Count() == -1; }));
    const thread_id second = spawn(wantsOne);
    resume_thread(second);
    EXPECT_TRUE(eventually([&] { return sem.Count() == -2; }));
    EXPECT_EQ(acquire_sem_etc(sem.id, 1, B_RELATIVE_TIMEOUT, 0), B_WOULD_BLOCK);
    EXPECT_EQ(kill_thread(first), B_OK);
    EXPECT_EQ(run_to_end(second), B_OK);
    EXPECT_EQ(sem.Count(), 0);
}

TEST(Semaphore, KeepsThreadsApart) {
    const Sem sem(1);
    int counter = 0;
    auto body = [&] {
        for (int i = 0; i < 500; i++) {
            if (acquire_sem(sem.id) != B_OK)
                return 1;
            counter++;
            release_sem(sem.id);
        }
        return 0;
    };
    std::vector<thread_id> threads;
    for (int i = 0; i < 4; i++) {
        threads.push_back(spawn(body));
        resume_thread(threads.back());
    }
    for (const thread_id thread : threads)
        EXPECT_EQ(run_to_end(thread), 0);
    EXPECT_EQ(counter, 2000);
}

TEST(Semaphore, ThereAreOnlySoMany) {
    std::vector<sem_id> all;
    sem_id last = 0;
    while (all.size() <= 65536 && (last = create_sem(0, "many")) > 0)
        all.push_back(last);
    EXPECT_EQ(last, B_NO_MORE_SEMS);
    EXPECT_GT(all.size(), 60000u);
    for (const sem_id sem : all)
        EXPECT_EQ(delete_sem(sem), B_OK);
}
