#include "kits/interface/BitmapDrawing.h"

#include "kits/interface/PixelScale.h"

namespace BPrivate {

void BitmapDrawing::Draw(
    const PixelBuffer& to, PixelRect clip, PixelRect whole, drawing_mode outerMode) const {
    if (ground) {
        // An opaque colour is what every mode makes of it.
        const Paint paint{*ground, *ground, B_OP_COPY, B_SOLID_HIGH};
        Painter::FillRect(to, clip, PixelScale(to.ratio).ToPixels(whole), paint);
    }
    if (storage)
        Painter::DrawPixels(to, clip, picture, part, whole, ground ? mode : outerMode, options);
}

}  // namespace BPrivate
