// Images of unusual shapes, and display options that are none.

#include <cmath>
#include <interface/ScrollBar.h>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

class UnusualImages : public ViewerTest {
protected:
    UnusualImages() { recording::TheRecordingDisplay().SetMainScreenFrame({0, 0, 1919, 1079}); }

    void ExpectSaneLayout() {
        Locked([&] {
            BRect frame = fWindow->Frame();
            EXPECT_TRUE(frame.IsValid() && frame.Width() <= 1909 && frame.Height() <= 1049);
            BRect scaled = fView->CurrentImage()->Image()->Bounds();
            EXPECT_TRUE(std::isfinite(scaled.right) && std::isfinite(scaled.bottom));
            for (const char* name : {"ScrlBarH", "ScrlBarV"}) {
                auto* bar = dynamic_cast<BScrollBar*>(fWindow->FindView(name));
                float min = -1;
                float max = -1;
                bar->GetRange(&min, &max);
                EXPECT_EQ(min, 0);
                EXPECT_TRUE(std::isfinite(max) && max >= 0) << name;
                EXPECT_TRUE(bar->Proportion() >= 0 && bar->Proportion() <= 1) << name;
            }
        });
    }
};

TEST_F(UnusualImages, AreShownUnderEveryOption) {
    SKIP_AS_NOT_ABOUT_THREADS();
    struct {
        int32 width;
        int32 height;
    } const kSizes[] = {{1, 1}, {1, 500}, {500, 1}, {30000, 10}, {10, 30000}, {2, 2}};
    ShowWindow();
    for (const auto& size : kSizes) {
        std::string name = std::to_string(size.width) + "x" + std::to_string(size.height);
        WriteImage(name, kRed, size.width, size.height);
        for (int32 option = 0; option < kDisplayOptionCount; ++option) {
            SCOPED_TRACE(name + " under " + std::to_string(option));
            gPrefs.fDisplayOption = option;
            Open(name);
            EXPECT_EQ(Shown(), name);
            ExpectSaneLayout();
            Do(kPrefDisplayOption);
            ExpectSaneLayout();
            Do(kMsgToggleFullScreen);
            Do(kMsgToggleFullScreen);
            ExpectSaneLayout();
        }
        std::string shownSize = std::to_string(size.width) + " x " + std::to_string(size.height);
        EXPECT_EQ(StatusText("StrViewSize"), shownSize);
    }
}

TEST_F(UnusualImages, LargerThanMemoryLeaveTheImageBefore) {
    WriteImage("a", kGreen, 90, 60);
    WriteImage("b", kRed, 2000000, 2000000);
    ShowWindow();
    Open("a");
    WaitForLoaders();
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(StatusText("StrViewSize"), "90 x 60");
    Open("b");
    EXPECT_EQ(Shown(), "a");
    EXPECT_EQ(Picture().At(150, 113), kGreen);
}

// Nothing forbids them in a settings file. The image has no size then, but all goes on working.
TEST_F(UnusualImages, OptionsThereAreNotShowNothingAndCanBeLeft) {
    WriteImage("a", kGreen, 90, 60);
    ShowWindow(kWindowFrame);
    for (int32 option : {6, -1, INT32_MAX, INT32_MIN}) {
        gPrefs.fDisplayOption = option;
        Open("a");
        EXPECT_EQ(Shown(), "a") << option;
        EXPECT_EQ(
            Locked([&] { return fView->CurrentImage()->Image()->Bounds(); }), BRect(0, 0, 0, 0));
        EXPECT_EQ(Locked([&] { return fWindow->Frame(); }), kWindowFrame);
        EXPECT_FALSE(IsShown("ScrlBarH") || IsShown("ScrlBarV"));
        Locked([&] { fWindow->ResizeTo(310, 230); });
        Do(kPrefDisplayOption);
        Locked([&] { fWindow->ResizeTo(299, 219); });
        Settle();
        EXPECT_EQ(StatusText("StrViewScale"), "1% x 1%");
        gPrefs.fDisplayOption = kDontFitAnything;
        Do(kPrefDisplayOption);
        EXPECT_EQ(StatusText("StrViewScale"), "100% x 100%");
    }
}

}  // namespace
