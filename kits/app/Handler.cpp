#include <app/Handler.h>

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>

#include "kits/app/FilterList.h"
#include "kits/app/LooperRegistry.h"

using BPrivate::LooperRegistry;

BHandler::BHandler(const char* name)
    : fToken(LooperRegistry::Get().AddHandler(this)),
      fFilters(std::make_unique<BPrivate::FilterList>()) {
    SetName(name);
}

BHandler::BHandler(BMessage* archive)
    : BHandler(archive != nullptr ? archive->GetString("_name") : nullptr) {}

BHandler::~BHandler() {
    if (fLooper != nullptr)
        fLooper->RemoveHandler(this);
    LooperRegistry::Get().RemoveHandler(fToken);
}

status_t BHandler::Archive(BMessage* archive, bool deep) const {
    const status_t status = BArchivable::Archive(archive, deep);
    return status == B_OK && fHasName ? archive->AddString("_name", fName.c_str()) : status;
}

void BHandler::MessageReceived(BMessage* message) {
    if (fNextHandler != nullptr)
        fNextHandler->MessageReceived(message);
    else if (message->IsSourceWaiting())
        message->SendReply(B_MESSAGE_NOT_UNDERSTOOD);
}

void BHandler::SetName(const char* name) {
    fHasName = name != nullptr;
    fName = fHasName ? name : "";
}

const char* BHandler::Name() const {
    return fHasName ? fName.c_str() : nullptr;
}

void BHandler::SetNextHandler(BHandler* handler) {
    if (handler == nullptr || (handler != this && handler->fLooper == fLooper))
        fNextHandler = handler;
}

void BHandler::AddFilter(BMessageFilter* filter) {
    fFilters->Add(filter, fLooper);
}

bool BHandler::RemoveFilter(BMessageFilter* filter) {
    return fFilters->Remove(filter);
}

void BHandler::SetFilterList(const std::vector<BMessageFilter*>& filters) {
    fFilters->Set(filters, fLooper);
}

std::vector<BMessageFilter*> BHandler::FilterList() const {
    return fFilters->Filters();
}

bool BHandler::LockLooper() {
    return LockLooperWithTimeout(B_INFINITE_TIMEOUT) == B_OK;
}

status_t BHandler::LockLooperWithTimeout(bigtime_t timeout) {
    // By the token: the handler may be moved or its looper may end while this thread waits.
    LooperRegistry& registry = LooperRegistry::Get();
    for (;;) {
        const std::shared_ptr<BPrivate::LooperCore> core = registry.Find(fToken).core;
        if (core == nullptr)
            return B_BAD_HANDLER;
        const status_t status = core->Lock(timeout);
        if (status != B_OK)
            return status;
        if (registry.Find(fToken).core == core)
            return B_OK;
        core->TheLock().Unlock();
    }
}

void BHandler::UnlockLooper() {
    if (const std::shared_ptr<BPrivate::LooperCore> core = LooperRegistry::Get().Find(fToken).core)
        core->TheLock().Unlock();
}
