#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "kits/interface/Display.h"

using namespace BPrivate;

namespace {

constexpr int32 kWidth = 200;
constexpr int32 kHeight = 40;

class Picture {
public:
    explicit Picture(uint32 pixel = 0) : fPixels(kWidth * kHeight, pixel) {}
    bool operator==(const Picture&) const = default;

    PixelBuffer Get() {
        return {reinterpret_cast<uint8*>(fPixels.data()), kWidth * 4, kWidth, kHeight};
    }
    uint32 At(int32 x, int32 y) const { return fPixels[static_cast<size_t>(y * kWidth + x)]; }

    /// The rectangle of the pixels that differ from the given one.
    BRect Inked(uint32 pixel = 0) const {
        BRect ink(kWidth, kHeight, -1, -1);
        for (int32 y = 0; y < kHeight; ++y) {
            for (int32 x = 0; x < kWidth; ++x) {
                if (At(x, y) != pixel)
                    ink = ink | BRect(x, y, x, y);
            }
        }
        return ink;
    }

private:
    std::vector<uint32> fPixels;
};

constexpr rgb_color kRed{255, 0, 0, 255};

void Draw(Picture& picture, const FontSpec& font, rgb_color color = kRed,
    BRect clip = BRect(0, 0, kWidth - 1, kHeight - 1)) {
    TheDisplay().DrawText(picture.Get(), clip, BPoint(10, 30), color, font, "Hxg");
}

TEST(Fonts, MetricsGrowWithTheSize) {
    const FontMetrics small = TheDisplay().Metrics({"", 12});
    const FontMetrics large = TheDisplay().Metrics({"", 24});
    EXPECT_GT(small.ascent, small.descent);
    EXPECT_GT(small.descent, 0);
    EXPECT_GE(small.leading, 0);
    EXPECT_NEAR(large.ascent, 2 * small.ascent, 2);
    // A font's size is its height in pixels, give or take what its maker adds.
    EXPECT_NEAR(small.ascent + small.descent, 14, 4);
}

TEST(Fonts, WidthsAddUpAndTakeFractionsOfASize) {
    auto& display = TheDisplay();
    const float one = display.StringWidth({"", 12}, "m");
    EXPECT_GT(one, 4);
    EXPECT_NEAR(display.StringWidth({"", 12}, "mmmm"), 4 * one, 1);
    EXPECT_EQ(display.StringWidth({"", 12}, ""), 0);
    EXPECT_GT(display.StringWidth({"", 12.5F}, std::string(100, 'm')),
        display.StringWidth({"", 12}, std::string(100, 'm')));
}

TEST(Fonts, TextLiesBetweenAscentAndDescent) {
    Picture picture;
    const FontSpec font{"", 20};
    Draw(picture, font);
    const FontMetrics metrics = TheDisplay().Metrics(font);
    const float width = TheDisplay().StringWidth(font, "Hxg");
    const BRect ink = picture.Inked();
    ASSERT_TRUE(ink.IsValid());
    EXPECT_GE(ink.top, 30 - metrics.ascent - 1);
    EXPECT_LE(ink.bottom, 30 + metrics.descent + 1);
    EXPECT_GE(ink.left, 8);
    EXPECT_LE(ink.right, 10 + width + 2);
    EXPECT_GT(ink.bottom, 30);  // the g hangs below the baseline
}

TEST(Fonts, TextKeepsToTheClip) {
    Picture picture;
    Draw(picture, {"", 20}, kRed, BRect(12, 20, 25, 27));
    const BRect ink = picture.Inked();
    ASSERT_TRUE(ink.IsValid());
    EXPECT_TRUE(BRect(12, 20, 25, 27).Contains(ink));
    Picture untouched;
    Draw(untouched, {"", 20}, kRed, BRect());
    EXPECT_FALSE(untouched.Inked().IsValid());
}

TEST(Fonts, TextOnNothingHasItsColourAndStraightAlpha) {
    Picture picture;
    Draw(picture, {"", 30}, {200, 100, 50, 255});
    int32 solid = 0;
    for (int32 y = 0; y < kHeight; ++y) {
        for (int32 x = 0; x < kWidth; ++x) {
            const uint32 pixel = picture.At(x, y);
            if (pixel >> 24 == 0)
                continue;
            // However transparent, the colour is not darkened; the fewer levels of alpha there
            // are, the coarser it is.
            const double error = 255.0 / (pixel >> 24) + 1;
            EXPECT_NEAR((pixel >> 16) & 255, 200, error);
            EXPECT_NEAR((pixel >> 8) & 255, 100, error);
            solid += pixel == 0xffc86432;
        }
    }
    EXPECT_GT(solid, 20);
}

TEST(Fonts, TextOnAPictureIsBlended) {
    Picture picture(0xff000000);
    Draw(picture, {"", 30}, {255, 255, 255, 128});
    uint32 brightest = 0;
    for (int32 y = 0; y < kHeight; ++y) {
        for (int32 x = 0; x < kWidth; ++x) {
            EXPECT_EQ(picture.At(x, y) >> 24, 255U);
            brightest = std::max(brightest, picture.At(x, y) & 255);
        }
    }
    EXPECT_NEAR(static_cast<int>(brightest), 128, 2);
}

/// Text of 12 units on a buffer of that ratio.
Picture DrawnAt(float ratio, BRect clip = BRect(0, 0, kWidth - 1, kHeight - 1)) {
    Picture picture;
    PixelBuffer buffer = picture.Get();
    buffer.ratio = ratio;
    TheDisplay().DrawText(
        buffer, clip, BPoint(4 * ratio, 12 * ratio), kRed, {"", 12}, "Hamburg (WAVE)");
    return picture;
}

TEST(Fonts, TextOnAFinerBufferIsAsWideAsMeasured) {
    const float width = TheDisplay().StringWidth({"", 12}, "Hamburg (WAVE)");
    const BRect plain = DrawnAt(1).Inked();
    for (const float ratio : {1.25F, 1.5F, 1.75F}) {
        const BRect ink = DrawnAt(ratio).Inked();
        EXPECT_NEAR(ink.left, plain.left * ratio, 1.5) << ratio;
        EXPECT_NEAR(ink.right, plain.right * ratio, 2.5) << ratio;
        EXPECT_LE(ink.right, (4 + width) * ratio + 1) << ratio;
        EXPECT_NEAR(ink.bottom, plain.bottom * ratio, 2) << ratio;
        EXPECT_NEAR(ink.top, plain.top * ratio, 2) << ratio;
    }
}

TEST(Fonts, TextOnAFinerBufferIsNotAPictureEnlarged) {
    const auto mixed = [](const Picture& picture) {
        int32 all = 0;
        int32 partial = 0;
        for (int32 y = 0; y < kHeight; ++y) {
            for (int32 x = 0; x < kWidth; ++x) {
                const uint32 alpha = picture.At(x, y) >> 24;
                all += alpha != 0;
                partial += alpha != 0 && alpha != 255;
            }
        }
        return static_cast<double>(partial) / all;
    };
    Picture fine;
    PixelBuffer buffer = fine.Get();
    buffer.ratio = 3;
    TheDisplay().DrawText(
        buffer, BRect(0, 0, kWidth - 1, kHeight - 1), BPoint(6, 33), kRed, {"", 12}, "Hxgo");
    Picture plain;
    TheDisplay().DrawText(
        plain.Get(), BRect(0, 0, kWidth - 1, kHeight - 1), BPoint(2, 11), kRed, {"", 12}, "Hxgo");
    // An enlarged picture has as large a part of pixels at the edges of strokes as the small one.
    EXPECT_LT(mixed(fine), 0.75 * mixed(plain));
    // And it would be made of squares.
    int32 unlike = 0;
    for (int32 y = 0; y + 2 < kHeight; y += 3) {
        for (int32 x = 0; x + 2 < kWidth; x += 3)
            unlike += fine.At(x, y) != fine.At(x + 2, y + 2);
    }
    EXPECT_GT(unlike, 20);
}

TEST(Fonts, TextOnAFinerBufferIsTheSameInPieces) {
    for (const float ratio : {1.25F, 1.5F, 2.0F}) {
        const Picture whole = DrawnAt(ratio);
        const Picture left = DrawnAt(ratio, BRect(0, 0, 52, kHeight - 1));
        const Picture right = DrawnAt(ratio, BRect(53, 0, kWidth - 1, kHeight - 1));
        for (int32 y = 0; y < kHeight; ++y) {
            for (int32 x = 0; x < kWidth; ++x)
                ASSERT_EQ(whole.At(x, y), (x <= 52 ? left : right).At(x, y)) << ratio;
        }
    }
}

TEST(Fonts, BoldIsHeavier) {
    const std::string text(20, 'i');
    EXPECT_GT(TheDisplay().StringWidth({"", 20, true}, text),
        TheDisplay().StringWidth({"", 20, false}, text));
}

TEST(Fonts, AMissingFamilyFallsBack) {
    const FontSpec missing{"No Such Family At All", 20};
    EXPECT_GT(TheDisplay().Metrics(missing).ascent, 5);
    Picture picture;
    Draw(picture, missing);
    EXPECT_TRUE(picture.Inked().IsValid());
}

TEST(Fonts, SizesThatAreNoneAreSurvived) {
    for (const float size : {0.0F, -5.0F, 1e30F, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_GT(TheDisplay().Metrics({"", size}).ascent, 0);
}

TEST(Fonts, FamiliesAreSortedBehindTheOneThatStandsIn) {
    const std::vector<std::string> families = TheDisplay().FontFamilies();
    ASSERT_FALSE(families.empty());
    EXPECT_TRUE(std::ranges::is_sorted(families.begin() + 1, families.end()));
    EXPECT_EQ(std::ranges::count(families, families.front()), 1);
    Picture first, missing;
    Draw(first, {families.front(), 20});
    Draw(missing, {"No Such Family At All", 20});
    EXPECT_TRUE(first.Inked().IsValid());
    EXPECT_EQ(first, missing);
}

}  // namespace
