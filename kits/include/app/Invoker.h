#pragma once

#include <app/Messenger.h>
#include <memory>
#include <support/SupportDefs.h>

/// An object that sends a message to a target when it is invoked.
class BInvoker {
public:
    BInvoker();
    /// Takes ownership of the message.
    BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper = nullptr);
    BInvoker(BMessage* message, BMessenger target);
    virtual ~BInvoker();
    BInvoker(const BInvoker&) = delete;
    BInvoker& operator=(const BInvoker&) = delete;

    /// Takes ownership and deletes the one before. Null for none.
    virtual status_t SetMessage(BMessage* message);
    BMessage* Message() const { return fMessage.get(); }
    /// The message's code, 0 without a message.
    uint32 Command() const;

    virtual status_t SetTarget(const BHandler* handler, const BLooper* looper = nullptr);
    virtual status_t SetTarget(BMessenger target);
    bool IsTargetLocal() const { return fTarget.IsTargetLocal(); }
    BHandler* Target(BLooper** looper = nullptr) const;
    BMessenger Messenger() const { return fTarget; }

    /// Borrowed; it must outlive the invocations.
    virtual status_t SetHandlerForReply(BHandler* handler);
    BHandler* HandlerForReply() const { return fReplyHandler; }

    /// Sends a copy of the given message, or of its own. B_BAD_VALUE when there is neither.
    virtual status_t Invoke(BMessage* message = nullptr);

    /// The delivery timeout.
    status_t SetTimeout(bigtime_t timeout);
    bigtime_t Timeout() const { return fTimeout; }

private:
    std::unique_ptr<BMessage> fMessage;
    BMessenger fTarget;
    BHandler* fReplyHandler = nullptr;
    bigtime_t fTimeout = B_INFINITE_TIMEOUT;
};
