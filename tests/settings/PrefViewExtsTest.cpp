// The preferences dialog's list of extensions of comment files.

#include <interface/TextControl.h>

#include "tests/settings/PrefViewFixture.h"

namespace {

constexpr char kField[] = "Extension of Comment File: ";

class PrefViewExtsTest : public PrefViewFixture {
protected:
    void Add(const std::string& typed) {
        Type(kField, typed);
        Click("Add >>");
    }
    Texts Exts() { return gPrefs.fCommentFileExts; }
};

TEST_F(PrefViewExtsTest, AnExtensionIsInsertedInItsPlace) {
    Open();
    Add("jpg");
    EXPECT_EQ(Exts(), (Texts{"doc", "hed", "jpg", "txt"}));
    EXPECT_EQ(Rows(), Exts());
    EXPECT_EQ(TextOf("TxtCtrlAddCommentFileExt"), "");
    EXPECT_FALSE(IsEnabled("ButtonAddCommentFileExt"));
    EXPECT_EQ(Notices(), Texts{"pcxc"});
    // The next one can be typed at once.
    EXPECT_TRUE(Of<BTextControl>(
        "TxtCtrlAddCommentFileExt", [](auto& control) { return control.IsFocus(); }));
}

TEST_F(PrefViewExtsTest, OneThatIsThereAlreadyIsNotAddedAgain) {
    Open();
    Add("TXT");
    EXPECT_EQ(Exts(), (Texts{"doc", "hed", "txt"}));
    EXPECT_EQ(Rows(), Exts());
    EXPECT_EQ(TextOf("TxtCtrlAddCommentFileExt"), "");
    EXPECT_EQ(Notices(), Texts{"pcxc"});
}

TEST_F(PrefViewExtsTest, AddingSortsWhatAFileHadInAnotherOrder) {
    gPrefs.fCommentFileExts = Texts{"txt", "doc"};
    Open();
    Add("hed");
    EXPECT_EQ(Exts(), (Texts{"doc", "hed", "txt"}));
}

TEST_F(PrefViewExtsTest, WhatIsTypedIsMadeAnExtension) {
    Open();
    Add(" .Notes ");
    EXPECT_EQ(Exts(), (Texts{"doc", "hed", "notes", "txt"}));
}

TEST_F(PrefViewExtsTest, AddIsEnabledWhileThereIsSomethingToAdd) {
    Open();
    EXPECT_FALSE(IsEnabled("ButtonAddCommentFileExt"));
    Type(kField, "m");
    EXPECT_TRUE(IsEnabled("ButtonAddCommentFileExt"));
    for (const char* text : {"", "  ", ".", "a/b"}) {
        Type(kField, text);
        EXPECT_FALSE(IsEnabled("ButtonAddCommentFileExt")) << text;
    }
    Type(kField, "md");
    Click("Enable Comment", 0);
    EXPECT_FALSE(IsEnabled("ButtonAddCommentFileExt"));
    Click("Enable Comment", 1);
    EXPECT_TRUE(IsEnabled("ButtonAddCommentFileExt"));
    EXPECT_EQ(TextOf("TxtCtrlAddCommentFileExt"), "md");
    EXPECT_EQ(Notices(), (Texts{"pecc", "pecc"}));
}

TEST_F(PrefViewExtsTest, NothingIsAddedByAClickThatCameTooLate) {
    Open();
    TellView(BMessage('acfe'));
    const auto add = fScreen->FindControl("Add >>");
    fScreen->SetValue(add->id, 1);
    Settle();
    EXPECT_EQ(Exts(), (Texts{"doc", "hed", "txt"}));
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewExtsTest, TheSelectedOneIsRemoved) {
    Open();
    EXPECT_FALSE(IsEnabled("ButtonRemoveCommentFileExt"));
    SelectRow(1);
    EXPECT_TRUE(IsEnabled("ButtonRemoveCommentFileExt"));
    Click("<< Remove");
    EXPECT_EQ(Exts(), (Texts{"doc", "txt"}));
    EXPECT_EQ(Rows(), Exts());
    EXPECT_FALSE(IsEnabled("ButtonRemoveCommentFileExt"));
    EXPECT_EQ(Notices(), Texts{"pcxc"});
}

TEST_F(PrefViewExtsTest, RemoveIsEnabledWhileOneIsSelected) {
    Open();
    SelectRow(2);
    EXPECT_TRUE(IsEnabled("ButtonRemoveCommentFileExt"));
    SelectRow(-1);
    EXPECT_FALSE(IsEnabled("ButtonRemoveCommentFileExt"));
    SelectRow(0);
    Click("Enable Comment", 0);
    EXPECT_FALSE(IsEnabled("ButtonRemoveCommentFileExt"));
    Click("Enable Comment", 1);
    EXPECT_TRUE(IsEnabled("ButtonRemoveCommentFileExt"));
}

TEST_F(PrefViewExtsTest, OfEqualOnesTheSelectedRowGoes) {
    gPrefs.fCommentFileExts = Texts{"txt", "doc", "txt"};
    Open();
    SelectRow(2);
    Click("<< Remove");
    EXPECT_EQ(Exts(), (Texts{"txt", "doc"}));
}

TEST_F(PrefViewExtsTest, NothingIsRemovedWithoutASelection) {
    Open();
    TellView(BMessage('rcfe'));
    EXPECT_EQ(Exts().size(), 3U);
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewExtsTest, TheListMayBeEmptied) {
    Open();
    for (int i = 0; i < 3; i++) {
        SelectRow(0);
        Click("<< Remove");
    }
    EXPECT_EQ(Exts(), Texts{});
    Click("OK");
    EXPECT_EQ(Saved().fCommentFileExts.Get(), Texts{});
}

TEST_F(PrefViewExtsTest, TenThousandAreShownAtOnce) {
    Texts many;
    for (int i = 0; i < 10000; i++)
        many.push_back("ext" + std::to_string(10000 + i));
    gPrefs.fCommentFileExts = many;
    Open();
    EXPECT_EQ(Rows().size(), 10000U);
    SelectRow(9999);
    Click("<< Remove");
    EXPECT_EQ(Rows().size(), 9999U);
    Add("aaa");
    EXPECT_EQ(Rows().front(), "aaa");
}

}  // namespace
