#pragma once

#include <interface/Bitmap.h>
#include <interface/View.h>
#include <support/Locker.h>

#include "kits/interface/PixelStorage.h"
#include "kits/interface/ViewRoot.h"

namespace BPrivate {

/// What a BBitmap is made of.
///
/// The pixels are shared with other bitmaps until one is written. Once an address was given out by
/// Bits() they are not shared again, because nobody can tell when that address is written to.
class BitmapData final : public ViewRoot {
public:
    BitmapData(BRect frame, color_space space, bool acceptsViews);
    ~BitmapData() override;

    /// The bytes of a row, 0 for a colour space that is not known.
    static int64 BytesPerRow(color_space space, int32 width);

    /// Gives it memory: fresh, or the given one of `bytesPerRow` bytes a row.
    void Allocate();
    bool Adopt(PixelStorage memory, int32 rowBytes);

    PixelBuffer Pixels() const;
    /// Makes the pixels this bitmap's alone. Without bits when there is no memory for that.
    PixelBuffer PixelsForWriting();
    bool MayTake(const BitmapData& source) const;

    // ViewRoot
    BView& Top() override { return *top; }
    BWindow* Window() override { return nullptr; }
    PixelRect CanvasFrame() const override { return {0, 0, width, height}; }
    PixelBuffer Canvas() override { return PixelsForWriting(); }
    void Drawn(PixelRect) override {}
    void Invalidate(PixelRect) override {}
    void Flush() override {}
    bool Replace(const BBitmap& source) override;

    status_t status = B_OK;
    BRect bounds;
    color_space space = B_NO_COLOR_SPACE;
    int32 width = 0;
    int32 height = 0;
    int32 bytesPerRow = 0;
    PixelStorage storage;
    bool bitsGiven = false;
    std::unique_ptr<BView> top;  // null when no views are accepted
    BLocker lock{"bitmap"};
};

}  // namespace BPrivate
