#include <interface/Button.h>

#include <app/Message.h>
#include <interface/Window.h>

#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

class BButton::Peer : public LabelledPeer {
public:
    explicit Peer(BButton& button) : LabelledPeer(button), fButton(button) {}

    ControlState State() const override {
        return ButtonState{
            fButton.Label(), fButton.fIsDefault, fButton.Value() != B_CONTROL_OFF, fButton.fIsFlat};
    }
    void UserChanged(const BMessage&) override { fButton.Invoke(); }

private:
    BButton& fButton;
};

BButton::BButton(BRect frame, const char* name, const char* label, BMessage* message,
    uint32 resizingMode, uint32 flags)
    : BControl(frame, name, label, message, resizingMode, flags) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BButton::BButton(BMessage* archive)
    : BControl(archive), fIsDefault(archive->GetBool("_default", false)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BButton::~BButton() = default;

BArchivable* BButton::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BButton") ? new BButton(archive) : nullptr;
}

status_t BButton::Archive(BMessage* archive, bool deep) const {
    status_t status = BControl::Archive(archive, deep);
    if (status == B_OK && fIsDefault)
        status = archive->AddBool("_default", true);
    return status;
}

void BButton::MakeDefault(bool isDefault) {
    if (isDefault != fIsDefault) {
        fIsDefault = isDefault;
        StateChanged();
    }
    if (Window() == nullptr)
        return;
    // The window tells the buttons concerned in turn, which then know it already.
    if (isDefault)
        Window()->SetDefaultButton(this);
    else if (Window()->DefaultButton() == this)
        Window()->SetDefaultButton(nullptr);
}

void BButton::SetFlat(bool flat) {
    if (flat == fIsFlat)
        return;
    fIsFlat = flat;
    StateChanged();
}

void BButton::AttachedToWindow() {
    BControl::AttachedToWindow();
    if (fIsDefault)
        MakeDefault(true);
}

void BButton::DetachedFromWindow() {
    const bool isDefault = fIsDefault;
    MakeDefault(false);
    fIsDefault = isDefault;  // of whatever window it is put into next
    BControl::DetachedFromWindow();
}
