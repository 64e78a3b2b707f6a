#include "iap/IAPPortManager.h"

#include "framework/MessageCodes.h"

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <vector>

namespace {

// A component of two dozen menu items has 20 kB in its three archives.
constexpr ssize_t kMaxRequestSize = 1024 * 1024;
// A looper's queue grows as it must; this is where a view that is too slow is spared the rest.
constexpr int32 kMaxWaiting = 32;

bool is_request(uint32 what) {
    return what == kMsgAddSharedComponents || what == kMsgActivateSharedWindow ||
        what == B_QUIT_REQUESTED;
}

}  // namespace

TIAPPortManager::TIAPPortManager(const BMessenger& target)
    : TThread("IAPPortManager", B_NORMAL_PRIORITY),
      // Nobody has to wait for a thread that there is not.
      fPort(ThreadID() < B_OK ? kIAPPortFailed : kIAPPortPending), fTarget(target) {}

TIAPPortManager::~TIAPPortManager() {
    KillThread();
}

port_id TIAPPortManager::Port() const {
    return fPort.load(std::memory_order_acquire);
}

status_t TIAPPortManager::PreventBlocking() const {
    // The thread does not wait at a port that is full.
    return write_port_etc(Port(), 0, nullptr, 0, B_RELATIVE_TIMEOUT, 0);
}

int32 TIAPPortManager::Execute() {
    const port_id port = create_port(kIAPPortCapacity, kIAPPortName);
    fPort.store(port < B_OK ? kIAPPortFailed : port, std::memory_order_release);
    if (port < B_OK)
        return -1;
    // One object for all: after bytes that are no message it is delivered as it was left.
    BMessage message;
    Taken taken = Taken::kNothing;
    while (!IsTerminateRequested() && taken != Taken::kPortIsGone) {
        taken = TakeNext(&message);
        if (taken == Taken::kMessage)
            PassOn(&message);
    }
    (void)delete_port(port);
    return 0;
}

TIAPPortManager::Taken TIAPPortManager::TakeNext(BMessage* message) const {
    const ssize_t size = port_buffer_size(Port());
    if (size < 0)
        return size == B_INTERRUPTED ? Taken::kNothing : Taken::kPortIsGone;
    const bool isTooLarge = size > kMaxRequestSize;
    std::vector<char> buffer(isTooLarge ? 0 : static_cast<size_t>(size));
    int32 code = 0;
    const ssize_t taken = read_port(Port(), &code, buffer.data(), buffer.size());
    if (taken < 0)
        return taken == B_INTERRUPTED ? Taken::kNothing : Taken::kPortIsGone;
    if (isTooLarge)
        return Taken::kNothing;
    (void)message->Unflatten(buffer.data(), taken);
    return Taken::kMessage;
}

void TIAPPortManager::PassOn(BMessage* message) const {
    if (IsTerminateRequested() || !is_request(message->what))
        return;
    BLooper* looper = nullptr;
    (void)fTarget.Target(&looper);
    if (looper != nullptr && looper->MessageQueue()->CountMessages() >= kMaxWaiting)
        return;
    BHandler* const noReplyHandler = nullptr;
    (void)fTarget.SendMessage(message, noReplyHandler, B_INFINITE_TIMEOUT);
}
