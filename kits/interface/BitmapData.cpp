#include "kits/interface/BitmapData.h"

#include <cstring>

#include "kits/interface/BitmapAccess.h"

namespace BPrivate {

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
    if (row > INT32_MAX / pixels.Height()) {
        status = B_NO_MEMORY;
        return;
    }
    bounds = frame;
    space = wantedSpace;
    width = pixels.Width();
    height = pixels.Height();
    bytesPerRow = static_cast<int32>(row);
    if (acceptsViews) {
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
    if (status != B_OK)
        return;
    storage = PixelStorage::Allocate(
        static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(height));
    if (!storage)
        status = B_NO_MEMORY;
}

bool BitmapData::Adopt(PixelStorage memory, int32 rowBytes) {
    if (status != B_OK || rowBytes < bytesPerRow || rowBytes > INT32_MAX / height || !memory)
        return false;
    bytesPerRow = rowBytes;
    storage = std::move(memory);
    return true;
}

PixelBuffer BitmapData::Pixels() const {
    return {storage.Bits(), bytesPerRow, width, height};
}

PixelBuffer BitmapData::PixelsForWriting() {
    if (storage && !storage.IsUnique()) {
        const auto size = static_cast<std::size_t>(bytesPerRow) * static_cast<std::size_t>(height);
        PixelStorage own = PixelStorage::Allocate(size);
        if (!own)
            return {nullptr, bytesPerRow, width, height};
        std::memcpy(own.Bits(), storage.Bits(), size);
        storage = std::move(own);
    }
    return Pixels();
}

bool BitmapData::MayTake(const BitmapData& source) const {
    return storage && source.storage && !bitsGiven && !source.bitsGiven && space == source.space &&
        width == source.width && height == source.height && bytesPerRow == source.bytesPerRow;
}

bool BitmapData::Replace(const BBitmap& source) {
    const BitmapData& other = BitmapAccess::Data(source);
    if (!MayTake(other))
        return false;
    storage = other.storage;
    return true;
}

}  // namespace BPrivate
