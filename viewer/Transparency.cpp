#include "viewer/Transparency.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <interface/Bitmap.h>
#include <interface/View.h>

namespace {

/// Pixels looked at together: few enough for the processor's cache.
constexpr float kStripPixels = 32768;

bool is_opaque(const BBitmap& strip) {
    const auto* bytes = static_cast<const uint8*>(strip.Bits());
    const int32 length = strip.BitsLength();
    uint32 all = ~uint32{0};
    for (int32 i = 0; i < length; i += 4) {
        uint32 pixel;
        std::memcpy(&pixel, bytes + i, sizeof(pixel));
        all &= pixel;
    }
    uint8 parts[4];
    std::memcpy(parts, &all, sizeof(all));
    return parts[3] == 255;
}

}  // namespace

bool has_transparency(const BBitmap& bitmap) {
    if (bitmap.ColorSpace() != B_RGBA32)
        return false;
    const float width = bitmap.Bounds().Width();
    const float last = bitmap.Bounds().Height();
    const float rows = std::clamp(std::floor(kStripPixels / (width + 1)), 1.0F, last + 1);
    const BRect frame(0, 0, width, rows - 1);
    BBitmap strip(frame, B_RGBA32, true);
    // Without memory for this there is none for a blended copy either.
    if (strip.InitCheck() != B_OK)
        return false;
    auto* view = new BView(frame, "StripView", B_FOLLOW_NONE, 0);
    strip.AddChild(view);
    strip.Lock();
    bool opaque = true;
    for (float top = 0; opaque && top <= last; top += rows) {
        // The last strip ends with the bitmap and may have some rows of the one before.
        const BPoint from(0, std::min(top, last + 1 - rows));
        view->DrawBitmap(&bitmap, frame.OffsetToCopy(from + bitmap.Bounds().LeftTop()), frame);
        opaque = is_opaque(strip);
    }
    strip.Unlock();
    return !opaque;
}
