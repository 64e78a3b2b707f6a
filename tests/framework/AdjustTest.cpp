#include "framework/Adjust.h"

#include <cmath>
#include <gtest/gtest.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/Font.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>

namespace {

constexpr BRect kControlFrame(10, 20, 29, 44);

template <typename Control>
void expect_adjusted(Control& control, void (*adjust)(Control*)) {
    float width = 0;
    float height = 0;
    control.GetPreferredSize(&width, &height);
    adjust(&control);
    EXPECT_EQ(control.Bounds().Width(), std::ceil(width));
    EXPECT_EQ(control.Bounds().Height(), kControlFrame.Height());
    EXPECT_EQ(control.Frame().LeftTop(), kControlFrame.LeftTop());
}

TEST(Adjust, GivesControlsTheWidthTheyPrefer) {
    for (const char* label : {"A label", "Another, much longer label", ""}) {
        BButton button(kControlFrame, "ButtonA", label, nullptr);
        expect_adjusted(button, adjust_button_width);
        BCheckBox box(kControlFrame, "CBoxA", label, nullptr);
        expect_adjusted(box, adjust_cbox_width);
        BRadioButton radio(kControlFrame, "RButtonA", label, nullptr);
        expect_adjusted(radio, adjust_rbutton_width);
        BStringView view(kControlFrame, "StrViewA", label);
        expect_adjusted(view, adjust_strview_width);
    }
}

TEST(Adjust, PutsTheTextFieldAfterTheLabel) {
    BTextControl control(kControlFrame, "TxtCtrlA", "Margin: ", "5", nullptr);
    adjust_txtctrl_divider(&control);
    const float shorter = control.Divider();
    EXPECT_GE(shorter, control.StringWidth("Margin: "));
    EXPECT_EQ(shorter, std::ceil(shorter));

    control.SetLabel("A longer margin: ");
    adjust_txtctrl_divider(&control);
    EXPECT_GT(control.Divider(), shorter);

    control.SetLabel("");
    adjust_txtctrl_divider(&control);
    EXPECT_EQ(control.Divider(), 0);
}

TEST(Adjust, PutsTheMenuAfterTheLabel) {
    BMenuField field(kControlFrame, "MFieldA", "Format: ", new BPopUpMenu("Select..."));
    adjust_mfield_divider(&field);
    const float shorter = field.Divider();
    EXPECT_GE(shorter, field.StringWidth("Format: "));
    EXPECT_EQ(shorter, std::ceil(shorter));

    field.SetLabel("Accelerator Format(A): ");
    adjust_mfield_divider(&field);
    EXPECT_GT(field.Divider(), shorter);

    field.SetLabel("");
    adjust_mfield_divider(&field);
    EXPECT_EQ(field.Divider(), 0);
}

TEST(Adjust, AWindowHasRoomForItsTitleAndMore) {
    const float empty = width_for_title("");
    EXPECT_GT(empty, 90);
    EXPECT_EQ(width_for_title("A title"), empty + std::ceil(be_bold_font->StringWidth("A title")));
}

}  // namespace
