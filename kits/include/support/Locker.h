#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>

#include <kernel/OS.h>

/// A lock that the thread which holds it may lock again; it is free when it has been unlocked as
/// often. May be used from any thread; must not be deleted while a thread holds or wants it.
class BLocker {
public:
    BLocker();
    explicit BLocker(const char* name);
    /// The style chose between two implementations once; there is one, and it is the fast one.
    explicit BLocker(bool benaphoreStyle);
    BLocker(const char* name, bool benaphoreStyle);
    virtual ~BLocker();

    BLocker(const BLocker&) = delete;
    BLocker& operator=(const BLocker&) = delete;

    status_t InitCheck() const { return B_OK; }

    /// Waits for the lock. Always true.
    bool Lock();
    /// Waits at most so many microseconds: `B_OK` or `B_TIMED_OUT`.
    status_t LockWithTimeout(bigtime_t timeout);
    /// Undoes one `Lock()`. Does nothing on a thread that does not hold the lock.
    void Unlock();

    /// The thread that holds the lock, or `B_ERROR`.
    thread_id LockingThread() const;
    /// Whether the calling thread holds it.
    bool IsLocked() const;
    /// How often the thread that holds it has locked it.
    int32 CountLocks() const;
    /// How many hold it or wait for it, the holder's repeated locks counted.
    int32 CountLockRequests() const;

private:
    std::mutex fMutex;
    std::condition_variable fFreed;
    std::atomic<thread_id> fHolder{B_ERROR};
    std::atomic<int32> fCount{0};
    std::atomic<int32> fWaiting{0};
    const std::string fName;
};
