#pragma once

// The one place where a picture's declared size becomes an amount of memory.

#include <memory>
#include <support/SupportDefs.h>

class BBitmap;

namespace BPrivate {

/// Sides above this are refused whatever the memory: positions in a bitmap are floating-point
/// numbers, which are exact to 2^24, and a file that declares such a side is not a picture.
constexpr uint32 kMaxImageSide = 1'000'000;

/// What a picture takes.
struct ImageExtent {
    int32 bytesPerRow = 0;
    int32 bytes = 0;
};

/// Turns a declared size into the memory it takes. B_BAD_DATA for an empty picture or one with a
/// side above kMaxImageSide; B_NO_MEMORY for more than `available` bytes or than a bitmap can count
/// (its length is an int32).
[[nodiscard]] status_t CheckImageSize(
    uint32 width, uint32 height, uint32 bytesPerPixel, uint64 available, ImageExtent* extent);

/// How many bytes one picture may take now: three quarters of the memory that the system, the
/// process's limits and its control group would still give.
[[nodiscard]] uint64 AvailableImageMemory();

/// A B_RGBA32 bitmap of so many pixels, checked by CheckImageSize(). Its memory is not touched yet.
[[nodiscard]] status_t MakeCheckedBitmap(
    uint32 width, uint32 height, std::unique_ptr<BBitmap>* bitmap);

}  // namespace BPrivate
