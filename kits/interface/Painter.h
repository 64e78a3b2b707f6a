#pragma once

// Pixel work, as functions of their arguments. Destinations are 32-bit (B, G, R, A; alpha not
// premultiplied). `clip` is in pixels of the destination and may reach beyond it; nothing outside
// of either is touched. Which clip something is drawn through changes nothing about its pixels.
//
// Rectangles are in pixels. What depends on the size of a unit is given in units, which become
// pixels by the destination's ratio (PixelScale).

#include <interface/GraphicsDefs.h>
#include <interface/View.h>

#include "kits/interface/Display.h"
#include "kits/interface/PixelRule.h"

namespace BPrivate {

/// How to paint: what B_OP_ALPHA does with a colour's own alpha is what it does with a pixel's.
struct Paint {
    rgb_color high{0, 0, 0, 255};
    rgb_color low{255, 255, 255, 255};
    drawing_mode mode = B_OP_COPY;
    pattern fill = B_SOLID_HIGH;
};

/// Pixels to read: a buffer and how it is to be understood.
struct PixelSource {
    PixelBuffer buffer;
    color_space space = B_RGBA32;
};

namespace Painter {

/// With B_OP_OVER, pixels of the low colour are left alone. A pattern's squares are units.
void FillRect(const PixelBuffer& to, PixelRect clip, PixelRect rect, const Paint& paint);

/// A unit wide but no less than a pixel, both ends included; the ends are in units.
void DrawLine(const PixelBuffer& to, PixelRect clip, BPoint from, BPoint end, const Paint& paint);

/// Each colour becomes 255 less its value.
void InvertRect(const PixelBuffer& to, PixelRect clip, PixelRect rect);

/// Draws the part `source` of the picture into `destination`, which is in units: a pixel for each
/// unit when both are of one size, otherwise each pixel is the source's nearest. What of `source`
/// is outside of the picture draws nothing. The two buffers do not overlap, or are the same and the areas do not.
/// `options` are those of BView::DrawBitmap(); this is the one place where pixels are sampled.
void DrawPixels(const PixelBuffer& to, PixelRect clip, const PixelSource& from, PixelRect source,
    PixelRect destination, drawing_mode mode, uint32 options = 0);

/// The colour that results from drawing one over the other by the upper one's alpha.
rgb_color Blend(rgb_color over, rgb_color under);

}  // namespace Painter

}  // namespace BPrivate
