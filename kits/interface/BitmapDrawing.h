#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/View.h>
#include <optional>

#include "kits/interface/Painter.h"
#include "kits/interface/PixelStorage.h"

namespace BPrivate {

/// What a bitmap shows that has no pixels of its own yet: one colour everywhere, a part of another
/// bitmap drawn over all of it, or that on the colour. A value; shares the other's pixels.
struct BitmapDrawing {
    std::optional<rgb_color> ground = {};  ///< opaque; none where the picture covers all

    PixelStorage storage = {};  ///< of the picture; nothing where there is only the ground
    PixelSource picture = {};   ///< its pixels, one to a unit
    PixelRect part = {};        ///< of the picture, none of it outside
    drawing_mode mode = B_OP_COPY;
    uint32 options = 0;

    /// Draws it as something that lies at `whole` and is as large, as far as it lies in the clip.
    /// The first is in units of the buffer, the clip in pixels. Any part gives the pixels that all
    /// of it would.
    void Draw(const PixelBuffer& to, PixelRect clip, PixelRect whole, drawing_mode mode) const;
};

}  // namespace BPrivate
