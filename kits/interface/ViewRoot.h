#pragma once

#include <interface/View.h>

#include "kits/interface/ClipRegion.h"
#include "kits/interface/Display.h"
#include "kits/interface/PixelScale.h"

class BBitmap;

namespace BPrivate {

/// What a tree of views hangs from: a window, or a bitmap that accepts views. Rectangles are whole
/// units, of which the canvas has more or fewer pixels as its scale says.
///
/// Threads. Under the lock of the window or bitmap.
class ViewRoot {
public:
    virtual ~ViewRoot() = default;

    /// The invisible view all others lie in.
    virtual BView& Top() = 0;
    /// Null for a bitmap.
    virtual BWindow* Window() = 0;

    /// The size of the canvas; empty while nothing can be drawn.
    virtual PixelRect CanvasFrame() const = 0;
    virtual PixelScale Scale() const { return {}; }
    /// The canvas, to be written to; without bits when there is no memory for it.
    virtual PixelBuffer Canvas() = 0;
    /// The canvas has new pixels; the area is in pixels.
    virtual void Drawn(PixelRect pixels) = 0;
    /// The area has to be drawn by its views.
    virtual void Invalidate(PixelRect area) = 0;
    /// Shows what was drawn.
    virtual void Flush() = 0;
    /// What drawing is limited to while views are asked to draw; null at other times.
    virtual const ClipRegion* UpdateClip() const { return nullptr; }

    // The whole canvas is about to become one colour, or to be covered by a part of a picture. True
    // when the root keeps that in a better way than in pixels.
    virtual bool TakeColor(rgb_color) { return false; }
    virtual bool TakePicture(const BBitmap&, PixelRect /*from*/, drawing_mode, uint32 /*options*/) {
        return false;
    }
};

}  // namespace BPrivate
