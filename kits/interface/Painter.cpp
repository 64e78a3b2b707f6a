#include "kits/interface/Painter.h"

#include <array>
#include <cmath>
#include <utility>

#include "kits/interface/PixelOps.h"
#include "kits/interface/PixelScale.h"

namespace BPrivate::Painter {

namespace {

PixelRect Inside(const PixelBuffer& to, PixelRect clip) {
    if (to.bits == nullptr)
        return {};
    return clip & PixelRect{0, 0, to.width, to.height};
}

uint8* RowOf(const PixelBuffer& to, int32 y) {
    return to.bits + static_cast<std::ptrdiff_t>(y) * to.bytesPerRow;
}

Pixel Load(const uint8* row, int32 x) {
    return ReadRgba32::At(row, x);
}

void Store(uint8* row, int32 x, Pixel p) {
    std::memcpy(row + std::ptrdiff_t{4} * x, &p, sizeof(p));
}

/// Calls `change(row, x)` for every pixel of the area.
template <typename Change>
void ForEach(const PixelBuffer& to, PixelRect area, Change change) {
    for (int32 y = area.top; y < area.bottom; y++) {
        uint8* row = RowOf(to, y);
        for (int32 x = area.left; x < area.right; x++)
            change(row, x, y);
    }
}

/// Whether the pattern's bit for this unit of the buffer is set.
bool TakesHigh(const pattern& fill, int32 x, int32 y) {
    return ((fill.data[y & 7] >> (7 - (x & 7))) & 1) != 0;
}

void FillSolid(const PixelBuffer& to, PixelRect area, Pixel p) {
    const auto count = static_cast<std::size_t>(area.Width());
    uint8* first = RowOf(to, area.top) + std::ptrdiff_t{4} * area.left;
    for (std::size_t x = 0; x < count; x++)
        std::memcpy(first + 4 * x, &p, sizeof(p));
    for (int32 y = area.top + 1; y < area.bottom; y++)
        std::memcpy(RowOf(to, y) + std::ptrdiff_t{4} * area.left, first, 4 * count);
}

void PaintPixel(uint8* row, int32 x, int32 y, const Paint& paint, const PixelScale& scale) {
    const bool high = TakesHigh(paint.fill, scale.UnitAt(x), scale.UnitAt(y));
    const Pixel p = ToPixel(high ? paint.high : paint.low);
    switch (paint.mode) {
    case B_OP_COPY: Store(row, x, p); break;
    case B_OP_OVER:
        if (high)
            Store(row, x, p);
        break;
    case B_OP_ALPHA: Store(row, x, BlendPixel(p, Load(row, x))); break;
    }
}

}  // namespace

rgb_color Blend(rgb_color over, rgb_color under) {
    return ToColor(BlendPixel(ToPixel(over), ToPixel(under)));
}

void FillRect(const PixelBuffer& to, PixelRect clip, PixelRect rect, const Paint& paint) {
    const PixelRect area = Inside(to, clip) & rect;
    if (area.IsEmpty())
        return;
    const bool solidHigh = paint.fill == B_SOLID_HIGH;
    if (!solidHigh && paint.fill != B_SOLID_LOW) {
        const PixelScale scale(to.ratio);
        ForEach(
            to, area, [&](uint8* row, int32 x, int32 y) { PaintPixel(row, x, y, paint, scale); });
        return;
    }
    if (!solidHigh && paint.mode == B_OP_OVER)
        return;
    const Pixel p = ToPixel(solidHigh ? paint.high : paint.low);
    if (paint.mode != B_OP_ALPHA || (p >> 24) == 255) {
        FillSolid(to, area, p);
    } else if ((p >> 24) != 0) {
        ForEach(to, area,
            [p](uint8* row, int32 x, int32) { Store(row, x, BlendPixel(p, Load(row, x))); });
    }
}

void InvertRect(const PixelBuffer& to, PixelRect clip, PixelRect rect) {
    const PixelRect area = Inside(to, clip) & rect;
    ForEach(to, area, [](uint8* row, int32 x, int32) { Store(row, x, Load(row, x) ^ 0x00ffffff); });
}

void DrawLine(const PixelBuffer& to, PixelRect clip, BPoint from, BPoint end, const Paint& paint) {
    const PixelRect area = Inside(to, clip);
    if (area.IsEmpty() || !IsFinite(from) || !IsFinite(end))
        return;
    const PixelScale scale(to.ratio);
    // Along the longer axis every pixel is visited once; only those inside are worth computing.
    double x0 = PixelAt(from.x);
    double y0 = PixelAt(from.y);
    double x1 = PixelAt(end.x);
    double y1 = PixelAt(end.y);
    const bool steep = std::fabs(y1 - y0) > std::fabs(x1 - x0);
    if (steep) {
        std::swap(x0, y0);
        std::swap(x1, y1);
    }
    if (x0 > x1) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    const double slope = x1 > x0 ? (y1 - y0) / (x1 - x0) : 0;
    const int32 low = steep ? area.top : area.left;
    const int32 high = steep ? area.bottom : area.right;
    const int32 first = scale.Edge(static_cast<int32>(x0));
    const int32 start = std::max(first, low);
    const int32 stop = std::min(std::max(scale.Edge(static_cast<int32>(x1) + 1), first + 1), high);
    for (int32 along = start; along < stop; along++) {
        // Where the middle of the pixel lies among the middles of units.
        const double unit = std::clamp((along + 0.5) / scale.Ratio() - 0.5, x0, x1);
        const double across = y0 + (unit - x0) * slope;
        const int32 near = scale.EdgeAt(across);
        const int32 far = std::max(scale.EdgeAt(across + 1), near + 1);
        for (int32 at = near; at < far; at++) {
            const int32 x = steep ? at : along;
            const int32 y = steep ? along : at;
            if (x >= area.left && x < area.right && y >= area.top && y < area.bottom)
                PaintPixel(RowOf(to, y), x, y, paint, scale);
        }
    }
}

}  // namespace BPrivate::Painter
