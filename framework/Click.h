#pragma once

// What counts as a click, and as a drag.

#include <interface/Point.h>
#include <support/SupportDefs.h>

enum TClickKind { kNoClick, kSingleClick, kDoubleClick };

/// Clicks are counted in threes: a third quick one is nothing, a fourth is single again.
constexpr TClickKind click_kind(int32 clicks) {
    switch (clicks % 3) {
    case 1: return kSingleClick;
    case 2: return kDoubleClick;
    default: return kNoClick;
    }
}

/// True if the mouse has moved far enough from the place of the press.
constexpr bool is_drag(BPoint down, BPoint now) {
    constexpr float kThreshold = 10.0F;  // square of the distance
    const float dx = now.x - down.x;
    const float dy = now.y - down.y;
    return dx * dx + dy * dy >= kThreshold;
}
