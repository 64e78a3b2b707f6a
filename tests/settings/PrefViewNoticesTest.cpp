// The preferences dialog's buttons and last tab, and what it tells and is told.

#include <interface/Button.h>
#include <interface/InterfaceDefs.h>

#include <filesystem>
#include <functional>

#include "framework/MessageCodes.h"
#include "tests/framework/FailingDisk.h"
#include "tests/settings/PrefViewFixture.h"

namespace {

class PrefViewNoticesTest : public PrefViewFixture {
protected:
    /// Changes every preference, as the user does.
    void ChangeAll() {
        Click("Top");
        Type("Margin: ", "7");
        Type("Padding: ", "8");
        Type("Size: ", "9");
        Choose("Font: ", "Sans");
        Choose("Encoding: ", "JIS");
        SelectRow(0);
        Click("<< Remove");
        ShowTab(1);
        SetColor(1, 2, 3);
        ShowTab(2);
        Choose("Display Option: ", "Scale Image to Window");
        Click("Enable Pre-load", 0);
        ShowTab(0);
        Click("Enable Comment", 0);
    }
    bool IsHidden() { return !fScreen->IsShown(); }
    std::filesystem::path Folder() const {
        return std::filesystem::path(fHome.File("any")).parent_path();
    }

    /// Confirms a change and takes another one back while the disk fails, which lasts as long as
    /// what `fail` makes.
    template <typename Fail>
    void ExpectSilenceWithout(Fail fail) {
        Type("Margin: ", "7");
        Click("OK");
        const std::string before = read_text(fHome.File("Lorivane_Prefs.arc"));
        ASSERT_FALSE(before.empty());
        (void)Notices();
        {
            const auto failing = fail();
            for (const char* button : {"OK", "Cancel"}) {
                Reopen();
                Type("Margin: ", button == std::string("OK") ? "8" : "9");
                Click(button);
                EXPECT_TRUE(IsHidden());
                EXPECT_EQ(gPrefs.fCommentMargin, 8);
                EXPECT_EQ(Notices(), Texts{"pcmc"});
            }
        }
        EXPECT_EQ(read_text(fHome.File("Lorivane_Prefs.arc")), before);
        EXPECT_EQ(file_names_in(Folder()), std::set<std::string>{"Lorivane_Prefs.arc"});
        Reopen();
        Click("OK");
        EXPECT_EQ(Saved().fCommentMargin, 8);
    }
};

const PrefViewNoticesTest::Texts kAllThatDiffer{
    "pecc", "pcac", "pcfc", "pcxc", "pcec", "pclc", "pdoc", "pepc"};

TEST_F(PrefViewNoticesTest, TheDisplayOptionIsChosen) {
    Open();
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "Fit Window to Image");
    ShowTab(2);
    const char* const options[] = {"Don't Fit Anything", "Fit Window to Image",
        "Fit Image to Window", "Scale Image to Window", "Scale Image to Window Width",
        "Scale Image to Window Height"};
    for (int32 option = 0; option < 6; option++) {
        Choose("Display Option: ", options[option]);
        EXPECT_EQ(gPrefs.fDisplayOption, option);
        EXPECT_EQ(Notices(), Texts{"pdoc"});
    }
}

TEST_F(PrefViewNoticesTest, ADisplayOptionWithoutAValueChangesNothing) {
    Open();
    TellView(BMessage(kMsgDisplayOptionChosen));
    TellView(BMessage(kMsgCommentEncodingChosen));
    EXPECT_EQ(gPrefs.fDisplayOption, 1);
    EXPECT_EQ(gPrefs.fCommentEncoding, 4);
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewNoticesTest, PreloadingIsSwitched) {
    Open();
    ShowTab(2);
    Click("Enable Pre-load", 0);
    EXPECT_FALSE(gPrefs.fEnablePreload);
    EXPECT_EQ(Notices(), Texts{"pepc"});
    Click("Enable Pre-load", 1);
    EXPECT_TRUE(gPrefs.fEnablePreload);
    EXPECT_EQ(Notices(), Texts{"pepc"});
}

TEST_F(PrefViewNoticesTest, HelpIsTheApplications) {
    Open();
    Click("Help");
    EXPECT_EQ(Notices(), Texts{"_hlp"});
    EXPECT_FALSE(IsHidden());
}

TEST_F(PrefViewNoticesTest, OkKeepsAndSavesTheChanges) {
    Open();
    ChangeAll();
    EXPECT_FALSE(IsSaved());
    (void)Notices();
    const TPrefs changed = gPrefs;
    Click("OK");
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(Notices(), Texts{});
    EXPECT_TRUE(same_prefs(gPrefs, changed));
    EXPECT_TRUE(same_prefs(Saved(), changed));
    // From now on Cancel goes back to them.
    Reopen();
    Click("Enable Comment", 1);
    Click("Cancel");
    EXPECT_TRUE(same_prefs(gPrefs, changed));
}

TEST_F(PrefViewNoticesTest, CancelGoesBackAndTellsWhatDiffers) {
    Open();
    const TPrefs before = gPrefs;
    ChangeAll();
    (void)Notices();
    Click("Cancel");
    EXPECT_TRUE(IsHidden());
    EXPECT_TRUE(same_prefs(gPrefs, before));
    EXPECT_TRUE(same_prefs(Saved(), before));
    EXPECT_EQ(Notices(), kAllThatDiffer);
    Reopen();
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "20");
    EXPECT_EQ(ChoiceOf("MFieldCommentEncoding"), "Auto Detect");
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "Fit Window to Image");
    EXPECT_EQ(Rows(), (Texts{"doc", "hed", "txt"}));
    EXPECT_TRUE(IsEnabled("TxtCtrlCommentMargin"));
}

TEST_F(PrefViewNoticesTest, CancelWithoutAChangeTellsNothing) {
    Open();
    Click("Cancel");
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(Notices(), Texts{});
    EXPECT_TRUE(IsSaved());
}

TEST_F(PrefViewNoticesTest, CancelTellsNothingOfSizes) {
    Open();
    Type("Size: ", "30");
    Type("Margin: ", "1");
    Type("Padding: ", "2");
    (void)Notices();
    Click("Cancel");
    EXPECT_EQ(gPrefs.fCommentFontSize, 12);
    EXPECT_EQ(gPrefs.fCommentMargin, 20);
    EXPECT_EQ(gPrefs.fCommentPadding, 5);
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewNoticesTest, CancelTellsOnlyWhatDiffers) {
    const std::pair<std::function<void()>, const char*> changes[] = {
        {[&] { Click("Enable Comment", 0); }, "pecc"},
        {[&] { Click("Top"); }, "pcac"},
        {[&] { Choose("Font: ", "Sans"); }, "pcfc"},
        {[&] {
             Type("Extension of Comment File: ", "md");
             Click("Add >>");
         },
            "pcxc"},
        {[&] { Choose("Encoding: ", "JIS"); }, "pcec"},
        {[&] {
             ShowTab(1);
             Choose("Target: ", "Comment Backgrounds");
             SetSlider(128);
         },
            "pclc"},
        {[&] {
             ShowTab(2);
             Choose("Display Option: ", "Don't Fit Anything");
         },
            "pdoc"},
        {[&] { Click("Enable Pre-load", 0); }, "pepc"},
    };
    Open();
    for (const auto& [change, notice] : changes) {
        change();
        EXPECT_EQ(Notices(), Texts{notice});
        Click("Cancel");
        EXPECT_EQ(Notices(), Texts{notice});
        Reopen();
    }
}

TEST_F(PrefViewNoticesTest, AnExtensionReplacedByAnotherDiffers) {
    Open();
    SelectRow(0);
    Click("<< Remove");
    Type("Extension of Comment File: ", "md");
    Click("Add >>");
    (void)Notices();
    Click("Cancel");
    EXPECT_EQ(Notices(), Texts{"pcxc"});
}

TEST_F(PrefViewNoticesTest, TheCloseBoxIsCancel) {
    Open();
    ChangeAll();
    (void)Notices();
    fScreen->PressCloseBox();
    Settle();
    EXPECT_TRUE(IsHidden());
    EXPECT_TRUE(fScreen->IsOpen());
    EXPECT_EQ(Notices(), kAllThatDiffer);
    EXPECT_EQ(gPrefs.fCommentMargin, 20);
    Reopen();
    EXPECT_FALSE(IsHidden());
}

TEST_F(PrefViewNoticesTest, EndingTheApplicationIsNotCancel) {
    Open();
    Type("Margin: ", "7");
    EXPECT_TRUE(with_lock(fWindow, [&] { return fWindow->QuitRequested(); }));
    EXPECT_EQ(gPrefs.fCommentMargin, 7);
    EXPECT_FALSE(IsHidden());
}

TEST_F(PrefViewNoticesTest, ASecondClickDoesNoHarm) {
    Open();
    for (const uint32 what : {kMsgOK, kMsgOK, kMsgCancel, kMsgCancel})
        TellView(BMessage(what));
    Tell(BMessage(B_QUIT_REQUESTED));
    EXPECT_TRUE(IsHidden());
    Reopen();
    EXPECT_FALSE(IsHidden());
}

TEST_F(PrefViewNoticesTest, DefaultsAreShownAndToldButNotSaved) {
    Open();
    ChangeAll();
    ShowTab(1);
    Choose("Target: ", "Comment");
    (void)Notices();
    Click("Defaults");
    EXPECT_TRUE(same_prefs(gPrefs, TPrefs()));
    EXPECT_EQ(Notices(), kAllThatDiffer);
    EXPECT_FALSE(IsHidden());
    EXPECT_FALSE(IsSaved());
    EXPECT_EQ(TextOf("TxtCtrlCommentMargin"), "20");
    EXPECT_EQ(ChoiceOf("MFieldColTarget"), "Comment");
    EXPECT_TRUE(IsEnabled("TxtCtrlCommentMargin"));
    Click("Defaults");
    EXPECT_EQ(Notices(), Texts{});
}

TEST_F(PrefViewNoticesTest, CancelAfterDefaultsGoesBackToWhatWasConfirmed) {
    gPrefs.fCommentMargin = 33;
    gPrefs.fEnablePreload = false;
    Open();
    const TPrefs before = gPrefs;
    Click("Defaults");
    EXPECT_EQ(Notices(), (Texts{"pcfc", "pepc"}));
    Click("Cancel");
    EXPECT_TRUE(same_prefs(gPrefs, before));
    EXPECT_EQ(Notices(), (Texts{"pcfc", "pepc"}));
}

TEST_F(PrefViewNoticesTest, FollowsTheMenusDisplayOption) {
    Open();
    Type("Margin: ", "7");
    (void)Notices();
    gPrefs.fDisplayOption = 4;
    Tell(BMessage(kPrefDisplayOption));
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "Scale Image to Window Width");
    EXPECT_EQ(Notices(), Texts{});
    Click("Cancel");
    EXPECT_EQ(gPrefs.fDisplayOption, 4);
    EXPECT_EQ(gPrefs.fCommentMargin, 20);
}

TEST_F(PrefViewNoticesTest, FollowsTheMenusCommentSwitch) {
    Open();
    gPrefs.fEnableComment = false;
    Tell(BMessage(kPrefEnableComment));
    EXPECT_FALSE(IsEnabled("TxtCtrlCommentMargin"));
    EXPECT_EQ(Of<BControl>("CBoxEnableComment", [](auto& box) { return box.Value(); }), 0);
    EXPECT_EQ(Notices(), Texts{});
    Click("Cancel");
    EXPECT_FALSE(gPrefs.fEnableComment);
}

TEST_F(PrefViewNoticesTest, DoesNotFollowItself) {
    Open();
    ShowTab(2);
    Choose("Display Option: ", "Scale Image to Window");
    ShowTab(0);
    Click("Enable Comment", 0);
    // What comes back to it is what it sent.
    for (const uint32 what : {kPrefDisplayOption, kPrefEnableComment}) {
        BMessage notice(what);
        (void)notice.AddPointer(
            kFieldSender, with_lock(fWindow, [&] { return fWindow->ChildAt(0); }));
        Tell(notice);
    }
    Click("Cancel");
    EXPECT_EQ(gPrefs.fDisplayOption, 1);
    EXPECT_TRUE(gPrefs.fEnableComment);
}

TEST_F(PrefViewNoticesTest, FollowsNoticesOfOtherSenders) {
    Open();
    int other = 0;
    gPrefs.fDisplayOption = 0;
    BMessage notice(kPrefDisplayOption);
    (void)notice.AddPointer(kFieldSender, &other);
    Tell(notice);
    Click("Cancel");
    EXPECT_EQ(gPrefs.fDisplayOption, 0);
}

TEST_F(PrefViewNoticesTest, HearsWhileItIsHiddenToo) {
    Open();
    Click("OK");
    gPrefs.fDisplayOption = 0;
    Tell(BMessage(kPrefDisplayOption));
    Reopen();
    EXPECT_EQ(ChoiceOf("MFieldDispOpt"), "Don't Fit Anything");
}

TEST_F(PrefViewNoticesTest, AFullDiskIsSilent) {
    Open();
    ExpectSilenceWithout([] { return std::make_unique<TFullDisk>(); });
}

TEST_F(PrefViewNoticesTest, AReadOnlyDiskIsSilent) {
    Open();
    ExpectSilenceWithout([this] { return std::make_unique<TReadOnlyFolder>(Folder()); });
}

TEST_F(PrefViewNoticesTest, TheKeysOfTheButtons) {
    Open();
    Press(B_FUNCTION_KEY, 0, B_F1_KEY);
    EXPECT_EQ(Notices(), Texts{"_hlp"});
    Press(B_FUNCTION_KEY, 0, B_F2_KEY);
    EXPECT_EQ(Notices(), Texts{});
    Type("Margin: ", "7");
    Press(B_ESCAPE);
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(gPrefs.fCommentMargin, 20);
    Reopen();
    Type("Margin: ", "8");
    Press(B_ENTER);
    EXPECT_TRUE(IsHidden());
    EXPECT_EQ(gPrefs.fCommentMargin, 8);
}

TEST_F(PrefViewNoticesTest, WithoutATargetNobodyIsTold) {
    Open();
    with_lock(fWindow, [&] { fWindow->SetTarget(BMessenger()); });
    Type("Margin: ", "7");
    EXPECT_EQ(gPrefs.fCommentMargin, 7);
    EXPECT_EQ(Notices(), Texts{});
}

}  // namespace
