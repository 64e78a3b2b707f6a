#include <interface/MenuField.h>

#include <app/Message.h>
#include <cmath>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/MenuAccess.h"
#include "kits/interface/MenuPeer.h"

using namespace BPrivate;

class BMenuField::Peer : public MenuPeer {
public:
    explicit Peer(const BMenuField& field) : fField(field) {}

    ControlState State() const override {
        MenuFieldState state;
        state.label = fField.fLabel;
        state.divider = fField.fDivider;
        state.fixedSize = fField.fFixedSize;
        if (const BMenu* menu = fField.Menu(); menu != nullptr) {
            state.title = menu->Name() != nullptr ? menu->Name() : "";
            state.items = MenuAccess::StatesOf(*menu);
        }
        state.choice = fChoice;
        return state;
    }

    void UserChanged(const BMessage& event) override {
        fChoice = event.GetInt32("choice", fChoice);
        StateChangesOften();  // the answer, also when nothing comes of it
        MenuPeer::UserChanged(event);
    }

    bool IsEnabled() const override {
        return fField.fEnabled && (fField.fMenu == nullptr || fField.fMenu->IsEnabled());
    }

    std::string AccessibleName() const override { return fField.fLabel; }

protected:
    const BMenu* ShownMenu() const override { return fField.Menu(); }

private:
    const BMenuField& fField;
    int32 fChoice = 0;  // the last one that arrived
};

BMenuField::BMenuField(BRect frame, const char* name, const char* label, BMenu* menu,
    uint32 resizingMode, uint32 flags)
    : BMenuField(frame, name, label, menu, false, resizingMode, flags) {}

BMenuField::BMenuField(BRect frame, const char* name, const char* label, BMenu* menu,
    bool fixedSize, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), fLabel(label != nullptr ? label : ""), fMenu(menu),
      fDivider(fLabel.empty() ? 0 : std::floor(frame.Width() / 2)), fFixedSize(fixedSize) {
    _Install();
}

BMenuField::BMenuField(BMessage* archive) : BView(archive) {
    if (archive != nullptr) {
        fLabel = archive->GetString("_label", "");
        fEnabled = !archive->GetBool("_disable", false);
        fFixedSize = archive->GetBool("be:fixeds", false);
        const float divider = archive->GetFloat("_divide", 0.0F);
        fDivider = std::isfinite(divider) ? divider : 0;
    }
    // Archived as a view in the field, and made one by the base.
    for (int32 i = 0; fMenu == nullptr && i < CountChildren(); i++) {
        auto* menu = dynamic_cast<BMenu*>(ChildAt(i));
        if (menu != nullptr && RemoveChild(menu))
            fMenu.reset(menu);
    }
    _Install();
}

BMenuField::~BMenuField() = default;

void BMenuField::_Install() {
    auto peer = std::make_unique<Peer>(*this);
    if (fMenu != nullptr)
        MenuAccess::SetShownBy(*fMenu, peer.get());
    ControlPeer::Install(*this, std::move(peer));
}

BArchivable* BMenuField::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BMenuField") ? new BMenuField(archive) : nullptr;
}

status_t BMenuField::Archive(BMessage* archive, bool deep) const {
    FirstFailure add(BView::Archive(archive, deep));
    add(archive->AddString("_label", fLabel.c_str()));
    if (!fEnabled)
        add(archive->AddBool("_disable", true));
    if (fFixedSize)
        add(archive->AddBool("be:fixeds", true));
    add(archive->AddFloat("_divide", fDivider));
    if (deep && fMenu != nullptr)
        add(AddArchiveOf(*fMenu, archive, "_views"));
    return add.Status();
}

void BMenuField::SetLabel(const char* label) {
    const std::string text = label != nullptr ? label : "";
    if (text == fLabel)
        return;
    fLabel = text;
    ControlPeer::Of(this)->StateChanged();
    ControlPeer::Of(this)->PlaceChanged();  // the label is the accessible name
}

void BMenuField::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    ControlPeer::Of(this)->PlaceChanged();
}

void BMenuField::SetDivider(float position) {
    if (position == fDivider || !std::isfinite(position))
        return;
    fDivider = position;
    ControlPeer::Of(this)->StateChanged();
}

void BMenuField::GetPreferredSize(float* width, float* height) {
    ControlPeer::Of(this)->GetPreferredSize(width, height);
}
