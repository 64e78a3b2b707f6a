#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <support/Locker.h>

#include "Waiting.h"

// How threads end: exit_thread(), its hooks, and kill_thread().

namespace {

/// Adds its letter to a text when it goes.
struct Trace {
    std::string& text;
    char letter;
    ~Trace() { text += letter; }
};

struct Hook {
    std::string* text;
    char letter;
    static void Call(void* data) {
        const auto* const hook = static_cast<Hook*>(data);
        *hook->text += hook->letter;
    }
};

}  // namespace

TEST(ExitThread, UnwindsAndGivesTheStatus) {
    std::string text;
    auto body = [&]() -> int32 {
        const Trace trace{text, 'd'};
        exit_thread(42);
    };
    EXPECT_EQ(run_to_end(spawn(body)), 42);
    EXPECT_EQ(text, "d");
}

TEST(ExitThread, EndsAThreadOfOtherOriginToo) {
    thread_id id = 0;
    std::string text;
    struct Argument {
        thread_id& id;
        std::string& text;
    } argument{id, text};
    pthread_t thread;
    ASSERT_EQ(pthread_create(
                  &thread, nullptr,
                  [](void* data) -> void* {
                      const auto& a = *static_cast<Argument*>(data);
                      a.id = find_thread(nullptr);
                      const Trace trace{a.text, 'd'};
                      exit_thread(1);
                  },
                  &argument),
        0);
    pthread_join(thread, nullptr);
    EXPECT_EQ(text, "d");
    EXPECT_FALSE(exists(id));
}

TEST(OnExitThread, CallsTheLastHookFirst) {
    std::string text;
    Hook hooks[] = {{&text, '1'}, {&text, '2'}, {&text, '3'}};
    auto body = [&] {
        for (Hook& hook : hooks)
            EXPECT_EQ(on_exit_thread(Hook::Call, &hook), B_OK);
        const Trace trace{text, 'd'};
        return 5;
    };
    EXPECT_EQ(run_to_end(spawn(body)), 5);
    EXPECT_EQ(text, "d321");

    text.clear();
    auto exiting = [&]() -> int32 {
        on_exit_thread(Hook::Call, &hooks[0]);
        const Trace trace{text, 'd'};
        exit_thread(6);
    };
    EXPECT_EQ(run_to_end(spawn(exiting)), 6);
    EXPECT_EQ(text, "d1");
}

TEST(OnExitThread, RunsOnTheThreadItselfAndMayAddHooksOrExit) {
    static thread_id seen = 0;
    static int calls = 0;
    calls = 0;
    auto body = [] {
        return on_exit_thread(
            [](void*) {
                seen = find_thread(nullptr);
                on_exit_thread([](void*) { calls++; }, nullptr);
                exit_thread(1);
            },
            nullptr);
    };
    const thread_id thread = spawn(body);
    EXPECT_EQ(run_to_end(thread), B_OK);
    EXPECT_EQ(seen, thread);
    EXPECT_EQ(calls, 1);
}

TEST(OnExitThread, IsRefusedWithoutAFunctionOrOnAThreadOfOtherOrigin) {
    EXPECT_EQ(on_exit_thread(nullptr, nullptr), B_BAD_VALUE);
    EXPECT_EQ(on_exit_thread(Hook::Call, nullptr), B_NOT_ALLOWED);
}

TEST(KillThread, ThatWasNeverResumedEndsItUnrun) {
    bool ran = false;
    auto body = [&] {
        ran = true;
        return 0;
    };
    const thread_id thread = spawn(body);
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_FALSE(exists(thread));
    EXPECT_EQ(kill_thread(thread), B_BAD_THREAD_ID);
    EXPECT_EQ(resume_thread(thread), B_BAD_THREAD_ID);
    status_t result = B_OK;
    EXPECT_EQ(wait_for_thread(thread, &result), B_OK);
    EXPECT_EQ(result, B_INTERRUPTED);
    EXPECT_EQ(wait_for_thread(thread, &result), B_BAD_THREAD_ID);
    EXPECT_FALSE(ran);
}

TEST(KillThread, InSnoozeUnwindsItAndCallsNoHook) {
    std::string text;
    Hook hook{&text, 'h'};
    auto body = [&]() -> int32 {
        on_exit_thread(Hook::Call, &hook);
        const Trace trace{text, 'd'};
        for (;;)
            snooze(B_INFINITE_TIMEOUT);
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_ASLEEP; }));
    EXPECT_EQ(kill_thread(thread), B_OK);
    // It has ended, so this needs no lock.
    EXPECT_EQ(text, "d");
    EXPECT_FALSE(exists(thread));
    EXPECT_EQ(run_to_end(thread), B_INTERRUPTED);
}

TEST(KillThread, ThatPollsEndsAtItsNextSnooze) {
    auto body = []() -> int32 {
        for (;;)
            snooze(0);
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(run_to_end(thread), B_INTERRUPTED);
}

TEST(KillThread, InASemaphoreLeavesItsUnitsToOthers) {
    const sem_id sem = create_sem(1, "kill");
    auto body = [&]() -> int32 { return acquire_sem_etc(sem, 2, 0, 0); };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_WAITING; }));
    thread_info info;
    EXPECT_EQ(get_thread_info(thread, &info), B_OK);
    EXPECT_EQ(info.sem, sem);
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(acquire_sem_etc(sem, 1, B_RELATIVE_TIMEOUT, 0), B_OK);
    delete_sem(sem);
}

TEST(KillThread, ThatReturnsMeanwhileWaitsForThatAndCallsNoHook) {
    std::string text;
    Hook hook{&text, 'h'};
    std::atomic<bool> begun{false};
    std::atomic<bool> go{false};
    auto body = [&] {
        on_exit_thread(Hook::Call, &hook);
        begun = true;
        eventually([&] { return go.load(); });
        text += 'r';
        return 0;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return begun.load(); }));
    std::thread killer([&] { EXPECT_EQ(kill_thread(thread), B_OK); });
    // Nobody can suspend a thread that is being killed; that tells when the kill has begun.
    EXPECT_TRUE(eventually([&] {
        const bool isKilled = suspend_thread(thread) == B_BAD_THREAD_ID;
        if (!isKilled)
            resume_thread(thread);
        return isKilled;
    }));
    go = true;
    killer.join();
    EXPECT_EQ(text, "r");
    EXPECT_EQ(run_to_end(thread), B_INTERRUPTED);
}

TEST(KillThread, ThatIsSuspendedEndsIt) {
    std::atomic<bool> ready{false};
    auto body = [&]() -> int32 {
        ready = true;
        suspend_thread(find_thread(nullptr));
        for (;;)
            snooze(B_INFINITE_TIMEOUT);
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return ready && state_of(thread) == B_THREAD_SUSPENDED; }));
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(run_to_end(thread), B_INTERRUPTED);
}

TEST(KillThread, OnItselfEndsItWithoutHooks) {
    std::string text;
    Hook hook{&text, 'h'};
    auto body = [&]() -> int32 {
        on_exit_thread(Hook::Call, &hook);
        const Trace trace{text, 'd'};
        kill_thread(find_thread(nullptr));
        text += 'x';
        return 0;
    };
    EXPECT_EQ(run_to_end(spawn(body)), B_INTERRUPTED);
    EXPECT_EQ(text, "d");
}

TEST(KillThread, InAHookOfItsOwnOnlyDropsTheOtherHooks) {
    static std::string text;
    text.clear();
    static Hook hook{&text, 'h'};
    auto body = [] {
        on_exit_thread(Hook::Call, &hook);
        return on_exit_thread(
            [](void*) { text += kill_thread(find_thread(nullptr)) == B_OK ? 'k' : 'x'; }, nullptr);
    };
    EXPECT_EQ(run_to_end(spawn(body)), B_INTERRUPTED);
    EXPECT_EQ(text, "k");
}

TEST(KillThread, IsRefusedForThreadsOfOtherOrigin) {
    EXPECT_EQ(kill_thread(find_thread(nullptr)), B_NOT_ALLOWED);
}

TEST(KillThread, ThatWaitsForAnotherInterruptsTheWait) {
    std::atomic<bool> go{false};
    auto slow = [&] { return eventually([&] { return go.load(); }) ? 8 : 0; };
    const thread_id other = spawn(slow);
    resume_thread(other);
    std::atomic<status_t> result{B_OK};
    auto body = [&] { return result = wait_for_thread(other, nullptr); };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_WAITING; }));
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(result, B_INTERRUPTED);
    go = true;
    // The interrupted one has not used the status up.
    EXPECT_EQ(run_to_end(other), 8);
}

TEST(KillThread, SleepsInDestructorsOfTheUnwoundStackDoNotThrow) {
    status_t slept = B_OK;
    struct Sleeper {
        status_t& slept;
        ~Sleeper() { slept = snooze(1000000); }
    };
    auto body = [&]() -> int32 {
        const Sleeper sleeper{slept};
        for (;;)
            snooze(B_INFINITE_TIMEOUT);
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return state_of(thread) == B_THREAD_ASLEEP; }));
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_EQ(slept, B_INTERRUPTED);
}

TEST(KillThread, FromSeveralThreadsAtOnce) {
    auto body = []() -> int32 {
        for (;;)
            snooze(1000);
    };
    for (int i = 0; i < 50; i++) {
        const thread_id thread = spawn(body);
        resume_thread(thread);
        std::vector<std::thread> killers;
        std::atomic<int> done{0};
        for (int k = 0; k < 3; k++) {
            killers.emplace_back([&] {
                const status_t status = kill_thread(thread);
                done += status == B_OK || status == B_BAD_THREAD_ID;
                EXPECT_FALSE(exists(thread));
            });
        }
        for (std::thread& killer : killers)
            killer.join();
        EXPECT_EQ(done, 3);
    }
}

TEST(KillThread, ThatNeverEndsStopsItForGood) {
    if (kThreadSanitizer)
        GTEST_SKIP() << "this sanitizer holds signals back while a thread computes";
    // What the thread uses is never freed, as it stands there for ever.
    static std::atomic<uint64> counter{0};
    auto body = []() -> int32 {
        for (;;)
            counter++;
    };
    const thread_id thread = spawn(body);
    resume_thread(thread);
    EXPECT_TRUE(eventually([&] { return counter > 1000; }));
    EXPECT_EQ(kill_thread(thread), B_OK);
    EXPECT_FALSE(exists(thread));
    EXPECT_EQ(resume_thread(thread), B_BAD_THREAD_ID);
    EXPECT_EQ(run_to_end(thread), B_INTERRUPTED);

    const uint64 last = counter;
    auto other = [] { return 0; };
    for (int i = 0; i < 20; i++)
        EXPECT_EQ(run_to_end(spawn(other)), 0);
    EXPECT_EQ(counter, last);
}

TEST(KillThread, WhoseObjectIsFreedAfterwardsNeverTouchesIt) {
    // The address sanitizer watches.
    for (int i = 0; i < 200; i++) {
        auto object = std::make_unique<std::atomic<int>>(0);
        auto body = [memory = object.get()]() -> int32 {
            for (;;) {
                (*memory)++;
                snooze(1);
            }
        };
        const thread_id thread = spawn(body);
        resume_thread(thread);
        if (i % 2 == 0) {
            EXPECT_TRUE(eventually([&] { return *object > 0; }));
        }
        EXPECT_EQ(kill_thread(thread), B_OK);
        object.reset();
    }
}
