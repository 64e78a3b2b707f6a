#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <pthread.h>

#include "Waiting.h"

TEST(Thread, WaitsSuspendedForItsFirstResume) {
    std::atomic<bool> ran{false};
    auto body = [&] {
        ran = true;
        return 7;
    };
    const thread_id thread = spawn(body);
    ASSERT_GT(thread, 0);
    EXPECT_EQ(state_of(thread), B_THREAD_SUSPENDED);
    EXPECT_EQ(state_of(thread), 5);
    EXPECT_FALSE(ran);

    EXPECT_EQ(resume_thread(thread), B_OK);
    EXPECT_TRUE(eventually([&] { return ran.load(); }));
    status_t result = 0;
    EXPECT_EQ(wait_for_thread(thread, &result), B_OK);
    EXPECT_EQ(result, 7);
}

TEST(Thread, NeedsAFunction) {
    EXPECT_EQ(spawn_thread(nullptr, "none", 10, nullptr), B_BAD_VALUE);
}

TEST(Thread, IsPassedItsDataAndReturnsItsStatus) {
    for (const int32 status : {0, 1, -1, INT32_MAX, INT32_MIN}) {
        int32 data = status;
        const thread_id thread =
            spawn_thread([](void* d) { return *static_cast<int32*>(d); }, "data", 10, &data);
        EXPECT_EQ(run_to_end(thread), status);
    }
}

TEST(Thread, RunningCannotBeResumed) {
    std::atomic<bool> go{false};
    auto body = [&] { return eventually([&] { return go.load(); }) ? 1 : 2; };
    const thread_id thread = spawn(body);
    EXPECT_EQ(resume_thread(thread), B_OK);
    EXPECT_EQ(resume_thread(thread), B_BAD_THREAD_STATE);
    go = true;
    EXPECT_EQ(run_to_end(thread), 1);
}

TEST(Thread, UnknownIdsAreRefused) {
    thread_info info;
    for (const thread_id unknown : {0, -1, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(resume_thread(unknown), B_BAD_THREAD_ID);
        EXPECT_EQ(suspend_thread(unknown), B_BAD_THREAD_ID);
        EXPECT_EQ(kill_thread(unknown), B_BAD_THREAD_ID);
        EXPECT_EQ(rename_thread(unknown, "x"), B_BAD_THREAD_ID);
        EXPECT_EQ(set_thread_priority(unknown, 5), B_BAD_THREAD_ID);
        EXPECT_EQ(wait_for_thread(unknown, nullptr), B_BAD_THREAD_ID);
        EXPECT_EQ(get_thread_info(unknown, &info), B_BAD_THREAD_ID);
    }
    EXPECT_EQ(get_thread_info(find_thread(nullptr), nullptr), B_BAD_VALUE);
}

TEST(Thread, AnEndedOneIsUnknownAndItsStatusIsHandedOutOnce) {
    auto body = [] { return 3; };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return !exists(thread); }));
    EXPECT_EQ(resume_thread(thread), B_BAD_THREAD_ID);
    EXPECT_EQ(rename_thread(thread, "late"), B_BAD_THREAD_ID);
    EXPECT_EQ(set_thread_priority(thread, 5), B_BAD_THREAD_ID);
    EXPECT_EQ(kill_thread(thread), B_BAD_THREAD_ID);

    status_t result = 0;
    EXPECT_EQ(wait_for_thread(thread, &result), B_OK);
    EXPECT_EQ(result, 3);
    EXPECT_EQ(wait_for_thread(thread, &result), B_BAD_THREAD_ID);
}

TEST(Thread, AllWhoWaitGetTheStatus) {
    std::atomic<bool> go{false};
    auto body = [&] { return eventually([&] { return go.load(); }) ? 9 : 0; };
    const thread_id thread = spawn(body);
    resume_thread(thread);

    auto waiter = [&] { return run_to_end(thread); };
    std::vector<thread_id> waiters;
    for (int i = 0; i < 4; i++) {
        waiters.push_back(spawn(waiter));
        resume_thread(waiters.back());
    }
    for (const thread_id id : waiters)
        EXPECT_TRUE(eventually([&] { return state_of(id) == B_THREAD_WAITING; }));
    go = true;
    for (const thread_id id : waiters)
        EXPECT_EQ(run_to_end(id), 9);
    EXPECT_EQ(wait_for_thread(thread, nullptr), B_BAD_THREAD_ID);
}

TEST(Thread, WaitingForASuspendedOneResumesIt) {
    auto body = [] { return 4; };
    EXPECT_EQ(run_to_end(spawn(body)), 4);
}

TEST(Thread, CannotWaitForItself) {
    EXPECT_EQ(wait_for_thread(find_thread(nullptr), nullptr), B_NOT_ALLOWED);
    auto body = [] { return wait_for_thread(find_thread(nullptr), nullptr); };
    EXPECT_EQ(run_to_end(spawn(body)), B_NOT_ALLOWED);
}

TEST(Thread, KnowsItsOwnId) {
    auto body = [] {
        const thread_id self = find_thread(nullptr);
        return state_of(self) == B_THREAD_RUNNING ? self : -1;
    };
    const thread_id thread = spawn(body);
    EXPECT_EQ(run_to_end(thread), thread);
}

TEST(Thread, OfOtherOriginGetsAnIdAndLosesItAtItsEnd) {
    const thread_id main = find_thread(nullptr);
    EXPECT_GT(main, 0);
    EXPECT_EQ(find_thread(nullptr), main);

    thread_id other = 0;
    thread_info info = {};
    std::thread([&] {
        pthread_setname_np(pthread_self(), "guest");
        other = find_thread(nullptr);
        EXPECT_EQ(get_thread_info(other, &info), B_OK);
    }).join();
    EXPECT_GT(other, 0);
    EXPECT_NE(other, main);
    EXPECT_STREQ(info.name, "guest");
    EXPECT_EQ(info.priority, B_NORMAL_PRIORITY);
    EXPECT_FALSE(exists(other));
    EXPECT_EQ(wait_for_thread(other, nullptr), B_BAD_THREAD_ID);
}

TEST(Thread, OfOtherOriginCanBeWaitedForWhileItRuns) {
    std::atomic<thread_id> id{0};
    std::atomic<bool> go{false};
    std::thread other([&] {
        id = find_thread(nullptr);
        EXPECT_TRUE(eventually([&] { return go.load(); }));
    });
    EXPECT_TRUE(eventually([&] { return id != 0; }));
    auto body = [&] { return wait_for_thread(id, nullptr); };
    const thread_id waiter = spawn(body);
    resume_thread(waiter);
    EXPECT_TRUE(eventually([&] { return state_of(waiter) == B_THREAD_WAITING; }));
    go = true;
    EXPECT_EQ(run_to_end(waiter), B_OK);
    other.join();
}

TEST(Thread, StillHasItsIdInTheDestructorsAtItsEnd) {
    static thread_id seen = 0;
    struct AtEnd {
        ~AtEnd() { seen = find_thread(nullptr); }
    };
    auto body = [] {
        thread_local const AtEnd atEnd;
        return reinterpret_cast<std::uintptr_t>(&atEnd) != 0 ? 0 : 1;
    };
    const thread_id thread = spawn(body);
    EXPECT_EQ(run_to_end(thread), 0);
    // Who has waited for the end may read what the destructors wrote.
    EXPECT_EQ(seen, thread);
}

TEST(ThreadName, IsKeptUpTo31Bytes) {
    const struct {
        const char* given;
        const char* kept;
        const char* native;
    } cases[] = {
        {"", "", ""},
        {nullptr, "", ""},
        {"short", "short", "short"},
        {"exactly 15 byte", "exactly 15 byte", "exactly 15 byte"},
        {"exactly 16 bytes", "exactly 16 bytes", "exactly 16 byte"},
        {"LoadThread_0123456789abcdefghij", "LoadThread_0123456789abcdefghij", "LoadThread_0123"},
        {"LoadThread_0123456789abcdefghijk", "LoadThread_0123456789abcdefghij", "LoadThread_0123"},
        // Never a part of a character: the last would need bytes 31 to 33, or 15 and 16.
        {"LoadThread_0123456789abcdefghi\xE5\x86\x99", "LoadThread_0123456789abcdefghi",
            "LoadThread_0123"},
        {"LoadThread_012\xC3\xA9", "LoadThread_012\xC3\xA9", "LoadThread_012"},
    };
    for (const auto& test : cases) {
        std::string native;
        auto body = [&] {
            char name[16];
            pthread_getname_np(pthread_self(), name, sizeof(name));
            native = name;
            return 0;
        };
        const thread_id thread = spawn(body, test.given);
        thread_info info;
        EXPECT_EQ(get_thread_info(thread, &info), B_OK);
        EXPECT_STREQ(info.name, test.kept);
        EXPECT_EQ(run_to_end(thread), 0);
        EXPECT_EQ(native, test.native);
    }
}

TEST(ThreadName, CanBeChangedByItselfAndByOthers) {
    auto body = [] { return rename_thread(find_thread(nullptr), "its own choice"); };
    const thread_id thread = spawn(body, "first");
    EXPECT_EQ(find_thread("first"), thread);
    EXPECT_EQ(rename_thread(thread, "second"), B_OK);
    EXPECT_EQ(find_thread("first"), B_NAME_NOT_FOUND);
    EXPECT_EQ(find_thread("second"), thread);
    EXPECT_EQ(rename_thread(thread, nullptr), B_BAD_VALUE);
    EXPECT_EQ(run_to_end(thread), B_OK);
    EXPECT_EQ(find_thread("its own choice"), B_NAME_NOT_FOUND);
}

TEST(Threads, AreListedInOrder) {
    auto body = [] { return 0; };
    std::set<thread_id> mine = {find_thread(nullptr)};
    for (int i = 0; i < 3; i++)
        mine.insert(spawn(body, "listed"));

    std::vector<thread_id> listed;
    thread_info info;
    int32 cookie = 0;
    while (get_next_thread_info(0, &cookie, &info) == B_OK)
        listed.push_back(info.thread);
    EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
    for (const thread_id id : mine)
        EXPECT_NE(std::find(listed.begin(), listed.end(), id), listed.end());

    cookie = 0;
    EXPECT_EQ(get_next_thread_info(info.team, &cookie, &info), B_OK);
    EXPECT_EQ(get_next_thread_info(info.team + 1, &cookie, &info), B_BAD_TEAM_ID);
    EXPECT_EQ(get_next_thread_info(0, nullptr, &info), B_BAD_VALUE);
    EXPECT_EQ(get_next_thread_info(0, &cookie, nullptr), B_BAD_VALUE);
    for (const thread_id id : mine) {
        if (id != find_thread(nullptr)) {
            EXPECT_EQ(run_to_end(id), 0);
        }
    }
}

TEST(Threads, AThousandRunAndAreWaitedFor) {
    constexpr int kThreads = 1000;
    std::atomic<int> sum{0};
    auto body = [&] {
        sum++;
        return find_thread(nullptr);
    };
    std::vector<thread_id> threads;
    std::set<thread_id> ids;
    for (int i = 0; i < kThreads; i++) {
        threads.push_back(spawn(body));
        ASSERT_GT(threads.back(), 0);
        ids.insert(threads.back());
        if (i % 2 == 0) {
            EXPECT_EQ(resume_thread(threads.back()), B_OK);
        }
    }
    EXPECT_EQ(ids.size(), threads.size());
    for (const thread_id thread : threads)
        EXPECT_EQ(run_to_end(thread), thread);
    EXPECT_EQ(sum, kThreads);
    // The ids are not used again soon.
    EXPECT_GT(spawn(body), *ids.rbegin());
    EXPECT_EQ(run_to_end(*ids.rbegin() + 1), *ids.rbegin() + 1);
}

TEST(Threads, MemoryOfUnaskedStatusesIsBounded) {
    auto body = [] { return 1; };
    const thread_id first = spawn(body);
    EXPECT_EQ(resume_thread(first), B_OK);
    EXPECT_TRUE(eventually([&] { return !exists(first); }));
    for (int i = 0; i < 4096; i++) {
        const thread_id thread = spawn(body);
        ASSERT_EQ(kill_thread(thread), B_OK);
    }
    EXPECT_EQ(wait_for_thread(first, nullptr), B_BAD_THREAD_ID);
}
