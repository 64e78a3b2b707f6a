#include <condition_variable>
#include <cstring>
#include <list>
#include <map>
#include <string>

#include <unistd.h>

#include "kits/kernel/Thread.h"

// Semaphores. They share the threads' lock, since a killed thread has to be woken from one.

using namespace BPrivate;

namespace {

constexpr std::size_t kMostSemaphores = 65536;

/// A thread that waits; it stands on that thread's stack.
struct Waiter {
    enum class Outcome { kNone, kGiven, kDeleted };

    const int32 count;
    Outcome outcome = Outcome::kNone;
    std::condition_variable woken{};
};

struct Semaphore {
    std::string name;
    int32 count;
    thread_id latestHolder = 0;
    std::list<Waiter*> waiters{};

    /// Serves those who wait, in order, as far as the units go.
    void Serve() {
        while (!waiters.empty() && waiters.front()->count <= count) {
            Waiter* const first = waiters.front();
            waiters.pop_front();
            count -= first->count;
            first->outcome = Waiter::Outcome::kGiven;
            first->woken.notify_one();
        }
    }

    /// The units, less those that are waited for.
    int32 Balance() const {
        int64 balance = count;
        for (const Waiter* waiter : waiters)
            balance -= waiter->count;
        return static_cast<int32>(max_c<int64>(balance, INT32_MIN));
    }
};

struct SemaphoreTable {
    std::map<sem_id, Semaphore> semaphores;
    sem_id lastId = 0;

    Semaphore* Find(sem_id id) {
        const auto found = semaphores.find(id);
        return found != semaphores.end() ? &found->second : nullptr;
    }
};

SemaphoreTable& the_semaphores() {
    static SemaphoreTable& table = *new SemaphoreTable;
    return table;
}

/// Until when to wait; less than now for not at all.
bigtime_t deadline_of(uint32 flags, bigtime_t timeout) {
    if ((flags & B_ABSOLUTE_TIMEOUT) != 0)
        return timeout;
    return (flags & B_RELATIVE_TIMEOUT) != 0 ? deadline_after(timeout) : B_INFINITE_TIMEOUT;
}

status_t acquire(sem_id id, int32 count, uint32 flags, bigtime_t timeout) {
    KernelLock lock;
    Semaphore* semaphore = the_semaphores().Find(id);
    if (semaphore == nullptr)
        return B_BAD_SEM_ID;
    if (semaphore->waiters.empty() && semaphore->count >= count) {
        semaphore->count -= count;
        semaphore->latestHolder = current_id();
        return B_OK;
    }
    if ((flags & B_RELATIVE_TIMEOUT) != 0 && timeout <= 0)
        return B_WOULD_BLOCK;

    Waiter self{count};
    semaphore->waiters.push_back(&self);
    const status_t status = lock.Wait(self.woken, deadline_of(flags, timeout), B_THREAD_WAITING, id,
        [&] { return self.outcome != Waiter::Outcome::kNone; });
    if (self.outcome == Waiter::Outcome::kDeleted)
        return B_BAD_SEM_ID;
    semaphore = the_semaphores().Find(id);
    if (self.outcome == Waiter::Outcome::kGiven) {
        // It may have been deleted between the gift and now.
        if (semaphore != nullptr)
            semaphore->latestHolder = current_id();
        return B_OK;
    }
    // Nobody has given it anything, so it still stands in the queue; what it asked for may be
    // what those behind it could not pass.
    semaphore->waiters.remove(&self);
    semaphore->Serve();
    return status;
}

}  // namespace

sem_id create_sem(int32 count, const char* name) {
    if (count < 0)
        return B_BAD_VALUE;
    current_thread();
    const KernelLock lock;
    SemaphoreTable& table = the_semaphores();
    if (table.semaphores.size() >= kMostSemaphores)
        return B_NO_MORE_SEMS;
    do {
        table.lastId = table.lastId < INT32_MAX ? table.lastId + 1 : 1;
    } while (table.semaphores.contains(table.lastId));
    table.semaphores.emplace(table.lastId, Semaphore{cut_name(name, B_OS_NAME_LENGTH), count});
    return table.lastId;
}

status_t delete_sem(sem_id id) {
    const KernelLock lock;
    Semaphore* const semaphore = the_semaphores().Find(id);
    if (semaphore == nullptr)
        return B_BAD_SEM_ID;
    for (Waiter* waiter : semaphore->waiters) {
        waiter->outcome = Waiter::Outcome::kDeleted;
        waiter->woken.notify_one();
    }
    the_semaphores().semaphores.erase(id);
    return B_OK;
}

status_t acquire_sem(sem_id id) {
    return acquire_sem_etc(id, 1, 0, 0);
}

status_t acquire_sem_etc(sem_id id, int32 count, uint32 flags, bigtime_t timeout) {
    if (count < 1)
        return B_BAD_VALUE;
    current_thread();
    end_if_killed();
    const status_t status = acquire(id, count, flags, timeout);
    if (status == B_INTERRUPTED)
        end_if_killed();
    return status;
}

status_t release_sem(sem_id id) {
    return release_sem_etc(id, 1, 0);
}

status_t release_sem_etc(sem_id id, int32 count, uint32) {
    if (count < 1)
        return B_BAD_VALUE;
    const KernelLock lock;
    Semaphore* const semaphore = the_semaphores().Find(id);
    if (semaphore == nullptr)
        return B_BAD_SEM_ID;
    int32 sum = 0;
    if (__builtin_add_overflow(semaphore->count, count, &sum))
        return B_BAD_VALUE;
    semaphore->count = sum;
    semaphore->Serve();
    return B_OK;
}

status_t get_sem_count(sem_id id, int32* count) {
    if (count == nullptr)
        return B_BAD_VALUE;
    const KernelLock lock;
    const Semaphore* const semaphore = the_semaphores().Find(id);
    if (semaphore == nullptr)
        return B_BAD_SEM_ID;
    *count = semaphore->Balance();
    return B_OK;
}

status_t get_sem_info(sem_id id, sem_info* info) {
    if (info == nullptr)
        return B_BAD_VALUE;
    const KernelLock lock;
    const Semaphore* const semaphore = the_semaphores().Find(id);
    if (semaphore == nullptr)
        return B_BAD_SEM_ID;
    *info = {};
    info->sem = id;
    info->team = getpid();
    std::memcpy(info->name, semaphore->name.c_str(), semaphore->name.size());
    info->count = semaphore->Balance();
    info->latest_holder = semaphore->latestHolder;
    return B_OK;
}
