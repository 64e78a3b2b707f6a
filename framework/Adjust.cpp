#include "framework/Adjust.h"

#include <cmath>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/RadioButton.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>

namespace {

void adjust_width(BView* view) {
    float width = 0;
    float height = 0;
    view->GetPreferredSize(&width, &height);
    view->ResizeTo(std::ceil(width), view->Bounds().Height());
}

/// Works for every control whose label stands before its content.
template <typename Control>
void adjust_divider(Control* control) {
    constexpr float kSpace = 8.0F;
    const char* label = control->Label();
    const bool isEmpty = label == nullptr || *label == '\0';
    control->SetDivider(isEmpty ? 0.0F : std::ceil(control->StringWidth(label)) + kSpace);
}

}  // namespace

void adjust_button_width(BButton* button) {
    adjust_width(button);
}

void adjust_cbox_width(BCheckBox* box) {
    adjust_width(box);
}

void adjust_rbutton_width(BRadioButton* button) {
    adjust_width(button);
}

void adjust_strview_width(BStringView* view) {
    adjust_width(view);
}

void adjust_txtctrl_divider(BTextControl* control) {
    adjust_divider(control);
}

void adjust_mfield_divider(BMenuField* field) {
    adjust_divider(field);
}
