// What the painter makes of pictures that are to be smoothed.

#include "kits/interface/PixelScale.h"
#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

namespace {

Pixel At(const TestPicture& picture, int32 x, int32 y) {
    return ToPixel(picture.At(x, y));
}

void Draw(TestPicture& to, TestPicture& from, PixelRect source, PixelRect destination,
    drawing_mode mode = B_OP_COPY, float ratio = 1) {
    PixelBuffer buffer = to.Buffer();
    buffer.ratio = ratio;
    Painter::DrawPixels(buffer, to.All(), {from.Buffer(), B_RGBA32}, source, destination, mode,
        B_FILTER_BITMAP_BILINEAR);
}

}  // namespace

TEST(PainterSmooth, MakesMeansAndBlends) {
    TestPicture from({"kw", "wk"});
    TestPicture one(3, 3, 'r');
    Draw(one, from, from.All(), {1, 1, 2, 2});
    EXPECT_EQ(At(one, 1, 1), 0xff808080U);
    EXPECT_EQ(At(one, 0, 1), ToPixel(kRed));
    EXPECT_EQ(At(one, 2, 2), ToPixel(kRed));

    TestPicture line({"kw"});
    TestPicture four(4, 1, 'r');
    Draw(four, line, line.All(), four.All());
    EXPECT_EQ(At(four, 0, 0), 0xff000000U);
    EXPECT_EQ(At(four, 1, 0), 0xff404040U);
    EXPECT_EQ(At(four, 2, 0), 0xffbfbfbfU);
    EXPECT_EQ(At(four, 3, 0), 0xffffffffU);
}

TEST(PainterSmooth, AtOnePixelToOneNothingIsSmoothed) {
    TestPicture from({"kwr", "gbw"});
    TestPicture to(3, 2, '.');
    Draw(to, from, from.All(), from.All());
    EXPECT_EQ(to.Rows(), from.Rows());
    // Twice as many pixels in half as many units.
    TestPicture dense(6, 4, '.');
    TestPicture big({"kwrgbw", "rrggbb", "wkwkwk", "bbbrrr"});
    Draw(dense, big, big.All(), {0, 0, 3, 2}, B_OP_COPY, 2);
    EXPECT_EQ(dense.Rows(), big.Rows());
}

TEST(PainterSmooth, DensePixelsAreSmoothedOneByOne) {
    TestPicture line({"kw"});
    TestPicture four(4, 2, 'r');
    Draw(four, line, line.All(), {0, 0, 2, 1}, B_OP_COPY, 2);
    EXPECT_EQ(At(four, 1, 0), 0xff404040U);
    EXPECT_EQ(At(four, 2, 1), 0xffbfbfbfU);
}

TEST(PainterSmooth, IsBlendedAfterItIsSmoothed) {
    // Half of it is white, which no clear pixel's colour changes.
    TestPicture from({"w.", ".w"});
    for (const auto& [mode, expected] : {std::pair{B_OP_COPY, 0x80ffffffU},
             std::pair{B_OP_OVER, 0x80ffffffU}, std::pair{B_OP_ALPHA, 0xff808080U}}) {
        TestPicture to(1, 1, 'k');
        Draw(to, from, from.All(), to.All(), mode);
        EXPECT_EQ(At(to, 0, 0), expected) << mode;
    }
    TestPicture clear(2, 2, '.');
    TestPicture to(1, 1, 'g');
    Draw(to, clear, clear.All(), to.All(), B_OP_OVER);
    EXPECT_EQ(At(to, 0, 0), ToPixel(kGreen));
}

TEST(PainterSmooth, WhatIsOutsideOfThePictureDrawsNothing) {
    TestPicture from(4, 4, 'b');
    TestPicture to(16, 16, 'w');
    Draw(to, from, {-2, -2, 6, 6}, to.All());
    for (int32 y = 0; y < 16; y++) {
        for (int32 x = 0; x < 16; x++) {
            const bool isInside = x >= 4 && x < 12 && y >= 4 && y < 12;
            ASSERT_EQ(to.At(x, y), isInside ? kBlue : kWhite) << x << ", " << y;
        }
    }
    TestPicture untouched(4, 4, 'w');
    Draw(untouched, from, {10, 10, 20, 20}, untouched.All());
    EXPECT_EQ(untouched.Rows(), TestPicture(4, 4, 'w').Rows());
}

}  // namespace BPrivate
