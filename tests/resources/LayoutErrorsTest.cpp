#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "resources/compiler/LayoutCompiler.h"

namespace {

std::string error_of(const std::string& source) {
    try {
        (void)compile_layout(source);
    } catch (const LayoutError& error) {
        return error.what();
    }
    return "";
}

/// That of a view of the class with these keys beside a frame.
std::string error_with(const std::string& ofClass, const std::string& keys) {
    return error_of(R"({"frame": [0, 0, 9, 9], "class": ")" + ofClass + "\", " + keys + "}");
}

/// That of a view with such a field.
std::string error_of_field(const std::string& field) {
    return error_with("BView", R"("fields": {"f": )" + field + "}");
}

TEST(LayoutErrors, TellWhereTheSourceIsNoJson) {
    EXPECT_EQ(error_of("{\n  \"class\" \"BView\"}").find("line 2, column "), 0U);
    EXPECT_EQ(error_of("").find("line 1, column 1: "), 0U);
    EXPECT_EQ(error_of("[]"), "line 1, column 1: must be an object");
    EXPECT_NE(error_of("\xff\xfe"), "");
    EXPECT_NE(error_of(std::string(2000, '[')), "");
}

TEST(LayoutErrors, TellWhatIsMissing) {
    EXPECT_EQ(error_of(R"({"frame": [0, 0, 9, 9]})"), "\"class\" is missing");
    EXPECT_EQ(error_of(R"({"class": "BView"})"), "\"frame\" is missing");
    EXPECT_EQ(
        error_with("BTabView", R"("tabs": [{"label": "A"}])"), "tabs[0]: \"view\" is missing");
}

TEST(LayoutErrors, TellTheWayToTheView) {
    EXPECT_EQ(error_with("BView", R"("children": [{"class": "BView", "frame": [0, 0, 9, 9]},
        {"class": "BTabView", "name": "Tabs", "frame": [0, 0, 9, 9], "tabs": [
            {"view": {"class": "BView", "frame": [0, 0, 9, 9], "children": [
                {"class": "BButton", "frame": 5, "name": "ButtonOK"}]}}]}])"),
        "children[1] \"Tabs\": tabs[0]: view: children[0] \"ButtonOK\": \"frame\": "
        "must be four numbers: left, top, right, bottom");
}

TEST(LayoutErrors, TellUnknownClassesAndKeys) {
    EXPECT_EQ(error_with("BNothing", "\"follow\": \"all\"").find("\"class\": unknown class"), 0U);
    EXPECT_NE(error_with("TOwn", R"("base": "BNothing")"), "");
    EXPECT_NE(error_with("BButton", R"("base": "BView")"), "");
    EXPECT_EQ(error_with("BView", R"("label": "A")"), "\"label\": unknown key for a BView");
    EXPECT_EQ(error_with("BView", R"("tabs": [])"), "\"tabs\": unknown key for a BView");
    EXPECT_EQ(error_with("BView", R"("font": {"colour": 1})"),
        "\"font\": \"colour\": unknown key for a font");
    EXPECT_EQ(error_with("BTabView", R"("tabs": [{"name": "A", "view": 1}])"),
        "tabs[0]: \"name\": unknown key for a tab");
    EXPECT_EQ(error_of(R"({"frame": [0, 0, 9, 9], "class": 5})"), "\"class\": must be a text");
}

TEST(LayoutErrors, TellDoubleNames) {
    const std::string kView = R"({"class": "BView", "name": "A", "frame": [0, 0, 9, 9]})";
    EXPECT_EQ(error_with("BView", R"("children": [)" + kView + ", " + kView + "]"),
        "children[1] \"A\": \"name\": another view is named \"A\" already");
    EXPECT_NE(error_with("BView", R"("name": "A", "children": [)" + kView + "]"), "");
    EXPECT_NE(
        error_with("BTabView", R"("tabs": [{"view": )" + kView + R"(}, {"view": )" + kView + "}]"),
        "");
    EXPECT_EQ(error_with("BView", R"("name": "")"), "\"name\": must not be empty");
}

TEST(LayoutErrors, TellWrongValues) {
    for (const char* frame : {"null", "\"0 0 9 9\"", "[0, 0, 9]", "[0, 0, 9, 9, 9]",
             "[0, 0, \"9\", 9]", "[9, 0, 0, 9]", "[0, 9, 9, 0]", "[0, 0, 1e300, 9]"}) {
        EXPECT_EQ(error_of(std::string(R"({"class": "BView", "frame": )") + frame + "}")
                      .find("\"frame\": must "),
            0U)
            << frame;
    }
    const std::vector<std::pair<const char*, const char*>> kBad = {
        {"BView", R"("name": 5)"},
        {"BView", R"("name": "a\u0000b")"},
        {"BView", R"("follow": "")"},
        {"BView", R"("follow": "left left")"},
        {"BView", R"("follow": "left none")"},
        {"BView", R"("follow": "left h-center")"},
        {"BView", R"("follow": "top v-center")"},
        {"BView", R"("follow": "upwards")"},
        {"BView", R"("follow": 1)"},
        {"BView", R"("flags": "navigable")"},
        {"BView", R"("flags": ["navigabel"])"},
        {"BView", R"("view color": [1, 2])"},
        {"BView", R"("view color": [1, 2, 3, 4, 5])"},
        {"BView", R"("view color": [1, 2, 256])"},
        {"BView", R"("view color": [1, 2, -1])"},
        {"BView", R"("view color": [1, 2, 0.5])"},
        {"BView", R"("view color": "red")"},
        {"BView", R"("font": "Sans")"},
        {"BView", R"("font": {"size": 0})"},
        {"BView", R"("font": {"size": "12"})"},
        {"BView", R"("font": {"bold": 1})"},
        {"BView", R"("children": {})"},
        {"BView", R"("children": [5])"},
        {"BView", R"("fields": [])"},
        {"BStringView", R"("text": 5)"},
        {"BStringView", R"("align": "middle")"},
        {"BBox", R"("border": 1)"},
        {"BButton", R"("default": "true")"},
        {"BButton", R"("enabled": 1)"},
        {"BButton", R"("message": "abc")"},
        {"BButton", R"("message": "abcde")"},
        {"BButton", R"("message": "ab\u00e4")"},
        {"BCheckBox", R"("value": 0.5)"},
        {"BCheckBox", R"("value": 2147483648)"},
        {"BCheckBox", R"("value": true)"},
        {"BTextControl", R"("divider": "5")"},
        {"BSlider", R"("min": "0")"},
        {"BSlider", R"("hash marks": "left")"},
        {"BSlider", R"("orientation": 0)"},
        {"BColorControl", R"("cells": "5x5")"},
        {"BColorControl", R"("color": 5)"},
        {"BTabView", R"("tabs": {})"},
        {"BTabView", R"("tabs": [5])"},
        {"BTabView", R"("tab width": "wide")"},
    };
    for (const auto& [ofClass, keys] : kBad)
        EXPECT_NE(error_with(ofClass, keys), "") << ofClass << ": " << keys;
}

TEST(LayoutErrors, TellWrongFields) {
    for (const char* field : {"5", "{}", R"({"type": "int32"})", R"({"value": 5})",
             R"({"type": "int32", "value": 5, "values": [5]})", R"({"type": "int32", "values": 5})",
             R"({"type": "int33", "value": 5})", R"({"type": 5, "value": 5})",
             R"({"type": "int32", "value": "5"})", R"({"type": "int8", "value": 128})",
             R"({"type": "point", "value": [1]})", R"({"type": "message", "value": 5})",
             R"({"type": "message", "value": {"w": 5}})",
             R"({"type": "message", "value": {"what": "abc"}})"})
        EXPECT_EQ(error_of_field(field).find("\"fields\": \"f\": "), 0U) << field;
    EXPECT_EQ(error_with("BButton",
                  R"("label": "A", "fields": {"_label": {"type": "string", "value": "B"}})"),
        "\"fields\": \"_label\": is there already");
    const std::string kLongName(256, 'n');
    EXPECT_NE(
        error_with("BView", R"("fields": {")" + kLongName + R"(": {"type": "int32", "value": 5}})"),
        "");
}

TEST(LayoutErrors, TellTooDeepNesting) {
    const std::string kStart = R"({"class": "BView", "frame": [0, 0, 9, 9], "children": [)";
    std::string source = R"({"class": "BView", "frame": [0, 0, 9, 9]})";
    for (int i = 0; i < 20; i++)
        source = kStart + source + "]}";
    EXPECT_NE(error_of(source).find("nested too deeply"), std::string::npos);
}

}  // namespace
