#pragma once

#include <app/Handler.h>
#include <kernel/OS.h>
#include <memory>
#include <vector>

class BMessageQueue;

namespace BPrivate {
class FilterList;
class LooperCore;
}  // namespace BPrivate

/// The priority of a looper's thread when none is given, and its queue's nominal capacity.
constexpr int32 B_LOOPER_PORT_DEFAULT_CAPACITY = 200;

/// A thread that takes messages from a queue and dispatches them, one at a time, under a lock.
///
/// A looper is made with `new` and locked by the thread that made it; Run() starts its thread and
/// gives that lock back. From then on everything in it is used under Lock(). It is ended by
/// Quit() and by nothing else: the looper is deleted by its own thread. One that was never run may
/// also be deleted, or live on the stack.
///
/// The lock nests, and goes to those who wait for it in the order they came.
class BLooper : public BHandler {
public:
    /// `portCapacity` has no effect: the queue grows as it must.
    explicit BLooper(const char* name = nullptr, int32 priority = B_NORMAL_PRIORITY,
        int32 portCapacity = B_LOOPER_PORT_DEFAULT_CAPACITY);
    ~BLooper() override;

    // Posting copies the message and never waits. B_BAD_PORT_ID when the looper is quitting,
    // B_MISMATCHED_VALUES when the handler belongs to another looper. The message goes to the
    // looper itself, or to the handler given; a null handler is the preferred one.
    status_t PostMessage(uint32 command);
    status_t PostMessage(const BMessage* message);
    status_t PostMessage(uint32 command, BHandler* handler, BHandler* replyTo = nullptr);
    status_t PostMessage(const BMessage* message, BHandler* handler, BHandler* replyTo = nullptr);

    /// Gives the message to its handler. Called in the looper's thread, under its lock, after the
    /// filters. An override passes on what it does not handle.
    virtual void DispatchMessage(BMessage* message, BHandler* handler);
    void MessageReceived(BMessage* message) override;

    /// The message being dispatched. Null for anyone who does not hold the lock.
    BMessage* CurrentMessage() const;
    /// Keeps the current message from being deleted after its dispatch: it is now the caller's.
    BMessage* DetachCurrentMessage();
    BMessageQueue* MessageQueue() const;

    /// The handler is not owned. It must belong to no looper.
    void AddHandler(BHandler* handler);
    /// False when it is not here.
    bool RemoveHandler(BHandler* handler);
    /// With the looper itself, which is handler 0.
    int32 CountHandlers() const;
    BHandler* HandlerAt(int32 index) const;
    int32 IndexOf(BHandler* handler) const;

    /// Who gets the messages that are sent to the looper's preferred handler; null for the looper
    /// itself.
    virtual void SetPreferredHandler(BHandler* handler);
    BHandler* PreferredHandler() const;

    /// Starts the thread. B_ALREADY_RUNNING (as a negative thread id) the second time.
    virtual thread_id Run();
    /// Ends the looper; the caller holds the lock.
    ///
    /// In the looper's own thread: returns, and the looper is gone once the current dispatch is
    /// over. What is still queued is deleted. In another thread: gives up the lock however often
    /// it was taken, and returns when the looper has dispatched what was queued before, and is
    /// gone. Never run: deletes the looper.
    virtual void Quit();
    /// Asked when B_QUIT_REQUESTED comes: true to Quit().
    virtual bool QuitRequested();

    /// False when the looper has quit in the meantime.
    bool Lock();
    /// B_TIMED_OUT, or B_BAD_VALUE when the looper has quit in the meantime.
    status_t LockWithTimeout(bigtime_t timeout);
    void Unlock();
    /// Whether the calling thread holds the lock.
    bool IsLocked() const;
    /// Who holds the lock, -1 for nobody.
    thread_id LockingThread() const;
    int32 CountLocks() const;
    /// How many threads wait for the lock.
    int32 CountLockRequests() const;

    /// The looper's thread, 0 before Run().
    thread_id Thread() const;
    team_id Team() const;
    /// The looper whose thread that is, or null.
    static BLooper* LooperForThread(thread_id thread);

    /// Takes ownership. A filter that is already in some list is not added.
    virtual void AddCommonFilter(BMessageFilter* filter);
    /// Gives the filter back to the caller; false when it is not here.
    virtual bool RemoveCommonFilter(BMessageFilter* filter);
    /// Deletes all common filters and takes over those given, in order.
    virtual void SetCommonFilterList(const std::vector<BMessageFilter*>& filters);
    /// Borrowed pointers, in order.
    std::vector<BMessageFilter*> CommonFilterList() const;

protected:
    /// Who a message is for, asked before the filters. `target` is whom it was addressed to. A
    /// window sends keys to the view with the focus. Null drops the message.
    virtual BHandler* DetermineTarget(BMessage* message, BHandler* target);
    /// Called under the lock after every message, also one that was dropped.
    virtual void MessageDispatched();
    /// Called in the looper's thread, unlocked, after its last message. What it does is still
    /// done by a whole object. The base does nothing.
    virtual void LoopEnded();

private:
    friend class BApplication;
    friend class BHandler;
    friend class BMessenger;

    static int32 ThreadEntry(void* looper);
    void Loop();
    void HandleNextMessage();
    BHandler* ResolveTarget(BMessage* message);
    BHandler* RunFilters(BMessage* message, BHandler* target);
    bool HasHandler(const BHandler* handler) const;
    void AskToQuit(BMessage* message);

    const std::shared_ptr<BPrivate::LooperCore> fCore;
    const int32 fPriority;
    // The application's object outlives its thread: main deletes it.
    bool fDeletedByThread = true;
    BMessage* fCurrentMessage = nullptr;
    BHandler* fPreferredHandler = nullptr;
    std::vector<BHandler*> fHandlers;
    const std::unique_ptr<BPrivate::FilterList> fCommonFilters;
};
