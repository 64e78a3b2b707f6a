// The labels of the common preferences view, and the places that go with them.

#include "framework/Accelerator.h"
#include "framework/Adjust.h"
#include "framework/LocalText.h"
#include "iap/IAPView.h"
#include "iap/IAPWindow.h"
#include "iap/ItemNames.h"

#include <algorithm>
#include <cmath>
#include <interface/Button.h>
#include <interface/MenuField.h>
#include <interface/TextControl.h>
#include <interface/Window.h>
#include <locale/Locale.h>

namespace {

constexpr float kButtonWidth = 80;
constexpr float kButtonHeight = 22;
constexpr float kBeforeCancel = 30;

std::string label_of(const BView& control, const std::string& format) {
    const char* name = control.Name();  // another application's may have none
    const TNamedLabel named = named_label(name != nullptr ? name : "");
    return merge_accelerator_key(format, named.shortcut, be_locale->GetString(named.key.c_str()));
}

/// Whether the view is one that has a label.
bool set_label(BView& view, const std::string& format) {
    if (auto* field = dynamic_cast<BMenuField*>(&view); field != nullptr) {
        field->SetLabel(label_of(view, format).c_str());
        adjust_mfield_divider(field);
        return true;
    }
    auto* control = dynamic_cast<BControl*>(&view);
    if (control == nullptr)
        return false;
    control->SetLabel(label_of(view, format).c_str());
    if (auto* text = dynamic_cast<BTextControl*>(control); text != nullptr)
        adjust_txtctrl_divider(text);
    return true;
}

/// Never smaller than it was made.
void grow_to_preferred_size(BView& control) {
    float width = 0;
    float height = 0;
    control.GetPreferredSize(&width, &height);
    const BRect bounds = control.Bounds();
    control.ResizeTo(
        std::max(bounds.Width(), std::ceil(width)), std::max(bounds.Height(), std::ceil(height)));
}

}  // namespace

void TIAPView::SetViewLabels() {
    BWindow* window = Window();
    if (window != nullptr && !window->Lock())
        return;
    std::string format;
    (void)fPrefs.GetString(kAccKeyFormatItem, &format);
    for (int32 i = 0; BView* child = ChildAt(i); i++) {
        if (child != fButtonContainer)
            LabelComponent(*child, format);
    }
    LabelButtons(format);
    LayOut();
    if (window != nullptr)
        window->Unlock();
}

void TIAPView::LabelComponent(BView& component, const std::string& format) const {
    // A control that stands alone may take the room its label needs; several are laid out by who
    // made them.
    const bool isAlone = component.CountChildren() == 1;
    for (int32 i = 0; BView* child = component.ChildAt(i); i++) {
        if (!set_label(*child, format)) {
            LabelComponent(*child, format);
        } else if (isAlone && component.Parent() == this) {
            grow_to_preferred_size(*child);
            const BRect bounds = component.Bounds();
            component.ResizeTo(std::max(bounds.Width(), child->Frame().right),
                std::max(bounds.Height(), child->Frame().bottom));
        }
    }
}

void TIAPView::LabelButtons(const std::string& format) {
    fButtonDefaults->SetLabel(
        merge_accelerator_key(format, "D", be_locale->GetString("Defaults")).c_str());
    fButtonCancel->SetLabel(be_locale->GetString("Cancel"));
    fButtonOK->SetLabel(be_locale->GetString("OK"));
}

void TIAPView::LayOut() {
    PlaceButtons();
    float width = std::max(fButtonContainer->Frame().Width(),
        width_for_title(be_locale->GetString(TIAPWindow::kTitle)));
    float bottom = 0;
    for (int32 i = 0; BView* child = ChildAt(i); i++) {
        if (child == fButtonContainer)
            continue;
        child->MoveTo(kMargin, bottom + kMargin);
        bottom = child->Frame().bottom;
        width = std::max(width, child->Frame().right + kMargin);
    }
    fButtonContainer->MoveTo(width - fButtonContainer->Frame().Width(), bottom);
    FitTo(width, fButtonContainer->Frame().bottom);
}

void TIAPView::PlaceButtons() {
    float left = kMargin;
    for (BButton* button : {fButtonDefaults, fButtonCancel, fButtonOK}) {
        adjust_button_width(button);
        button->ResizeTo(std::max(kButtonWidth, button->Bounds().Width()), kButtonHeight);
        button->MoveTo(left, kMargin);
        left = button->Frame().right + (button == fButtonDefaults ? kBeforeCancel : kMargin);
    }
    const BRect last = fButtonOK->Frame();
    fButtonContainer->ResizeTo(last.right + kMargin, last.bottom + kMargin);
}

void TIAPView::FitTo(float width, float height) {
    if (Window() != nullptr)
        Window()->ResizeTo(width, height);  // which this view follows
    ResizeTo(width, height);
}
