#pragma once

#include <kernel/OS.h>
#include <support/SupportDefs.h>

class BHandler;
class BLooper;
class BMessage;

namespace BPrivate {
class MessengerAccess;
}

/// The address of a handler, of whichever handler a looper prefers, or of nothing.
///
/// It names its target by a number that is never used again, so it may outlive the target: sends
/// then fail with B_BAD_PORT_ID. It may be copied and used by any thread. A message sent is
/// copied; the caller keeps its own. A looper's queue has no upper bound, so a send never waits
/// for room and the delivery timeouts are only there for the interface's sake.
class BMessenger {
public:
    /// Addresses nothing.
    BMessenger() = default;
    /// Addresses the running application of that signature. Only this process's own is reached;
    /// any other gives B_NAME_NOT_FOUND.
    explicit BMessenger(const char* signature, team_id team = -1, status_t* result = nullptr);
    /// Addresses the handler, which must belong to a looper (B_BAD_HANDLER), to the given one
    /// when there is one given (B_MISMATCHED_VALUES). Without a handler, addresses the looper's
    /// preferred handler, whichever that is when the message is dispatched.
    BMessenger(
        const BHandler* handler, const BLooper* looper = nullptr, status_t* result = nullptr);

    bool IsValid() const;
    /// Whether the target is in this process.
    bool IsTargetLocal() const;
    /// The target and its looper, or null for either when it is gone or unknown. The pointers are
    /// only safe while the target's looper is locked by the caller.
    BHandler* Target(BLooper** looper) const;
    /// Locks the target's looper; false when that is gone.
    bool LockTarget() const;
    status_t LockTargetWithTimeout(bigtime_t timeout) const;

    status_t SendMessage(uint32 command, BHandler* replyTo = nullptr) const;
    /// Sends and returns at once. A reply goes to `replyTo`, or to the application without one.
    status_t SendMessage(BMessage* message, BHandler* replyTo = nullptr,
        bigtime_t timeout = B_INFINITE_TIMEOUT) const;
    status_t SendMessage(
        BMessage* message, BMessenger replyTo, bigtime_t timeout = B_INFINITE_TIMEOUT) const;
    status_t SendMessage(uint32 command, BMessage* reply) const;
    /// Sends and waits for the answer, at most `replyTimeout` microseconds (B_TIMED_OUT). A
    /// target that deletes the message unanswered gives a reply of B_NO_REPLY. A looper's own
    /// thread cannot wait for an answer of that looper: B_MESSAGE_TO_SELF.
    status_t SendMessage(BMessage* message, BMessage* reply,
        bigtime_t deliveryTimeout = B_INFINITE_TIMEOUT,
        bigtime_t replyTimeout = B_INFINITE_TIMEOUT) const;

    status_t SetTo(const char* signature, team_id team = -1);
    status_t SetTo(const BHandler* handler, const BLooper* looper = nullptr);

    /// Whether both address the same target.
    bool operator==(const BMessenger&) const = default;

private:
    friend class BPrivate::MessengerAccess;

    int32 fLooper = 0;   // token of the looper, 0 for none
    int32 fHandler = 0;  // token of the handler, or of a waiting sender; 0 for the preferred one
};
