#include <limits>

#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

TEST(Painter, FillStaysInsideClipAndBuffer) {
    TestPicture picture(6, 4, '.');
    Painter::FillRect(picture.Buffer(), {1, 1, 100, 3}, {-50, -50, 4, 50}, {kRed});
    EXPECT_EQ(picture.Rows(), (Rows{"......", ".rrr..", ".rrr..", "......"}));
    Painter::FillRect(picture.Buffer(), picture.All(), {2, 2, 2, 9}, {kBlue});
    Painter::FillRect(picture.Buffer(), {}, {0, 0, 9, 9}, {kBlue});
    EXPECT_EQ(picture.Rows(), (Rows{"......", ".rrr..", ".rrr..", "......"}));
}

TEST(Painter, CopyKeepsTheColoursAlpha) {
    TestPicture picture(1, 1, 'w');
    const rgb_color veil{0, 0, 0, 127};
    Painter::FillRect(picture.Buffer(), picture.All(), picture.All(), {veil});
    EXPECT_EQ(picture.At(0, 0), veil);
}

TEST(Painter, Blend) {
    const struct {
        rgb_color over;
        rgb_color under;
        rgb_color result;
    } table[] = {
        {{10, 20, 30, 255}, {1, 2, 3, 255}, {10, 20, 30, 255}},
        {{10, 20, 30, 0}, {1, 2, 3, 255}, {1, 2, 3, 255}},
        {{0, 0, 0, 127}, {255, 255, 255, 255}, {128, 128, 128, 255}},
        {{255, 255, 255, 128}, {0, 0, 0, 255}, {128, 128, 128, 255}},
        {{255, 0, 0, 51}, {0, 255, 0, 255}, {51, 204, 0, 255}},
        // Over something that lets through itself the alphas add up.
        {{255, 255, 255, 255}, {0, 0, 0, 127}, {255, 255, 255, 255}},
        {{200, 100, 50, 128}, {0, 0, 0, 0}, {200, 100, 50, 128}},
        {{255, 255, 255, 128}, {0, 0, 0, 128}, {170, 170, 170, 192}},
    };
    for (const auto& row : table)
        EXPECT_EQ(Painter::Blend(row.over, row.under), row.result)
            << int(row.over.alpha) << " over " << int(row.under.alpha);
}

// Every blend over an opaque pixel is the exact one, rounded.
TEST(Painter, BlendIsExact) {
    for (int alpha = 0; alpha < 256; alpha++) {
        for (int over = 0; over < 256; over += 5) {
            for (int under = 0; under < 256; under += 3) {
                const auto a = static_cast<uint8>(alpha);
                const auto result = Painter::Blend(
                    {static_cast<uint8>(over), 0, 0, a}, {static_cast<uint8>(under), 0, 0, 255});
                const double exact = (over * alpha + under * (255 - alpha)) / 255.0;
                ASSERT_NEAR(result.red, exact, 0.51) << over << " " << alpha << " " << under;
                ASSERT_EQ(result.alpha, 255);
            }
        }
    }
}

TEST(Painter, Modes) {
    const rgb_color half{0, 0, 0, 128};
    const struct {
        drawing_mode mode;
        rgb_color high;
        rgb_color result;
    } table[] = {
        {B_OP_COPY, half, half},
        {B_OP_OVER, half, half},
        {B_OP_ALPHA, half, {127, 127, 127, 255}},
        {B_OP_ALPHA, kRed, kRed},
        {B_OP_ALPHA, kClear, kWhite},
    };
    for (const auto& row : table) {
        TestPicture picture(3, 1, 'w');
        Painter::FillRect(
            picture.Buffer(), picture.All(), {1, 0, 2, 1}, {row.high, kWhite, row.mode});
        EXPECT_EQ(picture.At(1, 0), row.result);
        EXPECT_EQ(picture.At(0, 0), kWhite);
        EXPECT_EQ(picture.At(2, 0), kWhite);
    }
}

TEST(Painter, Patterns) {
    TestPicture picture(4, 2, 'w');
    const Paint mixed{kRed, kBlue, B_OP_COPY, B_MIXED_COLORS};
    Painter::FillRect(picture.Buffer(), picture.All(), picture.All(), mixed);
    EXPECT_EQ(picture.Rows(), (Rows{"rbrb", "brbr"}));

    TestPicture over(4, 2, 'w');
    Painter::FillRect(
        over.Buffer(), over.All(), over.All(), {kRed, kBlue, B_OP_OVER, B_MIXED_COLORS});
    EXPECT_EQ(over.Rows(), (Rows{"rwrw", "wrwr"}));

    Painter::FillRect(
        over.Buffer(), over.All(), over.All(), {kRed, kGreen, B_OP_COPY, B_SOLID_LOW});
    EXPECT_EQ(over.Rows(), (Rows{"gggg", "gggg"}));
}

TEST(Painter, Invert) {
    TestPicture picture({"wkr."});
    Painter::InvertRect(picture.Buffer(), picture.All(), {0, 0, 9, 9});
    EXPECT_EQ(picture.At(0, 0), kBlack);
    EXPECT_EQ(picture.At(1, 0), kWhite);
    EXPECT_EQ(picture.At(2, 0), (rgb_color{0, 255, 255, 255}));
    EXPECT_EQ(picture.At(3, 0), (rgb_color{255, 255, 255, 0}));
}

TEST(Painter, Lines) {
    const struct {
        BPoint from;
        BPoint to;
        Rows rows;
    } table[] = {
        {{0, 0}, {3, 0}, {"rrrr", "....", "....", "...."}},
        {{2, 3}, {2, 1}, {"....", "..r.", "..r.", "..r."}},
        {{0, 0}, {3, 3}, {"r...", ".r..", "..r.", "...r"}},
        {{0, 3}, {3, 0}, {"...r", "..r.", ".r..", "r..."}},
        {{1, 1}, {1, 1}, {"....", ".r..", "....", "...."}},
        {{1.9F, 1.9F}, {2.9F, 1.2F}, {"....", ".rr.", "....", "...."}},
        {{-1000000, 2}, {1e30F, 2}, {"....", "....", "rrrr", "...."}},
        {{-5, -5}, {-1, -1}, {"....", "....", "....", "...."}},
        {{std::numeric_limits<float>::quiet_NaN(), 0}, {3, 3}, {"....", "....", "....", "...."}},
        {{0, 0}, {std::numeric_limits<float>::infinity(), 3}, {"....", "....", "....", "...."}},
    };
    for (const auto& row : table) {
        TestPicture picture(4, 4, '.');
        Painter::DrawLine(picture.Buffer(), picture.All(), row.from, row.to, {kRed});
        EXPECT_EQ(picture.Rows(), row.rows);
    }
}

TEST(Painter, NothingToDrawOn) {
    const PixelBuffer nothing{nullptr, 40, 10, 10};
    TestPicture picture(2, 2, 'r');
    Painter::FillRect(nothing, {0, 0, 9, 9}, {0, 0, 9, 9}, {kRed});
    Painter::DrawLine(nothing, {0, 0, 9, 9}, {0, 0}, {9, 9}, {kRed});
    Painter::InvertRect(nothing, {0, 0, 9, 9}, {0, 0, 9, 9});
    Painter::DrawPixels(
        nothing, {0, 0, 9, 9}, {picture.Buffer()}, picture.All(), picture.All(), B_OP_COPY);
    Painter::DrawPixels(
        picture.Buffer(), picture.All(), {nothing}, {0, 0, 2, 2}, picture.All(), B_OP_COPY);
    EXPECT_EQ(picture.Rows(), (Rows{"rr", "rr"}));
}

}  // namespace BPrivate
