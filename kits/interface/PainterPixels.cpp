#include "kits/interface/Painter.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "kits/interface/PixelOps.h"
#include "kits/interface/PixelScale.h"
#include "kits/interface/SmoothSampling.h"

namespace BPrivate::Painter {

namespace {

const uint8* RowOf(const PixelBuffer& from, int32 y) {
    return from.bits + static_cast<std::ptrdiff_t>(y) * from.bytesPerRow;
}

uint8* PixelOf(const PixelBuffer& to, int32 x, int32 y) {
    return to.bits + static_cast<std::ptrdiff_t>(y) * to.bytesPerRow + std::ptrdiff_t{4} * x;
}

void Prefetch(const uint8* memory, std::size_t length) {
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t at = 0; at < length; at += kCacheLine)
        __builtin_prefetch(memory + at);
}

template <typename Write>
void Put(uint8* to, Pixel over) {
    Pixel under;
    std::memcpy(&under, to, sizeof(under));
    const Pixel mixed = Write::Mix(over, under);
    std::memcpy(to, &mixed, sizeof(mixed));
}

/// Draws the area, whose pixels lie in the source at an offset of (dx, dy).
template <typename Read, typename Write>
void DrawSameSize(
    const PixelBuffer& to, PixelRect area, const PixelBuffer& from, int32 dx, int32 dy) {
    for (int32 y = area.top; y < area.bottom; y++) {
        const uint8* source = RowOf(from, y + dy);
        uint8* target = PixelOf(to, area.left, y);
        for (int32 x = area.left; x < area.right; x++, target += 4)
            Put<Write>(target, Read::At(source, x + dx));
    }
}

template <>
void DrawSameSize<ReadRgba32, WriteCopy>(
    const PixelBuffer& to, PixelRect area, const PixelBuffer& from, int32 dx, int32 dy) {
    const auto length = 4 * static_cast<std::size_t>(area.Width());
    constexpr int32 kAhead = 12;  // rows, while which memory has the time to answer
    const auto sourceOf = [&](int32 y) {
        return RowOf(from, y + dy) + std::ptrdiff_t{4} * (area.left + dx);
    };
    for (int32 y = area.top; y < area.bottom; y++) {
        // Rows of a large picture lie far apart, where the processor does not expect the next one.
        if (y + kAhead < area.bottom)
            Prefetch(sourceOf(y + kAhead), length);
        std::memcpy(PixelOf(to, area.left, y), sourceOf(y), length);
    }
}

/// Blends a few pixels into others that are all opaque, as a window's are. The loops are such that
/// the compiler turns each into one over many pixels at a time.
void BlendOnOpaque(uint8* target, const uint8* source, std::size_t count, uint8* alphas) {
    for (std::size_t i = 0; i < count; i++) {
        Pixel alpha = ReadRgba32::At(source, static_cast<int32>(i)) >> 24;
        alpha |= alpha << 8;
        alpha |= alpha << 16;
        std::memcpy(alphas + 4 * i, &alpha, sizeof(alpha));
    }
    // As BlendPixel() does it, in which 0 and 255 are no special cases; the sum has 16 bits.
    for (std::size_t i = 0; i < 4 * count; i++) {
        const auto sum =
            static_cast<uint16>(source[i] * alphas[i] + target[i] * (255 - alphas[i]) + 128);
        target[i] = static_cast<uint8>(static_cast<uint16>(sum + (sum >> 8)) >> 8);
    }
    for (std::size_t i = 0; i < count; i++)
        target[4 * i + 3] = 255;
}

bool AreOpaque(const uint8* pixels, std::size_t count) {
    Pixel all = kOpaque;
    for (std::size_t i = 0; i < count; i++)
        all &= ReadRgba32::At(pixels, static_cast<int32>(i));
    return all == kOpaque;
}

template <>
void DrawSameSize<ReadRgba32, WriteAlpha>(
    const PixelBuffer& to, PixelRect area, const PixelBuffer& from, int32 dx, int32 dy) {
    constexpr int32 kAtOnce = 64;
    uint8 alphas[std::size_t{4} * kAtOnce];
    for (int32 y = area.top; y < area.bottom; y++) {
        for (int32 x = area.left; x < area.right; x += kAtOnce) {
            const auto count = static_cast<std::size_t>(std::min(kAtOnce, area.right - x));
            const uint8* source = RowOf(from, y + dy) + std::ptrdiff_t{4} * (x + dx);
            uint8* target = PixelOf(to, x, y);
            if (AreOpaque(target, count)) {
                BlendOnOpaque(target, source, count, alphas);
                continue;
            }
            for (std::size_t i = 0; i < count; i++)
                Put<WriteAlpha>(target + 4 * i, ReadRgba32::At(source, static_cast<int32>(i)));
        }
    }
}

/// One direction of a drawing: `size` positions of the source become `count` units.
struct Stretch {
    int32 sourceStart;
    int32 size;
    int32 start;
    int32 count;

    /// The position nearest to the middle of a unit.
    int64 AtUnit(int32 unit) const {
        // In halves, so that all is whole numbers.
        const int64 middle = 2 * (static_cast<int64>(unit) - start) + 1;
        return sourceStart + middle * size / (2 * static_cast<int64>(count));
    }
    /// The position nearest to the middle of a pixel.
    int64 AtPixel(int32 pixel, const PixelScale& scale) const {
        const int32 unit = scale.UnitAt(pixel);
        if (size == count)
            return static_cast<int64>(sourceStart) + unit - start;
        // Units are not all of one width in pixels; no pixel may reach over its own unit.
        constexpr double last = 1 - 1e-9;
        const double within = std::clamp((pixel + 0.5) / scale.Ratio() - unit, 0.0, last);
        const double along = (static_cast<double>(unit) - start + within) * size / count;
        return sourceStart + static_cast<int64>(along);
    }
};

/// The source's position for each of the pixels from `first` on, or -1 outside of 0 to
/// `limit` - 1.
std::vector<int32> NearestPositions(
    int32 first, int32 last, const Stretch& stretch, int32 limit, const PixelScale& scale) {
    std::vector<int32> positions;
    positions.reserve(static_cast<std::size_t>(last - first));
    for (int32 at = first; at < last; at++) {
        const int64 nearest = scale.IsOne() ? stretch.AtUnit(at) : stretch.AtPixel(at, scale);
        positions.push_back(nearest >= 0 && nearest < limit ? static_cast<int32>(nearest) : -1);
    }
    return positions;
}

/// The part of positions that are not -1; as they rise, it is in one piece.
void InsideRange(const std::vector<int32>& positions, std::size_t& first, std::size_t& last) {
    first = 0;
    last = positions.size();
    while (first < last && positions[first] < 0)
        first++;
    while (last > first && positions[last - 1] < 0)
        last--;
}

template <typename Read, typename Write>
void DrawScaled(const PixelBuffer& to, PixelRect area, const PixelBuffer& from, PixelRect source,
    PixelRect destination) {
    const PixelScale scale(to.ratio);
    const Stretch across{source.left, source.Width(), destination.left, destination.Width()};
    const Stretch down{source.top, source.Height(), destination.top, destination.Height()};
    const std::vector<int32> columns =
        NearestPositions(area.left, area.right, across, from.width, scale);
    const std::vector<int32> rows =
        NearestPositions(area.top, area.bottom, down, from.height, scale);
    std::size_t firstColumn = 0;
    std::size_t lastColumn = 0;
    InsideRange(columns, firstColumn, lastColumn);
    if (firstColumn == lastColumn)
        return;
    const std::size_t length = 4 * (lastColumn - firstColumn);

    int32 drawnRow = -1;
    const uint8* drawn = nullptr;
    for (std::size_t i = 0; i < rows.size(); i++) {
        if (rows[i] < 0)
            continue;
        uint8* target = PixelOf(
            to, area.left + static_cast<int32>(firstColumn), area.top + static_cast<int32>(i));
        // Enlarged, a row is the same as the one before more often than not.
        if constexpr (std::is_same_v<Write, WriteCopy>) {
            if (rows[i] == drawnRow) {
                std::memcpy(target, drawn, length);
                continue;
            }
            drawnRow = rows[i];
            drawn = target;
        }
        const uint8* row = RowOf(from, rows[i]);
        for (std::size_t x = firstColumn; x < lastColumn; x++, target += 4)
            Put<Write>(target, Read::At(row, columns[x]));
    }
}

template <typename Read, typename Write>
void Draw(const PixelBuffer& to, PixelRect area, const PixelBuffer& from, PixelRect source,
    PixelRect destination) {
    const bool isOneToOne = PixelScale(to.ratio).IsOne() && source.Width() == destination.Width() &&
        source.Height() == destination.Height();
    if (!isOneToOne) {
        DrawScaled<Read, Write>(to, area, from, source, destination);
        return;
    }
    const int32 dx = source.left - destination.left;
    const int32 dy = source.top - destination.top;
    const PixelRect present{-dx, -dy, from.width - dx, from.height - dy};
    if (const PixelRect seen = area & present; !seen.IsEmpty())
        DrawSameSize<Read, Write>(to, seen, from, dx, dy);
}

template <typename Read>
void DrawInMode(const PixelBuffer& to, PixelRect area, const PixelBuffer& from, PixelRect source,
    PixelRect destination, drawing_mode mode) {
    switch (mode) {
    case B_OP_COPY: Draw<Read, WriteCopy>(to, area, from, source, destination); break;
    case B_OP_OVER: Draw<Read, WriteOver>(to, area, from, source, destination); break;
    case B_OP_ALPHA: Draw<Read, WriteAlpha>(to, area, from, source, destination); break;
    }
}

template <typename Write>
void PutRow(uint8* to, const uint8* pixels, int32 count) {
    if constexpr (std::is_same_v<Write, WriteCopy>) {
        std::memcpy(to, pixels, 4 * static_cast<std::size_t>(count));
    } else {
        for (int32 x = 0; x < count; x++, to += 4)
            Put<Write>(to, ReadRgba32::At(pixels, x));
    }
}

/// The source becomes `whole`, of which the area is drawn; both are in pixels.
void DrawSmoothly(const PixelBuffer& to, PixelRect area, const PixelSource& from, PixelRect source,
    PixelRect whole, drawing_mode mode) {
    // What is there of the source, and where that comes to lie.
    const PixelRect present = source & PixelRect{0, 0, from.buffer.width, from.buffer.height};
    if (present.IsEmpty())
        return;
    const double across = static_cast<double>(whole.Width()) / source.Width();
    const double down = static_cast<double>(whole.Height()) / source.Height();
    const SmoothFrame frame{whole.left + (static_cast<double>(present.left) - source.left) * across,
        whole.top + (static_cast<double>(present.top) - source.top) * down,
        present.Width() * across, present.Height() * down};
    const auto edge = [](double position) { return static_cast<int32>(std::round(position)); };
    const PixelRect seen = area &
        PixelRect{edge(frame.left), edge(frame.top), edge(frame.left + frame.width),
            edge(frame.top + frame.height)};
    SampleSmoothly(from, present, frame, seen, [&](int32 y, const uint8* pixels) {
        uint8* target = PixelOf(to, seen.left, y);
        switch (mode) {
        case B_OP_COPY: PutRow<WriteCopy>(target, pixels, seen.Width()); break;
        case B_OP_OVER: PutRow<WriteOver>(target, pixels, seen.Width()); break;
        case B_OP_ALPHA: PutRow<WriteAlpha>(target, pixels, seen.Width()); break;
        }
    });
}

}  // namespace

void DrawPixels(const PixelBuffer& to, PixelRect clip, const PixelSource& from, PixelRect source,
    PixelRect destination, drawing_mode mode, uint32 options) {
    if (to.bits == nullptr || from.buffer.bits == nullptr || source.IsEmpty())
        return;
    const PixelRect area =
        clip & PixelRect{0, 0, to.width, to.height} & PixelScale(to.ratio).ToPixels(destination);
    if (area.IsEmpty())
        return;
    const PixelRect whole = PixelScale(to.ratio).ToPixels(destination);
    const bool isSameSize = source.Width() == whole.Width() && source.Height() == whole.Height();
    if ((options & B_FILTER_BITMAP_BILINEAR) != 0 && !isSameSize &&
        from.space != B_NO_COLOR_SPACE) {
        DrawSmoothly(to, area, from, source, whole, mode);
        return;
    }
    switch (from.space) {
    case B_RGBA32: DrawInMode<ReadRgba32>(to, area, from.buffer, source, destination, mode); break;
    case B_RGB32: DrawInMode<ReadRgb32>(to, area, from.buffer, source, destination, mode); break;
    case B_GRAY8: DrawInMode<ReadGray8>(to, area, from.buffer, source, destination, mode); break;
    case B_NO_COLOR_SPACE: break;
    }
}

}  // namespace BPrivate::Painter
