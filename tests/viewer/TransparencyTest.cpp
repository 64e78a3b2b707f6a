#include "viewer/Transparency.h"

#include <cstring>
#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <vector>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "tests/viewer/ViewerTest.h"

namespace {

std::unique_ptr<BBitmap> MakeBitmap(float width, float height, uint8 alpha) {
    auto bitmap = std::make_unique<BBitmap>(BRect(0, 0, width - 1, height - 1), B_RGBA32);
    std::vector<uint8> pixels(static_cast<size_t>(bitmap->BitsLength()), alpha);
    EXPECT_EQ(
        bitmap->ImportBits(pixels.data(), bitmap->BitsLength(), bitmap->BytesPerRow(), 0, B_RGBA32),
        B_OK);
    return bitmap;
}

TEST(HasTransparency, FindsASinglePixelAnywhere) {
    struct {
        float width;
        float height;
    } const kSizes[] = {
        {1, 1}, {5, 3}, {300, 200}, {200, 301}, {40000, 2}, {1, 40000}, {300, 1000}};
    for (const auto& size : kSizes) {
        auto bitmap = MakeBitmap(size.width, size.height, 255);
        EXPECT_FALSE(has_transparency(*bitmap)) << size.width << " x " << size.height;
        const int32 last = bitmap->BitsLength() - 1;
        for (int32 place : {3, last / 8 * 4 + 3, last}) {
            auto changed = MakeBitmap(size.width, size.height, 255);
            const uint8 translucent[] = {255, 255, 255, 254};
            ASSERT_EQ(changed->ImportBits(translucent, 4, 4, place - 3, B_RGBA32), B_OK);
            EXPECT_TRUE(has_transparency(*changed)) << size.width << " x " << size.height;
        }
    }
}

TEST(HasTransparency, LooksAtAlphaAlone) {
    const uint8 black[] = {0, 0, 0, 255};
    BBitmap bitmap(BRect(0, 0, 0, 0), B_RGBA32);
    ASSERT_EQ(bitmap.ImportBits(black, 4, 4, 0, B_RGBA32), B_OK);
    EXPECT_FALSE(has_transparency(bitmap));
}

TEST(HasTransparency, IsFoundOnlyWhereTheColoursHaveAlpha) {
    BBitmap plain(BRect(0, 0, 9, 9), B_RGB32);
    EXPECT_FALSE(has_transparency(plain));
    BBitmap grays(BRect(0, 0, 9, 9), B_GRAY8);
    EXPECT_FALSE(has_transparency(grays));
}

class Transparency : public ViewerTest {
protected:
    /// The colour in the middle of the image area of a window of 300 x 220.
    rgb_color Middle() {
        rgb_color color = Picture().At(150, 113);
        color.alpha = 255;
        return color;
    }
};

constexpr rgb_color kClear{10, 20, 30, 0};
constexpr rgb_color kHalfRed{255, 0, 0, 128};
// Of red over kGray, 60: (128 * 255 + 127 * 60) / 255 and 127 * 60 / 255.
constexpr rgb_color kHalfRedOnGray{158, 30, 30, 255};
constexpr rgb_color kHalfRedOnBlue{128, 0, 127, 255};

TEST_F(Transparency, LetsTheBackgroundShowThrough) {
    WriteImage("clear", kClear, 90, 60);
    WriteImage("half", kHalfRed, 90, 60);
    ShowWindow();
    for (int32 option : {0, 2, 3, 4, 5}) {
        gPrefs.fDisplayOption = option;
        Open("clear");
        EXPECT_EQ(Middle(), kGray) << option;
        Open("half");
        EXPECT_EQ(Middle(), kHalfRedOnGray) << option;
    }
}

TEST_F(Transparency, FollowsTheBackground) {
    WriteImage("half", kHalfRed, 90, 60);
    ShowWindow();
    Open("half");
    gPrefs.fColors[kColorBackground] = kBlue;
    Do(kPrefColors);
    EXPECT_TRUE(recording::WaitFor([&] { return Middle() == kHalfRedOnBlue; }));
}

// The neighbours were scaled when the background was another.
TEST_F(Transparency, FollowsTheBackgroundInImagesDecodedAhead) {
    WriteImage("a", kRed, 90, 60);
    WriteImage("b", kHalfRed, 90, 60);
    ShowWindow();
    Open("a");
    WaitForLoaders();
    gPrefs.fColors[kColorBackground] = kBlue;
    Do(kPrefColors);
    Do(kMsgNextImage);
    EXPECT_EQ(Shown(), "b");
    EXPECT_EQ(Middle(), kHalfRedOnBlue);
}

// A background that is translucent itself has nothing to shine on.
TEST_F(Transparency, TakesTheBackgroundForOpaque) {
    gPrefs.fColors[kColorBackground] = rgb_color{60, 60, 60, 0};
    WriteImage("half", kHalfRed, 90, 60);
    ShowWindow();
    Open("half");
    EXPECT_EQ(Middle(), kHalfRedOnGray);
}

}  // namespace
