// The viewer in a window that the desktop keeps maximised or tiled.

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

constexpr BRect kScreen(0, 0, 1919, 1079);
constexpr BRect kMaximised(0, 24, 1919, 1079);
constexpr BRect kCovering(0, -20, 1919, 1093);
constexpr BRect kFitted(50, 50, 50 + 319, 50 + 233);  // to an image of 320 x 200

class Maximised : public ViewerTest {
protected:
    Maximised() {
        gPrefs.fDisplayOption = kFitWindowToImage;
        recording::TheRecordingDisplay().SetMainScreenFrame(kScreen);
        WriteImage("a", kRed, 320, 200);
        WriteImage("b", kGreen, 2500, 300);
    }

    void Open() {
        ShowWindow();
        ViewerTest::Open("a");
        WaitForLoaders();
    }
    BRect Frame() {
        return Locked([&] { return fWindow->Frame(); });
    }
    BRect NormalFrame() {
        return Locked([&] { return fView->NormalWindowFrame(); });
    }
    void Maximise(bool on, BRect frame) {
        fScreen->Hold(on);
        fScreen->UserMove(frame.LeftTop());
        fScreen->UserResize(frame.Width(), frame.Height());
        ASSERT_TRUE(recording::WaitFor([&] {
            Settle();
            return Frame() == frame;
        }));
    }
    void Step(uint32 command) {
        WaitForLoaders();
        Do(command);
    }
    bool HasBars(bool horizontal, bool vertical) {
        return IsShown("ScrlBarH") == horizontal && IsShown("ScrlBarV") == vertical;
    }
};

TEST_F(Maximised, KeepsItsFrameOnStepping) {
    Open();
    Maximise(true, kMaximised);
    Step(kMsgNextImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(Frame(), kMaximised);
    EXPECT_EQ(fScreen->Frame(), kMaximised);
    EXPECT_TRUE(HasBars(true, false));
    Step(kMsgPrevImage);
    EXPECT_EQ(Frame(), kMaximised);
    EXPECT_TRUE(HasBars(false, false));
    // In the middle of 1920 x 1022, what the bars leave of 1056.
    EXPECT_TRUE(recording::WaitFor([&] {
        return Picture().IsAll({800, kViewTop + 411, 1119, kViewTop + 610}, kRed);
    }));
    EXPECT_EQ(NormalFrame(), kFitted);
}

TEST_F(Maximised, FitsAgainWhenItIsLetGo) {
    Open();
    Maximise(true, kMaximised);
    Step(kMsgNextImage);
    Maximise(false, kFitted);
    EXPECT_TRUE(recording::WaitFor([&] { return HasBars(true, true); }));
    Step(kMsgPrevImage);
    EXPECT_EQ(Frame(), kFitted);
    Step(kMsgNextImage);
    // As wide as the limit; 299, the bar's 13 and the others' 34 high.
    EXPECT_EQ(Frame().Width(), 1909);
    EXPECT_EQ(Frame().Height(), 299 + 13 + 34);
    EXPECT_EQ(NormalFrame(), Frame());
}

TEST_F(Maximised, ComesBackFromFullScreen) {
    for (int32 option = 0; option < kDisplayOptionCount; ++option) {
        if (fWindow == nullptr)
            Open();
        Maximise(false, kFitted);
        gPrefs.fDisplayOption = option;
        Maximise(true, kMaximised);
        Do(kMsgToggleFullScreen);
        EXPECT_EQ(Frame(), kCovering) << option;
        EXPECT_EQ(fScreen->Frame(), kCovering) << option;
        EXPECT_EQ(NormalFrame(), kFitted) << option;
        Do(kMsgToggleFullScreen);
        EXPECT_EQ(Frame(), kMaximised) << option;
        EXPECT_EQ(fScreen->Frame(), kMaximised) << option;
        EXPECT_EQ(NormalFrame(), kFitted) << option;
    }
}

TEST_F(Maximised, GoesToTheNormalFrameWhenLetGoInFullScreen) {
    Open();
    gPrefs.fDisplayOption = kFitImageToWindow;
    Maximise(true, kMaximised);
    Do(kMsgToggleFullScreen);
    fScreen->Hold(false);
    Settle();
    Do(kMsgToggleFullScreen);
    EXPECT_EQ(Frame(), kFitted);
}

}  // namespace
