#include "iap/InterAppPrefs.h"

#include "framework/MessageCodes.h"
#include "iap/IAPItem.h"

#include <algorithm>
#include <interface/View.h>

namespace {

/// One archive of an item's component, under the view's name. An item without a view has none.
void add_component(TIAPItem& item, bool defaults, int copies, BMessage* request) {
    BView* made = nullptr;
    if (item.MakeConfigurationView(&made, defaults) != B_OK || made == nullptr)
        return;
    const std::unique_ptr<BView> view(made);
    BMessage archive;
    if (view->Archive(&archive, true) != B_OK)
        return;
    // What the view shows is a component even where the item has no value to go with it.
    (void)item.GetValue(&archive, defaults);
    for (int i = 0; i < copies; i++)
        (void)request->AddMessage(view->Name(), &archive);
}

}  // namespace

TInterAppPrefs::TInterAppPrefs() = default;

TInterAppPrefs::~TInterAppPrefs() = default;

status_t TInterAppPrefs::SetAppSignatureRef(const char* signature) {
    const std::lock_guard lock(fLock);
    fAppSignature = signature;
    for (const auto& [name, item] : fItems)
        (void)item->SetAppSignatureRef(signature);
    return B_OK;
}

status_t TInterAppPrefs::AddItem(TIAPItem* item) {
    if (item == nullptr)
        return -1;
    const std::lock_guard lock(fLock);
    (void)item->SetAppSignatureRef(fAppSignature);
    const bool isOwned = std::any_of(fOwnedItems.begin(), fOwnedItems.end(),
        [item](const std::unique_ptr<TIAPItem>& owned) { return owned.get() == item; });
    if (!isOwned)
        fOwnedItems.emplace_back(item);
    fItems[item->Name()] = item;
    return B_OK;
}

status_t TInterAppPrefs::AddObserver(const BMessenger& observer) {
    const std::lock_guard lock(fLock);
    fObservers.push_back(observer);
    return B_OK;
}

status_t TInterAppPrefs::GetBool(const char* name, bool* value) const {
    const TIAPItem* item = FindItem(name);
    return item == nullptr ? -1 : item->GetBool(value, false);
}

status_t TInterAppPrefs::SetBool(const char* name, bool value) {
    TIAPItem* item = FindItem(name);
    return item == nullptr ? -1 : item->SetBool(value);
}

status_t TInterAppPrefs::GetString(const char* name, std::string* value) const {
    const TIAPItem* item = FindItem(name);
    return item == nullptr ? -1 : item->GetString(value, false);
}

status_t TInterAppPrefs::SetString(const char* name, const std::string& value) {
    TIAPItem* item = FindItem(name);
    return item == nullptr ? -1 : item->SetString(value);
}

status_t TInterAppPrefs::SetValue(const BMessage& change) {
    const char* name = nullptr;
    if (change.FindString(kFieldSharedItem, &name) != B_OK)
        return -1;
    TIAPItem* item = FindItem(name);
    if (item == nullptr)
        return -1;
    const status_t status = item->SetValue(change);
    return status == B_OK ? NotifyToObservers(change) : status;
}

status_t TInterAppPrefs::NotifyToObservers(BMessage message) {
    std::vector<BMessenger> observers;
    {
        const std::lock_guard lock(fLock);
        observers = fObservers;
    }
    BHandler* const noReplyHandler = nullptr;
    for (const BMessenger& observer : observers)
        (void)observer.SendMessage(&message, noReplyHandler, B_INFINITE_TIMEOUT);
    return B_OK;
}

void TInterAppPrefs::MakeComponents(BMessage* request) const {
    std::vector<TIAPItem*> items;
    {
        const std::lock_guard lock(fLock);
        for (const auto& [name, item] : fItems)
            items.push_back(item);
    }
    *request = BMessage(kMsgAddSharedComponents);
    for (TIAPItem* item : items) {
        add_component(*item, false, 2, request);
        add_component(*item, true, 1, request);
    }
}

TIAPItem* TInterAppPrefs::FindItem(const char* name) const {
    const std::lock_guard lock(fLock);
    const auto found = fItems.find(name);
    return found == fItems.end() ? nullptr : found->second;
}
