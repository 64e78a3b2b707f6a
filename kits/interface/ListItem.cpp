#include <interface/ListItem.h>

#include <app/Message.h>
#include <interface/ListView.h>

BListItem::BListItem(uint32, bool) {}

BListItem::BListItem(BMessage* archive)
    : BArchivable(archive), fSelected(archive->GetBool("_sel", false)),
      fEnabled(!archive->GetBool("_disable", false)) {}

BListItem::~BListItem() {
    if (fList != nullptr)
        fList->_ItemGone(this);
}

status_t BListItem::Archive(BMessage* archive, bool deep) const {
    status_t status = BArchivable::Archive(archive, deep);
    if (status == B_OK && fSelected)
        status = archive->AddBool("_sel", true);
    if (status == B_OK && !fEnabled)
        status = archive->AddBool("_disable", true);
    return status;
}

void BListItem::SetEnabled(bool enabled) {
    fEnabled = enabled;
    RowChanged();
}

void BListItem::RowChanged() {
    if (fList != nullptr)
        fList->_StateChanged();
}

BStringItem::BStringItem(const char* text, uint32 outlineLevel, bool expanded)
    : BListItem(outlineLevel, expanded), fText(text != nullptr ? text : "") {}

BStringItem::BStringItem(BMessage* archive)
    : BListItem(archive), fText(archive->GetString("_label", "")) {}

BStringItem::~BStringItem() = default;

BArchivable* BStringItem::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BStringItem") ? new BStringItem(archive) : nullptr;
}

status_t BStringItem::Archive(BMessage* archive, bool deep) const {
    status_t status = BListItem::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddString("_label", fText.c_str());
    return status;
}

void BStringItem::SetText(const char* text) {
    fText = text != nullptr ? text : "";
    RowChanged();
}
