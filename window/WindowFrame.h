#pragma once

#include <interface/Rect.h>

/// The frame to open a window with, made of one that was saved in an earlier run and may come
/// from a screen that is gone or from a damaged file. Screen coordinates.
///
/// - A frame that is no rectangle (an edge that is not a finite number, right left of left, bottom
///   above top) gives `fallback`.
/// - A side longer than the screen's is cut to leave room for the desktop's own frame, one shorter
///   than its minimum is lengthened.
/// - The window stays where it was if enough of it can be seen and its top can be grabbed; else it
///   is moved by the least that brings it onto the screen.
BRect usable_window_frame(
    BRect saved, BRect fallback, BRect screen, float minWidth, float minHeight);
