#include <interface/ListView.h>

#include <algorithm>
#include <app/Message.h>
#include <interface/Window.h>
#include <utility>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

class BListView::Peer : public ControlPeer {
public:
    explicit Peer(BListView& list) : fList(list) {}

    ControlState State() const override {
        ListViewState state;
        state.multiple = fList.fType == B_MULTIPLE_SELECTION_LIST;
        state.scrollBar = fList.fScrollBar;
        state.border = fList.fBorder;
        state.scrollSerial = fList.fScrollSerial;
        state.rows.reserve(fList.fItems.size());
        for (const BListItem* item : fList.fItems) {
            const auto row = static_cast<int32>(state.rows.size());
            if (item->IsSelected())
                state.selected.push_back(row);
            if (!item->IsEnabled())
                state.disabled.push_back(row);
            state.rows.push_back(item->RowText());
        }
        return state;
    }

    bool IsEnabled() const override { return fList.fEnabled; }

    void UserChanged(const BMessage& event) override {
        std::vector<bool> wanted(fList.fItems.size(), false);
        int32 row = 0;
        for (int32 i = 0; event.FindInt32("selected", i, &row) == B_OK; i++) {
            const BListItem* item = fList.ItemAt(row);
            if (item != nullptr && item->IsEnabled())
                wanted[static_cast<std::size_t>(row)] = true;
        }
        if (fList._Adopt(wanted))
            fList._Notify();
        // The hook may have removed the row.
        if (event.FindInt32("invoked", &row) == B_OK && fList.IsItemSelected(row))
            (void)fList.Invoke();
    }

private:
    BListView& fList;
};

BListView::BListView(
    BRect frame, const char* name, list_view_type type, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), fType(type) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BListView::BListView(BMessage* archive)
    : BView(archive), BInvoker(ArchivedMessage(*archive, "_msg").release(), BMessenger()),
      fSelectionMessage(ArchivedMessage(*archive, "_2nd_msg")),
      fType(archive->GetInt32("_lv_type", B_SINGLE_SELECTION_LIST) == B_MULTIPLE_SELECTION_LIST
              ? B_MULTIPLE_SELECTION_LIST
              : B_SINGLE_SELECTION_LIST),
      fEnabled(!archive->GetBool("_disable", false)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
    for (int32 i = 0; archive->HasMessage("_l_items", i); i++) {
        auto item = ArchivedObject<BListItem>(*archive, "_l_items", i);
        if (item == nullptr)
            continue;
        item->fList = this;
        item->fOwnedByList = true;
        fItems.push_back(item.release());
    }
    (void)_Adopt(_Selected());  // of which a list may allow but one
}

BListView::~BListView() {
    for (BListItem* item : std::exchange(fItems, {})) {
        item->fList = nullptr;
        if (item->fOwnedByList)
            delete item;
    }
}

BArchivable* BListView::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BListView") ? new BListView(archive) : nullptr;
}

status_t BListView::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BView::Archive(archive, deep));
    add(archive->AddInt32("_lv_type", fType));
    if (!fEnabled)
        add(archive->AddBool("_disable", true));
    if (Message() != nullptr)
        add(archive->AddMessage("_msg", Message()));
    if (fSelectionMessage)
        add(archive->AddMessage("_2nd_msg", fSelectionMessage.get()));
    if (!deep)
        return add.Status();
    for (const BListItem* item : fItems)
        add(AddArchiveOf(*item, archive, "_l_items"));
    return add.Status();
}

bool BListView::AddItem(BListItem* item) {
    return AddItem(item, CountItems());
}

bool BListView::AddItem(BListItem* item, int32 index) {
    if (item == nullptr || item->fList != nullptr || index < 0 || index > CountItems())
        return false;
    if (fType == B_SINGLE_SELECTION_LIST && item->IsSelected() && CurrentSelection() >= 0)
        item->Deselect();
    item->fList = this;
    item->fOwnedByList = false;
    fItems.insert(fItems.begin() + index, item);
    _StateChanged();
    return true;
}

bool BListView::RemoveItem(BListItem* item) {
    return RemoveItem(IndexOf(item)) != nullptr;
}

BListItem* BListView::RemoveItem(int32 index) {
    BListItem* const item = ItemAt(index);
    return RemoveItems(index, 1) ? item : nullptr;
}

bool BListView::RemoveItems(int32 index, int32 count) {
    if (index < 0 || index >= CountItems() || count <= 0)
        return false;
    const auto first = fItems.begin() + index;
    const auto last = first + std::min(count, CountItems() - index);
    std::for_each(first, last, _LetGo);
    fItems.erase(first, last);
    _StateChanged();
    return true;
}

void BListView::MakeEmpty() {
    (void)RemoveItems(0, CountItems());
}

void BListView::_LetGo(BListItem* item) {
    item->fList = nullptr;
    item->fOwnedByList = false;
    item->Deselect();
}

void BListView::_ItemGone(BListItem* item) {
    std::erase(fItems, item);
    _StateChanged();
}

BListItem* BListView::ItemAt(int32 index) const {
    return index >= 0 && index < CountItems() ? fItems[static_cast<std::size_t>(index)] : nullptr;
}

int32 BListView::IndexOf(const BListItem* item) const {
    const auto found = std::ranges::find(fItems, item);
    return found != fItems.end() ? static_cast<int32>(found - fItems.begin()) : -1;
}

void BListView::InvalidateItem(int32 index) {
    if (ItemAt(index) != nullptr)
        _StateChanged();
}

void BListView::DoForEach(bool (*function)(BListItem* item)) {
    for (int32 i = 0; i < CountItems(); i++) {
        if (function(ItemAt(i)))
            return;
    }
}

void BListView::SortItems(int (*compare)(const void* first, const void* second)) {
    if (compare == nullptr)
        return;
    // The platform's function compares pointers to pointers, as those given to qsort() do, but
    // one that contradicts itself must not lead outside of the rows.
    std::stable_sort(fItems.begin(), fItems.end(),
        [compare](const BListItem* a, const BListItem* b) { return compare(&a, &b) < 0; });
    _StateChanged();
}

void BListView::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    ControlPeer::Of(this)->PlaceChanged();
}

void BListView::AttachedToWindow() {
    BView::AttachedToWindow();
    if (!Messenger().IsValid())
        SetTarget(BMessenger(Window()));
}

void BListView::KeyDown(const char* bytes, int32 numBytes) {
    const bool opens = numBytes == 1 && bytes[0] == B_ENTER && Message() != nullptr;
    if (opens && CurrentSelection() >= 0)
        (void)Invoke();
    else
        BView::KeyDown(bytes, numBytes);
}

void BListView::GetPreferredSize(float* width, float* height) {
    ControlPeer::Of(this)->GetPreferredSize(width, height);
}

void BListView::_StateChanged() {
    // Rows often come by the hundreds.
    ControlPeer::Of(this)->StateChangesOften();
}

void BListView::_SetScrolled(bool scrollBar, border_style border) {
    if (scrollBar == fScrollBar && border == fBorder)
        return;
    fScrollBar = scrollBar;
    fBorder = border;
    _StateChanged();
}
