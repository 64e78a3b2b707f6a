#include "kits/app/LooperCore.h"

#include <app/Message.h>

namespace BPrivate {

status_t LooperCore::Lock(bigtime_t timeout) {
    const status_t status = fLock.LockWithTimeout(timeout);
    if (status != B_OK)
        return status;
    if (fLooper == nullptr) {
        fLock.Unlock();
        return B_BAD_VALUE;
    }
    return B_OK;
}

status_t LooperCore::Post(std::unique_ptr<BMessage> message) {
    fQueue.Lock();
    const bool open = !fClosed;
    if (open)
        fQueue.AddMessage(message.release());
    fQueue.Unlock();
    return open ? B_OK : B_BAD_PORT_ID;
}

void LooperCore::Close(bool atOnce) {
    fQueue.Lock();
    fClosed = true;
    fQuitAtOnce = fQuitAtOnce || atOnce;
    fQueue.Unlock();
    fQueue.Wake();
}

bool LooperCore::IsDone() {
    fQueue.Lock();
    const bool done = fClosed && (fQuitAtOnce || fQueue.IsEmpty());
    fQueue.Unlock();
    return done;
}

void LooperCore::Bury() {
    fLooper = nullptr;
    fWindow = nullptr;
    Close(true);
    DropMessages();
}

void LooperCore::DropMessages() {
    // One by one: deleting a message may answer its sender.
    while (BMessage* message = fQueue.NextMessage())
        delete message;
}

}  // namespace BPrivate
