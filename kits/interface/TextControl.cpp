#include <interface/TextControl.h>

#include <algorithm>
#include <app/Message.h>
#include <cmath>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/LabelledPeer.h"

using namespace BPrivate;

namespace {

std::string OneLine(const char* text) {
    std::string line = text == nullptr ? "" : text;
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}

}  // namespace

class BTextControl::Peer : public LabelledPeer {
public:
    explicit Peer(BTextControl& control) : LabelledPeer(control), fControl(control) {}

    ControlState State() const override {
        return TextControlState{fControl.Label(), fControl.fText, fControl.fDivider};
    }

    void UserChanged(const BMessage& event) override {
        const char* text = nullptr;
        if (event.FindString("text", &text) != B_OK || fControl.fText == text)
            return;
        fControl.fText = text;
        fControl.fChanged = true;
        if (fControl.fModification)
            fControl.Invoke(fControl.fModification.get());
    }

private:
    BTextControl& fControl;
};

BTextControl::BTextControl(BRect frame, const char* name, const char* label,
    const char* initialText, BMessage* message, uint32 resizingMode, uint32 flags)
    : BControl(frame, name, label, message, resizingMode, flags), fText(OneLine(initialText)),
      fDivider(*Label() == '\0' ? 0 : std::floor(frame.Width() / 2)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BTextControl::BTextControl(BMessage* archive)
    : BControl(archive), fText(OneLine(archive->GetString("_text", ""))),
      fModification(ArchivedMessage(*archive, "_mod_msg")),
      fDivider(archive->GetFloat("_divide", 0.0F)) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BTextControl::~BTextControl() = default;

BArchivable* BTextControl::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BTextControl") ? new BTextControl(archive) : nullptr;
}

status_t BTextControl::Archive(BMessage* archive, bool deep) const {
    status_t status = BControl::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddString("_text", fText.c_str());
    if (status == B_OK)
        status = archive->AddFloat("_divide", fDivider);
    if (status == B_OK && fModification)
        status = archive->AddMessage("_mod_msg", fModification.get());
    return status;
}

void BTextControl::SetText(const char* text) {
    std::string line = OneLine(text);
    fChanged = false;
    if (line == fText)
        return;
    fText = std::move(line);
    StateChanged();
}

void BTextControl::SetModificationMessage(BMessage* message) {
    fModification.reset(message);
}

void BTextControl::SetDivider(float position) {
    if (position == fDivider || !std::isfinite(position))
        return;
    fDivider = position;
    StateChanged();
}

void BTextControl::KeyDown(const char* bytes, int32 numBytes) {
    if (numBytes == 1 && bytes[0] == B_ENTER)
        _InvokeIfChanged();
    else
        BControl::KeyDown(bytes, numBytes);
}

void BTextControl::MakeFocus(bool focused) {
    BControl::MakeFocus(focused);
    if (!focused)
        _InvokeIfChanged();
}

void BTextControl::_InvokeIfChanged() {
    if (!fChanged)
        return;
    fChanged = false;
    Invoke();
}
