// Drawing at ratios other than 1.

#include <cmath>
#include <random>

#include "kits/interface/PixelScale.h"
#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

namespace {

constexpr float kScreenRatios[] = {1, 1.25F, 1.5F, 1.75F, 2, 2.5F, 3};

class Dice {
public:
    explicit Dice(uint32 seed) : fRandom(seed) {}
    /// 0 to n - 1.
    int32 Below(int32 n) { return static_cast<int32>(fRandom() % static_cast<uint32>(n)); }
    PixelRect Rect(int32 size) {
        const int32 left = Below(size) - 2;
        const int32 top = Below(size) - 2;
        return {left, top, left + 1 + Below(size), top + 1 + Below(size)};
    }
    float Ratio() { return kScreenRatios[Below(std::size(kScreenRatios))]; }
    Rows Picture(int32 width, int32 height) {
        const std::string letters = "rgbwk.";
        Rows rows(static_cast<std::size_t>(height));
        for (std::string& row : rows) {
            for (int32 x = 0; x < width; x++)
                row += letters[static_cast<std::size_t>(Below(6))];
        }
        return rows;
    }

private:
    std::mt19937 fRandom;
};

PixelBuffer At(TestPicture& picture, float ratio) {
    PixelBuffer buffer = picture.Buffer();
    buffer.ratio = ratio;
    return buffer;
}

/// Draws once as a whole and once through pieces that cover everything; both must be the same.
template <typename Draw>
void ExpectSameInPieces(Dice& dice, float ratio, Draw draw) {
    TestPicture whole(40, 40, 'w');
    draw(At(whole, ratio), whole.All());
    TestPicture pieces(40, 40, 'w');
    const int32 x = dice.Below(41);
    const int32 y = dice.Below(41);
    for (const PixelRect piece : {PixelRect{0, 0, x, y}, PixelRect{x, 0, 40, y},
             PixelRect{0, y, x, 40}, PixelRect{x, y, 40, 40}})
        draw(At(pieces, ratio), piece);
    ASSERT_EQ(whole.Rows(), pieces.Rows()) << ratio << " cut at " << x << ", " << y;
}

}  // namespace

TEST(PainterScale, APixelOfAPictureFillsItsUnit) {
    Dice dice(1);
    for (int round = 0; round < 500; round++) {
        const float ratio = dice.Ratio();
        const PixelScale scale(ratio);
        TestPicture from(dice.Picture(6, 5));
        const PixelRect source = dice.Rect(6);
        const int32 left = dice.Below(14) - 3;
        const int32 top = dice.Below(14) - 3;
        const PixelRect destination{left, top, left + source.Width(), top + source.Height()};
        TestPicture fast(40, 40, 'w');
        Painter::DrawPixels(
            At(fast, ratio), fast.All(), {from.Buffer()}, source, destination, B_OP_COPY);

        TestPicture slow(40, 40, 'w');
        for (int32 y = 0; y < source.Height(); y++) {
            for (int32 x = 0; x < source.Width(); x++) {
                const int32 fromX = source.left + x;
                const int32 fromY = source.top + y;
                if (!from.All().Contains({fromX, fromY, fromX + 1, fromY + 1}))
                    continue;
                const PixelRect unit{left + x, top + y, left + x + 1, top + y + 1};
                Painter::FillRect(
                    slow.Buffer(), slow.All(), scale.ToPixels(unit), {from.At(fromX, fromY)});
            }
        }
        ASSERT_EQ(fast.Rows(), slow.Rows()) << ratio;
    }
}

TEST(PainterScale, ScaledPicturesUseEveryPixel) {
    // Twice the units at twice the ratio: a source of four times the size is drawn unscaled.
    Dice dice(2);
    TestPicture from(dice.Picture(24, 24));
    TestPicture to(24, 24, 'w');
    Painter::DrawPixels(
        At(to, 2), to.All(), {from.Buffer()}, from.All(), {0, 0, 12, 12}, B_OP_COPY);
    EXPECT_EQ(to.Rows(), from.Rows());
}

TEST(PainterScale, PicturesAreTheSameInPieces) {
    Dice dice(3);
    for (int round = 0; round < 500; round++) {
        const float ratio = dice.Ratio();
        TestPicture from(dice.Picture(9, 9));
        const PixelRect source = dice.Rect(9);
        const PixelRect destination = dice.Rect(20);
        ExpectSameInPieces(dice, ratio, [&](const PixelBuffer& to, PixelRect clip) {
            Painter::DrawPixels(to, clip, {from.Buffer()}, source, destination, B_OP_OVER);
        });
    }
}

TEST(PainterScale, LinesAlongAnAxisFillTheirUnits) {
    Dice dice(4);
    for (int round = 0; round < 500; round++) {
        const float ratio = dice.Ratio();
        const PixelRect units = dice.Rect(14);
        const bool upright = dice.Below(2) == 0;
        const PixelRect line = upright
            ? PixelRect{units.left, units.top, units.left + 1, units.bottom}
            : PixelRect{units.left, units.top, units.right, units.top + 1};
        TestPicture drawn(40, 40, 'w');
        const BRect ends = line.ToRect();
        Painter::DrawLine(
            At(drawn, ratio), drawn.All(), ends.RightBottom(), ends.LeftTop(), {kRed});
        TestPicture filled(40, 40, 'w');
        Painter::FillRect(
            At(filled, ratio), filled.All(), PixelScale(ratio).ToPixels(line), {kRed});
        ASSERT_EQ(drawn.Rows(), filled.Rows()) << ratio;
    }
}

TEST(PainterScale, LinesAreTheSameInPiecesAndBlendedOnce) {
    Dice dice(5);
    const auto coordinate = [&] { return static_cast<float>(dice.Below(400)) / 10 - 5; };
    for (int round = 0; round < 500; round++) {
        const float ratio = dice.Ratio();
        const BPoint from(coordinate(), coordinate());
        const BPoint end(coordinate(), coordinate());
        ExpectSameInPieces(dice, ratio, [&](const PixelBuffer& to, PixelRect clip) {
            Painter::DrawLine(to, clip, from, end, {kRed});
        });
        TestPicture veiled(40, 40, 'w');
        const Paint veil{{0, 0, 0, 128}, kWhite, B_OP_ALPHA, B_SOLID_HIGH};
        Painter::DrawLine(At(veiled, ratio), veiled.All(), from, end, veil);
        for (int32 y = 0; y < 40; y++) {
            for (int32 x = 0; x < 40; x++) {
                const rgb_color found = veiled.At(x, y);
                ASSERT_TRUE(found == kWhite || found.red == 127) << ratio;
            }
        }
    }
}

TEST(PainterScale, SlantedLinesAreUnbrokenAndFine) {
    TestPicture picture(8, 8, '.');
    Painter::DrawLine(At(picture, 2), picture.All(), {0, 0}, {3, 1}, {kRed});
    EXPECT_EQ(picture.Rows(),
        (Rows{"rr......", "rrrrr...", "..rrrrrr", ".....rrr", "........", "........", "........",
            "........"}));
    // Nothing is thinner than a pixel.
    TestPicture small(4, 4, '.');
    Painter::DrawLine(At(small, 0.5F), small.All(), {0, 1}, {7, 1}, {kRed});
    EXPECT_EQ(small.Rows(), (Rows{"....", "rrrr", "....", "...."}));
}

TEST(PainterScale, PatternsGrowWithTheUnits) {
    TestPicture picture(6, 4, 'w');
    const Paint mixed{kRed, kBlue, B_OP_COPY, B_MIXED_COLORS};
    Painter::FillRect(At(picture, 2), picture.All(), picture.All(), mixed);
    EXPECT_EQ(picture.Rows(), (Rows{"rrbbrr", "rrbbrr", "bbrrbb", "bbrrbb"}));
}

TEST(PainterScale, FarAwayIsSafe) {
    TestPicture from({"rg"});
    TestPicture to(4, 2, '.');
    const PixelRect huge{-kPixelLimit, 0, kPixelLimit, 1};
    Painter::DrawPixels(At(to, 2), to.All(), {from.Buffer()}, from.All(), huge, B_OP_COPY);
    EXPECT_EQ(to.Rows(), (Rows{"gggg", "gggg"}));
    Painter::DrawLine(At(to, 16), to.All(), {-1e30F, -1e30F}, {1e30F, 1e30F}, {kBlue});
    EXPECT_EQ(to.Rows(), (Rows{"bbbb", "bbbb"}));
}

}  // namespace BPrivate
