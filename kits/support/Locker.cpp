#include <support/Locker.h>

#include <chrono>

BLocker::BLocker() : BLocker(nullptr) {}

BLocker::BLocker(const char* name) : fName(name != nullptr ? name : "") {}

BLocker::BLocker(bool) : BLocker(nullptr) {}

BLocker::BLocker(const char* name, bool) : BLocker(name) {}

BLocker::~BLocker() = default;

bool BLocker::Lock() {
    return LockWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t BLocker::LockWithTimeout(bigtime_t timeout) {
    const thread_id self = find_thread(nullptr);
    // Only the calling thread can make itself the holder, so this needs no lock.
    if (fHolder == self) {
        fCount++;
        return B_OK;
    }

    std::unique_lock lock(fMutex);
    const auto isFree = [this] { return fHolder == B_ERROR; };
    fWaiting++;
    // Longer than a clock can count is for ever.
    constexpr bigtime_t kLongest = INT64_MAX / 4000;
    bool gotIt = true;
    if (timeout < kLongest)
        gotIt =
            fFreed.wait_for(lock, std::chrono::microseconds(max_c<bigtime_t>(timeout, 0)), isFree);
    else
        fFreed.wait(lock, isFree);
    fWaiting--;
    if (!gotIt)
        return B_TIMED_OUT;
    fHolder = self;
    fCount = 1;
    return B_OK;
}

void BLocker::Unlock() {
    if (!IsLocked())
        return;
    const std::lock_guard lock(fMutex);
    if (--fCount > 0)
        return;
    fHolder = B_ERROR;
    // Told under the lock: the next holder may delete this object as soon as it has it.
    fFreed.notify_one();
}

thread_id BLocker::LockingThread() const {
    return fHolder;
}

bool BLocker::IsLocked() const {
    return fHolder == find_thread(nullptr);
}

int32 BLocker::CountLocks() const {
    return fCount;
}

int32 BLocker::CountLockRequests() const {
    return fCount + fWaiting;
}
