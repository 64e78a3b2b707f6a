#pragma once

// Placing the controls of a dialog. Their window must be locked when they are in one.

#include <interface/Point.h>

class BView;

/// The width and height that the view would like to have, raised to whole numbers.
BPoint preferred_size(BView* view);

void place(BView* view, float left, float top, float width, float height);
