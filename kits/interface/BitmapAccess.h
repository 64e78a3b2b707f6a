#pragma once

#include <functional>
#include <interface/Bitmap.h>
#include <memory>

#include "kits/interface/Display.h"

namespace BPrivate {

/// What the kits may do with a bitmap's pixels beyond its public face.
///
/// Threads. As the bitmap itself: one at a time.
class BitmapAccess {
public:
    /// A bitmap over memory that somebody else made. `release` is called once, from any thread,
    /// when no bitmap needs the memory any more; also when this fails. Null when the frame, the
    /// colour space and `bytesPerRow` do not describe a bitmap.
    static std::unique_ptr<BBitmap> Adopt(BRect frame, color_space space, void* bits,
        int32 bytesPerRow, std::function<void()> release);

    /// The pixels to read until the bitmap's next use; sharing goes on. `bits` is null when
    /// InitCheck() failed. The colour space is the bitmap's.
    static PixelBuffer Pixels(const BBitmap& bitmap);

    /// The pixels to write until the bitmap's next use. Unlike BBitmap::Bits() this does not keep
    /// the pixels from being shared later, so a decoder writes through this.
    static PixelBuffer PixelsForWriting(BBitmap& bitmap);

    /// Tells that nobody uses an address from Bits() any more, so that the pixels may be shared.
    static void ForgetBits(BBitmap& bitmap);

    /// Whether the two use the same memory.
    static bool Share(const BBitmap& one, const BBitmap& other);

    /// Whether it has memory, and is not kept as a drawing.
    static bool HasPixels(const BBitmap& bitmap);

    static BitmapData& Data(const BBitmap& bitmap) { return *bitmap.fData; }
};

}  // namespace BPrivate
