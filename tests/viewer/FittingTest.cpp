#include <app/Application.h>
#include <app/MessageQueue.h>
#include <interface/ScrollBar.h>

#include <cstdlib>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

class Fitting : public ViewerTest {
protected:
    Fitting() {
        gPrefs.fDisplayOption = kFitWindowToImage;
        recording::TheRecordingDisplay().SetMainScreenFrame({0, 0, 1919, 1079});
    }

    BRect Frame() {
        return Locked([&] { return fWindow->Frame(); });
    }
};

TEST_F(Fitting, MakesTheWindowAsLargeAsTheImage) {
    WriteImage("a", kRed, 320, 200);
    ShowWindow();
    Open("a");
    // 319 wide; 199 and the menu bar's 20 and the status bar's 14 high.
    EXPECT_EQ(Frame(), BRect(50, 50, 50 + 319, 50 + 233));
    EXPECT_FALSE(IsShown("ScrlBarH") || IsShown("ScrlBarV"));
    EXPECT_TRUE(Picture().IsAll({0, kViewTop, 319, kViewTop + 199}, kRed));
}

TEST_F(Fitting, StaysWithinTheScreen) {
    WriteImage("a", kRed, 2500, 1500);
    ShowWindow();
    Open("a");
    // As large as the limit, 1909 x 1049, and moved so that its right edge lies at most 5 beyond
    // the limit's and its bottom edge 25.
    EXPECT_EQ(Frame(), BRect(5, 25, 5 + 1909, 25 + 1049));
    EXPECT_TRUE(IsShown("ScrlBarH") && IsShown("ScrlBarV") && IsShown("ScrlCornerView"));
    EXPECT_EQ(StatusText("StrViewScale"), "100% x 100%");
}

TEST_F(Fitting, MovesTheWindowBackOntoTheScreen) {
    WriteImage("a", kRed, 400, 300);
    ShowWindow(BRect(1700, 900, 1899, 1019));
    Open("a");
    EXPECT_EQ(Frame().right, 1914);
    EXPECT_EQ(Frame().bottom, 1074);
    EXPECT_EQ(Frame().Width(), 399);
    EXPECT_EQ(Frame().Height(), 299 + 34);
}

TEST_F(Fitting, MakesRoomForTheOneBarShown) {
    WriteImage("tall", kRed, 400, 3000);
    WriteImage("wide", kRed, 4000, 300);
    ShowWindow();
    Open("tall");
    EXPECT_TRUE(IsShown("ScrlBarV"));
    EXPECT_FALSE(IsShown("ScrlBarH"));
    EXPECT_EQ(Frame().Width(), 399 + 14);
    EXPECT_EQ(Frame().Height(), 1049);
    Open("wide");
    EXPECT_TRUE(IsShown("ScrlBarH"));
    EXPECT_FALSE(IsShown("ScrlBarV"));
    EXPECT_EQ(Frame().Width(), 1909);
    EXPECT_EQ(Frame().Height(), 299 + 20 + 14 + 13);
}

TEST_F(Fitting, LeavesTheWindowAloneUnderOtherOptions) {
    WriteImage("a", kRed, 640, 480);
    ShowWindow();
    for (int32 option : {0, 2, 3, 4, 5}) {
        gPrefs.fDisplayOption = option;
        Open("a");
        EXPECT_EQ(Frame(), kWindowFrame) << option;
    }
}

TEST_F(Fitting, FitsTheWindowWhenTheOptionIsChosen) {
    gPrefs.fDisplayOption = kScaleImageToWindow;
    WriteImage("a", kRed, 320, 200);
    ShowWindow();
    Open("a");
    gPrefs.fDisplayOption = kFitWindowToImage;
    Do(kPrefDisplayOption);
    EXPECT_EQ(Frame(), BRect(50, 50, 50 + 319, 50 + 233));
    EXPECT_EQ(StatusText("StrViewScale"), "100% x 100%");
    EXPECT_FALSE(IsShown("ScrlBarH") || IsShown("ScrlBarV"));
}

TEST_F(Fitting, ChangesNothingWithoutAnImage) {
    ShowWindow();
    for (int32 option : {0, 1, 2, 3, 4, 5, 6}) {
        gPrefs.fDisplayOption = option;
        Do(kPrefDisplayOption);
        EXPECT_EQ(Frame(), kWindowFrame);
    }
}

TEST_F(Fitting, NamesTheFileInTheTitle) {
    WriteImages({"c.png"});
    ShowWindow();
    auto title = [&] { return Locked([&] { return std::string(fWindow->Title()); }); };
    EXPECT_EQ(title(), "Lorivane");
    Open("c.png");
    EXPECT_EQ(title(), "c.png - Lorivane");
    Do(kMsgLanguageChanged);
    EXPECT_EQ(title(), "c.png - Lorivane");
    Locked([&] { fView->Clear(); });
    EXPECT_EQ(title(), "Lorivane");
    Do(kMsgLanguageChanged);
    EXPECT_EQ(title(), "Lorivane");
}

TEST_F(Fitting, KeepsAndAnnouncesTheOptionChosenFromTheMenu) {
    TTemporaryFolder settings;
    setenv("XDG_CONFIG_HOME", settings.Path().c_str(), 1);
    ShowWindow();
    std::unique_ptr<BMessage> message(create_display_option_message(kMsgChooseDisplayOption, 4));
    Do(*message);
    EXPECT_EQ(gPrefs.fDisplayOption, 4);
    TPrefs saved;
    EXPECT_EQ(saved.LoadFromFile(), 0);
    EXPECT_EQ(saved.fDisplayOption, 4);
    std::unique_ptr<BMessage> notice(be_app->MessageQueue()->NextMessage());
    ASSERT_TRUE(notice);
    EXPECT_EQ(notice->what, kPrefDisplayOption);

    Do(BMessage(kMsgChooseDisplayOption));
    EXPECT_EQ(gPrefs.fDisplayOption, 4);
    EXPECT_TRUE(be_app->MessageQueue()->IsEmpty());
}

}  // namespace
