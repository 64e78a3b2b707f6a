// What a looper's thread does: takes messages, finds whom they are for, and ends.

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <interface/Window.h>

#include "kits/app/FilterList.h"
#include "kits/app/LooperRegistry.h"
#include "kits/app/MessageAccess.h"
#include "kits/app/MessengerAccess.h"

#include <utility>

using BPrivate::LooperCore;

thread_id BLooper::Run() {
    const std::shared_ptr<LooperCore> core = fCore;
    if (core->Thread() != 0)
        return B_ALREADY_RUNNING;
    const thread_id thread =
        spawn_thread(ThreadEntry, Name() != nullptr ? Name() : "looper", fPriority, this);
    if (thread < 0)
        return thread;
    core->SetThread(thread);
    core->SetWindow(dynamic_cast<BWindow*>(this));
    // From here on the looper may end at any moment.
    core->TheLock().Unlock();
    resume_thread(thread);
    return thread;
}

void BLooper::Quit() {
    const std::shared_ptr<LooperCore> core = fCore;
    if (core->Lock() != B_OK)
        return;
    const thread_id thread = core->Thread();
    if (thread == 0) {
        delete this;
        return;
    }
    if (thread == find_thread(nullptr)) {
        core->Close(true);
        core->TheLock().Unlock();
        return;
    }
    core->Close(false);
    core->TheLock().UnlockAll();
    status_t result;
    wait_for_thread(thread, &result);
}

bool BLooper::QuitRequested() {
    return true;
}

int32 BLooper::ThreadEntry(void* data) {
    BLooper* looper = static_cast<BLooper*>(data);
    const std::shared_ptr<LooperCore> core = looper->fCore;
    looper->Loop();
    looper->LoopEnded();

    core->TheLock().Lock();
    core->Bury();
    if (looper->fDeletedByThread)
        delete looper;
    core->TheLock().UnlockAll();
    return B_OK;
}

void BLooper::Loop() {
    const std::shared_ptr<LooperCore> core = fCore;
    while (!core->IsDone()) {
        core->Queue().Wait();
        core->TheLock().Lock();
        HandleNextMessage();
        core->TheLock().UnlockAll();
    }
    // Who waits for an answer to one of these must not wait for the looper's end, which may be
    // waiting for him.
    core->DropMessages();
}

void BLooper::HandleNextMessage() {
    // Taken only now: who had the lock may have removed it from the queue.
    BMessage* message = fCore->Queue().NextMessage();
    if (message == nullptr)
        return;
    fCurrentMessage = message;
    BHandler* target = ResolveTarget(message);
    if (target != nullptr)
        target = RunFilters(message, target);
    if (target != nullptr)
        DispatchMessage(message, target);
    // Null when it was detached.
    delete std::exchange(fCurrentMessage, nullptr);
    MessageDispatched();
}

BHandler* BLooper::ResolveTarget(BMessage* message) {
    const int32 token =
        BPrivate::MessengerAccess::HandlerToken(BPrivate::MessageAccess::Target(*message));
    BHandler* target = fPreferredHandler != nullptr ? fPreferredHandler : this;
    if (token != 0) {
        const auto found = BPrivate::LooperRegistry::Get().Find(token);
        // The handler has gone, or gone elsewhere, since the message was sent.
        if (found.core != fCore)
            return nullptr;
        target = found.handler;
    }
    target = DetermineTarget(message, target);
    return HasHandler(target) ? target : nullptr;
}

BHandler* BLooper::RunFilters(BMessage* message, BHandler* target) {
    target = fCommonFilters->Run(message, target);
    // A handler's filter may choose another handler, whose filters are asked then. Everyone is
    // asked once, or two that choose each other would do so for ever.
    std::vector<BHandler*> asked;
    while (HasHandler(target)) {
        if (std::find(asked.begin(), asked.end(), target) != asked.end())
            return target;
        asked.push_back(target);
        BHandler* const chosen = target->fFilters->Run(message, target);
        if (chosen == target)
            return target;
        target = chosen;
    }
    return nullptr;
}

void BLooper::DispatchMessage(BMessage* message, BHandler* handler) {
    if (message->what == B_QUIT_REQUESTED && handler == this)
        AskToQuit(message);
    else
        handler->MessageReceived(message);
}

void BLooper::AskToQuit(BMessage* message) {
    const bool quits = QuitRequested();
    if (message->IsSourceWaiting()) {
        BMessage reply(B_REPLY);
        reply.AddBool("result", quits);
        message->SendReply(&reply);
    }
    if (quits)
        Quit();
}

void BLooper::MessageReceived(BMessage* message) {
    BHandler::MessageReceived(message);
}

BHandler* BLooper::DetermineTarget(BMessage*, BHandler* target) {
    return target;
}

void BLooper::MessageDispatched() {}

void BLooper::LoopEnded() {}
