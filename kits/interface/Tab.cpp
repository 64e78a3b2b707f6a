#include <app/Message.h>
#include <interface/TabView.h>
#include <utility>

BTab::BTab(BView* view) : fView(view), fKept(view) {}

BTab::BTab(BMessage* archive)
    : BArchivable(archive), fLabel(archive->GetString("_label", "")),
      fHasLabel(archive->HasString("_label")), fEnabled(!archive->GetBool("_disable", false)) {}

BTab::~BTab() {
    Deselect();
}

BArchivable* BTab::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BTab") ? new BTab(archive) : nullptr;
}

status_t BTab::Archive(BMessage* archive, bool deep) const {
    status_t status = BArchivable::Archive(archive, deep);
    if (status == B_OK && fHasLabel)
        status = archive->AddString("_label", fLabel.c_str());
    if (status == B_OK && !fEnabled)
        status = archive->AddBool("_disable", true);
    return status;
}

const char* BTab::Label() const {
    if (fHasLabel)
        return fLabel.c_str();
    return fView != nullptr ? fView->Name() : nullptr;
}

void BTab::SetLabel(const char* label) {
    fHasLabel = label != nullptr;
    fLabel = label != nullptr ? label : "";
    _Changed();
}

void BTab::Select(BView* owner) {
    if (owner == nullptr || fSelected)
        return;
    fSelected = true;
    if (!fKept)
        return;
    // The view has missed how the container grew meanwhile. It follows by growing with it now.
    const BRect bounds = owner->Bounds();
    if (fContainerBounds.IsValid())
        owner->ResizeTo(fContainerBounds.Width(), fContainerBounds.Height());
    owner->AddChild(fKept.release());
    owner->ResizeTo(bounds.Width(), bounds.Height());
}

void BTab::Deselect() {
    if (!std::exchange(fSelected, false) || fView == nullptr)
        return;
    if (const BView* container = fView->Parent(); container != nullptr)
        fContainerBounds = container->Bounds();
    (void)fView->RemoveSelf();
    fKept.reset(fView);
}

void BTab::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    _Changed();
}

void BTab::SetView(BView* view) {
    if (view == fView)
        return;
    BView* const container = fSelected && fOwner != nullptr ? fOwner->ContainerView() : nullptr;
    Deselect();
    fKept.reset(view);
    fView = view;
    fContainerBounds = fOwner != nullptr ? fOwner->ContainerView()->Bounds() : BRect();
    if (container != nullptr)
        Select(container);
    _Changed();  // its name may be the label
}

void BTab::_Changed() {
    if (fOwner != nullptr)
        fOwner->_StateChanged();
}
