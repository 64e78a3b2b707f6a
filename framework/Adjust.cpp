#include "framework/Adjust.h"

#include <cmath>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/Font.h>
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

/// What a label takes from the room of its field. The desktop draws it, in a font of its own; a
/// field that has the label wants that much more than one without.
float label_width(const char* label) {
    const auto preferred = [](const char* text) {
        float width = 0;
        BTextControl(BRect(0, 0, 0, 0), "", text, "", nullptr).GetPreferredSize(&width, nullptr);
        return width;
    };
    return preferred(label) - preferred("");
}

/// Works for every control whose label stands before its content.
template <typename Control>
void adjust_divider(Control* control) {
    constexpr float kSpace = 4.0F;
    const char* label = control->Label();
    const bool isEmpty = label == nullptr || *label == '\0';
    control->SetDivider(isEmpty ? 0.0F : std::ceil(label_width(label)) + kSpace);
}

// Three buttons and an icon, and room around them and the title.
constexpr float kBesidesTitle = 110;

}  // namespace

float width_for_title(const char* title) {
    return std::ceil(be_bold_font->StringWidth(title)) + kBesidesTitle;
}

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
