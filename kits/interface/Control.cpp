#include <interface/Control.h>

#include <algorithm>
#include <app/Message.h>
#include <cmath>
#include <interface/Window.h>
#include <kernel/OS.h>

#include "kits/interface/ArchiveFields.h"
#include "kits/interface/ControlPeer.h"

using BPrivate::ControlPeer;

BControl::BControl(BRect frame, const char* name, const char* label, BMessage* message,
    uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags), BInvoker(message, BMessenger()),
      fLabel(label == nullptr ? "" : label) {}

BControl::BControl(BMessage* archive)
    : BView(archive), BInvoker(BPrivate::ArchivedMessage(*archive, "_msg").release(), BMessenger()),
      fLabel(archive->GetString("_label", "")), fValue(archive->GetInt32("_val", B_CONTROL_OFF)),
      fEnabled(!archive->GetBool("_disable", false)) {}

BControl::~BControl() = default;

status_t BControl::Archive(BMessage* archive, bool deep) const {
    status_t status = BView::Archive(archive, deep);
    if (status == B_OK)
        status = archive->AddString("_label", fLabel.c_str());
    if (status == B_OK && fValue != B_CONTROL_OFF)
        status = archive->AddInt32("_val", fValue);
    if (status == B_OK && !fEnabled)
        status = archive->AddBool("_disable", true);
    if (status == B_OK && Message() != nullptr)
        status = archive->AddMessage("_msg", Message());
    return status;
}

void BControl::SetLabel(const char* label) {
    const std::string text = label == nullptr ? "" : label;
    if (text == fLabel)
        return;
    fLabel = text;
    StateChanged();
    if (ControlPeer* peer = ControlPeer::Of(this))
        peer->PlaceChanged();  // the label is the accessible name
}

void BControl::SetValue(int32 value) {
    if (value == fValue)
        return;
    fValue = value;
    StateChanged();
}

void BControl::SetEnabled(bool enabled) {
    if (enabled == fEnabled)
        return;
    fEnabled = enabled;
    if (ControlPeer* peer = ControlPeer::Of(this))
        peer->PlaceChanged();
    else
        Invalidate();
}

status_t BControl::Invoke(BMessage* message) {
    const BMessage* original = message != nullptr ? message : Message();
    if (original == nullptr)
        return B_BAD_VALUE;
    BMessage copy(*original);
    for (const char* field : {"when", "source", "be:value"})
        copy.RemoveName(field);
    copy.AddInt64("when", system_time());
    copy.AddPointer("source", this);
    copy.AddInt32("be:value", fValue);
    return BInvoker::Invoke(&copy);
}

void BControl::AttachedToWindow() {
    BView::AttachedToWindow();
    if (!Messenger().IsValid())
        SetTarget(BMessenger(Window()));
}

void BControl::GetPreferredSize(float* width, float* height) {
    if (const ControlPeer* peer = ControlPeer::Of(this))
        peer->GetPreferredSize(width, height);
    else
        BView::GetPreferredSize(width, height);
}

void BControl::StateChanged() {
    if (ControlPeer* peer = ControlPeer::Of(this))
        peer->StateChanged();
    else
        Invalidate();
}
