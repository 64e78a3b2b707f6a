#pragma once

#include "kits/interface/ClipRegion.h"
#include "kits/interface/Display.h"
#include "kits/interface/PixelScale.h"

class BBitmap;
class BView;

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

    /// The whole canvas is about to be replaced by the bitmap's pixels, one to one. True when the
    /// root has taken them over in a better way.
    virtual bool Replace(const BBitmap&) { return false; }
};

}  // namespace BPrivate
