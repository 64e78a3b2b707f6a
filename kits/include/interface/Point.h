#pragma once

#include <support/SupportDefs.h>

/// A point, or an offset, in kit units (one unit is one logical pixel).
class BPoint {
public:
    float x = 0;
    float y = 0;

    constexpr BPoint() = default;
    constexpr BPoint(float px, float py) : x(px), y(py) {}

    constexpr void Set(float px, float py) { x = px, y = py; }

    constexpr BPoint operator+(BPoint o) const { return {x + o.x, y + o.y}; }
    constexpr BPoint operator-(BPoint o) const { return {x - o.x, y - o.y}; }
    constexpr BPoint operator-() const { return {-x, -y}; }
    constexpr BPoint& operator+=(BPoint o) { return *this = *this + o; }
    constexpr BPoint& operator-=(BPoint o) { return *this = *this - o; }
    constexpr bool operator==(const BPoint&) const = default;
};

inline constexpr BPoint B_ORIGIN{};
