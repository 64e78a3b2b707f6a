#include "kits/app/LooperLock.h"

#include "kits/app/Clock.h"

namespace BPrivate {

status_t LooperLock::LockWithTimeout(bigtime_t timeout) {
    const thread_id self = find_thread(nullptr);
    std::unique_lock guard(fMutex);
    if (fHolder == self) {
        ++fDepth;
        return B_OK;
    }
    if (fHolder == -1) {
        fHolder = self;
        fDepth = 1;
        return B_OK;
    }
    if (timeout <= 0)
        return B_TIMED_OUT;

    Waiter waiter{.thread = self, .granted = false, .wake = {}};
    const auto place = fWaiters.insert(fWaiters.end(), &waiter);
    const auto granted = [&waiter] { return waiter.granted; };
    if (timeout == B_INFINITE_TIMEOUT)
        waiter.wake.wait(guard, granted);
    else if (!waiter.wake.wait_until(guard, AfterTimeout(timeout), granted)) {
        fWaiters.erase(place);
        return B_TIMED_OUT;
    }
    return B_OK;
}

void LooperLock::Unlock() {
    const std::lock_guard guard(fMutex);
    if (fHolder == find_thread(nullptr) && --fDepth == 0)
        HandOver();
}

void LooperLock::UnlockAll() {
    const std::lock_guard guard(fMutex);
    if (fHolder == find_thread(nullptr))
        HandOver();
}

void LooperLock::HandOver() {
    if (fWaiters.empty()) {
        fHolder = -1;
        fDepth = 0;
        return;
    }
    Waiter& next = *fWaiters.front();
    fWaiters.pop_front();
    fHolder = next.thread;
    fDepth = 1;
    next.granted = true;
    // Under the mutex: once it is free the waiter may return, and its condition with it.
    next.wake.notify_one();
}

bool LooperLock::IsHeld() const {
    return Holder() == find_thread(nullptr);
}

thread_id LooperLock::Holder() const {
    const std::lock_guard guard(fMutex);
    return fHolder;
}

int32 LooperLock::CountLocks() const {
    const std::lock_guard guard(fMutex);
    return fDepth;
}

int32 LooperLock::CountWaiting() const {
    const std::lock_guard guard(fMutex);
    return int32(fWaiters.size());
}

}  // namespace BPrivate
