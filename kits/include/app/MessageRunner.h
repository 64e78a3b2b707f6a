#pragma once

#include <app/Messenger.h>
#include <support/SupportDefs.h>

/// Sends copies of a message to a target in a steady interval.
///
/// All runners share one thread, which sleeps until the next message is due. Sending stops when
/// the runner is deleted, when it has sent `count` messages or when its target is gone. A message
/// that was sent before the runner was deleted may still be in the target's queue.
class BMessageRunner {
public:
    /// `interval` is in microseconds and raised to 1000; the first message comes after one. A
    /// `count` below 0 sends forever, one of 0 sends nothing. Replies go to `replyTo`, or to the
    /// application. The message is copied.
    BMessageRunner(
        BMessenger target, const BMessage* message, bigtime_t interval, int32 count = -1);
    BMessageRunner(BMessenger target, const BMessage* message, bigtime_t interval, int32 count,
        BMessenger replyTo);
    ~BMessageRunner();
    BMessageRunner(const BMessageRunner&) = delete;
    BMessageRunner& operator=(const BMessageRunner&) = delete;

    /// B_BAD_VALUE when there is no valid target or message or the interval is not positive.
    status_t InitCheck() const { return fStatus; }

    // These give B_BAD_VALUE once nothing is left to send.

    /// Starts a new interval now.
    status_t SetInterval(bigtime_t interval);
    /// How many messages are sent from now on; 0 ends the runner.
    status_t SetCount(int32 count);
    /// The interval, and how many messages are still to come (-1: no end).
    status_t GetInfo(bigtime_t* interval, int32* count) const;

    /// The same without an object: runs to its end.
    static status_t StartSending(
        BMessenger target, const BMessage* message, bigtime_t interval, int32 count);
    static status_t StartSending(BMessenger target, const BMessage* message, bigtime_t interval,
        int32 count, BMessenger replyTo);

private:
    const int64 fId;  // a negative one is the error
    const status_t fStatus;
};
