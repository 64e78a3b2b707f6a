// Pictures at other sizes, smoothly, against the same worked out slowly.

#include "kits/interface/SmoothSampling.h"

#include <chrono>
#include <cmath>
#include <random>

#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

namespace {

/// A picture of noise. Of the kinds 'o' all is opaque, 'a' each pixel has an alpha of its own, 'h'
/// half of the pixels are opaque, in pieces.
struct Noise {
    Noise(int32 across, int32 down, char kind, uint32 seed = 1) : width(across), height(down) {
        std::mt19937 random(seed);
        for (int32 i = 0; i < width * height; i++) {
            Pixel pixel = random();
            if (kind == 'o' || (kind == 'h' && (i / 37) % 2 == 0))
                pixel |= kOpaque;
            pixels.push_back(pixel);
        }
    }
    PixelSource Source(color_space space = B_RGBA32) {
        auto* bits = reinterpret_cast<uint8*>(pixels.data());
        const int32 size = space == B_GRAY8 ? 1 : 4;
        return {{bits, 4 * width, width * 4 / size, height}, space};
    }
    PixelRect All() const { return {0, 0, width, height}; }

    int32 width;
    int32 height;
    std::vector<Pixel> pixels;
};

struct Share {
    int32 at;
    double share;
};

/// How much of which pixels of the source there is in one of the destination.
std::vector<Share> SharesOf(int32 size, double start, double extent, int32 at) {
    const double step = size / extent;
    const bool isMean = extent < size;
    double from = (at - start) * step;
    double to = (at + 1 - start) * step;
    if (!isMean) {
        // As wide as a pixel, around the same middle.
        const double middle = std::clamp((from + to) / 2, 0.5, size - 0.5);
        from = middle - 0.5;
        to = middle + 0.5;
    }
    from = std::max(from, 0.0);
    to = std::min(to, static_cast<double>(size));
    std::vector<Share> shares;
    for (auto i = static_cast<int32>(from); i < to; i++) {
        const double covered = std::min(to, i + 1.0) - std::max(from, static_cast<double>(i));
        shares.push_back({i, covered / (to - from)});
    }
    return shares;
}

/// Four channels as they would be without rounding; -1 for colours that nobody sees.
std::array<double, 4> Expected(
    const PixelSource& from, PixelRect source, const SmoothFrame& frame, int32 x, int32 y) {
    const auto columns = SharesOf(source.Width(), frame.left, frame.width, x);
    const auto rows = SharesOf(source.Height(), frame.top, frame.height, y);
    std::array<double, 4> sums{};
    for (const Share& down : rows) {
        const uint8* row = from.buffer.bits +
            static_cast<std::ptrdiff_t>(source.top + down.at) * from.buffer.bytesPerRow;
        for (const Share& across : columns) {
            const int32 at = source.left + across.at;
            const rgb_color color = ToColor(from.space == B_GRAY8 ? ReadGray8::At(row, at)
                    : from.space == B_RGB32                       ? ReadRgb32::At(row, at)
                                                                  : ReadRgba32::At(row, at));
            const double alpha = down.share * across.share * color.alpha;
            sums[0] += alpha * color.blue;
            sums[1] += alpha * color.green;
            sums[2] += alpha * color.red;
            sums[3] += alpha;
        }
    }
    for (std::size_t channel = 0; channel < 3; channel++)
        sums[channel] = sums[3] < 0.5 ? -1 : sums[channel] / sums[3];
    return sums;
}

std::vector<Pixel> Sampled(
    const PixelSource& from, PixelRect source, const SmoothFrame& frame, PixelRect clip) {
    std::vector<Pixel> result;
    SampleSmoothly(from, source, frame, clip, [&](int32 y, const uint8* pixels) {
        EXPECT_EQ(static_cast<std::size_t>(y - clip.top) * static_cast<std::size_t>(clip.Width()),
            result.size());
        for (int32 x = 0; x < clip.Width(); x++)
            result.push_back(ReadRgba32::At(pixels, x));
    });
    return result;
}

void ExpectRight(
    const PixelSource& from, PixelRect source, const SmoothFrame& frame, PixelRect clip) {
    const std::vector<Pixel> result = Sampled(from, source, frame, clip);
    const auto width = static_cast<std::size_t>(clip.Width());
    ASSERT_EQ(result.size(), width * static_cast<std::size_t>(clip.Height()));
    for (std::size_t i = 0; i < result.size(); i++) {
        const auto x = clip.left + static_cast<int32>(i % width);
        const auto y = clip.top + static_cast<int32>(i / width);
        const std::array<double, 4> wanted = Expected(from, source, frame, x, y);
        for (std::size_t channel = 0; channel < 4; channel++) {
            const double found = (result[i] >> (8 * channel)) & 255;
            if (wanted[channel] >= 0) {
                ASSERT_NEAR(found, wanted[channel], 0.51)
                    << x << ", " << y << " channel " << channel << " at " << frame.width << " x "
                    << frame.height;
            }
        }
    }
}

PixelRect Whole(const SmoothFrame& frame) {
    return {static_cast<int32>(std::floor(frame.left)), static_cast<int32>(std::floor(frame.top)),
        static_cast<int32>(std::ceil(frame.left + frame.width)),
        static_cast<int32>(std::ceil(frame.top + frame.height))};
}

constexpr SmoothFrame kFrames[] = {
    {0, 0, 23, 17},          // as it is
    {5, -3, 23, 17},         // elsewhere
    {0, 0, 11.5, 8.5},       // the half
    {0, 0, 7, 5},            // smaller, not evenly
    {0.25, 0.75, 9.5, 6},    // between pixels
    {0, 0, 1, 1},            // one pixel
    {0, 0, 0.2, 0.3},        // less than one
    {-2, 4, 46, 34},         // twice as large
    {0.5, 0.5, 61.3, 40.1},  // larger, not evenly
    {3, 0, 50, 4},           // one way and the other
    {0, 3, 4, 50},
    {0, 0, 23, 5},  // one way alone
    {0, 0, 9, 17},
};

}  // namespace

TEST(SmoothSampling, OfEveryKindAtEverySize) {
    for (const char kind : {'o', 'a', 'h'}) {
        Noise picture(23, 17, kind);
        for (const SmoothFrame& frame : kFrames)
            ExpectRight(picture.Source(), picture.All(), frame, Whole(frame));
    }
}

TEST(SmoothSampling, OfOtherColourSpaces) {
    Noise picture(23, 17, 'a');
    for (const color_space space : {B_RGB32, B_GRAY8}) {
        for (const SmoothFrame& frame : kFrames)
            ExpectRight(picture.Source(space), picture.All(), frame, Whole(frame));
    }
}

TEST(SmoothSampling, WideOnesAreMadeInPieces) {
    for (const char kind : {'o', 'h'}) {
        Noise picture(5000, 3, kind);
        for (const SmoothFrame& frame :
            {SmoothFrame{0, 0, 700, 2}, SmoothFrame{0, 0, 4999, 7}, SmoothFrame{0, 0, 2, 3}})
            ExpectRight(picture.Source(), picture.All(), frame, Whole(frame));
    }
}

TEST(SmoothSampling, AtItsOwnSizeNothingChanges) {
    Noise picture(40, 30, 'a');
    const auto all = Sampled(picture.Source(), picture.All(), {7, 9, 40, 30}, {7, 9, 47, 39});
    ASSERT_EQ(all.size(), picture.pixels.size());
    for (std::size_t i = 0; i < all.size(); i++) {
        if ((picture.pixels[i] >> 24) != 0) {
            ASSERT_EQ(all[i], picture.pixels[i]);
        }
    }
}

TEST(SmoothSampling, OneColourStaysThatColour) {
    for (const Pixel color : {0xffffffffU, 0xff000000U, 0xff0180feU, 0x80ff40c0U, 0x01ff0102U}) {
        Noise picture(31, 29, 'o');
        std::ranges::fill(picture.pixels, color);
        for (const SmoothFrame& frame : kFrames) {
            for (const Pixel pixel : Sampled(picture.Source(), picture.All(), frame, Whole(frame)))
                ASSERT_EQ(pixel, color) << frame.width << " x " << frame.height;
        }
    }
}

TEST(SmoothSampling, TransparentColoursCountForNothing) {
    Noise picture(2, 2, 'o');
    picture.pixels = {0x00ffffff, 0xff102030, 0x00ffffff, 0xff102030};
    const auto pixels = Sampled(picture.Source(), picture.All(), {0, 0, 1, 1}, {0, 0, 1, 1});
    EXPECT_EQ(pixels, std::vector<Pixel>{0x80102030});
}

TEST(SmoothSampling, NothingOutsideOfThePartIsSeen) {
    Noise picture(30, 20, 'o');
    for (int32 y = 0; y < 20; y++) {
        for (int32 x = 0; x < 30; x++) {
            const bool isInside = x >= 10 && x < 22 && y >= 5 && y < 14;
            picture.pixels[static_cast<std::size_t>(30 * y + x)] = isInside ? kOpaque : 0xffffffff;
        }
    }
    for (const SmoothFrame& frame : kFrames) {
        for (const Pixel pixel : Sampled(picture.Source(), {10, 5, 22, 14}, frame, Whole(frame)))
            ASSERT_EQ(pixel, kOpaque) << frame.width << " x " << frame.height;
        ExpectRight(picture.Source(), {10, 5, 22, 14}, frame, Whole(frame));
    }
}

TEST(SmoothSampling, InPartsItIsTheSame) {
    std::mt19937 random(5);
    const auto below = [&](int32 n) { return static_cast<int32>(random() % uint32(n)); };
    for (int32 round = 0; round < 60; round++) {
        const char kind = "oah"[round % 3];
        Noise picture(1 + below(2500), 1 + below(20), kind, random());
        const SmoothFrame frame{
            below(100) / 10.0, below(100) / 10.0, 1 + below(30000) / 10.0, 1 + below(400) / 10.0};
        const PixelRect all = Whole(frame);
        const std::vector<Pixel> whole = Sampled(picture.Source(), picture.All(), frame, all);
        for (int32 part = 0; part < 5; part++) {
            const int32 left = all.left + below(all.Width());
            const int32 top = all.top + below(all.Height());
            const PixelRect clip{
                left, top, left + 1 + below(all.right - left), top + 1 + below(all.bottom - top)};
            const std::vector<Pixel> seen = Sampled(picture.Source(), picture.All(), frame, clip);
            for (int32 y = clip.top; y < clip.bottom; y++) {
                for (int32 x = clip.left; x < clip.right; x++) {
                    const auto inWhole =
                        static_cast<std::size_t>((y - all.top) * all.Width() + x - all.left);
                    const auto inPart =
                        static_cast<std::size_t>((y - clip.top) * clip.Width() + x - clip.left);
                    ASSERT_EQ(seen[inPart], whole[inWhole]) << round << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(SmoothSampling, FarBeyondTheScreen) {
    // Ten rows as high as a window: 2.7 million pixels wide, of which a window's width is seen.
    Noise strip(30000, 10, 'o');
    const SmoothFrame frame{-1350000, 0, 2.7e6, 900};
    ExpectRight(strip.Source(), strip.All(), frame, {0, 0, 3, 900});
    ExpectRight(strip.Source(), strip.All(), frame, {990, 450, 1000, 460});
    const SmoothFrame vast{-1e9, -1e9, 2e9 + 7, 2e9 + 5};
    ExpectRight(strip.Source(), strip.All(), vast, {0, 0, 4, 4});
}

TEST(SmoothSampling, WorksOnWhatIsSeenAlone) {
    // In any other order of work, or without the clip, this takes minutes.
    Noise strip(30000, 10, 'a');
    Noise pole(10, 30000, 'a');
    const auto start = std::chrono::steady_clock::now();
    for (int32 i = 0; i < 20; i++) {
        EXPECT_EQ(
            Sampled(strip.Source(), strip.All(), {-1e6, 0, 2.7e6, 900}, {0, 0, 300, 900}).size(),
            300U * 900);
        EXPECT_EQ(
            Sampled(pole.Source(), pole.All(), {0, -1e6, 900, 2.7e6}, {0, 0, 900, 300}).size(),
            300U * 900);
        EXPECT_EQ(
            Sampled(pole.Source(), pole.All(), {0, 0, 1000, 900}, {0, 0, 1000, 10}).size(), 10000U);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(SmoothSampling, NothingOfNothing) {
    Noise picture(4, 4, 'o');
    EXPECT_TRUE(Sampled(picture.Source(), picture.All(), {0, 0, 4, 4}, {2, 2, 2, 4}).empty());
    EXPECT_TRUE(Sampled(picture.Source(), {2, 2, 2, 3}, {0, 0, 4, 4}, {0, 0, 4, 4}).empty());
    EXPECT_TRUE(Sampled(picture.Source(), picture.All(), {0, 0, 0, 4}, {0, 0, 4, 4}).empty());
    EXPECT_TRUE(Sampled(picture.Source(), picture.All(), {0, 0, 4, NAN}, {0, 0, 4, 4}).empty());
}

}  // namespace BPrivate
