#include "framework/MessageCodes.h"

#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

// The view below kViewTop of a window of 300 x 220 pixels: an area of 300 x 186 for the image.
constexpr int32 kAreaWidth = 300;
constexpr int32 kAreaHeight = 186;

class Drawing : public ViewerTest {
protected:
    /// The parts of the image area that have the colour, as a rectangle in it; invalid for none.
    /// Fails when the area is not exactly that rectangle on the background.
    BRect FindImage(rgb_color color) {
        Settle();
        recording::Picture picture = Picture();
        BRect found;
        for (int32 y = 0; y < kAreaHeight; ++y) {
            for (int32 x = 0; x < kAreaWidth; ++x) {
                if (SameColor(picture.At(x, y + kTop), color)) {
                    BPoint at(static_cast<float>(x), static_cast<float>(y));
                    found = found.IsValid() ? found | BRect(at, at) : BRect(at, at);
                }
            }
        }
        for (int32 y = 0; y < kAreaHeight; ++y) {
            for (int32 x = 0; x < kAreaWidth; ++x) {
                BPoint at(static_cast<float>(x), static_cast<float>(y));
                rgb_color expected = found.Contains(at) ? color : kGray;
                if (!SameColor(picture.At(x, y + kTop), expected)) {
                    ADD_FAILURE() << "wrong colour at " << x << ", " << y;
                    return found;
                }
            }
        }
        return found;
    }

    static bool SameColor(rgb_color a, rgb_color b) {
        return a.red == b.red && a.green == b.green && a.blue == b.blue;
    }
};

TEST_F(Drawing, FillsTheWholeAreaWithoutAnImage) {
    ShowWindow(kWindowFrame);
    EXPECT_FALSE(FindImage(kRed).IsValid());
}

struct CentreCase {
    int32 width;
    int32 height;
    BRect place;
};

TEST_F(Drawing, CentresSmallImagesOfEverySize) {
    const CentreCase kCases[] = {
        {100, 86, {100, 50, 199, 135}},
        {99, 85, {100, 50, 198, 134}},
        {299, 185, {0, 0, 298, 184}},
        {300, 186, {0, 0, 299, 185}},
        {298, 186, {1, 0, 298, 185}},
        {1, 1, {149, 92, 149, 92}},
    };
    ShowWindow(kWindowFrame);
    for (const CentreCase& c : kCases) {
        std::string name = std::to_string(c.width) + "x" + std::to_string(c.height);
        WriteImage(name, kRed, c.width, c.height);
        Open(name);
        EXPECT_EQ(FindImage(kRed), c.place) << name;
    }
}

// No pixel of the image before shines through at the edges of the next one.
TEST_F(Drawing, LeavesNothingOfTheImageBefore) {
    WriteImage("large", kGreen, 300, 186);
    ShowWindow(kWindowFrame);
    for (int32 size = 150; size < 186; ++size) {
        std::string name = std::to_string(size);
        WriteImage(name, kRed, size, size);
        Open("large");
        Open(name);
        BRect place = FindImage(kRed);
        EXPECT_EQ(place.IntegerWidth() + 1, size);
        EXPECT_EQ(place.IntegerHeight() + 1, size);
    }
}

TEST_F(Drawing, ScalesByTheDisplayOption) {
    WriteImage("wide", kRed, 30, 10);
    ShowWindow(kWindowFrame);
    struct {
        int32 option;
        BRect place;
        const char* scale;
    } const kCases[] = {
        {kDontFitAnything, {135, 88, 164, 97}, "100% x 100%"},
        {kFitImageToWindow, {0, 0, 299, 185}, "1000% x 1860%"},
        // 29 x 9 scaled by 299 / 29 is 299 x 92.79: 94 rows below half of the rest.
        {kScaleImageToWindow, {0, 46, 299, 139}, "1000% x 1000%"},
        {kScaleImageToWindowWidth, {0, 46, 299, 139}, "1000% x 1000%"},
    };
    for (const auto& c : kCases) {
        gPrefs.fDisplayOption = c.option;
        Open("wide");
        EXPECT_EQ(FindImage(kRed), c.place) << c.option;
        EXPECT_EQ(StatusText("StrViewScale"), c.scale) << c.option;
    }
}

TEST_F(Drawing, FollowsAChangeOfTheDisplayOption) {
    WriteImage("wide", kRed, 30, 10);
    ShowWindow(kWindowFrame);
    Open("wide");
    gPrefs.fDisplayOption = kFitImageToWindow;
    Do(kPrefDisplayOption);
    EXPECT_EQ(FindImage(kRed), BRect(0, 0, 299, 185));
    EXPECT_EQ(StatusText("StrViewScale"), "1000% x 1860%");
    gPrefs.fDisplayOption = kDontFitAnything;
    Do(kPrefDisplayOption);
    EXPECT_EQ(FindImage(kRed), BRect(135, 88, 164, 97));
    EXPECT_EQ(StatusText("StrViewScale"), "100% x 100%");
}

TEST_F(Drawing, FollowsAChangeOfTheColours) {
    WriteImage("small", kRed, 30, 10);
    ShowWindow(kWindowFrame);
    Open("small");
    gPrefs.fColors[kColorBackground] = kBlue;
    Do(kPrefColors);
    EXPECT_TRUE(recording::WaitFor([&] { return SameColor(Picture().At(0, kTop), kBlue); }));
    EXPECT_TRUE(SameColor(Picture().At(150, kTop + 93), kRed));
}

TEST_F(Drawing, RescalesWithTheWindow) {
    gPrefs.fDisplayOption = kFitImageToWindow;
    WriteImage("wide", kRed, 30, 10);
    ShowWindow(kWindowFrame);
    Open("wide");
    fScreen->UserResize(199, 119);
    EXPECT_TRUE(recording::WaitFor([&] {
        Settle();
        return StatusText("StrViewScale") == "666% x 860%";
    }));
    EXPECT_TRUE(recording::WaitFor([&] {
        return Picture().IsAll({0, kViewTop, 199, kViewTop + 85}, kRed);
    }));
}

TEST_F(Drawing, FillsALargerWindowWithoutAnImage) {
    ShowWindow(kWindowFrame);
    fScreen->UserResize(399, 319);
    EXPECT_TRUE(recording::WaitFor([&] {
        return Picture().IsAll({0, kViewTop, 399, 319 - 14}, kGray);
    }));
}

// A window so small that nothing is left for the image.
TEST_F(Drawing, SurvivesAWindowWithoutRoom) {
    WriteImage("wide", kRed, 300, 100);
    ShowWindow(BRect(50, 50, 60, 75));
    for (int32 option = 0; option < kDisplayOptionCount; ++option) {
        if (option == kFitWindowToImage)
            continue;
        gPrefs.fDisplayOption = option;
        Open("wide");
        EXPECT_EQ(Shown(), "wide");
    }
}

// The image is decoded, scaled and drawn before the next command is looked at.
TEST_F(Drawing, ShowsTheImageBeforeTheNextCommand) {
    WriteImage("a", kRed, 300, 186);
    WriteImage("b", kGreen, 300, 186);
    ShowWindow(kWindowFrame);
    Open("a");
    WaitForLoaders();
    Locked([&] {
        fView->SetNextImage();
        EXPECT_TRUE(Picture().IsAll({0, kViewTop, 299, kViewTop + 185}, kGreen));
    });
}

}  // namespace
