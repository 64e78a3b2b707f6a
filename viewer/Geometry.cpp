#include "viewer/Geometry.h"

#include <cmath>
#include <limits>

#include "settings/DisplayOption.h"

namespace {

constexpr double kUnlimited = std::numeric_limits<double>::infinity();

double scale_factor(double available, double extent) {
    return extent > 0 ? available / extent : kUnlimited;
}

double finite_or_one(double factor) {
    return std::isfinite(factor) ? factor : 1;
}

// Not a number counts as 0. Beyond any limit by far, but finite.
double sane(double extent) {
    return extent > 0 ? std::min(extent, 1e12) : 0;
}

Extent limited(double width, double height) {
    width = sane(width);
    height = sane(height);
    double longest = std::max(width, height);
    if (longest > kMaxScaledSide) {
        width *= kMaxScaledSide / longest;
        height *= kMaxScaledSide / longest;
    }
    return {static_cast<float>(width), static_cast<float>(height)};
}

// As a bitmap counts them: an extent that is whole but for what a float loses counts as whole. A
// column more would be one that nothing is drawn in.
float column_count(float extent) {
    double lost = std::min(std::ldexp(std::fabs(double{extent}), -21), 0.25);
    return static_cast<float>(std::ceil(double{extent} - lost) + 1);
}

struct Span {
    float source;
    float destination;
    float last;  ///< of the destination
};

Span place(float area, float image, float scrolled) {
    float columns = column_count(image);
    float areaColumns = column_count(area);
    float margin = area - image;
    if (margin > 0) {
        float start = std::floor(margin * 0.5F);
        return {0, start, std::min(start + columns, areaColumns) - 1};
    }
    // A fractional end of the range still reaches the last column.
    float source = std::clamp(std::ceil(scrolled), 0.0F, std::max(0.0F, columns - areaColumns));
    return {source, 0, std::min(columns - source, areaColumns) - 1};
}

}  // namespace

Extent target_extent(int32 displayOption, Extent image, Extent area) {
    // Reckoned in double so that an extent times its own factor is exactly the area again and
    // calls for no scroll bar.
    double factorX = scale_factor(area.width, image.width);
    double factorY = scale_factor(area.height, image.height);
    double factor = 1;
    switch (displayOption) {
    case kDontFitAnything:
    case kFitWindowToImage: return image;
    case kFitImageToWindow: return limited(area.width, area.height);
    case kScaleImageToWindow: factor = finite_or_one(factorY < factorX ? factorY : factorX); break;
    case kScaleImageToWindowWidth:
        factor = finite_or_one(factorX);
        if (area.height < static_cast<float>(image.height * factor) && image.width > 0)
            factor = scale_factor(area.width - kScrollBarThickness, image.width);
        break;
    case kScaleImageToWindowHeight:
        factor = finite_or_one(factorY);
        if (area.width < static_cast<float>(image.width * factor) && image.height > 0)
            factor = scale_factor(area.height - kScrollBarThickness, image.height);
        break;
    default: return {0, 0};
    }
    return limited(image.width * factor, image.height * factor);
}

Extent image_area(Extent view, ShownBars bars) {
    float width = view.width - (bars.vertical ? kScrollBarThickness : 0);
    float height = view.height - kStatusBarHeight - (bars.horizontal ? kScrollBarExtent : 0);
    return {width, height};
}

ImagePlacement place_image(Extent area, Extent image, BPoint scrolled) {
    Span x = place(area.width, image.width, scrolled.x);
    Span y = place(area.height, image.height, scrolled.y);
    BRect destination(x.destination, y.destination, x.last, y.last);
    return {destination.OffsetToCopy(x.source, y.source), destination};
}

Margins margins_around(Extent area, BRect covered) {
    BRect whole(0, 0, area.width, area.height);
    if (!covered.IsValid())
        return {whole, {}, {}, {}};
    Margins margins;
    if (covered.left > whole.left)
        margins.left.Set(whole.left, whole.top, covered.left - 1, whole.bottom);
    if (covered.right < whole.right)
        margins.right.Set(covered.right + 1, whole.top, whole.right, whole.bottom);
    if (covered.top > whole.top)
        margins.top.Set(whole.left, whole.top, whole.right, covered.top - 1);
    if (covered.bottom < whole.bottom)
        margins.bottom.Set(whole.left, covered.bottom + 1, whole.right, whole.bottom);
    return margins;
}

BPoint comment_point(int32 alignment, float margin, Extent area, Extent band) {
    return {margin, alignment == 0 ? margin : area.height - margin - band.height};
}

ScrollRange scroll_range(float image, float available) {
    if (image <= 0)
        return {};
    float visible = std::clamp(available / image, 0.0F, 1.0F);
    return {std::max(0.0F, image - available), visible, half_visible(image, visible)};
}

float half_visible(float image, float proportion) {
    return std::trunc(image * proportion * 0.5F);
}

ShownBars needed_scroll_bars(Extent image, Extent area, float viewTop) {
    ShownBars bars;
    // Twice: a bar takes room that may call for the other one.
    for (int pass = 0; pass < 2; ++pass) {
        if (area.width < image.width + (bars.vertical ? kScrollBarThickness : 0))
            bars.horizontal = true;
        float below = kStatusBarHeight + (bars.horizontal ? kScrollBarExtent : 0);
        if (area.height < image.height + viewTop + below)
            bars.vertical = true;
    }
    return bars;
}

ChildFrames child_frames(Extent view) {
    float right = view.width;
    float bottom = view.height;
    float statusTop = bottom - (kStatusBarHeight - 1);
    float barTop = statusTop - kScrollBarExtent;
    float barLeft = right - kScrollBarExtent;
    return {
        {0, barTop, barLeft, statusTop},
        {barLeft, 0, right, barTop},
        {barLeft, barTop, right, statusTop},
        {0, statusTop, right, bottom},
    };
}

Extent horizontal_bar_extent(Extent view, bool verticalShown) {
    return {view.width + 1 - (verticalShown ? kScrollBarThickness : 0), kScrollBarExtent};
}

Extent vertical_bar_extent(Extent view, bool horizontalShown) {
    float below = kStatusBarHeight + (horizontalShown ? kScrollBarExtent : 0);
    return {kScrollBarExtent, view.height + 1 - below};
}

BRect window_limit(BRect screen) {
    return {screen.left, screen.top, screen.right - 10, screen.bottom - 30};
}

Extent fitted_window(Extent image, Extent limit, float viewTop, ShownBars bars) {
    float width = image.width + (bars.vertical ? kScrollBarThickness : 0);
    float height =
        image.height + viewTop + kStatusBarHeight + (bars.horizontal ? kScrollBarExtent : 0);
    return {std::min(width, limit.width), std::min(height, limit.height)};
}

BPoint moved_onto_screen(BRect window, BRect limit) {
    float right = limit.right + 5;
    float bottom = limit.bottom + 20 + 5;
    return {window.right > right ? right - window.Width() : window.left,
        window.bottom > bottom ? bottom - window.Height() : window.top};
}
