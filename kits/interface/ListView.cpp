#include <algorithm>
#include <app/Message.h>
#include <interface/ListView.h>
#include <interface/Window.h>
#include <utility>

#include "kits/interface/ControlPeer.h"

using namespace BPrivate;

namespace {

// An archive tells its class by name; the class has to be known before one is met.
[[maybe_unused]] const bool kRegistered = [] {
    register_instantiation_func("BListView", BListView::Instantiate);
    return true;
}();

std::unique_ptr<BMessage> ArchivedMessage(const BMessage& archive, const char* field) {
    auto message = std::make_unique<BMessage>();
    return archive.FindMessage(field, message.get()) == B_OK ? std::move(message) : nullptr;
}

}  // namespace

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
    BMessage itemArchive;
    for (int32 i = 0; archive->FindMessage("_l_items", i, &itemArchive) == B_OK; i++) {
        std::unique_ptr<BArchivable> object(instantiate_object(&itemArchive));
        auto* item = dynamic_cast<BListItem*>(object.get());
        if (item == nullptr)
            continue;
        (void)object.release();
        item->fList = this;
        item->fOwnedByList = true;
        fItems.push_back(item);
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
    status_t status = BView::Archive(archive, deep);
    const auto add = [&status](status_t result) {
        if (status == B_OK)
            status = result;
    };
    if (status != B_OK)
        return status;
    add(archive->AddInt32("_lv_type", fType));
    if (!fEnabled)
        add(archive->AddBool("_disable", true));
    if (Message() != nullptr)
        add(archive->AddMessage("_msg", Message()));
    if (fSelectionMessage)
        add(archive->AddMessage("_2nd_msg", fSelectionMessage.get()));
    if (!deep)
        return status;
    for (const BListItem* item : fItems) {
        BMessage itemArchive;
        add(item->Archive(&itemArchive, true));
        add(archive->AddMessage("_l_items", &itemArchive));
    }
    return status;
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

int32 BListView::CurrentSelection(int32 nth) const {
    for (int32 i = 0; nth >= 0 && i < CountItems(); i++) {
        if (ItemAt(i)->IsSelected() && nth-- == 0)
            return i;
    }
    return -1;
}

bool BListView::IsItemSelected(int32 index) const {
    const BListItem* item = ItemAt(index);
    return item != nullptr && item->IsSelected();
}

void BListView::Select(int32 index, bool extend) {
    Select(index, index, extend);
}

void BListView::Select(int32 first, int32 last, bool extend) {
    if (ItemAt(first) == nullptr || ItemAt(last) == nullptr || first > last)
        return;
    std::vector<bool> wanted(fItems.size(), false);
    for (int32 i = 0; i < CountItems(); i++) {
        const bool kept = extend && fType == B_MULTIPLE_SELECTION_LIST && ItemAt(i)->IsSelected();
        const bool inside = i >= first && i <= last && ItemAt(i)->IsEnabled();
        wanted[static_cast<std::size_t>(i)] = kept || inside;
    }
    _Select(wanted);
}

void BListView::Deselect(int32 index) {
    if (!IsItemSelected(index))
        return;
    std::vector<bool> wanted = _Selected();
    wanted[static_cast<std::size_t>(index)] = false;
    _Select(wanted);
}

void BListView::DeselectAll() {
    _Select(std::vector<bool>(fItems.size(), false));
}

std::vector<bool> BListView::_Selected() const {
    std::vector<bool> selected;
    for (const BListItem* item : fItems)
        selected.push_back(item->IsSelected());
    return selected;
}

void BListView::_Select(const std::vector<bool>& wanted) {
    if (!_Adopt(wanted))
        return;
    _StateChanged();
    _Notify();
}

bool BListView::_Adopt(const std::vector<bool>& wanted) {
    bool changed = false;
    bool any = false;
    for (std::size_t i = 0; i < fItems.size(); i++) {
        const bool selected = wanted[i] && !(any && fType == B_SINGLE_SELECTION_LIST);
        any = any || selected;
        changed = changed || selected != fItems[i]->fSelected;
        fItems[i]->fSelected = selected;
    }
    return changed;
}

void BListView::_Notify() {
    SelectionChanged();
    if (fSelectionMessage)
        (void)Invoke(fSelectionMessage.get());
}

void BListView::ScrollToSelection() {
    if (CurrentSelection() < 0)
        return;
    fScrollSerial++;
    _StateChanged();
}

void BListView::SelectionChanged() {}

void BListView::SetListType(list_view_type type) {
    if (type == fType)
        return;
    fType = type;
    _StateChanged();
    _Select(_Selected());
}

void BListView::SetSelectionMessage(BMessage* message) {
    fSelectionMessage.reset(message);
}

uint32 BListView::SelectionCommand() const {
    return fSelectionMessage ? fSelectionMessage->what : 0;
}

void BListView::SetInvocationMessage(BMessage* message) {
    (void)SetMessage(message);
}

status_t BListView::Invoke(BMessage* message) {
    const BMessage* original = message != nullptr ? message : Message();
    if (original == nullptr)
        return B_BAD_VALUE;
    BMessage copy(*original);
    for (const char* field : {"when", "source", "index"})
        copy.RemoveName(field);
    copy.AddInt64("when", system_time());
    copy.AddPointer("source", this);
    for (int32 i = 0; i < CountItems(); i++) {
        if (ItemAt(i)->IsSelected())
            copy.AddInt32("index", i);
    }
    return BInvoker::Invoke(&copy);
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
    const BPoint size = TheDisplay().PreferredSize(ControlPeer::Of(this)->State());
    if (width != nullptr)
        *width = size.x;
    if (height != nullptr)
        *height = size.y;
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
