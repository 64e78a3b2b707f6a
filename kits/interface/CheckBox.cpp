#include <interface/CheckBox.h>

#include <app/Message.h>

#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

class BCheckBox::Peer : public LabelledPeer {
public:
    explicit Peer(BCheckBox& box) : LabelledPeer(box), fBox(box) {}

    ControlState State() const override {
        return CheckBoxState{fBox.Label(), fBox.Value() != B_CONTROL_OFF};
    }

    void UserChanged(const BMessage& event) override {
        int32 value = fBox.Value();
        if (event.FindInt32("value", &value) != B_OK)
            return;
        fBox.AdoptValue(value != 0 ? B_CONTROL_ON : B_CONTROL_OFF);
        fBox.Invoke();
    }

private:
    BCheckBox& fBox;
};

BCheckBox::BCheckBox(BRect frame, const char* name, const char* label, BMessage* message,
    uint32 resizingMode, uint32 flags)
    : BControl(frame, name, label, message, resizingMode, flags) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BCheckBox::BCheckBox(BMessage* archive) : BControl(archive) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BCheckBox::~BCheckBox() = default;

BArchivable* BCheckBox::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BCheckBox") ? new BCheckBox(archive) : nullptr;
}

void BCheckBox::SetValue(int32 value) {
    BControl::SetValue(value != B_CONTROL_OFF ? B_CONTROL_ON : B_CONTROL_OFF);
}
