#include "framework/DialogView.h"

#include "framework/Accelerator.h"

#include <app/Messenger.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/Control.h>
#include <interface/InterfaceDefs.h>
#include <interface/MenuField.h>
#include <interface/RadioButton.h>
#include <interface/Window.h>

namespace {

bool shows_short_cut(const char* label, int32 rawChar) {
    // A label without a hint gives 0, which no key may match.
    return label != nullptr && rawChar != 0 && short_cut_from_label(label) == rawChar;
}

void set_and_invoke(BControl* control, int32 value) {
    control->MakeFocus(true);
    control->SetValue(value);
    control->Invoke();
}

/// What one kind of view does with a key. False when `view` is of another kind; else `taken` tells
/// whether the key was its own.
using TShortCutRule = bool (*)(BView* view, int32 rawChar, bool* taken);

template <typename Control, auto kAct>
bool apply_to(BView* view, int32 rawChar, bool* taken) {
    auto* control = dynamic_cast<Control*>(view);
    if (control == nullptr)
        return false;
    *taken = shows_short_cut(control->Label(), rawChar);
    if (*taken && control->IsEnabled())
        kAct(control);
    return true;
}

/// In the order they are tried: the last one also fits the others.
constexpr TShortCutRule kShortCutRules[] = {
    apply_to<BButton, [](BButton* button) { click_button(button); }>,
    apply_to<BCheckBox, [](BCheckBox* box) { set_and_invoke(box, box->Value() == 0); }>,
    apply_to<BMenuField, [](BMenuField* field) { field->MakeFocus(true); }>,
    apply_to<BRadioButton, [](BRadioButton* button) { set_and_invoke(button, 1); }>,
    apply_to<BControl, [](BControl* control) { control->MakeFocus(true); }>,
};

bool take_short_cut(BView* view, int32 rawChar) {
    bool taken = false;
    for (const TShortCutRule rule : kShortCutRules) {
        if (rule(view, rawChar, &taken))
            break;
    }
    return taken;
}

}  // namespace

TDialogView::TDialogView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
    : TBasicView(frame, name, resizingMode, flags) {}

TDialogView::TDialogView(BMessage* archive) : TBasicView(archive) {}

void TDialogView::ShortCutDown(int32 rawChar, int32 key) const {
    if (rawChar != B_ENTER) {
        (void)ApplyShortCut(this, rawChar, key);
        return;
    }
    auto* button = dynamic_cast<BButton*>(Window()->CurrentFocus());
    if (button == nullptr)
        button = Window()->DefaultButton();
    if (button != nullptr)
        click_button(button);
}

int32 TDialogView::ApplyShortCut(const BView* parent, int32 rawChar, int32 key) const {
    for (int32 i = 0; BView* child = parent->ChildAt(i); i++) {
        if (take_short_cut(child, rawChar) || ApplyShortCut(child, rawChar, key) == 0)
            return 0;
    }
    return -1;
}

void TDialogView::SetTargetToThis(BView* root) const {
    if (auto* control = dynamic_cast<BControl*>(root))
        (void)control->SetTarget(BMessenger(this));
    for (int32 i = 0; BView* child = root->ChildAt(i); i++)
        SetTargetToThis(child);
}
