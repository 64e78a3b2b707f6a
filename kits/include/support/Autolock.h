#pragma once

#include <support/Locker.h>

/// Holds a lock for the length of a block: a `BLocker`, a looper or a window, anything with
/// `bool Lock()` and `Unlock()`. A window may refuse to be locked (it has gone), so ask
/// `IsLocked()` where that can happen.
class BAutolock {
public:
    template <class Lockable>
    explicit BAutolock(Lockable* lock)
        : fLock(lock), fLockIt([](void* l) { return static_cast<Lockable*>(l)->Lock(); }),
          fUnlockIt([](void* l) { static_cast<Lockable*>(l)->Unlock(); }) {
        Lock();
    }

    template <class Lockable>
    explicit BAutolock(Lockable& lock) : BAutolock(&lock) {}

    ~BAutolock() { Unlock(); }

    BAutolock(const BAutolock&) = delete;
    BAutolock& operator=(const BAutolock&) = delete;

    bool IsLocked() const { return fIsLocked; }

    bool Lock() {
        if (!fIsLocked && fLock != nullptr)
            fIsLocked = fLockIt(fLock);
        return fIsLocked;
    }

    void Unlock() {
        if (fIsLocked) {
            fIsLocked = false;
            fUnlockIt(fLock);
        }
    }

private:
    void* fLock;
    bool (*fLockIt)(void*);
    void (*fUnlockIt)(void*);
    bool fIsLocked = false;
};
