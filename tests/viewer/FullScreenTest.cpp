#include <interface/ScrollBar.h>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

constexpr BRect kNormal(50, 50, 349, 269);
constexpr BRect kScreen(0, 0, 1919, 1079);
// The menu bar's 20 above the screen and the status bar's 14 below it.
constexpr BRect kCovering(0, -20, 1919, 1093);
constexpr BRect kImageArea(0, kViewTop, 1919, kViewTop + 1079);

class FullScreen : public ViewerTest {
protected:
    FullScreen() { recording::TheRecordingDisplay().SetMainScreenFrame(kScreen); }
    ~FullScreen() override { recording::TheRecordingDisplay().SetMainScreenFrame(kScreen); }

    BRect Frame() {
        return Locked([&] { return fWindow->Frame(); });
    }
    bool IsFullScreen() {
        return Locked([&] { return fView->IsFullScreen(); });
    }
    BRect ScaledBounds() {
        return Locked([&] { return fView->CurrentImage()->Image()->Bounds(); });
    }
    std::string Bars() {
        return std::string(IsShown("ScrlBarH") ? "H" : "") + (IsShown("ScrlBarV") ? "V" : "");
    }
    void Toggle() { Do(kMsgToggleFullScreen); }
    /// The change is drawn after the command.
    void ExpectColor(BRect area, rgb_color color) {
        EXPECT_TRUE(recording::WaitFor([&] { return Picture().IsAll(area, color); }));
    }
};

TEST_F(FullScreen, ShowsTheImageAreaAlone) {
    WriteImage("a", kRed, 40, 30);
    ShowWindow(kNormal);
    Open("a");
    EXPECT_FALSE(IsFullScreen());
    Toggle();
    EXPECT_TRUE(IsFullScreen());
    EXPECT_EQ(Frame(), kCovering);
    Locked([&] {
        BView* status = fWindow->FindView("StatusView");
        EXPECT_EQ(status->Frame(), BRect(0, 1080, 1919, 1093));
    });
    ExpectColor({940, kViewTop + 525, 979, kViewTop + 554}, kRed);
    Toggle();
    EXPECT_FALSE(IsFullScreen());
    EXPECT_EQ(Frame(), kNormal);
}

TEST_F(FullScreen, WorksWithoutAnImage) {
    ShowWindow(kNormal);
    for (int32 option = 0; option < kDisplayOptionCount; ++option) {
        gPrefs.fDisplayOption = option;
        Toggle();
        EXPECT_EQ(Frame(), kCovering);
        ExpectColor(kImageArea, kGray);
        Toggle();
        EXPECT_EQ(Frame(), kNormal);
    }
}

struct OptionCase {
    int32 option;
    BRect scaled;      ///< of an image of 320 x 200
    const char* bars;  ///< of an image of 2500 x 1000
    BRect left;        ///< the window's frame after full screen, of that of 320 x 200
};

// At the full width 320 x 200 would be too high and leaves 14 for the vertical bar; at the full
// height 2500 x 1000 would be too wide and leaves 14 for the horizontal one.
const OptionCase kOptions[] = {
    {kDontFitAnything, {0, 0, 319, 199}, "H", kNormal},
    {kFitWindowToImage, {0, 0, 319, 199}, "H", {50, 50, 50 + 319, 50 + 233}},
    {kFitImageToWindow, {0, 0, 1919, 1079}, "", kNormal},
    {kScaleImageToWindow, {0, 0, 319.0F * 1079 / 199, 1079}, "", kNormal},
    {kScaleImageToWindowWidth, {0, 0, 1905, 199.0F * 1905 / 319}, "", kNormal},
    {kScaleImageToWindowHeight, {0, 0, 319.0F * 1079 / 199, 1079}, "H", kNormal},
};

class FullScreenOption : public FullScreen, public testing::WithParamInterface<OptionCase> {
protected:
    void ExpectSmall() {
        BRect scaled = ScaledBounds();
        EXPECT_FLOAT_EQ(scaled.Width(), GetParam().scaled.Width());
        EXPECT_FLOAT_EQ(scaled.Height(), GetParam().scaled.Height());
    }
};

TEST_P(FullScreenOption, IsHonouredOnEnteringAndLeaving) {
    gPrefs.fDisplayOption = GetParam().option;
    WriteImage("a", kRed, 320, 200);
    ShowWindow(kNormal);
    Open("a");
    Locked([&] {
        fWindow->MoveTo(50, 50);
        fWindow->ResizeTo(299, 219);
    });
    Toggle();
    EXPECT_EQ(Frame(), kCovering);
    ExpectSmall();
    Toggle();
    EXPECT_EQ(Frame(), GetParam().left);
}

TEST_P(FullScreenOption, IsHonouredOnSteppingInFullScreen) {
    gPrefs.fDisplayOption = GetParam().option;
    WriteImage("a", kRed, 320, 200);
    WriteImage("b", kGreen, 2500, 1000);
    ShowWindow(kNormal);
    Open("a");
    Toggle();
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(Frame(), kCovering);
    EXPECT_EQ(Bars(), GetParam().bars);
    WaitForLoaders();
    Do(kMsgPrevImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Frame(), kCovering);
    ExpectSmall();
}

TEST_P(FullScreenOption, CanBeChosenInFullScreen) {
    SKIP_AS_NOT_ABOUT_THREADS();
    WriteImage("a", kRed, 320, 200);
    WriteImage("b", kGreen, 2500, 1000);
    for (int32 before = 0; before < kDisplayOptionCount; ++before) {
        gPrefs.fDisplayOption = before;
        if (fWindow == nullptr)
            ShowWindow(kNormal);
        Open("a");
        if (!IsFullScreen())
            Toggle();
        gPrefs.fDisplayOption = GetParam().option;
        Do(kPrefDisplayOption);
        EXPECT_EQ(Frame(), kCovering) << before;
        ExpectSmall();
        gPrefs.fDisplayOption = before;
        Open("b");
        gPrefs.fDisplayOption = GetParam().option;
        Do(kPrefDisplayOption);
        EXPECT_EQ(Frame(), kCovering) << before;
        EXPECT_EQ(Bars(), GetParam().bars) << before;
    }
}

INSTANTIATE_TEST_SUITE_P(Options, FullScreenOption, testing::ValuesIn(kOptions));

// The bars that an image needs in full screen are not those it needs in the window, and back.
TEST_F(FullScreen, ShowsTheBarsItNeeds) {
    WriteImage("a", kRed, 1920, 1081);
    ShowWindow(kNormal);
    Open("a");
    EXPECT_EQ(Bars(), "HV");
    Toggle();
    EXPECT_EQ(Bars(), "HV");
    WriteImage("b", kRed, 1920, 1080);
    Open("b");
    EXPECT_EQ(Bars(), "");
    ExpectColor(kImageArea, kRed);
    WriteImage("c", kRed, 1921, 900);
    Open("c");
    EXPECT_EQ(Bars(), "H");
    Locked([&] {
        // On the last rows of the screen: the status bar alone lies below it.
        EXPECT_EQ(fWindow->FindView("ScrlBarH")->Frame(), BRect(0, 1067, 1920, 1080));
    });
    Toggle();
    EXPECT_EQ(Bars(), "HV");
}

TEST_F(FullScreen, KeepsTheFrameFromBeforeIt) {
    ShowWindow(kNormal);
    EXPECT_EQ(Locked([&] { return fView->NormalWindowFrame(); }), kNormal);
    Locked([&] {
        fView->SetFullScreen(true);
        fView->SetFullScreen(true);
    });
    EXPECT_EQ(Locked([&] { return fView->NormalWindowFrame(); }), kNormal);
    Locked([&] { fView->SetFullScreen(false); });
    Locked([&] { fView->SetFullScreen(false); });
    EXPECT_EQ(Frame(), kNormal);
}

TEST_F(FullScreen, CoversTheScreenWhereverItLies) {
    recording::TheRecordingDisplay().SetMainScreenFrame({-1280, 200, -1, 1223});
    ShowWindow({-1000, 300, -701, 519});
    Toggle();
    EXPECT_EQ(Frame(), BRect(-1280, 180, -1, 1237));
    Toggle();
    EXPECT_EQ(Frame(), BRect(-1000, 300, -701, 519));
}

TEST_F(FullScreen, KeepsTheSizeOnLeavingUnderAnOptionThereIsNot) {
    ShowWindow(kNormal);
    Toggle();
    gPrefs.fDisplayOption = 6;
    Toggle();
    EXPECT_FALSE(IsFullScreen());
    EXPECT_EQ(Frame(), kCovering.OffsetToCopy(50, 50));
}

TEST_F(FullScreen, EndsWhenTheDesktopEndsIt) {
    WriteImage("a", kRed, 320, 200);
    ShowWindow(kNormal);
    Open("a");
    Toggle();
    fScreen->UserResize(299, 219);
    fScreen->UserMove({60, 70});
    EXPECT_TRUE(recording::WaitFor([&] {
        Settle();
        return !IsFullScreen() && Frame() == BRect(60, 70, 359, 289);
    }));
    EXPECT_EQ(Locked([&] { return fView->NormalWindowFrame(); }), BRect(60, 70, 359, 289));
    Toggle();
    EXPECT_EQ(Frame(), kCovering);
    Toggle();
    EXPECT_EQ(Frame(), BRect(60, 70, 359, 289));
}

TEST_F(FullScreen, IsEnteredAndLeftManyTimes) {
    WriteImage("a", kRed, 320, 200);
    ShowWindow(kNormal);
    Open("a");
    for (int i = 0; i < 50; ++i)
        Post(kMsgToggleFullScreen);
    Settle();
    EXPECT_EQ(Frame(), kNormal);
    EXPECT_FALSE(IsFullScreen());
    Toggle();
    EXPECT_EQ(Frame(), kCovering);
}

TEST_F(FullScreen, ReadsATallImageToItsEnd) {
    WriteImage("a", kRed, 100, 3000);
    WriteImage("b", kGreen, 100, 100);
    ShowWindow(kNormal);
    Open("a");
    WaitForLoaders();
    Toggle();
    Press(B_DOWN_ARROW);
    auto* bar = dynamic_cast<BScrollBar*>(fWindow->FindView("ScrlBarV"));
    EXPECT_EQ(Locked([&] { return bar->Value(); }), 539);  // half of 1079
}

}  // namespace
