#include "kits/interface/AlertAnswer.h"

#include <condition_variable>
#include <mutex>

namespace BPrivate {

namespace {

/// There are few alerts at a time, so one lock serves all answers.
struct Waiting {
    std::mutex lock;
    std::condition_variable change;
    bool applicationEnds = false;
    int64 ends = 0;  // how often it was to end
};

Waiting& TheWaiting() {
    // Never destroyed: threads may still wait when the process's static objects are.
    static Waiting& waiting = *new Waiting;
    return waiting;
}

}  // namespace

AlertAnswer::AlertAnswer() {
    const std::lock_guard guard(TheWaiting().lock);
    fEndsBefore = TheWaiting().ends - (TheWaiting().applicationEnds ? 1 : 0);
}

void AlertAnswer::Give(int32 button) {
    const std::lock_guard guard(TheWaiting().lock);
    if (fButton == kNone)
        fButton = button;
}

int32 AlertAnswer::Button() const {
    const std::lock_guard guard(TheWaiting().lock);
    return fButton;
}

void AlertAnswer::Close() {
    const std::lock_guard guard(TheWaiting().lock);
    fClosed = true;
    TheWaiting().change.notify_all();
}

bool AlertAnswer::WaitForClose() {
    Waiting& waiting = TheWaiting();
    std::unique_lock guard(waiting.lock);
    waiting.change.wait(guard, [&] { return fClosed || waiting.ends != fEndsBefore; });
    return fClosed;
}

void AlertAnswer::SetApplicationEnds(bool ends) {
    const std::lock_guard guard(TheWaiting().lock);
    TheWaiting().applicationEnds = ends;
    TheWaiting().ends += ends ? 1 : 0;
    TheWaiting().change.notify_all();
}

bool AlertAnswer::ApplicationEnds() {
    const std::lock_guard guard(TheWaiting().lock);
    return TheWaiting().applicationEnds;
}

}  // namespace BPrivate
