#include "kits/interface/BitmapAccess.h"

#include "kits/interface/BitmapData.h"

namespace BPrivate {

std::unique_ptr<BBitmap> BitmapAccess::Adopt(
    BRect frame, color_space space, void* bits, int32 bytesPerRow, std::function<void()> release) {
    // Released with the last handle, whether or not a bitmap comes to hold one.
    PixelStorage memory = PixelStorage::Adopt(static_cast<uint8*>(bits), std::move(release));
    if (bits == nullptr)
        return nullptr;
    auto data = std::make_unique<BitmapData>(frame, space, false);
    if (!data->Adopt(std::move(memory), bytesPerRow))
        return nullptr;
    return std::unique_ptr<BBitmap>(new BBitmap(std::move(data)));
}

PixelBuffer BitmapAccess::Pixels(const BBitmap& bitmap) {
    bitmap.fData->MakePlain();
    return bitmap.fData->Pixels();
}

PixelBuffer BitmapAccess::PixelsForWriting(BBitmap& bitmap) {
    bitmap.fData->MakePlain();
    return bitmap.fData->PixelsForWriting();
}

void BitmapAccess::ForgetBits(BBitmap& bitmap) {
    bitmap.fData->bitsGiven = false;
}

bool BitmapAccess::Share(const BBitmap& one, const BBitmap& other) {
    return one.fData->storage && one.fData->storage.IsSame(other.fData->storage);
}

bool BitmapAccess::HasPixels(const BBitmap& bitmap) {
    return bitmap.fData->storage && !bitmap.fData->drawing;
}

}  // namespace BPrivate
