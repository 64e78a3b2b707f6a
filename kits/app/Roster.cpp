#include <app/Roster.h>

#include <app/Message.h>
#include <app/Messenger.h>

#include "kits/app/MessengerAccess.h"
#include "kits/app/RosterBus.h"

namespace {

const BRoster gRoster;

}  // namespace

const BRoster* be_roster = &gRoster;

extern BMessenger be_app_messenger;

status_t BRoster::Broadcast(BMessage* message) const {
    return Broadcast(message, BMessenger());
}

status_t BRoster::Broadcast(BMessage* message, BMessenger replyTo) const {
    if (message == nullptr)
        return B_BAD_VALUE;
    if (!BPrivate::may_come_from_outside(message->what))
        return B_NOT_ALLOWED;
    const status_t status = BPrivate::broadcast_to_others(*message);
    // Without an application of its own a process only tells the others.
    if (status == B_OK && be_app_messenger.IsValid())
        (void)BPrivate::MessengerAccess::Send(be_app_messenger, *message, replyTo);
    return status;
}

bool BRoster::IsRunning(const char* signature) const {
    return signature != nullptr && BPrivate::is_running(signature);
}
