#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <support/SupportDefs.h>

class BMessage;

namespace BPrivate {
class LooperCore;
}

/// A first-in, first-out queue of messages, safe to use from any thread.
///
/// The queue owns its messages and deletes what is left in it. To look at several messages in a
/// row, or to use one found, Lock() it: until Unlock() nothing is added or taken by others. Who
/// also wants the lock of the queue's looper takes that first.
class BMessageQueue {
public:
    BMessageQueue();
    virtual ~BMessageQueue();
    BMessageQueue(const BMessageQueue&) = delete;
    BMessageQueue& operator=(const BMessageQueue&) = delete;

    /// Takes ownership.
    void AddMessage(BMessage* message);
    /// Takes the message out and gives it back to the caller, who deletes it. False, and nothing
    /// done, when it is not in the queue.
    bool RemoveMessage(BMessage* message);

    int32 CountMessages() const;
    bool IsEmpty() const;

    /// The message at that place, 0 the oldest; null past the end.
    BMessage* FindMessage(int32 index) const;
    /// The `index`th of the messages with that command.
    BMessage* FindMessage(uint32 what, int32 index = 0) const;
    /// Whether the message is the oldest one.
    bool IsNextMessage(const BMessage* message) const;
    /// Takes the oldest message out; the caller deletes it. Null when there is none.
    BMessage* NextMessage();

    /// Calls by the same thread nest.
    bool Lock();
    void Unlock();

private:
    friend class BLooper;
    friend class BPrivate::LooperCore;

    /// Waits until there is a message or Wake() was called.
    void Wait();
    void Wake();

    mutable std::recursive_mutex fLock;
    std::condition_variable_any fChanged;
    std::deque<BMessage*> fMessages;
    bool fWoken = false;
};
