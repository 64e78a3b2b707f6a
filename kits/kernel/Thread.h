#pragma once

// What the kernel kit knows of each thread, and the one lock that protects it.
//
// Every record is in the table from the thread's creation (or the first time a thread of other
// origin asks for its id) until the very end of the thread, after its thread_local objects have
// gone; only the thread itself takes it out then, so a record found in the table has a native
// thread that may be signalled. A thread that had to be stopped for good is the exception: it is
// taken out by who killed it, and its record is kept because it still stands on it.
//
// Everything in a record is protected by the lock, except what says otherwise.

#include <atomic>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <pthread.h>

#include <kernel/OS.h>

namespace BPrivate {

/// Thrown to unwind a thread's stack up to its first function.
struct ThreadExit {
    status_t status;
};

struct Thread {
    using Hook = std::pair<void (*)(void*), void*>;

    thread_id id = 0;
    std::string name;
    int32 priority = B_NORMAL_PRIORITY;
    pthread_t handle{};
    pid_t kernelId = 0;  // 0 until the native thread has begun
    const bool spawned;

    thread_func function = nullptr;
    void* data = nullptr;
    std::vector<Hook> exitHooks;  // for the thread itself, without the lock
    status_t exitStatus = B_OK;

    bool killed = false;   // is to end, and to call no more hooks
    bool ending = false;   // its function has returned
    bool stopped = false;  // for good
    bool ended = false;
    int32 waiting = 0;  // how many threads wait for its end
    std::condition_variable gone;

    // What it waits for inside the kits, so that whoever kills it can wake it.
    std::condition_variable* blockedOn = nullptr;
    thread_state blockedState = B_THREAD_READY;
    sem_id blockedSem = -1;

    // Read in a signal handler, and waited for there; see Suspension.h.
    std::atomic<int32> suspended{0};
    std::atomic<int32> parked{0};

    explicit Thread(bool isSpawned) : spawned(isSpawned) {}
};

using ThreadPtr = std::shared_ptr<Thread>;

/// All threads, and the exit statuses nobody has asked for yet.
struct ThreadTable {
    std::mutex lock;
    std::map<thread_id, ThreadPtr> threads;
    std::deque<std::pair<thread_id, status_t>> finished;
    std::vector<ThreadPtr> stopped;
    thread_id lastId = 0;

    ThreadPtr Find(thread_id id) const;
    /// Gives a record its id and puts it in.
    void Insert(const ThreadPtr& thread);
    /// Takes a thread out, tells who waits for its end, or keeps its status for later.
    void Remove(Thread& thread, status_t status);
    /// Hands out the status of a thread that has ended, once.
    bool TakeStatus(thread_id id, status_t* status);
};

/// The table; it outlives every thread, so it is never destroyed.
ThreadTable& the_threads();

/// Whether the calling thread has been killed while its function runs. Needs the lock.
bool is_killed();

/// Holds the kernel kit's lock. A thread that is to be suspended while it holds the lock stops
/// when it lets go, since nobody could resume it otherwise.
class KernelLock {
public:
    KernelLock();
    ~KernelLock();
    KernelLock(const KernelLock&) = delete;
    KernelLock& operator=(const KernelLock&) = delete;

    /// Waits on `condition` until `isTrue()`. `B_TIMED_OUT` when `deadline` has passed (as of
    /// `system_time()`; `B_INFINITE_TIMEOUT` for none), `B_INTERRUPTED` when the calling thread
    /// has been killed. Meanwhile the thread is said to be in `state`, for `sem`.
    template <class Predicate>
    status_t Wait(std::condition_variable& condition, bigtime_t deadline, thread_state state,
        sem_id sem, Predicate isTrue) {
        status_t status = B_OK;
        while (!isTrue() && status == B_OK)
            status = is_killed() ? B_INTERRUPTED : WaitOnce(condition, deadline, state, sem);
        return isTrue() ? B_OK : status;
    }

    /// The same, for a wait that must not be given up when the calling thread is killed.
    template <class Predicate>
    status_t WaitRegardless(
        std::condition_variable& condition, bigtime_t deadline, Predicate isTrue) {
        status_t status = B_OK;
        while (!isTrue() && status == B_OK)
            status = WaitOnce(condition, deadline, B_THREAD_WAITING, -1);
        return isTrue() ? B_OK : status;
    }

    /// Lets go of the lock while `call()` runs.
    template <class Call>
    void Without(Call call) {
        fLock.unlock();
        call();
        fLock.lock();
    }

private:
    status_t WaitOnce(
        std::condition_variable& condition, bigtime_t deadline, thread_state state, sem_id sem);

    std::unique_lock<std::mutex> fLock;
};

/// The calling thread's record. Gives a thread of other origin one. Null at the very end of a
/// thread, when its record has gone.
Thread* current_thread();

/// The calling thread's id, also when its record has gone.
thread_id current_id();

/// Makes a record the calling thread's own.
void adopt_thread(Thread* self);

/// Ends the calling thread if it has been killed and a stack may be unwound here. Without the
/// lock.
void end_if_killed();

/// The `system_time()` so many microseconds from now.
bigtime_t deadline_after(bigtime_t microseconds);

/// The longest beginning of a name that fits into `size` bytes with its NUL and does not split
/// a UTF-8 character.
std::string cut_name(const char* name, std::size_t size);

/// Gives the native thread the name, as far as it takes one (15 bytes). Needs the lock.
void set_native_name(Thread& thread);

}  // namespace BPrivate
