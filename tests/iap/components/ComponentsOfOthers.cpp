#include "tests/iap/components/ComponentsOfOthers.h"

#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/Font.h>
#include <interface/MenuField.h>
#include <interface/MenuItem.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/Slider.h>
#include <interface/StringView.h>
#include <interface/TextControl.h>

#include "tests/iap/Components.h"

namespace {

constexpr char kControls[] = "Controls";
constexpr char kFormat[] = "AccKeyFormat2";

void add_text_and_radio_button(BView* parent) {
    auto* container = new BView(BRect(5, 5, 270, 60), "Container", B_FOLLOW_ALL,
        B_WILL_DRAW | B_FRAME_EVENTS | B_PULSE_NEEDED);
    container->SetHighColor(255, 0, 0);
    container->SetViewColor(B_TRANSPARENT_COLOR);
    auto* text = new BStringView(BRect(0, 0, 100, 16), "Text", "some text");
    text->SetAlignment(B_ALIGN_CENTER);
    container->AddChild(text);
    auto* radio = new BRadioButton(BRect(0, 20, 100, 36), "RRadio", "", nullptr,
        B_FOLLOW_LEFT | B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM);
    radio->SetEnabled(false);
    radio->SetValue(B_CONTROL_ON);
    container->AddChild(radio);
    parent->AddChild(container);
}

void add_slider(BView* parent) {
    auto* slider =
        new BSlider(BRect(5, 115, 200, 160), "SSlider", "", nullptr, -10, 10, B_TRIANGLE_THUMB);
    slider->SetValue(3);
    slider->SetKeyIncrementValue(2);
    slider->SetHashMarkCount(11);
    slider->SetHashMarks(B_HASH_MARKS_BOTH);
    slider->SetLimitLabels("less", "more");
    parent->AddChild(slider);
}

BMessage every_control() {
    auto* view = new BView(BRect(0, 0, 300, 200), kControls, B_FOLLOW_NONE, B_WILL_DRAW);
    BFont font;
    font.SetFace(B_BOLD_FACE);
    view->SetFont(&font);
    auto* box = new BBox(BRect(10, 10, 290, 190), "Box");
    box->SetLabel("Box");
    view->AddChild(box);
    add_text_and_radio_button(box);
    auto* button = new BButton(BRect(5, 65, 100, 85), "BButton", "", control_message(kControls));
    button->MakeDefault(true);
    box->AddChild(button);
    auto* field = new BTextControl(BRect(5, 90, 200, 110), "TText", "Text", "text", nullptr);
    field->SetModificationMessage(control_message(kControls));
    field->SetDivider(50);
    box->AddChild(field);
    add_slider(box);
    return archive_of(kControls, view);
}

BMenuItem* format_item(const char* label, const char* format) {
    BMessage* message = control_message(kFormat);
    message->AddString(kFormat, format);
    return new BMenuItem(label, message);
}

BMessage menus() {
    auto* menu = new BPopUpMenu("Select...");
    BMenuItem* marked = format_item("a - ", "\001a - ");
    marked->SetTrigger('a');
    menu->AddItem(marked);
    marked->SetMarked(true);
    menu->AddSeparatorItem();
    auto* more = new BMenu("More");
    more->AddItem(format_item("a) ", "\001a) "));
    auto* submenu = new BMenuItem(more);
    submenu->SetShortcut('M', B_COMMAND_KEY);
    menu->AddItem(submenu);
    auto* field = new BMenuField(BRect(0, 0, 250, 16), "AAccelerator Format: ", "", menu);
    field->SetDivider(120);
    auto* view = new BView(BRect(0, 0, 250, 16), kFormat, B_FOLLOW_NONE, B_WILL_DRAW);
    view->AddChild(field);
    BMessage archive = archive_of(kFormat, view);
    archive.AddString(kFormat, "\001a - ");
    return archive;
}

}  // namespace

std::vector<BMessage> components_of_others() {
    return {every_control(), menus(), check_box_archive("FlatToolBar", true)};
}
