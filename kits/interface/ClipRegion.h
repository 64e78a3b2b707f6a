#pragma once

#include <vector>

#include "kits/interface/PixelRule.h"

namespace BPrivate {

/// A set of pixels, as rectangles that do not overlap. A value of one thread.
class ClipRegion {
public:
    ClipRegion() = default;
    explicit ClipRegion(PixelRect rect);

    bool IsEmpty() const { return fRects.empty(); }
    const std::vector<PixelRect>& Rects() const { return fRects; }
    /// The smallest rectangle around all.
    PixelRect Frame() const;
    bool Intersects(PixelRect rect) const;

    void Include(PixelRect rect);
    void Exclude(PixelRect rect);
    void IntersectWith(PixelRect rect);
    void IntersectWith(const ClipRegion& other);
    void Clear() { fRects.clear(); }

private:
    std::vector<PixelRect> fRects;
};

}  // namespace BPrivate
