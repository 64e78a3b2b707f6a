#include <translation/BitmapStream.h>

#include "kits/interface/BitmapAccess.h"
#include "kits/translation/ImageLimits.h"
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <interface/Bitmap.h>

using BPrivate::BitmapAccess;

namespace {

void PutBig(uint8* to, uint32 value) {
    for (int i = 0; i < 4; i++)
        to[i] = uint8(value >> (24 - 8 * i));
}

uint32 GetBig(const uint8* from) {
    return uint32(from[0]) << 24 | uint32(from[1]) << 16 | uint32(from[2]) << 8 | from[3];
}

}  // namespace

BBitmapStream::BBitmapStream(BBitmap* bitmap) {
    Adopt(std::unique_ptr<BBitmap>(bitmap));
}

BBitmapStream::~BBitmapStream() = default;

void BBitmapStream::Adopt(std::unique_ptr<BBitmap> bitmap) {
    fBitmap = std::move(bitmap);
    fHeaderBytes = 0;
    fPosition = 0;
    if (fBitmap && fBitmap->InitCheck() != B_OK)
        fBitmap.reset();
    if (fBitmap)
        FillHeader();
}

void BBitmapStream::FillHeader() {
    const BRect bounds = fBitmap->Bounds();
    PutBig(fHeader, B_TRANSLATOR_BITMAP);
    PutBig(fHeader + 4, std::bit_cast<uint32>(bounds.left));
    PutBig(fHeader + 8, std::bit_cast<uint32>(bounds.top));
    PutBig(fHeader + 12, std::bit_cast<uint32>(bounds.right));
    PutBig(fHeader + 16, std::bit_cast<uint32>(bounds.bottom));
    PutBig(fHeader + 20, uint32(fBitmap->BytesPerRow()));
    PutBig(fHeader + 24, uint32(fBitmap->ColorSpace()));
    PutBig(fHeader + 28, uint32(fBitmap->BitsLength()));
    fHeaderBytes = kHeaderSize;
}

// Makes the bitmap that the complete header describes.
status_t BBitmapStream::MakeBitmap() {
    if (GetBig(fHeader) != B_TRANSLATOR_BITMAP)
        return B_BAD_DATA;
    const BRect bounds(std::bit_cast<float>(GetBig(fHeader + 4)),
        std::bit_cast<float>(GetBig(fHeader + 8)), std::bit_cast<float>(GetBig(fHeader + 12)),
        std::bit_cast<float>(GetBig(fHeader + 16)));
    const auto space = color_space(GetBig(fHeader + 24));
    if (space != B_RGBA32 && space != B_RGB32 && space != B_GRAY8)
        return B_BAD_DATA;
    // Not true for what is not a number either.
    if (!(bounds.left == 0 && bounds.top == 0 && bounds.right >= 0 && bounds.bottom >= 0 &&
            bounds.right < float(BPrivate::kMaxImageSide) &&
            bounds.bottom < float(BPrivate::kMaxImageSide)))
        return B_BAD_DATA;
    BPrivate::ImageExtent extent;
    if (status_t status = BPrivate::CheckImageSize(uint32(std::ceil(bounds.right)) + 1,
            uint32(std::ceil(bounds.bottom)) + 1, space == B_GRAY8 ? 1 : 4,
            BPrivate::AvailableImageMemory(), &extent);
        status != B_OK)
        return status;
    auto bitmap = std::make_unique<BBitmap>(bounds, space);
    if (status_t status = bitmap->InitCheck(); status != B_OK)
        return status;
    if (GetBig(fHeader + 20) != uint32(bitmap->BytesPerRow()) ||
        GetBig(fHeader + 28) != uint32(bitmap->BitsLength()))
        return B_BAD_DATA;
    fBitmap = std::move(bitmap);
    return B_OK;
}

off_t BBitmapStream::Size() const {
    return fBitmap ? off_t(kHeaderSize) + fBitmap->BitsLength() : 0;
}

ssize_t BBitmapStream::ReadAt(off_t position, void* buffer, size_t size) {
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    if (!fBitmap)
        return B_NO_INIT;
    if (position >= Size())
        return 0;
    size = std::min(size, size_t(Size() - position));
    auto* out = static_cast<uint8*>(buffer);
    size_t done = 0;
    if (position < off_t(kHeaderSize)) {
        done = std::min(size, kHeaderSize - size_t(position));
        memcpy(out, fHeader + position, done);
    }
    if (done < size) {
        const uint8* bits = BitmapAccess::Pixels(*fBitmap).bits;
        memcpy(out + done, bits + (size_t(position) + done - kHeaderSize), size - done);
    }
    return ssize_t(size);
}

ssize_t BBitmapStream::WriteAt(off_t position, const void* buffer, size_t size) {
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    const auto* bytes = static_cast<const uint8*>(buffer);
    size_t done = 0;
    if (size > 0 && position < off_t(kHeaderSize)) {
        // A header is written from its beginning on, maybe in pieces; a new one replaces the
        // bitmap.
        if (size_t(position) > fHeaderBytes || (fBitmap && position != 0))
            return B_BAD_VALUE;
        done = std::min(size, kHeaderSize - size_t(position));
        fBitmap.reset();
        memcpy(fHeader + position, bytes, done);
        fHeaderBytes = size_t(position) + done;
        if (fHeaderBytes == kHeaderSize) {
            if (status_t status = MakeBitmap(); status != B_OK) {
                fHeaderBytes = 0;
                return status;
            }
        }
    }
    if (done < size) {
        const off_t at = position + off_t(done);
        if (!fBitmap || at > Size() || size - done > size_t(Size() - at))
            return B_BAD_VALUE;
        uint8* bits = BitmapAccess::PixelsForWriting(*fBitmap).bits;
        if (bits == nullptr)
            return B_NO_MEMORY;
        memcpy(bits + (size_t(at) - kHeaderSize), bytes + done, size - done);
    }
    return ssize_t(size);
}

off_t BBitmapStream::Seek(off_t position, uint32 seekMode) {
    off_t base = 0;
    if (seekMode == SEEK_CUR)
        base = fPosition;
    else if (seekMode == SEEK_END)
        base = Size();
    else if (seekMode != SEEK_SET)
        return B_BAD_VALUE;
    off_t target;
    if (__builtin_add_overflow(base, position, &target) || target < 0)
        return B_BAD_VALUE;
    return fPosition = target;
}

off_t BBitmapStream::Position() const {
    return fPosition;
}

status_t BBitmapStream::SetSize(off_t size) {
    return size == Size() ? B_OK : B_BAD_VALUE;
}

status_t BBitmapStream::DetachBitmap(BBitmap** outBitmap) {
    if (outBitmap == nullptr)
        return B_BAD_VALUE;
    if (!fBitmap)
        return B_ERROR;
    *outBitmap = fBitmap.release();
    Adopt(nullptr);
    return B_OK;
}
