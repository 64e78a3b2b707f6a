#include <interface/Bitmap.h>

#include <cstring>

#include "kits/interface/BitmapData.h"

using BPrivate::BitmapData;
using BPrivate::PixelBuffer;
using BPrivate::PixelRect;

BBitmap::BBitmap(BRect frame, color_space space, bool acceptsViews, bool)
    : fData(std::make_unique<BitmapData>(frame, space, acceptsViews)) {
    fData->Allocate();
}

BBitmap::BBitmap(const BBitmap* source, bool acceptsViews, bool)
    : fData(std::make_unique<BitmapData>(source != nullptr ? source->Bounds() : BRect(),
          source != nullptr ? source->ColorSpace() : B_NO_COLOR_SPACE, acceptsViews)) {
    if (source == nullptr || source->InitCheck() != B_OK)
        return;
    fData->Allocate();
    ImportBits(source);
}

BBitmap::BBitmap(std::unique_ptr<BitmapData> data) : fData(std::move(data)) {}

BBitmap::~BBitmap() = default;

status_t BBitmap::InitCheck() const {
    return fData->status;
}

void* BBitmap::Bits() const {
    if (fData->status != B_OK)
        return nullptr;
    fData->MakePlain();
    const PixelBuffer pixels = fData->PixelsForWriting();
    fData->bitsGiven = fData->bitsGiven || pixels.bits != nullptr;
    return pixels.bits;
}

int32 BBitmap::BitsLength() const {
    const int64 length = int64{fData->bytesPerRow} * fData->height;
    return fData->status == B_OK && length <= INT32_MAX ? static_cast<int32>(length) : 0;
}

int32 BBitmap::BytesPerRow() const {
    return fData->bytesPerRow;
}

color_space BBitmap::ColorSpace() const {
    return fData->space;
}

BRect BBitmap::Bounds() const {
    return fData->bounds;
}

status_t BBitmap::ImportBits(
    const void* data, int32 length, int32 bytesPerRow, int32 offset, color_space space) {
    if (fData->status != B_OK)
        return B_NO_INIT;
    if (space != fData->space)
        return B_BAD_TYPE;
    if (data == nullptr || length < 0 || offset < 0 || bytesPerRow <= 0)
        return B_BAD_VALUE;
    fData->MakePlain();
    const PixelBuffer to = fData->PixelsForWriting();
    if (to.bits == nullptr)
        return B_NO_MEMORY;
    // Rows of the two may be of different length, so each is copied by itself.
    const auto* from = static_cast<const uint8*>(data);
    const int64 size = BitsLength();
    int64 target = offset;
    for (int64 done = 0; done < length; done += bytesPerRow, target += to.bytesPerRow) {
        const int64 part = std::min<int64>({bytesPerRow, length - done,
            bytesPerRow == to.bytesPerRow ? length - done : to.bytesPerRow});
        if (target + part > size)
            return B_BAD_VALUE;
        std::memcpy(to.bits + target, from + done, static_cast<std::size_t>(part));
    }
    return B_OK;
}

void BBitmap::SetBits(const void* data, int32 length, int32 offset, color_space space) {
    // Rows without a gap are one long row, which may start and end anywhere.
    (void)ImportBits(data, length, fData->bytesPerRow, offset, space);
}

status_t BBitmap::ImportBits(const BBitmap* bitmap) {
    if (bitmap == nullptr)
        return B_BAD_VALUE;
    const BitmapData& source = *bitmap->fData;
    if (fData->status != B_OK || source.status != B_OK)
        return B_NO_INIT;
    if (source.space != fData->space || source.width != fData->width ||
        source.height != fData->height)
        return B_MISMATCHED_VALUES;
    fData->MakePlain();
    const PixelRect all{0, 0, source.width, source.height};
    if (fData->TakePicture(*bitmap, all, B_OP_COPY, 0))
        return B_OK;
    const PixelBuffer to = fData->PixelsForWriting();
    if (to.bits == nullptr)
        return B_NO_MEMORY;
    source.DrawInto(to, all, all, all, B_OP_COPY, 0);
    return B_OK;
}

void BBitmap::AddChild(BView* view) {
    if (fData->top != nullptr && view != nullptr)
        fData->top->AddChild(view);
}

bool BBitmap::RemoveChild(BView* view) {
    return fData->top != nullptr && fData->top->RemoveChild(view);
}

int32 BBitmap::CountChildren() const {
    return fData->top != nullptr ? fData->top->CountChildren() : 0;
}

BView* BBitmap::ChildAt(int32 index) const {
    return fData->top != nullptr ? fData->top->ChildAt(index) : nullptr;
}

BView* BBitmap::FindView(const char* name) const {
    BView* found = fData->top != nullptr ? fData->top->FindView(name) : nullptr;
    return found != fData->top.get() ? found : nullptr;
}

bool BBitmap::Lock() {
    return fData->top != nullptr && fData->lock.Lock();
}

void BBitmap::Unlock() {
    if (fData->top != nullptr)
        fData->lock.Unlock();
}

bool BBitmap::IsLocked() const {
    return fData->top != nullptr && fData->lock.IsLocked();
}
