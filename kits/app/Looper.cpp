// A looper's life, its lock, its handlers and its filters. What its thread does is in
// LooperLoop.cpp.

#include <app/Looper.h>
#include <app/Message.h>

#include "kits/app/FilterList.h"
#include "kits/app/LooperRegistry.h"
#include "kits/app/MessengerAccess.h"

#include <algorithm>
#include <unistd.h>

using BPrivate::LooperCore;
using BPrivate::LooperRegistry;

BLooper::BLooper(const char* name, int32 priority, int32)
    : BHandler(name), fCore(std::make_shared<LooperCore>(this)), fPriority(priority),
      fCommonFilters(std::make_unique<BPrivate::FilterList>()) {
    fCore->TheLock().Lock();
    fLooper = this;
    LooperRegistry::Get().SetLooper(fToken, fCore);
    LooperRegistry::Get().AddLooper(fToken, fCore);
}

BLooper::~BLooper() {
    // Held already by whoever ends a looper rightly; then it only counts.
    fCore->TheLock().Lock();
    for (BHandler* handler : std::vector<BHandler*>(fHandlers))
        RemoveHandler(handler);
    LooperRegistry::Get().SetLooper(fToken, nullptr);
    LooperRegistry::Get().RemoveLooper(fCore.get());
    fCore->Bury();
    fLooper = nullptr;
    fCore->TheLock().UnlockAll();
}

status_t BLooper::PostMessage(uint32 command) {
    return PostMessage(command, this);
}

status_t BLooper::PostMessage(const BMessage* message) {
    return PostMessage(message, this);
}

status_t BLooper::PostMessage(uint32 command, BHandler* handler, BHandler* replyTo) {
    const BMessage message(command);
    return PostMessage(&message, handler, replyTo);
}

status_t BLooper::PostMessage(const BMessage* message, BHandler* handler, BHandler* replyTo) {
    if (message == nullptr)
        return B_BAD_VALUE;
    status_t status;
    const BMessenger target(handler, this, &status);
    if (status != B_OK)
        return status;
    return BPrivate::MessengerAccess::Send(target, *message, BMessenger(replyTo));
}

BMessage* BLooper::CurrentMessage() const {
    return IsLocked() ? fCurrentMessage : nullptr;
}

BMessage* BLooper::DetachCurrentMessage() {
    BMessage* message = CurrentMessage();
    if (message != nullptr)
        fCurrentMessage = nullptr;
    return message;
}

BMessageQueue* BLooper::MessageQueue() const {
    return &fCore->Queue();
}

// #pragma mark - Handlers

void BLooper::AddHandler(BHandler* handler) {
    if (handler == nullptr || handler->fLooper != nullptr)
        return;
    fHandlers.push_back(handler);
    handler->fLooper = this;
    handler->fFilters->SetLooper(this);
    handler->SetNextHandler(this);
    LooperRegistry::Get().SetLooper(handler->fToken, fCore);
}

bool BLooper::RemoveHandler(BHandler* handler) {
    const auto found = std::find(fHandlers.begin(), fHandlers.end(), handler);
    if (found == fHandlers.end())
        return false;
    LooperRegistry::Get().SetLooper(handler->fToken, nullptr);
    fHandlers.erase(found);
    for (BHandler* other : fHandlers) {
        if (other->fNextHandler == handler)
            other->fNextHandler = handler->fNextHandler;
    }
    if (fNextHandler == handler)
        fNextHandler = nullptr;
    if (fPreferredHandler == handler)
        fPreferredHandler = nullptr;
    handler->fLooper = nullptr;
    handler->fNextHandler = nullptr;
    handler->fFilters->SetLooper(nullptr);
    return true;
}

bool BLooper::HasHandler(const BHandler* handler) const {
    return handler == this ||
        std::find(fHandlers.begin(), fHandlers.end(), handler) != fHandlers.end();
}

int32 BLooper::CountHandlers() const {
    return int32(fHandlers.size()) + 1;
}

BHandler* BLooper::HandlerAt(int32 index) const {
    if (index == 0)
        return const_cast<BLooper*>(this);
    return index > 0 && index < CountHandlers() ? fHandlers[size_t(index) - 1] : nullptr;
}

int32 BLooper::IndexOf(BHandler* handler) const {
    if (handler == this)
        return 0;
    const auto found = std::find(fHandlers.begin(), fHandlers.end(), handler);
    return found != fHandlers.end() ? int32(found - fHandlers.begin()) + 1 : -1;
}

void BLooper::SetPreferredHandler(BHandler* handler) {
    fPreferredHandler = handler != nullptr && HasHandler(handler) ? handler : nullptr;
}

BHandler* BLooper::PreferredHandler() const {
    return fPreferredHandler;
}

// #pragma mark - The lock

bool BLooper::Lock() {
    return LockWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t BLooper::LockWithTimeout(bigtime_t timeout) {
    const std::shared_ptr<LooperCore> core = fCore;
    return core->Lock(timeout);
}

void BLooper::Unlock() {
    // Who waits for the lock may delete the looper as soon as it is given up.
    const std::shared_ptr<LooperCore> core = fCore;
    core->TheLock().Unlock();
}

bool BLooper::IsLocked() const {
    return fCore->TheLock().IsHeld();
}

thread_id BLooper::LockingThread() const {
    return fCore->TheLock().Holder();
}

int32 BLooper::CountLocks() const {
    return fCore->TheLock().CountLocks();
}

int32 BLooper::CountLockRequests() const {
    return fCore->TheLock().CountWaiting();
}

thread_id BLooper::Thread() const {
    return fCore->Thread();
}

team_id BLooper::Team() const {
    return getpid();
}

BLooper* BLooper::LooperForThread(thread_id thread) {
    if (thread <= 0)
        return nullptr;
    for (const auto& core : LooperRegistry::Get().Loopers()) {
        if (core->Thread() == thread)
            return core->Looper();
    }
    return nullptr;
}

// #pragma mark - Common filters

void BLooper::AddCommonFilter(BMessageFilter* filter) {
    fCommonFilters->Add(filter, this);
}

bool BLooper::RemoveCommonFilter(BMessageFilter* filter) {
    return fCommonFilters->Remove(filter);
}

void BLooper::SetCommonFilterList(const std::vector<BMessageFilter*>& filters) {
    fCommonFilters->Set(filters, this);
}

std::vector<BMessageFilter*> BLooper::CommonFilterList() const {
    return fCommonFilters->Filters();
}
