#include <gtest/gtest.h>

#include <cerrno>
#include <ctime>

#include <sys/resource.h>
#include <unistd.h>

#include "kits/kernel/Priority.h"

#include "Waiting.h"

TEST(Time, IsMonotonicMicroseconds) {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const bigtime_t expected = bigtime_t{now.tv_sec} * 1000000 + now.tv_nsec / 1000;
    const bigtime_t first = system_time();
    EXPECT_GE(first, expected);
    EXPECT_LT(first, expected + 30000000);
    EXPECT_GE(system_time(), first);

    const std::time_t unixTime = std::time(nullptr);
    EXPECT_GE(real_time_clock_usecs() / 1000000, unixTime);
    EXPECT_LE(bigtime_t{real_time_clock()} - unixTime, 30);
}

TEST(Time, SnoozeSleepsAtLeastSoLong) {
    for (const bigtime_t duration : {bigtime_t{1}, bigtime_t{1000}, bigtime_t{20000}}) {
        const bigtime_t before = system_time();
        EXPECT_EQ(snooze(duration), B_OK);
        EXPECT_GE(system_time() - before, duration);
    }
    const bigtime_t until = system_time() + 5000;
    EXPECT_EQ(snooze_until(until, B_SYSTEM_TIMEBASE), B_OK);
    EXPECT_GE(system_time(), until);
}

TEST(Time, SnoozeForNoTimeReturnsAtOnce) {
    const bigtime_t before = system_time();
    for (const bigtime_t duration : {bigtime_t{0}, bigtime_t{-1}, INT64_MIN})
        EXPECT_EQ(snooze(duration), B_OK);
    EXPECT_EQ(snooze_until(before, B_SYSTEM_TIMEBASE), B_OK);
    EXPECT_EQ(snooze_until(-1, B_SYSTEM_TIMEBASE), B_OK);
    EXPECT_EQ(snooze_until(before, 1), B_BAD_VALUE);
}

TEST(Priority, IsKeptAsGivenAndTheOldOneReturned) {
    auto body = [] { return 0; };
    const thread_id thread = spawn(body, "priority", B_LOW_PRIORITY);
    const struct {
        int32 given;
        int32 kept;
    } cases[] = {{20, 20}, {1, 1}, {15, 15}, {120, 120}, {121, 120}, {0, 1}, {-7, 1},
        {INT32_MAX, 120}, {INT32_MIN, 1}, {10, 10}};
    int32 before = B_LOW_PRIORITY;
    for (const auto& test : cases) {
        EXPECT_EQ(set_thread_priority(thread, test.given), before);
        thread_info info;
        EXPECT_EQ(get_thread_info(thread, &info), B_OK);
        EXPECT_EQ(info.priority, test.kept);
        before = test.kept;
    }
    EXPECT_EQ(run_to_end(thread), 0);
}

TEST(Priority, MapsToNiceOnlyWhereItCanComeBack) {
    const struct {
        int32 priority;
        int base;
        int lowest;
        int nice;
    } cases[] = {
        {10, 0, -20, 0},
        {5, 0, -20, 5},
        {1, 0, -20, 9},
        {15, 0, -20, -5},
        {20, 0, -20, -10},
        {120, 0, -20, -20},
        {20, 0, 0, 0},
        {5, 0, 0, 5},
        {20, 0, -5, -5},
        {10, 5, 5, 5},
        {1, 15, 10, 19},
    };
    for (const auto& test : cases)
        EXPECT_EQ(BPrivate::nice_for_priority(test.priority, test.base, test.lowest), test.nice);
    // The usual limit of a Linux user: lowering could never be undone.
    EXPECT_EQ(BPrivate::nice_for_priority(5, 0, 20), std::nullopt);
    EXPECT_EQ(BPrivate::nice_for_priority(20, 0, 1), std::nullopt);
}

namespace {

/// The nice value of the calling thread after setting its priority.
int nice_at(int32 priority) {
    set_thread_priority(find_thread(nullptr), priority);
    errno = 0;
    return getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
}

/// Sets the limit for this test only.
struct NiceLimit {
    rlimit before{};
    bool isSet;
    explicit NiceLimit(rlim_t lowest) {
        getrlimit(RLIMIT_NICE, &before);
        const rlimit wanted = {lowest, max_c(before.rlim_max, lowest)};
        isSet = setrlimit(RLIMIT_NICE, &wanted) == 0;
    }
    ~NiceLimit() { setrlimit(RLIMIT_NICE, &before); }
};

}  // namespace

TEST(Priority, LeavesTheSchedulerAloneWithoutTheRight) {
    const NiceLimit limit(0);
    ASSERT_TRUE(limit.isSet);
    auto body = [] {
        const int before = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));
        return nice_at(B_LOW_PRIORITY) == before && nice_at(B_URGENT_DISPLAY_PRIORITY) == before
            ? 1
            : 0;
    };
    EXPECT_EQ(run_to_end(spawn(body, "scheduled", B_LOW_PRIORITY)), 1);
}

TEST(Priority, ReachesTheSchedulerWithTheRight) {
    // The limit counts down from 20: this allows nice values from -10 on.
    const NiceLimit limit(30);
    if (!limit.isSet)
        GTEST_SKIP() << "this user may not raise the limit";
    if (getpriority(PRIO_PROCESS, static_cast<id_t>(getpid())) != 0)
        GTEST_SKIP() << "the tests run at another nice value";
    auto body = [] {
        EXPECT_EQ(getpriority(PRIO_PROCESS, static_cast<id_t>(gettid())), 5);
        EXPECT_EQ(nice_at(B_LOWEST_ACTIVE_PRIORITY), 9);
        EXPECT_EQ(nice_at(B_DISPLAY_PRIORITY), -5);
        EXPECT_EQ(nice_at(B_NORMAL_PRIORITY), 0);
        return 0;
    };
    EXPECT_EQ(run_to_end(spawn(body, "scheduled", B_LOW_PRIORITY)), 0);
}
