#pragma once

#include "kits/app/LooperLock.h"

#include <app/MessageQueue.h>
#include <atomic>
#include <memory>

class BLooper;
class BWindow;

namespace BPrivate {

/// The part of a looper that others may still hold when the looper is gone: its lock, its queue
/// and whether it lives.
class LooperCore {
public:
    explicit LooperCore(BLooper* looper) : fLooper(looper) {}

    /// Locks a living looper. B_BAD_VALUE when it died, also while the caller waited.
    [[nodiscard]] status_t Lock(bigtime_t timeout = B_INFINITE_TIMEOUT);
    LooperLock& TheLock() { return fLock; }

    /// The looper; only under the lock is it sure to live. Null when it is gone.
    BLooper* Looper() const { return fLooper; }

    /// Queues the message, or deletes it with B_BAD_PORT_ID when the looper takes no more.
    [[nodiscard]] status_t Post(std::unique_ptr<BMessage> message);
    BMessageQueue& Queue() { return fQueue; }

    /// Ends posting; the loop ends when it has handled what is queued, or at once.
    void Close(bool atOnce);
    /// Deletes what is queued.
    void DropMessages();
    /// Whether the loop has to end.
    bool IsDone();
    /// Marks the looper as gone and deletes what is queued. Under the lock.
    void Bury();

    thread_id Thread() const { return fThread; }
    void SetThread(thread_id thread) { fThread = thread; }

    /// The looper as a window, from its Run() on; null for other loopers.
    BWindow* Window() const { return fWindow; }
    void SetWindow(BWindow* window) { fWindow = window; }

private:
    LooperLock fLock;
    BMessageQueue fQueue;
    // These two are guarded by the queue's lock, so that nothing is queued once posting is closed.
    bool fClosed = false;
    bool fQuitAtOnce = false;
    std::atomic<BLooper*> fLooper;
    std::atomic<BWindow*> fWindow = nullptr;
    std::atomic<thread_id> fThread = 0;
};

}  // namespace BPrivate
