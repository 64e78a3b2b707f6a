#include <interface/RadioButton.h>

#include <app/Message.h>
#include <cstdint>
#include <interface/Window.h>

#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

class BRadioButton::Peer : public LabelledPeer {
public:
    explicit Peer(BRadioButton& button) : LabelledPeer(button), fButton(button) {}

    ControlState State() const override {
        return RadioButtonState{fButton.Label(), fButton.Value() != B_CONTROL_OFF,
            reinterpret_cast<std::uintptr_t>(fButton.Parent())};
    }

    void UserChanged(const BMessage&) override {
        fButton.AdoptValue(B_CONTROL_ON);
        StateChanged();  // another one that was clicked just before may have turned it off
        fButton._TurnSiblingsOff();
        fButton.Invoke();
    }

    /// Of two clicks it is the last that counts, and it may come before the first one's effect.
    bool TakesLate(const BMessage&) const override { return true; }

private:
    BRadioButton& fButton;
};

BRadioButton::BRadioButton(BRect frame, const char* name, const char* label, BMessage* message,
    uint32 resizingMode, uint32 flags)
    : BControl(frame, name, label, message, resizingMode, flags) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BRadioButton::BRadioButton(BMessage* archive) : BControl(archive) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BRadioButton::~BRadioButton() = default;

BArchivable* BRadioButton::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BRadioButton") ? new BRadioButton(archive) : nullptr;
}

void BRadioButton::SetValue(int32 value) {
    BControl::SetValue(value != B_CONTROL_OFF ? B_CONTROL_ON : B_CONTROL_OFF);
    if (value != B_CONTROL_OFF)
        _TurnSiblingsOff();
}

void BRadioButton::_TurnSiblingsOff() {
    // Views that hang from the window itself have no parent, but they have siblings.
    BView* first = this;
    while (BView* previous = first->PreviousSibling())
        first = previous;
    for (BView* sibling = first; sibling != nullptr; sibling = sibling->NextSibling()) {
        auto* button = dynamic_cast<BRadioButton*>(sibling);
        if (button != nullptr && button != this)
            button->SetValue(B_CONTROL_OFF);
    }
}
