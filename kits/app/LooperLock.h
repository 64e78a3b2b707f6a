#pragma once

#include <condition_variable>
#include <kernel/OS.h>
#include <list>
#include <mutex>

namespace BPrivate {

/// A lock that nests and is handed to those who wait in the order they came.
///
/// The order matters: a looper with a full queue takes its lock again as soon as it has given it
/// up, and without an order nobody else would ever come in.
class LooperLock {
public:
    void Lock() { (void)LockWithTimeout(B_INFINITE_TIMEOUT); }
    /// B_TIMED_OUT after that many microseconds. One of 0 or less does not wait.
    [[nodiscard]] status_t LockWithTimeout(bigtime_t timeout);
    /// Nothing happens when the calling thread does not hold the lock.
    void Unlock();
    /// Gives up the lock however often it was taken.
    void UnlockAll();

    bool IsHeld() const;
    /// -1 for nobody.
    thread_id Holder() const;
    /// How often the holder has taken it.
    int32 CountLocks() const;
    int32 CountWaiting() const;

private:
    struct Waiter {
        thread_id thread;
        bool granted = false;
        std::condition_variable wake;
    };

    void HandOver();

    mutable std::mutex fMutex;
    thread_id fHolder = -1;
    int32 fDepth = 0;
    std::list<Waiter*> fWaiters;
};

}  // namespace BPrivate
