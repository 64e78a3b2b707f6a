#include "kits/interface/BitmapData.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>
#include <utility>

#include "kits/interface/BitmapAccess.h"
#include "kits/interface/WindowSurface.h"

namespace BPrivate {

namespace {

/// A part as large as what it is drawn to. Where rectangles of floats are not exact any more, they
/// may have lost a few units of their size.
bool IsSameSize(PixelRect one, PixelRect other) {
    constexpr int32 kExact = 1 << 22;
    constexpr int32 kLost = 32;
    const bool isFar = std::max({std::abs(one.left), std::abs(one.right), std::abs(one.top),
                           std::abs(one.bottom)}) > kExact;
    const int32 tolerance = isFar ? kLost : 0;
    return std::abs(one.Width() - other.Width()) <= tolerance &&
        std::abs(one.Height() - other.Height()) <= tolerance;
}

/// Where all of something `extent` long lies, when `start` to `end` of it lies at `to` to `toEnd`.
std::pair<int32, int32> Whole(int32 extent, int32 start, int32 end, int32 to, int32 toEnd) {
    const double factor = static_cast<double>(toEnd - to) / (end - start);
    const auto at = [&](double position) {
        return static_cast<int32>(
            std::lround(std::clamp(to + (position - start) * factor, -1e9, 1e9)));
    };
    return {at(0), at(extent)};
}

}  // namespace

BitmapData::BitmapData(BRect frame, color_space wantedSpace, bool acceptsViews) {
    const PixelRect pixels = CoveredPixels(frame);
    const int64 row = BytesPerRow(wantedSpace, pixels.Width());
    if (pixels.IsEmpty()) {
        status = B_BAD_VALUE;
        return;
    }
    if (row == 0) {
        status = B_BAD_TYPE;
        return;
    }
    if (acceptsViews && wantedSpace == B_GRAY8) {
        status = B_BAD_VALUE;
        return;
    }
    // What views draw into may need no memory.
    if (!acceptsViews && row > INT32_MAX / pixels.Height()) {
        status = B_NO_MEMORY;
        return;
    }
    bounds = frame;
    space = wantedSpace;
    width = pixels.Width();
    height = pixels.Height();
    bytesPerRow = static_cast<int32>(row);
    if (acceptsViews) {
        scale = WindowSurface::ScaleOfThread();
        top = std::make_unique<BView>(frame.OffsetToCopy(B_ORIGIN), nullptr, 0, 0);
        top->fIsTop = true;
        top->fRoot = this;
    }
}

BitmapData::~BitmapData() {
    // The views look for their root on their way out.
    top.reset();
}

int64 BitmapData::BytesPerRow(color_space space, int32 width) {
    switch (space) {
    case B_RGB32:
    case B_RGBA32: return int64{4} * width;
    case B_GRAY8: return (int64{width} + 3) / 4 * 4;
    case B_NO_COLOR_SPACE: break;
    }
    return 0;
}

void BitmapData::Allocate() {
    if (status == B_OK && top == nullptr && Pixels().bits == nullptr)
        status = B_NO_MEMORY;
}

bool BitmapData::Adopt(PixelStorage memory, int32 rowBytes) {
    if (status != B_OK || rowBytes < bytesPerRow || rowBytes > INT32_MAX / height || !memory)
        return false;
    bytesPerRow = rowBytes;
    storage = std::move(memory);
    return true;
}

PixelBuffer BitmapData::Memory() const {
    const PixelRect pixels = scale.ToPixels(PixelRect{0, 0, width, height});
    const int32 row = IsPlain() ? bytesPerRow : 4 * pixels.Width();
    return {
        storage.Bits(), row, pixels.Width(), pixels.Height(), static_cast<float>(scale.Ratio())};
}

void BitmapData::Render() const {
    if (storage && !drawing)
        return;
    if (!storage || !storage.IsUnique()) {
        const PixelBuffer needed = Memory();
        storage = {};
        if (int64{needed.bytesPerRow} * needed.height <= INT32_MAX)
            storage = PixelStorage::Allocate(static_cast<std::size_t>(needed.bytesPerRow) *
                static_cast<std::size_t>(needed.height));
        if (!storage)
            return;
    }
    if (drawing) {
        const PixelBuffer memory = Memory();
        drawing->Draw(
            memory, {0, 0, memory.width, memory.height}, {0, 0, width, height}, B_OP_COPY);
        drawing.reset();
    }
}

PixelBuffer BitmapData::Pixels() const {
    Render();
    return Memory();
}

PixelBuffer BitmapData::PixelsForWriting() {
    Render();
    const PixelBuffer shared = Memory();
    if (storage && !storage.IsUnique()) {
        const auto size =
            static_cast<std::size_t>(shared.bytesPerRow) * static_cast<std::size_t>(shared.height);
        PixelStorage own = PixelStorage::Allocate(size);
        PixelBuffer none = shared;
        none.bits = nullptr;
        if (!own)
            return none;
        std::memcpy(own.Bits(), storage.Bits(), size);
        storage = std::move(own);
    }
    return Memory();
}

void BitmapData::MakePlain() {
    if (IsPlain())
        return;
    BitmapData plain(bounds, space, false);
    if (drawing || !storage) {
        storage = {};
    } else if (plain.status == B_OK) {
        const PixelBuffer to = plain.Pixels();
        DrawInto(
            to, {0, 0, width, height}, {0, 0, width, height}, {0, 0, width, height}, B_OP_COPY, 0);
        storage = std::move(plain.storage);
    }
    scale = {};
}

bool BitmapData::MayTake(const BitmapData& source) const {
    return source.storage && !source.drawing && !bitsGiven && !source.bitsGiven &&
        space == source.space && width == source.width && height == source.height &&
        bytesPerRow == source.bytesPerRow && scale == source.scale;
}

void BitmapData::DrawInto(const PixelBuffer& to, PixelRect clip, PixelRect from, PixelRect target,
    drawing_mode mode, uint32 options) const {
    const PixelScale targetScale(to.ratio);
    const PixelRect all{0, 0, width, height};
    const PixelRect area = clip & targetScale.ToPixels(target);
    // Only a part that is drawn to another size needs the pixels.
    if (drawing && from != all && !IsSameSize(from, target))
        Render();
    if (drawing) {
        PixelRect whole{target.left - from.left, target.top - from.top,
            target.left - from.left + width, target.top - from.top + height};
        if (!IsSameSize(from, target)) {
            std::tie(whole.left, whole.right) =
                Whole(width, from.left, from.right, target.left, target.right);
            std::tie(whole.top, whole.bottom) =
                Whole(height, from.top, from.bottom, target.top, target.bottom);
        }
        drawing->Draw(to, area, whole, mode);
        return;
    }
    const PixelSource source{Pixels(), space};
    if (IsPlain()) {
        Painter::DrawPixels(to, area, source, from, target, mode, options);
        return;
    }
    // Pixels to pixels. Where both have as many to a unit each keeps its own, though the same number
    // of units may be a pixel wider elsewhere.
    PixelBuffer pixels = to;
    pixels.ratio = 1;
    const PixelRect fromPixels = scale.ToPixels(from);
    PixelRect targetPixels = targetScale.ToPixels(target);
    if (scale == targetScale && from.Width() == target.Width() &&
        from.Height() == target.Height()) {
        targetPixels.right = targetPixels.left + fromPixels.Width();
        targetPixels.bottom = targetPixels.top + fromPixels.Height();
    }
    Painter::DrawPixels(pixels, area, source, fromPixels, targetPixels, mode, options);
}

bool BitmapData::TakeColor(rgb_color color) {
    if (bitsGiven || color.alpha != 255)
        return false;
    drawing = BitmapDrawing{color};
    return true;
}

bool BitmapData::TakePicture(
    const BBitmap& source, PixelRect from, drawing_mode mode, uint32 options) {
    const BitmapData& other = BitmapAccess::Data(source);
    const PixelRect all{0, 0, other.width, other.height};
    if (bitsGiven || other.bitsGiven || !all.Contains(from))
        return false;
    const bool isCopy =
        mode == B_OP_COPY && from == all && width == other.width && height == other.height;
    if (isCopy && MayTake(other)) {
        storage = other.storage;
        drawing.reset();
        return true;
    }
    if (isCopy && other.drawing && space == other.space) {
        drawing = other.drawing;
        return true;
    }
    if (other.drawing || !other.IsPlain() || other.Pixels().bits == nullptr)
        return false;
    // What shows through needs something below it that is known.
    const bool isOnGround = drawing && drawing->ground && !drawing->storage;
    if (mode != B_OP_COPY && !isOnGround)
        return false;
    BitmapDrawing taken{
        std::nullopt, other.storage, {other.Pixels(), other.space}, from, mode, options};
    if (mode != B_OP_COPY)
        taken.ground = drawing->ground;
    drawing = std::move(taken);
    return true;
}

}  // namespace BPrivate
