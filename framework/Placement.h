#pragma once

// Where windows go on a screen. Pure geometry in screen coordinates.

#include <interface/Point.h>
#include <interface/Rect.h>

/// The place nearest to `where` at which a window of this size lies within the screen's right and
/// bottom edges less 5, and never left of or above 0, which wins.
BPoint placed_on_screen(BPoint where, float width, float height, BRect screen);

/// The left top corner at which a window of this size is centred on the screen.
BPoint centered_on_screen(float width, float height, BRect screen);
