#include <cstring>

#include <unistd.h>

#include "kits/kernel/Priority.h"
#include "kits/kernel/Suspension.h"
#include "kits/kernel/Thread.h"

// The thread functions of OS.h, but those that end a thread.

using namespace BPrivate;

namespace {

thread_state state_of(const Thread& thread) {
    if (thread.suspended != 0)
        return B_THREAD_SUSPENDED;
    if (&thread == current_thread())
        return B_THREAD_RUNNING;
    return thread.blockedState;
}

void describe(const Thread& thread, thread_info* info) {
    *info = {};
    info->thread = thread.id;
    info->team = getpid();
    std::memcpy(info->name, thread.name.c_str(), thread.name.size());
    info->state = state_of(thread);
    info->priority = thread.priority;
    info->sem = thread.blockedSem;
}

}  // namespace

status_t resume_thread(thread_id id) {
    const KernelLock lock;
    const ThreadPtr thread = the_threads().Find(id);
    if (thread == nullptr || thread->stopped)
        return B_BAD_THREAD_ID;
    if (thread->suspended == 0)
        return B_BAD_THREAD_STATE;
    let_go_on(*thread);
    return B_OK;
}

status_t suspend_thread(thread_id id) {
    Thread* const self = current_thread();
    const KernelLock lock;
    const ThreadPtr thread = the_threads().Find(id);
    if (thread == nullptr || thread->killed)
        return B_BAD_THREAD_ID;
    if (thread.get() == self)
        thread->suspended = 1;  // stops as it lets go of the lock
    else if (thread->suspended == 0)
        ask_to_stop(*thread);
    return B_OK;
}

status_t rename_thread(thread_id id, const char* name) {
    if (name == nullptr)
        return B_BAD_VALUE;
    current_thread();
    const KernelLock lock;
    const ThreadPtr thread = the_threads().Find(id);
    if (thread == nullptr)
        return B_BAD_THREAD_ID;
    thread->name = cut_name(name, B_OS_NAME_LENGTH);
    set_native_name(*thread);
    return B_OK;
}

status_t set_thread_priority(thread_id id, int32 priority) {
    current_thread();
    const KernelLock lock;
    const ThreadPtr thread = the_threads().Find(id);
    if (thread == nullptr)
        return B_BAD_THREAD_ID;
    const int32 before = thread->priority;
    thread->priority = in_priority_range(priority);
    schedule_thread(thread->kernelId, thread->priority);
    return before;
}

status_t on_exit_thread(void (*callback)(void* data), void* data) {
    if (callback == nullptr)
        return B_BAD_VALUE;
    Thread* const self = current_thread();
    if (self == nullptr || !self->spawned)
        return B_NOT_ALLOWED;
    self->exitHooks.emplace_back(callback, data);
    return B_OK;
}

thread_id find_thread(const char* name) {
    if (name == nullptr)
        return current_id();
    current_thread();
    const KernelLock lock;
    for (const auto& [id, thread] : the_threads().threads) {
        if (thread->name == name)
            return id;
    }
    return B_NAME_NOT_FOUND;
}

status_t get_thread_info(thread_id id, thread_info* info) {
    if (info == nullptr)
        return B_BAD_VALUE;
    current_thread();
    const KernelLock lock;
    const ThreadPtr thread = the_threads().Find(id);
    if (thread == nullptr)
        return B_BAD_THREAD_ID;
    describe(*thread, info);
    return B_OK;
}

status_t get_next_thread_info(team_id team, int32* cookie, thread_info* info) {
    if (cookie == nullptr || info == nullptr)
        return B_BAD_VALUE;
    if (team != 0 && team != getpid())
        return B_BAD_TEAM_ID;
    current_thread();
    const KernelLock lock;
    const auto& threads = the_threads().threads;
    const auto next = threads.upper_bound(*cookie);
    if (next == threads.end())
        return B_BAD_VALUE;
    *cookie = next->first;
    describe(*next->second, info);
    return B_OK;
}
