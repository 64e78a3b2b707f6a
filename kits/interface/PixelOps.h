#pragma once

// What is done to single pixels, for the painter's loops. A pixel is a number of B, G, R, A bytes,
// the lowest first.

#include <bit>
#include <cstring>
#include <interface/GraphicsDefs.h>

namespace BPrivate {

static_assert(std::endian::native == std::endian::little);

using Pixel = uint32;

constexpr Pixel kOpaque = 0xff000000;

constexpr Pixel ToPixel(rgb_color c) {
    return (Pixel{c.alpha} << 24) | (Pixel{c.red} << 16) | (Pixel{c.green} << 8) | c.blue;
}

constexpr rgb_color ToColor(Pixel p) {
    return {static_cast<uint8>(p >> 16), static_cast<uint8>(p >> 8), static_cast<uint8>(p),
        static_cast<uint8>(p >> 24)};
}

/// `over` drawn on `under` by its alpha; both not premultiplied.
inline Pixel BlendPixel(Pixel over, Pixel under) {
    const uint32 alpha = over >> 24;
    if (alpha == 255)
        return over;
    if (alpha == 0)
        return under;
    const uint32 below = under >> 24;
    if (below == 255) {
        // Two channels at once, each in the lower byte of 16 bits. Their sums fit there, and the
        // 257th part of a byte's product, with 128 for the rounding, is its 255th.
        constexpr uint32 kLower = 0x00ff00ff;
        const auto channels = [alpha](uint32 a, uint32 b) {
            const uint32 sums = a * alpha + b * (255 - alpha) + 0x00800080;
            return (sums + ((sums >> 8) & kLower)) >> 8 & kLower;
        };
        return kOpaque | channels(over & kLower, under & kLower) |
            channels((over >> 8) & 255, (under >> 8) & 255) << 8;
    }
    // Weights of both in units of 1 / (255 * 255).
    const uint32 upper = alpha * 255;
    const uint32 lower = below * (255 - alpha);
    const uint32 total = upper + lower;
    const auto channel = [=](uint32 a, uint32 b) {
        return (a * upper + b * lower + total / 2) / total;
    };
    return (((total + 127) / 255) << 24) |
        (channel((over >> 16) & 255, (under >> 16) & 255) << 16) |
        (channel((over >> 8) & 255, (under >> 8) & 255) << 8) | channel(over & 255, under & 255);
}

// Readers: the pixel of a column in a row of some colour space.

struct ReadRgba32 {
    static constexpr int32 kBytes = 4;
    static Pixel At(const uint8* row, int32 x) {
        Pixel p;
        std::memcpy(&p, row + std::ptrdiff_t{4} * x, sizeof(p));
        return p;
    }
};

struct ReadRgb32 {
    static constexpr int32 kBytes = 4;
    static Pixel At(const uint8* row, int32 x) { return ReadRgba32::At(row, x) | kOpaque; }
};

struct ReadGray8 {
    static constexpr int32 kBytes = 1;
    static Pixel At(const uint8* row, int32 x) { return kOpaque | (row[x] * 0x010101U); }
};

// Writers: what a drawing mode makes of a pixel and the one below it.

struct WriteCopy {
    static Pixel Mix(Pixel over, Pixel) { return over; }
};

struct WriteOver {
    static Pixel Mix(Pixel over, Pixel under) { return (over >> 24) == 0 ? under : over; }
};

struct WriteAlpha {
    static Pixel Mix(Pixel over, Pixel under) { return BlendPixel(over, under); }
};

}  // namespace BPrivate
