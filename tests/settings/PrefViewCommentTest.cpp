// The preferences dialog's comment tab.

#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/RadioButton.h>
#include <interface/TextControl.h>

#include <limits>

#include "tests/settings/PrefViewFixture.h"

namespace {

constexpr const char* kCommentControls[] = {"RButtonCommentAlignTop", "RButtonCommentAlignBottom",
    "TxtCtrlCommentMargin", "TxtCtrlCommentPadding", "MFieldCommentFontFace",
    "TxtCtrlCommentFontSize", "MFieldCommentEncoding", "TxtCtrlAddCommentFileExt",
    "LViewCommentFileExts"};

class PrefViewCommentTest : public PrefViewFixture {
protected:
    bool IsOn(const char* name) {
        return Of<BControl>(name, [](auto& control) { return control.Value() != B_CONTROL_OFF; });
    }
};

TEST_F(PrefViewCommentTest, ShowsThePreferences) {
    gPrefs.fCommentAlign = kCommentAtTop;
    gPrefs.fCommentMargin = 33.9F;
    gPrefs.fCommentPadding = 7;
    gPrefs.fCommentFontSize = 10.5F;
    gPrefs.fCommentEncoding = kEncodingJIS;
    gPrefs.fCommentFileExts = Texts{"txt", "doc"};
    Open();
    EXPECT_TRUE(IsOn("CBoxEnableComment"));
    EXPECT_TRUE(IsOn("RButtonCommentAlignTop"));
    EXPECT_FALSE(IsOn("RButtonCommentAlignBottom"));
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "33");
    EXPECT_EQ(TextOf("TxtCtrlCommentPadding"), "7");
    EXPECT_EQ(TextOf("TxtCtrlCommentFontSize"), "10.5");
    EXPECT_EQ(TextOf("TxtCtrlAddCommentFileExt"), "");
    EXPECT_EQ(ChoiceOf("MFieldCommentFontFace"), "Serif");
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "JIS");
    EXPECT_EQ(Rows(), (Texts{"txt", "doc"}));
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewCommentTest, TheCheckBoxSwitchesCommentsAndTheirControls) {
    Open();
    for (const char* name : kCommentControls)
        EXPECT_TRUE(IsEnabled(name)) << name;
    Click("Enable Comment", 0);
    EXPECT_FALSE(gPrefs.fEnableComment);
    EXPECT_EQ(Notices(), Texts{"pecc"});
    for (const char* name : kCommentControls)
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_FALSE(IsEnabled("ButtonAddCommentFileExt"));
    EXPECT_FALSE(IsEnabled("ButtonRemoveCommentFileExt"));
    EXPECT_TRUE(IsEnabled("CBoxEnableComment"));
    EXPECT_TRUE(IsEnabled("CBoxEnablePreload"));

    Click("Enable Comment", 1);
    EXPECT_TRUE(gPrefs.fEnableComment);
    EXPECT_EQ(Notices(), Texts{"pecc"});
    for (const char* name : kCommentControls)
        EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(PrefViewCommentTest, AreDisabledFromTheStartWithoutComments) {
    gPrefs.fEnableComment = false;
    Open();
    for (const char* name : kCommentControls)
        EXPECT_FALSE(IsEnabled(name)) << name;
}

TEST_F(PrefViewCommentTest, ThePositionIsChosen) {
    Open();
    Click("Top");
    EXPECT_EQ(gPrefs.fCommentAlign, kCommentAtTop);
    EXPECT_FALSE(IsOn("RButtonCommentAlignBottom"));
    EXPECT_EQ(Notices(), Texts{"pcac"});
    Click("Bottom");
    EXPECT_EQ(gPrefs.fCommentAlign, kCommentAtBottom);
    EXPECT_FALSE(IsOn("RButtonCommentAlignTop"));
    EXPECT_EQ(Notices(), Texts{"pcac"});
}

TEST_F(PrefViewCommentTest, TheMarginTakesEffectWhileItIsTyped) {
    Open();
    EXPECT_EQ(NoticesOfTyping("Margin: ", "2"), Texts{"pcmc"});
    EXPECT_EQ(gPrefs.fCommentMargin, 2);
    EXPECT_EQ(NoticesOfTyping("Margin: ", "25"), Texts{"pcmc"});
    EXPECT_EQ(gPrefs.fCommentMargin, 25);
    EXPECT_EQ(NoticesOfTyping("Margin: ", "250"), Texts{"pcmc"});
    EXPECT_EQ(gPrefs.fCommentMargin, 100);
    EXPECT_EQ(NoticesOfTyping("Margin: ", "abc"), Texts{"pcmc"});
    EXPECT_EQ(gPrefs.fCommentMargin, 0);
}

TEST_F(PrefViewCommentTest, ThePaddingTakesEffectWhileItIsTyped) {
    Open();
    EXPECT_EQ(NoticesOfTyping("Padding: ", "12"), Texts{"pcpc"});
    EXPECT_EQ(gPrefs.fCommentPadding, 12);
    EXPECT_EQ(NoticesOfTyping("Padding: ", "-5"), Texts{"pcpc"});
    EXPECT_EQ(gPrefs.fCommentPadding, 0);
}

TEST_F(PrefViewCommentTest, TheFontSizeTakesEffectWhileItIsTyped) {
    Open();
    EXPECT_EQ(NoticesOfTyping("Size: ", "4.5"), Texts{"pcsc"});
    EXPECT_EQ(gPrefs.fCommentFontSize, 5);
    EXPECT_EQ(NoticesOfTyping("Size: ", "72"), Texts{"pcsc"});
    EXPECT_EQ(gPrefs.fCommentFontSize, 50);
    EXPECT_EQ(NoticesOfTyping("Size: ", "9.25"), Texts{"pcsc"});
    EXPECT_EQ(gPrefs.fCommentFontSize, 9.25F);
}

TEST_F(PrefViewCommentTest, WhatIsTypedIsLeftAloneUntilTheControlsAreRefreshed) {
    Open();
    Type("Margin: ", "250");
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "250");
    // Notices of others change what they are about, and nothing else.
    gPrefs.fDisplayOption = 0;
    Tell(BMessage('pdoc'));
    gPrefs.fEnableComment = true;
    Tell(BMessage('pecc'));
    Click("Top");
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "250");
    Click("OK");
    Reopen();
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "100");
    EXPECT_EQ(gPrefs.fCommentMargin, 100);
}

TEST_F(PrefViewCommentTest, EnterAndLeavingAFieldTellNothingNew) {
    Open();
    Type("Margin: ", "7");
    (void)Notices();
    with_lock(fWindow, [&] {
        auto* control = find_child<BTextControl>(fWindow->ChildAt(0), "TxtCtrlCommentMargin");
        control->MakeFocus(true);
        control->MakeFocus(false);
    });
    Settle();
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewCommentTest, TheFontIsChosenFromThoseInstalled) {
    recording::TheRecordingDisplay().SetFontFamilies({"Alpha & Omega", "Sans", "Serif"});
    Open();
    Choose("Font: ", "Alpha & Omega");
    EXPECT_EQ(gPrefs.fCommentFontFamily.Get(), "Alpha & Omega");
    EXPECT_EQ(Notices(), Texts{"pcfc"});
}

TEST_F(PrefViewCommentTest, AnUnknownFontShowsTheFirst) {
    gPrefs.fCommentFontFamily = std::string("Swis721 BT");
    Open();
    EXPECT_EQ(ChoiceOf("MFieldCommentFontFace"), "Sans");
    EXPECT_EQ(gPrefs.fCommentFontFamily.Get(), "Swis721 BT");
}

TEST_F(PrefViewCommentTest, WithoutAnyFontNothingIsChosen) {
    recording::TheRecordingDisplay().SetFontFamilies({});
    Open();
    EXPECT_EQ(ChoiceOf("MFieldCommentFontFace"), "");
}

TEST_F(PrefViewCommentTest, AThousandFontsAreThereAtOnce) {
    Texts families;
    for (int i = 0; i < 1000; i++)
        families.push_back("Family " + std::to_string(i));
    recording::TheRecordingDisplay().SetFontFamilies(families);
    Open();
    Choose("Font: ", "Family 999");
    EXPECT_EQ(gPrefs.fCommentFontFamily.Get(), "Family 999");
}

TEST_F(PrefViewCommentTest, TheEncodingIsChosen) {
    Open();
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "Auto Detect");
    const std::pair<const char*, int32> encodings[] = {
        {"UTF-8 (BeOS)", 0}, {"Shift-JIS", 1}, {"JIS", 2}, {"Auto Detect", 4}};
    for (const auto& [label, encoding] : encodings) {
        Choose("Encoding: ", label);
        EXPECT_EQ(gPrefs.fCommentEncoding, encoding);
        EXPECT_EQ(Notices(), Texts{"pcec"});
        EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), label);
    }
    const auto field = fScreen->FindControl("Encoding: ");
    EXPECT_TRUE(std::get<BPrivate::MenuFieldState>(field->state).items.at(3).separator);
}

TEST_F(PrefViewCommentTest, AbsurdPreferencesAreShownSomehow) {
    gPrefs.fCommentMargin = std::numeric_limits<float>::quiet_NaN();
    gPrefs.fCommentPadding = std::numeric_limits<float>::infinity();
    gPrefs.fCommentFontSize = std::numeric_limits<float>::quiet_NaN();
    gPrefs.fCommentEncoding = 3;
    gPrefs.fCommentAlign = 77;
    gPrefs.fDisplayOption = 77;
    gPrefs.fCommentFileExts = Texts{"", "\xff\xfe", "a/b", "txt", "txt"};
    Open();
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "");
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "");
    EXPECT_TRUE(IsOn("RButtonCommentAlignBottom"));
    EXPECT_EQ(Rows().size(), 5U);
    EXPECT_LE(TextOf("TxtCtrlCommentPadding").size(), 12U);
    // Nothing is changed before the user does.
    EXPECT_EQ(gPrefs.fCommentEncoding, 3);
    EXPECT_EQ(gPrefs.fDisplayOption, 77);
    Choose("Encoding: ", "JIS");
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "JIS");
}

}  // namespace
