#include "kits/kernel/Priority.h"

#include <algorithm>
#include <cerrno>

#include <sys/resource.h>
#include <unistd.h>

namespace BPrivate {

namespace {

constexpr int kHighestNice = 19;

/// The lowest nice value this process may give itself: its limit counts down from 20.
int lowest_nice() {
    struct rlimit limit = {};
    if (getrlimit(RLIMIT_NICE, &limit) != 0)
        return kHighestNice + 1;
    return 20 - static_cast<int>(std::min<rlim_t>(limit.rlim_cur, 40));
}

/// What the process was started with.
int base_nice() {
    static const int base = [] {
        errno = 0;
        const int nice = getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
        return errno == 0 ? nice : 0;
    }();
    return base;
}

}  // namespace

int32 in_priority_range(int32 priority) {
    return std::clamp<int32>(priority, B_LOWEST_ACTIVE_PRIORITY, B_REAL_TIME_PRIORITY);
}

std::optional<int> nice_for_priority(int32 priority, int base, int lowest) {
    if (lowest > base)
        return std::nullopt;
    return std::clamp(base + B_NORMAL_PRIORITY - static_cast<int>(priority), lowest, kHighestNice);
}

void schedule_thread(pid_t kernelId, int32 priority) {
    const std::optional<int> nice = nice_for_priority(priority, base_nice(), lowest_nice());
    // On Linux a nice value belongs to a thread, and a thread's id is a process id here.
    if (nice && kernelId != 0)
        setpriority(PRIO_PROCESS, static_cast<id_t>(kernelId), *nice);
}

}  // namespace BPrivate
