#include <condition_variable>
#include <ctime>

#include "kits/kernel/Thread.h"

using namespace BPrivate;

namespace {

bigtime_t microseconds_of(clockid_t clock) {
    timespec now = {};
    clock_gettime(clock, &now);
    return bigtime_t{now.tv_sec} * 1000000 + now.tv_nsec / 1000;
}

}  // namespace

bigtime_t BPrivate::deadline_after(bigtime_t microseconds) {
    bigtime_t deadline = 0;
    if (__builtin_add_overflow(system_time(), microseconds, &deadline))
        return microseconds < 0 ? 0 : B_INFINITE_TIMEOUT;
    return deadline;
}

bigtime_t system_time() {
    return microseconds_of(CLOCK_MONOTONIC);
}

uint32 real_time_clock() {
    return static_cast<uint32>(microseconds_of(CLOCK_REALTIME) / 1000000);
}

bigtime_t real_time_clock_usecs() {
    return microseconds_of(CLOCK_REALTIME);
}

status_t snooze(bigtime_t microseconds) {
    return snooze_until(deadline_after(microseconds), B_SYSTEM_TIMEBASE);
}

status_t snooze_until(bigtime_t time, int32 timebase) {
    if (timebase != B_SYSTEM_TIMEBASE)
        return B_BAD_VALUE;
    current_thread();
    status_t status = B_OK;
    {
        // Nobody tells this condition anything but who kills the thread.
        std::condition_variable killed;
        KernelLock lock;
        status = lock.Wait(killed, time, B_THREAD_ASLEEP, -1, [] { return false; });
    }
    if (status == B_TIMED_OUT)
        return B_OK;
    end_if_killed();
    return status;
}
