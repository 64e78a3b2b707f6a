#include <pthread.h>
#include <unistd.h>

#include "kits/kernel/Priority.h"
#include "kits/kernel/Suspension.h"
#include "kits/kernel/Thread.h"

// How a spawned thread begins and ends.

using namespace BPrivate;

namespace {

// How long a killed thread is given to end by itself, and to stop when it did not.
constexpr bigtime_t kTimeToEnd = 1000000;
constexpr bigtime_t kTimeToStop = 1000000;

/// Calls the thread's function and its hooks, unless it is killed before.
status_t run(Thread& self) {
    status_t status = B_INTERRUPTED;
    bool killed = false;
    {
        const KernelLock lock;
        killed = self.killed;
    }
    if (!killed) {
        try {
            status = self.function(self.data);
        } catch (const ThreadExit& exit) {
            status = exit.status;
        }
    }

    for (;;) {
        {
            const KernelLock lock;
            self.ending = true;
            if (self.killed)
                return B_INTERRUPTED;
        }
        if (self.exitHooks.empty())
            return status;
        const auto [hook, data] = self.exitHooks.back();
        self.exitHooks.pop_back();
        try {
            hook(data);
        } catch (const ThreadExit&) {
            // It ends anyway, with the status it has.
        }
    }
}

void* thread_entry(void* data) {
    auto& self = *static_cast<Thread*>(data);
    adopt_thread(&self);
    {
        const KernelLock lock;
        self.kernelId = gettid();
        set_native_name(self);
        schedule_thread(self.kernelId, self.priority);
        // It was born suspended and stays here until it is resumed for the first time.
    }
    const status_t status = run(self);
    const KernelLock lock;
    self.exitStatus = status;
    return nullptr;
}

/// Stops a thread for good that did not end, and counts it as ended.
void stop_for_good(KernelLock& lock, const ThreadPtr& thread) {
    thread->stopped = true;
    ask_to_stop(*thread);
    lock.Without([&] { await_stop(*thread, kTimeToStop); });
    if (thread->ended)
        return;
    the_threads().stopped.push_back(thread);
    the_threads().Remove(*thread, B_INTERRUPTED);
}

/// Has a thread end, and returns when it has.
void end_thread(KernelLock& lock, const ThreadPtr& thread) {
    thread->killed = true;
    if (!thread->stopped)
        let_go_on(*thread);
    if (thread->blockedOn != nullptr)
        thread->blockedOn->notify_all();

    const auto hasEnded = [&] { return thread->ended; };
    const bigtime_t deadline = system_time() + kTimeToEnd;
    // Who kills must not be interrupted: it goes on to free what the thread works on.
    const status_t status = lock.WaitRegardless(thread->gone, deadline, hasEnded);
    if (status == B_OK)
        return;
    if (!thread->stopped)
        stop_for_good(lock, thread);
    else
        lock.WaitRegardless(thread->gone, B_INFINITE_TIMEOUT, hasEnded);
}

/// Ends the calling thread.
status_t kill_itself(Thread& self) {
    {
        const KernelLock lock;
        self.killed = true;
        if (self.ending)
            return B_OK;
    }
    throw ThreadExit{B_INTERRUPTED};
}

}  // namespace

thread_id spawn_thread(thread_func func, const char* name, int32 priority, void* data) {
    if (func == nullptr)
        return B_BAD_VALUE;
    current_thread();
    auto thread = std::make_shared<Thread>(true);
    thread->name = cut_name(name, B_OS_NAME_LENGTH);
    thread->function = func;
    thread->data = data;
    thread->priority = in_priority_range(priority);
    thread->suspended = 1;

    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    const KernelLock lock;
    the_threads().Insert(thread);
    const int error = pthread_create(&thread->handle, &attributes, thread_entry, thread.get());
    pthread_attr_destroy(&attributes);
    if (error != 0) {
        the_threads().threads.erase(thread->id);
        return B_NO_MORE_THREADS;
    }
    return thread->id;
}

void exit_thread(status_t returnValue) {
    Thread* const self = current_thread();
    if (self == nullptr || !self->spawned)
        pthread_exit(nullptr);
    throw ThreadExit{returnValue};
}

status_t kill_thread(thread_id id) {
    Thread* const self = current_thread();
    {
        KernelLock lock;
        const ThreadPtr thread = the_threads().Find(id);
        if (thread == nullptr)
            return B_BAD_THREAD_ID;
        if (!thread->spawned)
            return B_NOT_ALLOWED;
        if (thread.get() != self) {
            end_thread(lock, thread);
            return B_OK;
        }
    }
    return kill_itself(*self);
}

status_t wait_for_thread(thread_id id, status_t* returnValue) {
    Thread* const self = current_thread();
    status_t ignored = B_OK;
    status_t& result = returnValue != nullptr ? *returnValue : ignored;
    KernelLock lock;
    ThreadTable& table = the_threads();
    const ThreadPtr thread = table.Find(id);
    if (thread == nullptr)
        return table.TakeStatus(id, &result) ? B_OK : B_BAD_THREAD_ID;
    if (thread.get() == self)
        return B_NOT_ALLOWED;

    if (thread->suspended != 0 && !thread->stopped)
        let_go_on(*thread);
    thread->waiting++;
    const status_t status = lock.Wait(
        thread->gone, B_INFINITE_TIMEOUT, B_THREAD_WAITING, -1, [&] { return thread->ended; });
    thread->waiting--;
    if (status == B_OK)
        result = thread->exitStatus;
    return status;
}
