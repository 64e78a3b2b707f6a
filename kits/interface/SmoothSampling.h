#pragma once

// A picture at another size, smoothly: the mean of what a pixel covers where the picture gets
// smaller, blended from the nearest pixels where it gets larger, each direction by itself.
//
// Pure: pixels in, pixels out. A transparent pixel's colour counts for nothing. What a pixel
// becomes does not depend on what else is asked for, so drawing in parts gives what drawing the
// whole would. The time taken is linear in the pixels asked for and, where the picture gets
// smaller, in those of the source that they cover; the memory is that of a few rows.

#include <functional>

#include "kits/interface/Painter.h"

namespace BPrivate {

/// Where all of a picture lies among the pixels of a destination, with parts of pixels. It may be
/// far larger than anything that is ever drawn.
struct SmoothFrame {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// Takes one row that is ready: as many pixels as the clip is wide (B, G, R, A; alpha not
/// premultiplied), valid during the call.
using SmoothRowTaker = std::function<void(int32 y, const uint8* pixels)>;

/// Brings the part `source` of a picture, which lies in the picture, to the size of `frame`, and
/// gives the rows of `clip`, from the top. `clip` is in pixels of the destination and lies in the
/// frame; its pixels that the frame only touches count as covered. Nothing is given when either
/// is empty.
void SampleSmoothly(const PixelSource& from, PixelRect source, const SmoothFrame& frame,
    PixelRect clip, const SmoothRowTaker& take);

}  // namespace BPrivate
