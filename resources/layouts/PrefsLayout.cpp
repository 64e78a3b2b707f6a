#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ColorControl.h>
#include <interface/RadioButton.h>
#include <interface/Slider.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>

#include "resources/layouts/Layouts.h"

namespace {

BView* add_page(BTabView* tabs, const char* name, const char* label) {
    auto* page = new BView(BRect(0, 0, 428, 328), name, B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    auto* tab = new BTab(page);
    tab->SetLabel(label);
    tabs->AddTab(nullptr, tab);
    return page;
}

template <typename Control>
Control* add(BView* parent, BRect frame, const char* name, const char* label) {
    auto* control = new Control(frame, name, label, nullptr);
    parent->AddChild(control);
    return control;
}

BBox* add_box(BView* parent, BRect frame, const char* name, border_style border) {
    auto* box = new BBox(frame, name);
    box->SetBorder(border);
    parent->AddChild(box);
    return box;
}

void add_field(BView* parent, BRect frame, const char* name, const char* label, float divider) {
    auto* field = new BTextControl(frame, name, label, "", nullptr);
    field->SetDivider(divider);
    parent->AddChild(field);
}

void add_comment_page(BTabView* tabs) {
    BView* page = add_page(tabs, "PageComment", "Comment");
    add<BCheckBox>(page, BRect(10, 10, 149, 33), "CBoxEnableComment", "Enable Comment");
    BBox* place = add_box(page, BRect(10, 42, 418, 97), "BoxCommentAlign", B_FANCY_BORDER);
    place->SetLabel("Position");
    add<BRadioButton>(place, BRect(10, 23, 69, 46), "RButtonCommentAlignTop", "Top");
    add<BRadioButton>(place, BRect(86, 23, 169, 46), "RButtonCommentAlignBottom", "Bottom");
    add_field(page, BRect(10, 106, 159, 129), "TxtCtrlCommentMargin", "Margin: ", 90);
    add_field(page, BRect(269, 106, 418, 129), "TxtCtrlCommentPadding", "Padding: ", 90);
    add_field(page, BRect(269, 138, 418, 161), "TxtCtrlCommentFontSize", "Size: ", 90);
    add_field(page, BRect(10, 211, 289, 234), "TxtCtrlAddCommentFileExt",
        "Extension of Comment File: ", 190);
    add<BButton>(page, BRect(190, 243, 289, 266), "ButtonAddCommentFileExt", "Add >>");
    add<BButton>(page, BRect(190, 275, 289, 298), "ButtonRemoveCommentFileExt", "<< Remove");
}

void add_color_page(BTabView* tabs) {
    BView* page = add_page(tabs, "PageColors", "Colors");
    add_box(page, BRect(239, 10, 418, 33), "BoxColSample", B_PLAIN_BORDER);
    auto* color = new BColorControl(BPoint(10, 42), B_CELLS_32x8, 8, "ColCtrlCol");
    color->ResizeTo(408, 89);
    page->AddChild(color);
    auto* alpha =
        new BSlider(BRect(10, 140, 418, 199), "SliderColAlpha", "Opacity", nullptr, 0, 255);
    alpha->SetLimitLabels("0", "255");
    alpha->SetHashMarks(B_HASH_MARKS_BOTTOM);
    alpha->SetHashMarkCount(17);
    page->AddChild(alpha);
}

void add_other_page(BTabView* tabs) {
    BView* page = add_page(tabs, "PageEtc", "Etc.");
    add<BCheckBox>(page, BRect(10, 43, 149, 66), "CBoxEnablePreload", "Enable Pre-load");
}

}  // namespace

std::unique_ptr<BView> make_prefs_layout() {
    auto view = std::make_unique<BView>(
        BRect(0, 0, 452, 415), "PrefsView", B_FOLLOW_LEFT | B_FOLLOW_TOP, B_WILL_DRAW);
    auto* tabs = new BTabView(
        BRect(10, 10, 442, 371), "TabViewPref", B_WIDTH_AS_USUAL, B_FOLLOW_LEFT | B_FOLLOW_TOP);
    view->AddChild(tabs);
    add_comment_page(tabs);
    add_color_page(tabs);
    add_other_page(tabs);
    add<BButton>(view.get(), BRect(10, 380, 89, 403), "ButtonHelp", "Help");
    add<BButton>(view.get(), BRect(98, 380, 177, 403), "ButtonDefaults", "Defaults");
    add<BButton>(view.get(), BRect(274, 380, 353, 403), "ButtonCancel", "Cancel");
    add<BButton>(view.get(), BRect(362, 380, 441, 403), "ButtonOK", "OK")->MakeDefault(true);
    return view;
}
