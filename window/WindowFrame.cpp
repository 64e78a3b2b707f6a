#include "window/WindowFrame.h"

#include <algorithm>
#include <cmath>

namespace {

/// What the desktop puts around a window's content, with some room to spare.
constexpr float kSideRoom = 10.0F;
constexpr float kTopRoom = 30.0F;

/// How much of a window must be on the screen for it to be found and dragged.
constexpr float kGrip = 48.0F;

bool is_rectangle(BRect frame) {
    return std::isfinite(frame.left) && std::isfinite(frame.top) && std::isfinite(frame.right) &&
        std::isfinite(frame.bottom) && frame.IsValid();
}

/// A side of an endless rectangle is infinite, which the comparison handles.
float usable_side(float side, float screenSide, float room, float minimum) {
    if (side > screenSide)
        side = screenSide - room;
    return std::max(side, minimum);
}

float moved_between(float from, float low, float high) {
    return std::max(std::min(from, high), low);
}

bool can_be_grabbed(BRect frame, BRect screen) {
    const BRect seen = frame & screen;
    return frame.top >= screen.top && seen.Width() >= std::min(kGrip, frame.Width()) &&
        seen.Height() >= std::min(kGrip, frame.Height());
}

}  // namespace

BRect usable_window_frame(
    BRect saved, BRect fallback, BRect screen, float minWidth, float minHeight) {
    const BRect frame = is_rectangle(saved) ? saved : fallback;
    const float width = usable_side(frame.Width(), screen.Width(), kSideRoom, minWidth);
    const float height = usable_side(frame.Height(), screen.Height(), kTopRoom, minHeight);

    const BRect sized(frame.left, frame.top, frame.left + width, frame.top + height);
    // Far outside, positions are too coarse to hold a width; such a frame is moved by all means.
    const bool isExact = sized.Width() == width && sized.Height() == height;
    if (isExact && can_be_grabbed(sized, screen))
        return sized;

    const float left = moved_between(frame.left, screen.left, screen.right - width);
    const float top = moved_between(frame.top, screen.top + kTopRoom, screen.bottom - height);
    return {left, top, left + width, top + height};
}
