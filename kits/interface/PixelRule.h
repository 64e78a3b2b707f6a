#pragma once

// How positions become pixels: the one place that decides.
//
// - A pixel is named by the floor of a position within it.
// - A filled rectangle covers the pixels of its edges and all between: floor(left) to
//   floor(right). (0, 0, 0.5, 0.5) is one pixel. One that is invalid or not finite covers none.
// - Something of width w, a bitmap or a view, has ceil(w) + 1 columns from floor(left) on, so that
//   it holds whatever is drawn into it. A width that is whole but for the rounding of its edges'
//   positions counts as whole.
//
// Everything is safe for any float: what lies far outside is cut to a range that leaves room to
// add and subtract.

#include <algorithm>
#include <cmath>
#include <interface/Rect.h>

namespace BPrivate {

/// A rectangle of pixels. The right column and the bottom row are not part of it.
struct PixelRect {
    int32 left = 0;
    int32 top = 0;
    int32 right = 0;
    int32 bottom = 0;

    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr int32 Width() const { return right - left; }
    constexpr int32 Height() const { return bottom - top; }
    constexpr bool Contains(const PixelRect& r) const {
        return r.left >= left && r.top >= top && r.right <= right && r.bottom <= bottom;
    }
    constexpr PixelRect operator&(const PixelRect& r) const {
        return {std::max(left, r.left), std::max(top, r.top), std::min(right, r.right),
            std::min(bottom, r.bottom)};
    }
    /// The smallest rectangle around both; an empty one does not count.
    constexpr PixelRect operator|(const PixelRect& r) const {
        if (IsEmpty())
            return r;
        if (r.IsEmpty())
            return *this;
        return {std::min(left, r.left), std::min(top, r.top), std::max(right, r.right),
            std::max(bottom, r.bottom)};
    }
    constexpr bool operator==(const PixelRect&) const = default;

    /// The same pixels as a kit rectangle, edges inclusive.
    constexpr BRect ToRect() const {
        return {static_cast<float>(left), static_cast<float>(top), static_cast<float>(right) - 1,
            static_cast<float>(bottom) - 1};
    }
};

/// No position lies further out than this, nor is anything larger.
inline constexpr int32 kPixelLimit = 1 << 28;

/// The pixel a position lies in. Any finite value is brought into range; the caller has dealt
/// with what is not finite.
inline int32 PixelAt(float position) {
    constexpr auto limit = static_cast<float>(kPixelLimit);
    return static_cast<int32>(std::floor(std::clamp(position, -limit, limit)));
}

inline bool IsFinite(BPoint p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

inline bool IsFinite(BRect r) {
    return IsFinite(r.LeftTop()) && IsFinite(r.RightBottom());
}

/// The pixels a filled rectangle covers.
inline PixelRect FilledPixels(BRect rect) {
    if (!IsFinite(rect) || !rect.IsValid())
        return {};
    return {
        PixelAt(rect.left), PixelAt(rect.top), PixelAt(rect.right) + 1, PixelAt(rect.bottom) + 1};
}

/// How many columns something from `left` to `right` has (or rows, from top to bottom). Zero when
/// it is invalid or not finite.
inline int32 PixelCount(float left, float right) {
    const double extent = static_cast<double>(right) - static_cast<double>(left);
    if (!std::isfinite(extent) || extent < 0)
        return 0;
    // Moving a rectangle rounds both edges to the spacing of floats there, 2^-23 of the position.
    const double rounding = std::ldexp(std::max(std::fabs(left), std::fabs(right)), -21);
    const double count = std::ceil(extent - std::min(rounding, 0.25)) + 1;
    return static_cast<int32>(std::clamp(count, 1.0, static_cast<double>(kPixelLimit)));
}

/// The pixels of something that lies at this rectangle: a view, or a bitmap drawn into it.
inline PixelRect CoveredPixels(BRect rect) {
    if (!IsFinite(rect) || !rect.IsValid())
        return {};
    const int32 left = PixelAt(rect.left);
    const int32 top = PixelAt(rect.top);
    return {left, top, left + PixelCount(rect.left, rect.right),
        top + PixelCount(rect.top, rect.bottom)};
}

}  // namespace BPrivate
