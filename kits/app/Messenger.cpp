#include <app/Messenger.h>

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>

#include "kits/app/LooperRegistry.h"
#include "kits/app/MessageAccess.h"
#include "kits/app/MessengerAccess.h"
#include "kits/interface/AlertAnswer.h"

#include <strings.h>
#include <utility>

using BPrivate::LooperCore;
using BPrivate::LooperRegistry;
using BPrivate::MessengerAccess;

namespace {

// In place of a looper's token: the address is that of a sender who waits for a reply.
constexpr int32 kReplyTarget = -1;

}  // namespace

BMessenger::BMessenger(const char* signature, team_id team, status_t* result) {
    const status_t status = SetTo(signature, team);
    if (result != nullptr)
        *result = status;
}

BMessenger::BMessenger(const BHandler* handler, const BLooper* looper, status_t* result) {
    const status_t status = SetTo(handler, looper);
    if (result != nullptr)
        *result = status;
}

status_t BMessenger::SetTo(const char* signature, team_id) {
    *this = {};
    if (signature == nullptr)
        return B_BAD_VALUE;
    if (be_app == nullptr || strcasecmp(be_app->Signature(), signature) != 0)
        return B_NAME_NOT_FOUND;
    *this = be_app_messenger;
    return B_OK;
}

status_t BMessenger::SetTo(const BHandler* handler, const BLooper* looper) {
    *this = {};
    if (handler == nullptr && looper == nullptr)
        return B_BAD_VALUE;
    LooperRegistry& registry = LooperRegistry::Get();
    const int32 handlerToken = handler != nullptr ? handler->fToken : 0;
    const int32 looperToken =
        registry.LooperTokenOf(handler != nullptr ? handlerToken : looper->fToken);
    if (looperToken == 0)
        return B_BAD_HANDLER;
    if (looper != nullptr && looperToken != looper->fToken)
        return B_MISMATCHED_VALUES;
    fLooper = looperToken;
    fHandler = handlerToken;
    return B_OK;
}

bool BMessenger::IsValid() const {
    if (fLooper == kReplyTarget)
        return true;
    return LooperRegistry::Get().Find(fHandler != 0 ? fHandler : fLooper).core != nullptr;
}

bool BMessenger::IsTargetLocal() const {
    return fLooper != 0;
}

BHandler* BMessenger::Target(BLooper** looper) const {
    const LooperRegistry::Target target =
        LooperRegistry::Get().Find(fHandler != 0 ? fHandler : fLooper);
    if (looper != nullptr)
        *looper = target.core != nullptr ? target.core->Looper() : nullptr;
    return fHandler != 0 ? target.handler : nullptr;
}

bool BMessenger::LockTarget() const {
    return LockTargetWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t BMessenger::LockTargetWithTimeout(bigtime_t timeout) const {
    LooperRegistry& registry = LooperRegistry::Get();
    const int32 token = fHandler != 0 ? fHandler : fLooper;
    const std::shared_ptr<LooperCore> core = registry.Find(token).core;
    if (core == nullptr)
        return B_BAD_VALUE;
    const status_t status = core->Lock(timeout);
    // The handler may have gone while we waited.
    if (status == B_OK && registry.Find(token).core != core) {
        core->TheLock().Unlock();
        return B_BAD_VALUE;
    }
    return status;
}

status_t BMessenger::SendMessage(uint32 command, BHandler* replyTo) const {
    const BMessage message(command);
    return MessengerAccess::Send(*this, message, BMessenger(replyTo));
}

status_t BMessenger::SendMessage(BMessage* message, BHandler* replyTo, bigtime_t timeout) const {
    return SendMessage(message, BMessenger(replyTo), timeout);
}

status_t BMessenger::SendMessage(BMessage* message, BMessenger replyTo, bigtime_t) const {
    if (message == nullptr)
        return B_BAD_VALUE;
    return MessengerAccess::Send(*this, *message, replyTo);
}

status_t BMessenger::SendMessage(uint32 command, BMessage* reply) const {
    BMessage message(command);
    return SendMessage(&message, reply);
}

status_t BMessenger::SendMessage(
    BMessage* message, BMessage* reply, bigtime_t, bigtime_t replyTimeout) const {
    if (message == nullptr || reply == nullptr)
        return B_BAD_VALUE;
    LooperRegistry& registry = LooperRegistry::Get();
    const LooperRegistry::Target target = registry.Find(fHandler != 0 ? fHandler : fLooper);
    if (target.core != nullptr && target.core->Thread() == find_thread(nullptr))
        return B_MESSAGE_TO_SELF;

    const auto slot = std::make_shared<BPrivate::ReplySlot>();
    const int32 token = registry.AddReply(slot);
    status_t status = MessengerAccess::Send(
        *this, *message, MessengerAccess::ForReply(token), {.senderWaits = true});
    if (status == B_OK)
        status = slot->Wait(replyTimeout, *reply);
    registry.TakeReply(token);
    return status;
}

namespace BPrivate {

status_t MessengerAccess::Send(
    const BMessenger& target, const BMessage& message, const BMessenger& replyTo, SendFlags flags) {
    LooperRegistry& registry = LooperRegistry::Get();
    if (target.fLooper == kReplyTarget) {
        const std::shared_ptr<ReplySlot> slot = registry.TakeReply(target.fHandler);
        if (slot == nullptr)
            return B_BAD_PORT_ID;
        slot->Answer(std::move(*MessageAccess::CopyForDelivery(
            message, target, replyTo, flags.senderWaits, flags.isReply)));
        return B_OK;
    }
    const LooperRegistry::Target found =
        registry.Find(target.fHandler != 0 ? target.fHandler : target.fLooper);
    if (found.core == nullptr)
        return B_BAD_PORT_ID;
    // The application's own thread may be waiting for the user's answer.
    if (message.what == B_QUIT_REQUESTED && target == be_app_messenger)
        AlertAnswer::SetApplicationEnds(true);
    return found.core->Post(
        MessageAccess::CopyForDelivery(message, target, replyTo, flags.senderWaits, flags.isReply));
}

BMessenger MessengerAccess::ForReply(int32 replyToken) {
    BMessenger messenger;
    messenger.fLooper = kReplyTarget;
    messenger.fHandler = replyToken;
    return messenger;
}

std::vector<BMessenger> MessengerAccess::ForWindows() {
    std::vector<BMessenger> messengers;
    for (const int32 token : LooperRegistry::Get().Windows()) {
        BMessenger& messenger = messengers.emplace_back();
        messenger.fLooper = token;
        messenger.fHandler = token;
    }
    return messengers;
}

BMessenger MessengerAccess::OrApplication(const BMessenger& messenger) {
    return messenger.fLooper != 0 ? messenger : be_app_messenger;
}

}  // namespace BPrivate
