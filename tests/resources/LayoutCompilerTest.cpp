#include "resources/compiler/LayoutCompiler.h"

#include <cstring>
#include <gtest/gtest.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/ColorControl.h>
#include <interface/Font.h>
#include <interface/RadioButton.h>
#include <interface/Slider.h>
#include <interface/StringView.h>
#include <interface/TabView.h>
#include <interface/TextControl.h>
#include <memory>
#include <string>

namespace {

/// The view that a layout with these keys, beside a frame, is an archive of.
template <typename Kind>
std::unique_ptr<Kind> made(const std::string& keys) {
    BMessage archive = compile_layout(R"({"frame": [1, 2, 30, 40], )" + keys + "}");
    std::unique_ptr<BArchivable> object(instantiate_object(&archive));
    auto* view = dynamic_cast<Kind*>(object.get());
    EXPECT_NE(view, nullptr) << keys;
    if (view == nullptr)
        return nullptr;
    (void)object.release();
    return std::unique_ptr<Kind>(view);
}

TEST(LayoutCompiler, MakesViews) {
    auto view = made<BView>(R"("class": "BView", "name": "A", "comment": "anything",
        "follow": "left right bottom", "flags": ["navigable", "frame events"],
        "view color": [10, 20, 30], "high color": [1, 2, 3, 4],
        "font": {"size": 14.5, "bold": true, "italic": true, "family": "Serif"})");
    EXPECT_STREQ(view->Name(), "A");
    EXPECT_EQ(view->Frame(), BRect(1, 2, 30, 40));
    EXPECT_EQ(view->ResizingMode(), B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM);
    EXPECT_EQ(view->Flags(), B_NAVIGABLE | B_FRAME_EVENTS);
    EXPECT_EQ(view->ViewColor(), (rgb_color{10, 20, 30, 255}));
    EXPECT_EQ(view->HighColor(), (rgb_color{1, 2, 3, 4}));
    EXPECT_EQ(view->LowColor(), BView(nullptr).LowColor());
    BFont font;
    view->GetFont(&font);
    EXPECT_EQ(font.Size(), 14.5F);
    EXPECT_EQ(font.Face(), B_BOLD_FACE | B_ITALIC_FACE);
    font_family family;
    font.GetFamilyAndStyle(&family, nullptr);
    EXPECT_STREQ(family, "Serif");
}

TEST(LayoutCompiler, LeavesOutWhatIsNotGiven) {
    const BMessage archive = compile_layout(R"({"class": "BView", "frame": [0, 0, 9, 9]})");
    for (const char* field : {"_name", "_color", "_fname", "_fsize", "_fface", "_views"})
        EXPECT_EQ(archive.GetInfo(field, nullptr, static_cast<int32*>(nullptr)), B_NAME_NOT_FOUND)
            << field;
    auto view = made<BView>(R"("class": "BView")");
    EXPECT_EQ(view->ResizingMode(), B_FOLLOW_LEFT | B_FOLLOW_TOP);
    EXPECT_EQ(view->Flags(), B_WILL_DRAW);
}

TEST(LayoutCompiler, ReadsEveryResizingMode) {
    const std::pair<const char*, uint32> kModes[] = {{"none", B_FOLLOW_NONE}, {"all", B_FOLLOW_ALL},
        {"left right top bottom", B_FOLLOW_ALL}, {"left", B_FOLLOW_LEFT},
        {"top  right", B_FOLLOW_TOP | B_FOLLOW_RIGHT},
        {"h-center v-center", B_FOLLOW_H_CENTER | B_FOLLOW_V_CENTER},
        {"top bottom h-center", B_FOLLOW_TOP_BOTTOM | B_FOLLOW_H_CENTER}};
    for (const auto& [words, mode] : kModes) {
        auto view = made<BView>(R"("class": "BView", "follow": ")" + std::string(words) + '"');
        EXPECT_EQ(view->ResizingMode(), mode) << words;
    }
}

TEST(LayoutCompiler, MakesChildrenInOrder) {
    auto view = made<BView>(R"("class": "BView", "children": [
        {"class": "BView", "name": "B", "frame": [0, 0, 9, 9], "children": [
            {"class": "BView", "name": "C", "frame": [0, 0, 9, 9]}]},
        {"class": "BView", "name": "A", "frame": [0, 0, 9, 9]},
        {"class": "BView", "frame": [0, 0, 9, 9]}])");
    ASSERT_EQ(view->CountChildren(), 3);
    EXPECT_STREQ(view->ChildAt(0)->Name(), "B");
    EXPECT_STREQ(view->ChildAt(1)->Name(), "A");
    EXPECT_NE(view->FindView("C"), nullptr);
}

TEST(LayoutCompiler, MakesStringViewsAndBoxes) {
    auto text = made<BStringView>(
        R"("class": "BStringView", "text": "A \"text\" \u00e4", "align": "right")");
    EXPECT_STREQ(text->Text(), "A \"text\" \xc3\xa4");
    EXPECT_EQ(text->Alignment(), B_ALIGN_RIGHT);
    auto box = made<BBox>(R"("class": "BBox", "label": "Position", "border": "plain")");
    EXPECT_STREQ(box->Label(), "Position");
    EXPECT_EQ(box->Border(), B_PLAIN_BORDER);
}

TEST(LayoutCompiler, MakesControls) {
    auto button = made<BButton>(R"("class": "BButton", "label": "OK", "default": true,
        "message": "_ok ", "enabled": false)");
    EXPECT_STREQ(button->Label(), "OK");
    EXPECT_TRUE(button->IsDefault());
    EXPECT_FALSE(button->IsEnabled());
    EXPECT_EQ(button->Flags(), B_WILL_DRAW | B_NAVIGABLE);
    ASSERT_NE(button->Message(), nullptr);
    EXPECT_EQ(button->Message()->what, uint32{'_ok '});

    auto box = made<BCheckBox>(R"("class": "BCheckBox", "value": 1, "enabled": true)");
    EXPECT_EQ(box->Value(), B_CONTROL_ON);
    EXPECT_TRUE(box->IsEnabled());
    EXPECT_EQ(box->Message(), nullptr);
    auto radio = made<BRadioButton>(R"("class": "BRadioButton", "value": 1)");
    EXPECT_EQ(radio->Value(), B_CONTROL_ON);

    auto field = made<BTextControl>(R"("class": "BTextControl", "label": "Margin: ",
        "text": "5", "divider": 12.5, "modification message": "tcmc")");
    EXPECT_STREQ(field->Label(), "Margin: ");
    EXPECT_STREQ(field->Text(), "5");
    EXPECT_EQ(field->Divider(), 12.5F);
    ASSERT_NE(field->ModificationMessage(), nullptr);
    EXPECT_EQ(field->ModificationMessage()->what, uint32{'tcmc'});
}

TEST(LayoutCompiler, MakesSliders) {
    auto slider = made<BSlider>(R"("class": "BSlider", "label": "Opacity", "min": -5, "max": 255,
        "value": 7, "increment": 3, "min label": "0", "max label": "255", "hash mark count": 17,
        "hash marks": "bottom", "thumb": "triangle", "orientation": "vertical",
        "modification message": "modi")");
    int32 min = 0;
    int32 max = 0;
    slider->GetLimits(&min, &max);
    EXPECT_EQ(min, -5);
    EXPECT_EQ(max, 255);
    EXPECT_EQ(slider->Value(), 7);
    EXPECT_EQ(slider->KeyIncrementValue(), 3);
    EXPECT_STREQ(slider->MinLimitLabel(), "0");
    EXPECT_STREQ(slider->MaxLimitLabel(), "255");
    EXPECT_EQ(slider->HashMarkCount(), 17);
    EXPECT_EQ(slider->HashMarks(), B_HASH_MARKS_BOTTOM);
    EXPECT_EQ(slider->Style(), B_TRIANGLE_THUMB);
    EXPECT_EQ(slider->Orientation(), B_VERTICAL);
    ASSERT_NE(slider->ModificationMessage(), nullptr);
    EXPECT_EQ(slider->ModificationMessage()->what, uint32{'modi'});
}

TEST(LayoutCompiler, MakesColorControls) {
    auto control = made<BColorControl>(R"("class": "BColorControl", "cells": "16x16",
        "cell size": 6, "buffered": true, "color": [200, 100, 50])");
    EXPECT_EQ(control->ValueAsColor(), (rgb_color{200, 100, 50, 255}));
    EXPECT_EQ(control->Layout(), B_CELLS_16x16);
    EXPECT_EQ(control->CellSize(), 6);
}

TEST(LayoutCompiler, MakesTabViews) {
    auto tabView = made<BTabView>(R"("class": "BTabView", "selected": 1,
        "tab width": "from label", "tabs": [
            {"view": {"class": "BView", "name": "First", "frame": [0, 0, 9, 9]}},
            {"label": "Two", "enabled": false, "view": {"class": "BView", "name": "Second",
                "frame": [0, 0, 19, 19], "children": [
                    {"class": "BButton", "name": "Deep", "frame": [0, 0, 9, 9]}]}}])");
    ASSERT_EQ(tabView->CountTabs(), 2);
    EXPECT_EQ(tabView->Selection(), 1);
    EXPECT_EQ(tabView->TabWidth(), B_WIDTH_FROM_LABEL);
    EXPECT_STREQ(tabView->TabAt(0)->Label(), "First");
    EXPECT_STREQ(tabView->TabAt(1)->Label(), "Two");
    EXPECT_TRUE(tabView->TabAt(0)->IsEnabled());
    EXPECT_FALSE(tabView->TabAt(1)->IsEnabled());
    EXPECT_STREQ(tabView->ViewForTab(0)->Name(), "First");
    EXPECT_NE(tabView->ViewForTab(1)->FindView("Deep"), nullptr);
}

TEST(LayoutCompiler, ArchivesAnythingByItsFields) {
    const BMessage archive = compile_layout(R"({"class": "TSwatch", "base": "BBox",
        "frame": [0, 0, 9, 9], "label": "Of the base", "fields": {
            "bool": {"type": "bool", "value": true},
            "int8": {"type": "int8", "value": -128},
            "int16": {"type": "int16", "value": 32767},
            "int32s": {"type": "int32", "values": [-2147483648, 2147483647]},
            "float": {"type": "float", "value": 0.5},
            "double": {"type": "double", "value": 1e300},
            "strings": {"type": "string", "values": ["a", ""]},
            "point": {"type": "point", "value": [1, -2.5]},
            "rect": {"type": "rect", "value": [1, 2, 3, 4]},
            "color": {"type": "color", "value": [1, 2, 3, 4]},
            "message": {"type": "message", "value": {"what": "abcd", "fields": {
                "inner": {"type": "int32", "value": 5}}}}
        }})");
    const char* name = nullptr;
    ASSERT_EQ(archive.FindString("class", 0, &name), B_OK);
    EXPECT_STREQ(name, "TSwatch");
    ASSERT_EQ(archive.FindString("class", 1, &name), B_OK);
    EXPECT_STREQ(name, "BBox");
    EXPECT_STREQ(archive.GetString("_label", ""), "Of the base");
    EXPECT_TRUE(archive.GetBool("bool", false));
    int8 small = 0;
    EXPECT_EQ(archive.FindInt8("int8", &small), B_OK);
    EXPECT_EQ(small, -128);
    int16 middle = 0;
    EXPECT_EQ(archive.FindInt16("int16", &middle), B_OK);
    EXPECT_EQ(middle, 32767);
    int32 number = 0;
    EXPECT_EQ(archive.FindInt32("int32s", 0, &number), B_OK);
    EXPECT_EQ(number, -2147483647 - 1);
    EXPECT_EQ(archive.FindInt32("int32s", 1, &number), B_OK);
    EXPECT_EQ(number, 2147483647);
    EXPECT_EQ(archive.GetFloat("float", 0), 0.5F);
    double large = 0;
    EXPECT_EQ(archive.FindDouble("double", &large), B_OK);
    EXPECT_EQ(large, 1e300);
    EXPECT_EQ(archive.FindString("strings", 1, &name), B_OK);
    EXPECT_STREQ(name, "");
    BPoint point;
    EXPECT_EQ(archive.FindPoint("point", &point), B_OK);
    EXPECT_EQ(point, BPoint(1, -2.5F));
    BRect rect;
    EXPECT_EQ(archive.FindRect("rect", &rect), B_OK);
    EXPECT_EQ(rect, BRect(1, 2, 3, 4));
    rgb_color color{};
    EXPECT_EQ(archive.FindColor("color", &color), B_OK);
    EXPECT_EQ(color, (rgb_color{1, 2, 3, 4}));
    BMessage message;
    ASSERT_EQ(archive.FindMessage("message", &message), B_OK);
    EXPECT_EQ(message.what, uint32{'abcd'});
    EXPECT_EQ(message.GetInt32("inner", 0), 5);
}

}  // namespace
