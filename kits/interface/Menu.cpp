#include <interface/Menu.h>

#include <algorithm>
#include <app/Message.h>
#include <string_view>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/MenuAccess.h"
#include "kits/interface/MenuPeer.h"

using namespace BPrivate;

BMenu::BMenu(const char* name, menu_layout layout)
    : BMenu(BRect(), name, B_FOLLOW_NONE, 0, layout, true) {}

BMenu::BMenu(BRect frame, const char* name, uint32 resizingMode, uint32 flags, menu_layout layout,
    bool resizeToFit)
    : BView(frame, name, resizingMode, flags), fLayout(layout), fResizeToFit(resizeToFit) {}

BMenu::BMenu(BMessage* archive) : BView(archive) {
    if (archive == nullptr)
        return;
    const int32 layout = archive->GetInt32("_layout", B_ITEMS_IN_COLUMN);
    if (layout >= B_ITEMS_IN_ROW && layout <= B_ITEMS_IN_MATRIX)
        fLayout = static_cast<menu_layout>(layout);
    fResizeToFit = archive->GetBool("_rsize_to_fit", true);
    fEnabled = !archive->GetBool("_disable", false);
    for (int32 i = 0; archive->HasMessage("_items", i); i++) {
        if (auto item = ArchivedObject<BMenuItem>(*archive, "_items", i); item != nullptr)
            _Insert(*item.release(), CountItems());
    }
    // Only now: as many marks as items would be taken back one by one.
    fDynamicLabel = archive->GetBool("_dyn_label", false);
    fRadio = fDynamicLabel || archive->GetBool("_radio", false);
    if (const BMenuItem* marked = FindMarked(); marked != nullptr)
        _Marked(*marked);
}

BMenu::~BMenu() {
    // Who owns it is left without; the item itself has done so when it deletes its submenu.
    if (fSuperitem != nullptr) {
        BMenuItem& superitem = *fSuperitem;
        (void)superitem.fSubmenu.release();
        superitem._Changed();
    }
    for (const auto& item : fItems)
        item->fMenu = nullptr;
}

BArchivable* BMenu::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BMenu") ? new BMenu(archive) : nullptr;
}

status_t BMenu::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BView::Archive(archive, deep));
    add(archive->AddInt32("_layout", fLayout));
    add(archive->AddBool("_rsize_to_fit", fResizeToFit));
    if (!fEnabled)
        add(archive->AddBool("_disable", true));
    add(archive->AddBool("_radio", fRadio));
    add(archive->AddBool("_dyn_label", fDynamicLabel));
    if (!deep)
        return add.Status();
    for (const auto& item : fItems)
        add(AddArchiveOf(*item, archive, "_items"));
    return add.Status();
}

bool BMenu::AddItem(BMenuItem* item) {
    return AddItem(item, CountItems());
}

bool BMenu::AddItem(BMenuItem* item, int32 index) {
    if (item == nullptr || item->fMenu != nullptr || index < 0 || index > CountItems())
        return false;
    for (const BMenu* outer = this; outer != nullptr; outer = outer->Supermenu()) {
        if (outer->fSuperitem == item)
            return false;
    }
    _Insert(*item, index);
    return true;
}

bool BMenu::AddItem(BMenu* submenu) {
    return AddItem(submenu, CountItems());
}

bool BMenu::AddItem(BMenu* submenu, int32 index) {
    if (submenu == nullptr || !submenu->_IsFree())
        return false;
    auto item = std::make_unique<BMenuItem>(submenu);
    if (AddItem(item.get(), index)) {
        (void)item.release();
        return true;
    }
    (void)item->fSubmenu.release();
    submenu->fSuperitem = nullptr;
    return false;
}

bool BMenu::AddSeparatorItem() {
    return AddItem(new BSeparatorItem);
}

bool BMenu::RemoveItem(BMenuItem* item) {
    return RemoveItem(IndexOf(item)) != nullptr;
}

BMenuItem* BMenu::RemoveItem(int32 index) {
    return _Take(index).release();
}

bool BMenu::RemoveItem(BMenu* submenu) {
    const std::unique_ptr<BMenuItem> item = _Take(IndexOf(submenu));
    if (item == nullptr)
        return false;
    (void)item->fSubmenu.release();
    submenu->fSuperitem = nullptr;
    return true;
}

bool BMenu::RemoveItems(int32 index, int32 count, bool deleteItems) {
    if (index < 0 || count < 0 || index > CountItems() - count)
        return false;
    for (; count > 0; count--) {
        std::unique_ptr<BMenuItem> item = _Take(index);
        if (!deleteItems)
            (void)item.release();
    }
    return true;
}

BMenuItem* BMenu::ItemAt(int32 index) const {
    return index >= 0 && index < CountItems() ? fItems[static_cast<std::size_t>(index)].get()
                                              : nullptr;
}

BMenu* BMenu::SubmenuAt(int32 index) const {
    const BMenuItem* item = ItemAt(index);
    return item != nullptr ? item->Submenu() : nullptr;
}

int32 BMenu::CountItems() const {
    return static_cast<int32>(fItems.size());
}

int32 BMenu::IndexOf(const BMenuItem* item) const {
    for (int32 i = 0; item != nullptr && i < CountItems(); i++) {
        if (ItemAt(i) == item)
            return i;
    }
    return -1;
}

int32 BMenu::IndexOf(const BMenu* submenu) const {
    for (int32 i = 0; submenu != nullptr && i < CountItems(); i++) {
        if (SubmenuAt(i) == submenu)
            return i;
    }
    return -1;
}

BMenuItem* BMenu::FindItem(uint32 command) const {
    return MenuAccess::FindItemIf(*this, [command](const BMenuItem& item) {
        return item.Message() != nullptr && item.Command() == command;
    });
}

BMenuItem* BMenu::FindItem(const char* label) const {
    if (label == nullptr)
        return nullptr;
    return MenuAccess::FindItemIf(
        *this, [label](const BMenuItem& item) { return std::string_view(item.Label()) == label; });
}

BMenuItem* BMenu::FindMarked() const {
    const auto marked =
        std::ranges::find_if(fItems, [](const auto& item) { return item->IsMarked(); });
    return marked != fItems.end() ? marked->get() : nullptr;
}

status_t BMenu::SetTargetForItems(BHandler* target) {
    status_t first = B_OK;
    for (const auto& item : fItems) {
        const status_t status = item->SetTarget(target);
        if (first == B_OK)
            first = status;
    }
    return first;
}

status_t BMenu::SetTargetForItems(BMessenger target) {
    status_t first = B_OK;
    for (const auto& item : fItems) {
        const status_t status = item->SetTarget(target);
        if (first == B_OK)
            first = status;
    }
    return first;
}

void BMenu::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    _Changed();
    if (fShownBy != nullptr)
        fShownBy->PlaceChanged();
}

bool BMenu::IsEnabled() const {
    return fEnabled && (fSuperitem == nullptr || fSuperitem->IsEnabled());
}

void BMenu::SetRadioMode(bool on) {
    if (on == fRadio)
        return;
    fRadio = on;
    if (!on)
        fDynamicLabel = false;
    else if (const BMenuItem* marked = FindMarked(); marked != nullptr)
        _Marked(*marked);
    _Changed();
}

void BMenu::SetLabelFromMarked(bool on) {
    fDynamicLabel = on;
    if (!on)
        return;
    SetRadioMode(true);
    if (const BMenuItem* marked = FindMarked(); marked != nullptr)
        _Marked(*marked);
}

void BMenu::_Insert(BMenuItem& item, int32 index) {
    fItems.emplace(fItems.begin() + index, &item);
    item.fMenu = this;
    if (item.fMarked)
        _Marked(item);
    _Changed();
}

std::unique_ptr<BMenuItem> BMenu::_Take(int32 index) {
    if (index < 0 || index >= CountItems())
        return nullptr;
    const auto place = fItems.begin() + index;
    std::unique_ptr<BMenuItem> item = std::move(*place);
    fItems.erase(place);
    item->fMenu = nullptr;
    _Changed();
    return item;
}

void BMenu::_Marked(const BMenuItem& item) {
    if (!fRadio)
        return;
    for (const auto& other : fItems) {
        if (other.get() != &item)
            other->SetMarked(false);
    }
    if (fDynamicLabel && fSuperitem != nullptr)
        fSuperitem->SetLabel(item.Label());
}

void BMenu::_Changed() {
    if (MenuPeer* peer = MenuAccess::ShownBy(*this); peer != nullptr)
        peer->StateChangesOften();
}
