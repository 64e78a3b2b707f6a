#include <cmath>
#include <random>

#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

namespace {

/// What DrawPixels() promises, one pixel at a time.
void DrawSlowly(
    TestPicture& to, PixelRect clip, TestPicture& from, PixelRect source, PixelRect destination) {
    const PixelBuffer target = to.Buffer();
    const PixelBuffer picture = from.Buffer();
    const auto nearest = [](int32 at, int32 start, int32 count, int32 first, int32 size) {
        const double middle = (at - start + 0.5) * size / count;
        return first + static_cast<int32>(std::floor(middle));
    };
    const PixelRect area = to.All() & clip & destination;
    for (int32 y = area.top; y < area.bottom; y++) {
        for (int32 x = area.left; x < area.right; x++) {
            const int32 fromX =
                nearest(x, destination.left, destination.Width(), source.left, source.Width());
            const int32 fromY =
                nearest(y, destination.top, destination.Height(), source.top, source.Height());
            const bool outside =
                fromX < 0 || fromY < 0 || fromX >= picture.width || fromY >= picture.height;
            if (!outside)
                std::memcpy(target.bits + y * target.bytesPerRow + 4 * x,
                    picture.bits + fromY * picture.bytesPerRow + 4 * fromX, 4);
        }
    }
}

}  // namespace

TEST(DrawPixels, OneToOne) {
    TestPicture from({"rgb", "bwr"});
    const struct {
        PixelRect source;
        PixelRect destination;
        Rows rows;
    } table[] = {
        {{0, 0, 3, 2}, {1, 1, 4, 3}, {"....", ".rgb", ".bwr"}},
        {{0, 0, 3, 2}, {-1, -1, 2, 1}, {"wr..", "....", "...."}},
        {{1, 1, 3, 2}, {0, 2, 2, 3}, {"....", "....", "wr.."}},
        // A source larger than the picture: the rest draws nothing.
        {{0, 0, 4, 4}, {0, 0, 4, 4}, {"rgb.", "bwr.", "...."}},
        {{-1, 0, 3, 2}, {0, 0, 4, 2}, {".rgb", ".bwr", "...."}},
        {{5, 5, 7, 7}, {0, 0, 2, 2}, {"....", "....", "...."}},
        {{0, 0, 3, 2}, {50, 50, 53, 52}, {"....", "....", "...."}},
        {{0, 0, 0, 2}, {0, 0, 3, 2}, {"....", "....", "...."}},
    };
    for (const auto& row : table) {
        TestPicture to(4, 3, '.');
        Painter::DrawPixels(
            to.Buffer(), to.All(), {from.Buffer()}, row.source, row.destination, B_OP_COPY);
        EXPECT_EQ(to.Rows(), row.rows);
    }
}

TEST(DrawPixels, Enlarged) {
    TestPicture from({"rg", "bw"});
    TestPicture to(4, 4, '.');
    Painter::DrawPixels(
        to.Buffer(), to.All(), {from.Buffer()}, from.All(), {0, 0, 4, 4}, B_OP_COPY);
    EXPECT_EQ(to.Rows(), (Rows{"rrgg", "rrgg", "bbww", "bbww"}));
}

TEST(DrawPixels, Reduced) {
    TestPicture from({"rrggbb", "rrggbb", "wwkkrr", "wwkkrr"});
    TestPicture to(3, 2, '.');
    Painter::DrawPixels(
        to.Buffer(), to.All(), {from.Buffer()}, from.All(), {0, 0, 3, 2}, B_OP_COPY);
    EXPECT_EQ(to.Rows(), (Rows{"rgb", "wkr"}));
}

TEST(DrawPixels, NearestForAnySizes) {
    std::mt19937 random(11);
    const auto below = [&](int32 n) {
        return static_cast<int32>(random() % static_cast<uint32>(n));
    };
    const std::string letters = "rgbwk.";
    for (int round = 0; round < 2000; round++) {
        Rows rows(static_cast<std::size_t>(1 + below(9)));
        const auto width = static_cast<std::size_t>(1 + below(9));
        for (std::string& row : rows) {
            for (std::size_t x = 0; x < width; x++)
                row += letters[static_cast<std::size_t>(below(6))];
        }
        TestPicture from(rows);
        const int32 left = below(8) - 3;
        const int32 top = below(8) - 3;
        const PixelRect source{left, top, left + 1 + below(12), top + 1 + below(12)};
        const int32 toLeft = below(12) - 5;
        const int32 toTop = below(12) - 5;
        const PixelRect destination{toLeft, toTop, toLeft + 1 + below(20), toTop + 1 + below(20)};
        const PixelRect clip{below(4), below(4), 6 + below(8), 6 + below(8)};
        TestPicture fast(10, 10, 'k');
        TestPicture slow(10, 10, 'k');
        Painter::DrawPixels(fast.Buffer(), clip, {from.Buffer()}, source, destination, B_OP_COPY);
        DrawSlowly(slow, clip, from, source, destination);
        ASSERT_EQ(fast.Rows(), slow.Rows());
    }
}

TEST(DrawPixels, HugeSizes) {
    TestPicture from({"rg"});
    TestPicture to(2, 1, '.');
    const PixelRect huge{-kPixelLimit, 0, kPixelLimit, 1};
    Painter::DrawPixels(to.Buffer(), to.All(), {from.Buffer()}, from.All(), huge, B_OP_COPY);
    EXPECT_EQ(to.Rows(), (Rows{"gg"}));
    Painter::DrawPixels(to.Buffer(), to.All(), {from.Buffer()}, huge, to.All(), B_OP_COPY);
    EXPECT_EQ(to.Rows(), (Rows{"gg"}));
}

TEST(DrawPixels, ModesAndSpaces) {
    const rgb_color half{200, 100, 0, 128};
    const Pixel pixels[] = {ToPixel(half), ToPixel({9, 9, 9, 0})};
    const uint8 grays[] = {0, 77};
    auto* bits = reinterpret_cast<uint8*>(const_cast<Pixel*>(pixels));
    const PixelSource rgba{{bits, 8, 2, 1}, B_RGBA32};
    const PixelSource rgb{{bits, 8, 2, 1}, B_RGB32};
    const PixelSource gray{{const_cast<uint8*>(grays), 2, 2, 1}, B_GRAY8};
    const rgb_color opaque{200, 100, 0, 255};
    const struct {
        PixelSource source;
        drawing_mode mode;
        rgb_color first;
        rgb_color second;
    } table[] = {
        {rgba, B_OP_COPY, half, {9, 9, 9, 0}},
        {rgba, B_OP_OVER, half, kWhite},
        {rgba, B_OP_ALPHA, {227, 177, 127, 255}, kWhite},
        {rgb, B_OP_COPY, opaque, {9, 9, 9, 255}},
        {rgb, B_OP_OVER, opaque, {9, 9, 9, 255}},
        {rgb, B_OP_ALPHA, opaque, {9, 9, 9, 255}},
        {gray, B_OP_COPY, kBlack, {77, 77, 77, 255}},
        {gray, B_OP_ALPHA, kBlack, {77, 77, 77, 255}},
    };
    for (const auto& row : table) {
        TestPicture same(2, 1, 'w');
        Painter::DrawPixels(
            same.Buffer(), same.All(), row.source, {0, 0, 2, 1}, {0, 0, 2, 1}, row.mode);
        EXPECT_EQ(same.At(0, 0), row.first);
        EXPECT_EQ(same.At(1, 0), row.second);
        TestPicture larger(4, 2, 'w');
        Painter::DrawPixels(
            larger.Buffer(), larger.All(), row.source, {0, 0, 2, 1}, {0, 0, 4, 2}, row.mode);
        EXPECT_EQ(larger.At(1, 1), row.first);
        EXPECT_EQ(larger.At(2, 0), row.second);
    }
}

/// A channel of `over` drawn on `under` by their alphas, rounded to the nearest, in floating point.
int BlendedChannel(int over, int overAlpha, int under, int underAlpha) {
    const double upper = overAlpha / 255.0;
    const double lower = underAlpha / 255.0 * (1 - upper);
    return upper + lower == 0
        ? under
        : static_cast<int>(std::lround((over * upper + under * lower) / (upper + lower)));
}

// Every alpha and every colour, on rows of which some are opaque throughout.
TEST(DrawPixels, AlphaIsExact) {
    constexpr int kWidth = 256;
    for (const int translucent : {-1, 0, 70, 255}) {
        std::vector<Pixel> from, to;
        for (int alpha = 0; alpha < 256; alpha++) {
            for (int x = 0; x < kWidth; x++) {
                const auto color = static_cast<uint8>(x);
                const auto other = static_cast<uint8>(3 * x + 7 * alpha);
                from.push_back(ToPixel(
                    {color, other, static_cast<uint8>(255 - x), static_cast<uint8>(alpha)}));
                to.push_back(ToPixel({static_cast<uint8>(255 - color), color, other,
                    static_cast<uint8>(x == translucent ? 100 : 255)}));
            }
        }
        const std::vector<Pixel> before = to;
        const auto buffer = [](std::vector<Pixel>& pixels) {
            return PixelBuffer{reinterpret_cast<uint8*>(pixels.data()), 4 * kWidth, kWidth, 256};
        };
        const PixelRect all{0, 0, kWidth, 256};
        Painter::DrawPixels(buffer(to), all, {buffer(from), B_RGBA32}, all, all, B_OP_ALPHA);
        int wrong = 0;
        for (std::size_t i = 0; i < to.size(); i++) {
            const rgb_color over = ToColor(from[i]);
            const rgb_color under = ToColor(before[i]);
            const rgb_color got = ToColor(to[i]);
            const auto blended = [&](int a, int b) {
                return BlendedChannel(a, over.alpha, b, under.alpha);
            };
            const int alpha = static_cast<int>(
                std::lround(over.alpha + under.alpha * (255 - over.alpha) / 255.0));
            wrong += got.red != blended(over.red, under.red) ||
                got.green != blended(over.green, under.green) ||
                got.blue != blended(over.blue, under.blue) || got.alpha != alpha;
        }
        EXPECT_EQ(wrong, 0) << translucent;
    }
}

}  // namespace BPrivate
