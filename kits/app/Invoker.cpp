#include <app/Invoker.h>
#include <app/Message.h>

BInvoker::BInvoker() = default;

BInvoker::BInvoker(BMessage* message, const BHandler* handler, const BLooper* looper)
    : fMessage(message), fTarget(handler, looper) {}

BInvoker::BInvoker(BMessage* message, BMessenger target) : fMessage(message), fTarget(target) {}

BInvoker::~BInvoker() = default;

status_t BInvoker::SetMessage(BMessage* message) {
    if (message != fMessage.get())
        fMessage.reset(message);
    return B_OK;
}

uint32 BInvoker::Command() const {
    return fMessage != nullptr ? fMessage->what : 0;
}

status_t BInvoker::SetTarget(const BHandler* handler, const BLooper* looper) {
    if (handler == nullptr && looper == nullptr) {
        fTarget = {};
        return B_OK;
    }
    return fTarget.SetTo(handler, looper);
}

status_t BInvoker::SetTarget(BMessenger target) {
    fTarget = target;
    return B_OK;
}

BHandler* BInvoker::Target(BLooper** looper) const {
    return fTarget.Target(looper);
}

status_t BInvoker::SetHandlerForReply(BHandler* handler) {
    fReplyHandler = handler;
    return B_OK;
}

status_t BInvoker::Invoke(BMessage* message) {
    if (message == nullptr)
        message = fMessage.get();
    if (message == nullptr)
        return B_BAD_VALUE;
    return fTarget.SendMessage(message, fReplyHandler, fTimeout);
}

status_t BInvoker::SetTimeout(bigtime_t timeout) {
    fTimeout = timeout;
    return B_OK;
}
