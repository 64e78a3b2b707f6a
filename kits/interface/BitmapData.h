#pragma once

#include <interface/Bitmap.h>
#include <interface/View.h>
#include <optional>
#include <support/Locker.h>

#include "kits/interface/BitmapDrawing.h"
#include "kits/interface/PixelStorage.h"
#include "kits/interface/ViewRoot.h"

namespace BPrivate {

/// What a BBitmap is made of.
///
/// The pixels are shared with other bitmaps until one is written. Once an address was given out by
/// Bits() they are not shared again, because nobody can tell when that address is written to.
///
/// A bitmap that views draw into gets memory when its pixels are first asked for. What covers all
/// of it is kept as a drawing instead, whatever its size, and is sampled from its source where the
/// bitmap is drawn: a scaled picture costs nothing, and is as sharp as the screen it is drawn to.
///
/// Made on a window's thread such a bitmap has as many pixels to a unit as that window, so that what
/// is put together off the screen is as sharp as what is drawn on it. Who asks for its bits gets
/// them one to a unit, and from then on it has no others.
class BitmapData final : public ViewRoot {
public:
    BitmapData(BRect frame, color_space space, bool acceptsViews);
    ~BitmapData() override;

    /// The bytes of a row, 0 for a colour space that is not known.
    static int64 BytesPerRow(color_space space, int32 width);

    /// Gives it memory: fresh, or the given one of `bytesPerRow` bytes a row.
    void Allocate();
    bool Adopt(PixelStorage memory, int32 rowBytes);

    /// Its pixels, as many to a unit as it has. Without bits when there is no memory for them.
    PixelBuffer Pixels() const;
    /// The same, made this bitmap's alone.
    PixelBuffer PixelsForWriting();
    /// One pixel to a unit from now on.
    void MakePlain();
    bool MayTake(const BitmapData& source) const;

    /// Draws the part `from` into `target`, both in units of their own, as far as it lies in the
    /// clip, which is in pixels.
    void DrawInto(const PixelBuffer& to, PixelRect clip, PixelRect from, PixelRect target,
        drawing_mode mode, uint32 options) const;

    // ViewRoot
    BView& Top() override { return *top; }
    BWindow* Window() override { return nullptr; }
    PixelRect CanvasFrame() const override { return {0, 0, width, height}; }
    PixelScale Scale() const override { return scale; }
    PixelBuffer Canvas() override { return PixelsForWriting(); }
    void Drawn(PixelRect) override {}
    void Invalidate(PixelRect) override {}
    void Flush() override {}
    bool TakeColor(rgb_color color) override;
    bool TakePicture(
        const BBitmap& source, PixelRect from, drawing_mode mode, uint32 options) override;

    status_t status = B_OK;
    BRect bounds;
    color_space space = B_NO_COLOR_SPACE;
    int32 width = 0;
    int32 height = 0;
    int32 bytesPerRow = 0;  ///< with one pixel to a unit
    bool bitsGiven = false;
    std::unique_ptr<BView> top;  // null when no views are accepted
    BLocker lock{"bitmap"};

private:
    friend class BitmapAccess;

    bool IsPlain() const { return scale.IsOne(); }
    PixelBuffer Memory() const;
    /// Sees to it that the pixels are there. Only how they are kept changes.
    void Render() const;

    PixelScale scale;
    mutable PixelStorage storage;
    // What is to be seen while it is set, whatever is in the memory.
    mutable std::optional<BitmapDrawing> drawing;
};

}  // namespace BPrivate
