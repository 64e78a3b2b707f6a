#pragma once

#include <algorithm>
#include <interface/Point.h>

/// A rectangle by its four edges in kit units. The edges are pixel positions, both inclusive: a
/// rectangle of width 0 covers one column. One whose right is less than its left, or bottom less
/// than its top, is invalid and covers nothing.
class BRect {
public:
    float left = 0;
    float top = 0;
    float right = -1;
    float bottom = -1;

    constexpr BRect() = default;
    constexpr BRect(float l, float t, float r, float b) : left(l), top(t), right(r), bottom(b) {}
    constexpr BRect(BPoint leftTop, BPoint rightBottom)
        : left(leftTop.x), top(leftTop.y), right(rightBottom.x), bottom(rightBottom.y) {}

    constexpr void Set(float l, float t, float r, float b) {
        left = l, top = t, right = r, bottom = b;
    }

    constexpr bool IsValid() const { return left <= right && top <= bottom; }

    /// Right minus left: one less than the number of columns covered.
    constexpr float Width() const { return right - left; }
    /// Bottom minus top: one less than the number of rows covered.
    constexpr float Height() const { return bottom - top; }
    int32 IntegerWidth() const;
    int32 IntegerHeight() const;

    constexpr BPoint LeftTop() const { return {left, top}; }
    constexpr BPoint RightTop() const { return {right, top}; }
    constexpr BPoint LeftBottom() const { return {left, bottom}; }
    constexpr BPoint RightBottom() const { return {right, bottom}; }

    constexpr void OffsetBy(float dx, float dy) {
        left += dx, right += dx, top += dy, bottom += dy;
    }
    constexpr void OffsetBy(BPoint by) { OffsetBy(by.x, by.y); }
    constexpr void OffsetTo(float x, float y) { OffsetBy(x - left, y - top); }
    constexpr void OffsetTo(BPoint to) { OffsetTo(to.x, to.y); }
    constexpr BRect OffsetByCopy(float dx, float dy) const {
        BRect r(*this);
        r.OffsetBy(dx, dy);
        return r;
    }
    constexpr BRect OffsetByCopy(BPoint by) const { return OffsetByCopy(by.x, by.y); }
    constexpr BRect OffsetToCopy(float x, float y) const {
        BRect r(*this);
        r.OffsetTo(x, y);
        return r;
    }
    constexpr BRect OffsetToCopy(BPoint to) const { return OffsetToCopy(to.x, to.y); }
    constexpr void InsetBy(float dx, float dy) { left += dx, right -= dx, top += dy, bottom -= dy; }
    constexpr BRect InsetByCopy(float dx, float dy) const {
        BRect r(*this);
        r.InsetBy(dx, dy);
        return r;
    }

    constexpr bool Contains(BPoint p) const {
        return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
    }
    constexpr bool Contains(BRect r) const {
        return r.left >= left && r.right <= right && r.top >= top && r.bottom <= bottom;
    }
    constexpr bool Intersects(BRect r) const { return (*this & r).IsValid(); }

    /// The common part; invalid when there is none.
    constexpr BRect operator&(BRect r) const {
        return {std::max(left, r.left), std::max(top, r.top), std::min(right, r.right),
            std::min(bottom, r.bottom)};
    }
    /// The smallest rectangle around both. An invalid rectangle counts with its edges as they are.
    constexpr BRect operator|(BRect r) const {
        return {std::min(left, r.left), std::min(top, r.top), std::max(right, r.right),
            std::max(bottom, r.bottom)};
    }
    constexpr bool operator==(const BRect&) const = default;
};

inline int32 BRect::IntegerWidth() const {
    return static_cast<int32>(right - left + 0.5F);
}
inline int32 BRect::IntegerHeight() const {
    return static_cast<int32>(bottom - top + 0.5F);
}
