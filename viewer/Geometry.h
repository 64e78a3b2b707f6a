#pragma once

// The viewer's arithmetic: sizes, places and ranges as plain functions of numbers. Widths and
// heights are the platform's measure, right minus left; a bitmap of width w covers ceil(w) + 1
// columns.

#include <interface/Point.h>
#include <interface/Rect.h>

/// A width and a height, right minus left and bottom minus top.
struct Extent {
    float width = 0;
    float height = 0;

    constexpr Extent() = default;
    constexpr Extent(float w, float h) : width(w), height(h) {}
    constexpr explicit Extent(BRect rect) : width(rect.Width()), height(rect.Height()) {}
    constexpr bool operator==(const Extent&) const = default;
};

/// Which scroll bars are shown.
struct ShownBars {
    bool horizontal = false;
    bool vertical = false;
    constexpr bool operator==(const ShownBars&) const = default;
};

/// A part of the scaled image and the place of the image area it is drawn at, both in whole
/// pixels and of the same size.
struct ImagePlacement {
    BRect source;
    BRect destination;
    constexpr bool operator==(const ImagePlacement&) const = default;
};

/// The parts of the image area that a rectangle leaves free. Unused ones are invalid.
struct Margins {
    BRect left;
    BRect right;
    BRect top;
    BRect bottom;
    constexpr bool operator==(const Margins&) const = default;
};

/// One direction of scrolling: values from 0 to `max`.
struct ScrollRange {
    float max = 0;
    float proportion = 1;  ///< visible part of the whole
    float bigStep = 0;     ///< half the visible part
    constexpr bool operator==(const ScrollRange&) const = default;
};

/// Where the view's children lie in it.
struct ChildFrames {
    BRect horizontalBar;
    BRect verticalBar;
    BRect corner;
    BRect statusBar;
};

constexpr float kStatusBarHeight = 14;
constexpr float kScrollBarThickness = 14;
constexpr float kScrollBarExtent = 13;  ///< the thickness as right minus left
constexpr float kSmallScrollStep = 10;

/// A scaled image is drawn from the decoded one and takes no memory. But its columns are counted in
/// floats, which have gaps from 2^24 on, so no side is longer than this.
constexpr double kMaxScaledSide = 16777214;

/// The extent to which a display option scales an image in an area.
///
/// An image of one column or row has no factor in that direction (its extent is 0): the other
/// direction decides alone, and where that is impossible the image keeps its size. A target that
/// is negative or not a number becomes 0; one beyond the limit above is reduced to it and keeps
/// its shape.
Extent target_extent(int32 displayOption, Extent image, Extent area);

/// What the bars leave of a view for the image.
Extent image_area(Extent view, ShownBars bars);

/// Where an image lies in its area: centred where it is smaller, moved by the scroll bars' values
/// where it is larger.
ImagePlacement place_image(Extent area, Extent image, BPoint scrolled);

/// Everything of the area around the covered part. An invalid `covered` leaves the whole area.
Margins margins_around(Extent area, BRect covered);

/// The left top of the comment band in the image area. Alignment 0 is at the top, any other at
/// the bottom.
BPoint comment_point(int32 alignment, float margin, Extent area, Extent band);

ScrollRange scroll_range(float image, float available);

/// Half the visible part of an image, in whole units.
float half_visible(float image, float proportion);

/// The bars an image needs in a window's area above which `viewTop` is taken by the menu bar.
ShownBars needed_scroll_bars(Extent image, Extent area, float viewTop);

ChildFrames child_frames(Extent view);

/// A scroll bar's size leaves room for the other bar and the status bar.
Extent horizontal_bar_extent(Extent view, bool verticalShown);
Extent vertical_bar_extent(Extent view, bool horizontalShown);

/// The part of the screen a fitted window may take.
BRect window_limit(BRect screen);

/// The size of a window that shows the whole image, as far as the limit allows.
Extent fitted_window(Extent image, Extent limit, float viewTop, ShownBars bars);

/// The left top a window moves to so that its right and bottom edges stay on the screen.
BPoint moved_onto_screen(BRect window, BRect limit);
