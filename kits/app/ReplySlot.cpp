#include "kits/app/ReplySlot.h"

#include "kits/app/Clock.h"

#include <utility>

namespace BPrivate {

void ReplySlot::Answer(BMessage reply) {
    const std::lock_guard guard(fLock);
    fAnswer = std::move(reply);
    fHasAnswer = true;
    fAnswered.notify_one();
}

status_t ReplySlot::Wait(bigtime_t timeout, BMessage& reply) {
    std::unique_lock guard(fLock);
    if (!fAnswered.wait_until(guard, AfterTimeout(timeout), [this] { return fHasAnswer; }))
        return B_TIMED_OUT;
    reply = std::move(fAnswer);
    return B_OK;
}

}  // namespace BPrivate
