// What is selected in a list, and the messages that tell it.

#include <app/Message.h>
#include <interface/ListView.h>
#include <kernel/OS.h>
#include <memory>

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
