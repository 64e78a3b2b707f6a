#pragma once

#include <interface/View.h>

#include "kits/interface/Painter.h"
#include "kits/interface/ViewRoot.h"

namespace BPrivate {

/// What a view can draw on at this moment: the canvas it lies on, where its coordinates are there,
/// and its visible part.
///
/// A value for the length of one drawing call.
class ViewCanvas {
public:
    explicit ViewCanvas(const BView& view);

    /// The visible part in units, while views are asked to draw only what of it is to be drawn.
    const ClipRegion& Clip() const { return fClip; }
    /// Whether all of the canvas is visible.
    bool IsWhole() const;

    BPoint ToCanvas(BPoint point) const { return point + fOffset; }
    BRect ToCanvas(BRect rect) const { return rect.OffsetByCopy(fOffset); }
    BRect FromCanvas(BRect rect) const { return rect.OffsetByCopy(-fOffset); }
    const PixelScale& Scale() const { return fScale; }
    /// The pixels of whole units on the canvas.
    PixelRect ToPixels(PixelRect units) const { return fScale.ToPixels(units); }

    /// Calls `draw(buffer, clip)` for every piece of the visible part that lies in the area, both
    /// in pixels, and tells the root.
    template <typename Draw>
    void Each(PixelRect area, Draw draw) const {
        PixelBuffer buffer;
        PixelRect drawn;
        for (const PixelRect& piece : fClip.Rects()) {
            const PixelRect common = ToPixels(piece) & area;
            if (common.IsEmpty())
                continue;
            if (drawn.IsEmpty())
                buffer = fRoot->Canvas();
            if (buffer.bits == nullptr)
                return;
            draw(buffer, common);
            drawn = drawn | common;
        }
        if (!drawn.IsEmpty())
            fRoot->Drawn(drawn);
    }

    /// The units of the view that the views it lies in leave visible, whatever lies above it.
    /// Empty while it is hidden.
    static PixelRect VisibleRect(const BView& view);

private:
    void ExcludeChildren(const BView& view, std::size_t from, PixelRect limit);
    void ExcludeView(const BView& view, PixelRect limit);

    ViewRoot* fRoot;
    PixelScale fScale;
    BPoint fOffset;
    ClipRegion fClip;
};

}  // namespace BPrivate
