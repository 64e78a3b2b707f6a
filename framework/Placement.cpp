#include "framework/Placement.h"

#include <algorithm>

BPoint placed_on_screen(BPoint where, float width, float height, BRect screen) {
    constexpr float kMargin = 5.0F;
    where.x = std::min(where.x, screen.right - width - kMargin);
    where.y = std::min(where.y, screen.bottom - height - kMargin);
    return {std::max(where.x, 0.0F), std::max(where.y, 0.0F)};
}

BPoint centered_on_screen(float width, float height, BRect screen) {
    return {screen.left + (screen.Width() - width) * 0.5F,
        screen.top + (screen.Height() - height) * 0.5F};
}
