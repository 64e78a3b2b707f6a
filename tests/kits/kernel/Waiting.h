#pragma once

// Waiting for other threads in tests: for a condition, never for a time.

#include <atomic>
#include <kernel/OS.h>
#include <thread>

#include "tests/Eventually.h"

inline thread_state state_of(thread_id thread) {
    thread_info info = {};
    return get_thread_info(thread, &info) == B_OK ? info.state : static_cast<thread_state>(0);
}

inline bool exists(thread_id thread) {
    return state_of(thread) != 0;
}

/// Spawns a thread that calls a function object, which must live as long as the thread.
template <class Function>
thread_id spawn(Function& function, const char* name = "test", int32 priority = B_NORMAL_PRIORITY) {
    return spawn_thread([](void* data) -> int32 { return (*static_cast<Function*>(data))(); }, name,
        priority, &function);
}

/// Resumes a thread, waits for its end and returns its exit status.
inline status_t run_to_end(thread_id thread) {
    status_t result = B_ERROR;
    const status_t status = wait_for_thread(thread, &result);
    return status == B_OK ? result : status;
}

#if defined(__SANITIZE_THREAD__)
constexpr bool kThreadSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
constexpr bool kThreadSanitizer = true;
#else
constexpr bool kThreadSanitizer = false;
#endif
#else
constexpr bool kThreadSanitizer = false;
#endif
