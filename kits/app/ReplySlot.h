#pragma once

#include <app/Message.h>
#include <condition_variable>
#include <mutex>

namespace BPrivate {

/// Where a sender waits for the answer to one message.
class ReplySlot {
public:
    /// Wakes the sender.
    void Answer(BMessage reply);
    /// B_TIMED_OUT when no answer came in time.
    [[nodiscard]] status_t Wait(bigtime_t timeout, BMessage& reply);

private:
    std::mutex fLock;
    std::condition_variable fAnswered;
    bool fHasAnswer = false;
    BMessage fAnswer;
};

}  // namespace BPrivate
