#include "viewer/Geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <interface/Bitmap.h>
#include <limits>
#include <set>

#include "settings/DisplayOption.h"

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

// Extents are one less than the pixels: (199, 99) is an image of 200 x 100.
struct TargetCase {
    const char* what;
    int32 option;
    Extent image;
    Extent area;
    Extent target;
};

const TargetCase kTargets[] = {
    {"natural size", kDontFitAnything, {199, 99}, {400, 400}, {199, 99}},
    {"natural size, fitted window", kFitWindowToImage, {1999, 999}, {400, 400}, {1999, 999}},
    {"both axes", kFitImageToWindow, {199, 99}, {400, 400}, {400, 400}},
    {"inside, limited by width", kScaleImageToWindow, {200, 100}, {400, 800}, {400, 200}},
    {"inside, limited by height", kScaleImageToWindow, {100, 200}, {800, 400}, {200, 400}},
    {"inside, both alike", kScaleImageToWindow, {100, 200}, {400, 800}, {400, 800}},
    {"inside, enlarged", kScaleImageToWindow, {3, 2}, {300, 300}, {300, 200}},
    {"inside, fractional", kScaleImageToWindow, {300, 100}, {100, 100}, {100, 100.0F / 3}},
    {"width", kScaleImageToWindowWidth, {200, 100}, {400, 400}, {400, 200}},
    {"width, exactly as high", kScaleImageToWindowWidth, {200, 100}, {400, 200}, {400, 200}},
    {"width, needs the bar", kScaleImageToWindowWidth, {200, 200}, {414, 300}, {400, 400}},
    {"height", kScaleImageToWindowHeight, {100, 200}, {400, 400}, {200, 400}},
    {"height, exactly as wide", kScaleImageToWindowHeight, {100, 200}, {200, 400}, {200, 400}},
    {"height, needs the bar", kScaleImageToWindowHeight, {200, 200}, {300, 414}, {400, 400}},
    {"unknown option", 6, {199, 99}, {400, 400}, {0, 0}},
    {"negative option", -1, {199, 99}, {400, 400}, {0, 0}},

    {"one column, both axes", kFitImageToWindow, {0, 99}, {400, 300}, {400, 300}},
    {"one column, inside", kScaleImageToWindow, {0, 100}, {400, 300}, {0, 300}},
    {"one row, inside", kScaleImageToWindow, {100, 0}, {400, 300}, {400, 0}},
    {"one pixel, inside", kScaleImageToWindow, {0, 0}, {400, 300}, {0, 0}},
    {"one column, width", kScaleImageToWindowWidth, {0, 500}, {400, 300}, {0, 500}},
    {"one row, width", kScaleImageToWindowWidth, {100, 0}, {400, 300}, {400, 0}},
    {"one column, height", kScaleImageToWindowHeight, {0, 100}, {400, 300}, {0, 300}},
    {"one row, height", kScaleImageToWindowHeight, {500, 0}, {400, 300}, {500, 0}},

    {"no room", kFitImageToWindow, {199, 99}, {-1, -14}, {0, 0}},
    {"no room inside", kScaleImageToWindow, {199, 99}, {100, -14}, {0, 0}},
    {"narrower than the bar", kScaleImageToWindowWidth, {10, 1000}, {10, 20}, {0, 0}},
    {"not a number", kFitImageToWindow, {199, 99}, {kNaN, 300}, {0, 300}},
};

TEST(TargetExtent, FollowsTheDisplayOption) {
    for (const TargetCase& c : kTargets) {
        Extent target = target_extent(c.option, c.image, c.area);
        EXPECT_FLOAT_EQ(target.width, c.target.width) << c.what;
        EXPECT_FLOAT_EQ(target.height, c.target.height) << c.what;
    }
}

// An extent a little above the area's would call for a scroll bar.
TEST(TargetExtent, ScalesToTheAreaItselfAndNotBesideIt) {
    for (int image = 1; image < 1500; image += 7) {
        for (int area = 50; area < 1500; area += 13) {
            auto w = static_cast<float>(image);
            auto a = static_cast<float>(area);
            ASSERT_EQ(target_extent(kScaleImageToWindow, {w, 1}, {a, 1e6F}).width, a);
            ASSERT_EQ(target_extent(kScaleImageToWindowWidth, {w, 1}, {a, 1e6F}).width, a);
            ASSERT_EQ(target_extent(kScaleImageToWindowHeight, {1, w}, {1e6F, a}).height, a);
        }
    }
}

// Floats count whole numbers without gaps up to 2^24; a bitmap has a column more than its extent.
TEST(TargetExtent, HasNoSideThatCannotBeCounted) {
    const Extent images[] = {{1, 30000}, {30000, 1}, {1, 1}, {3, 16000000}, {799, 49999}};
    const Extent areas[] = {{3840, 2160}, {1e9F, 1e9F}, {kInfinity, kInfinity}, {1e30F, 10}};
    for (Extent image : images) {
        for (Extent area : areas) {
            for (int32 option = 2; option < kDisplayOptionCount; ++option) {
                Extent target = target_extent(option, image, area);
                ASSERT_TRUE(std::isfinite(target.width) && std::isfinite(target.height));
                ASSERT_GE(target.width, 0);
                ASSERT_GE(target.height, 0);
                ASSERT_LE(std::max(target.width, target.height) + 1, 16777216)
                    << option << ": " << target.width << " x " << target.height;
            }
        }
    }
}

TEST(TargetExtent, ThinImagesFillTheWindowTheyAreScaledTo) {
    EXPECT_EQ(
        target_extent(kScaleImageToWindowHeight, {29999, 9}, {1000, 914}), Extent(2999900, 900));
    EXPECT_EQ(
        target_extent(kScaleImageToWindowHeight, {2999, 1}, {1000, 914}), Extent(2699100, 900));
    EXPECT_EQ(
        target_extent(kScaleImageToWindowWidth, {9, 29999}, {914, 1000}), Extent(900, 2999900));
}

TEST(TargetExtent, KeepsItsShapeWhenReduced) {
    // 65,000 x 2 shown 900 high would be 58 million wide.
    Extent target = target_extent(kScaleImageToWindowHeight, {64999, 1}, {1000, 914});
    EXPECT_EQ(target.width, static_cast<float>(kMaxScaledSide));
    EXPECT_NEAR(target.width / target.height, 64999, 1);
}

// A decoded image exists already, so its own size is always possible.
TEST(TargetExtent, NeverReducesTheNaturalSize) {
    Extent huge(39999, 29999);
    EXPECT_EQ(target_extent(kFitWindowToImage, huge, {400, 400}), huge);
    EXPECT_EQ(target_extent(kScaleImageToWindow, huge, huge), huge);
}

TEST(ImageArea, LeavesTheBars) {
    Extent view(299, 219);
    EXPECT_EQ(image_area(view, {false, false}), Extent(299, 205));
    EXPECT_EQ(image_area(view, {true, false}), Extent(299, 192));
    EXPECT_EQ(image_area(view, {false, true}), Extent(285, 205));
    EXPECT_EQ(image_area(view, {true, true}), Extent(285, 192));
}

struct PlacementCase {
    const char* what;
    Extent area;
    Extent image;
    BPoint scrolled;
    BRect source;
    BRect destination;
};

const PlacementCase kPlacements[] = {
    {"exactly the area", {99, 49}, {99, 49}, {0, 0}, {0, 0, 99, 49}, {0, 0, 99, 49}},
    {"centred", {99, 49}, {59, 29}, {0, 0}, {0, 0, 59, 29}, {20, 10, 79, 39}},
    {"odd margins", {99, 49}, {58, 28}, {0, 0}, {0, 0, 58, 28}, {20, 10, 78, 38}},
    {"one pixel smaller", {99, 49}, {98, 48}, {0, 0}, {0, 0, 98, 48}, {0, 0, 98, 48}},
    {"fractional", {99, 49}, {59.5F, 29.25F}, {0, 0}, {0, 0, 60, 30}, {19, 9, 79, 39}},
    {"fraction below the area", {99, 49}, {98.5F, 49}, {0, 0}, {0, 0, 99, 49}, {0, 0, 99, 49}},
    {"fraction above the area", {99, 49}, {99.5F, 49}, {0, 0}, {0, 0, 99, 49}, {0, 0, 99, 49}},
    {"larger", {99, 49}, {299, 199}, {0, 0}, {0, 0, 99, 49}, {0, 0, 99, 49}},
    {"scrolled", {99, 49}, {299, 199}, {30, 20}, {30, 20, 129, 69}, {0, 0, 99, 49}},
    {"to the end", {99, 49}, {299, 199}, {200, 150}, {200, 150, 299, 199}, {0, 0, 99, 49}},
    {"beyond it", {99, 49}, {299, 199}, {900, 900}, {200, 150, 299, 199}, {0, 0, 99, 49}},
    {"a fractional end", {99, 49}, {299.5F, 49}, {200.5F, 0}, {201, 0, 300, 49}, {0, 0, 99, 49}},
    {"one way only", {99, 49}, {299, 29}, {7, 0}, {7, 0, 106, 29}, {0, 10, 99, 39}},
};

TEST(PlaceImage, CentresOrScrolls) {
    for (const PlacementCase& c : kPlacements) {
        ImagePlacement placement = place_image(c.area, c.image, c.scrolled);
        EXPECT_EQ(placement.source, c.source) << c.what;
        EXPECT_EQ(placement.destination, c.destination) << c.what;
    }
}

// A column that the bitmap does not have would keep what was drawn there before.
TEST(PlaceImage, ScrollsToTheBitmapsLastColumnAndNoFurther) {
    const float extents[] = {99, 99.5F, 1000.0001F, 3333.3335F, 524288.25F, 2999966.25F, 2999966.5F,
        4194304.5F, 8388609, 16777213, static_cast<float>(kMaxScaledSide)};
    for (float extent : extents) {
        Extent area(49, 0);
        BPoint end(scroll_range(extent, area.width).max, 0);
        BRect shown = place_image(area, {extent, 0}, end).source;
        BBitmap bitmap(BRect(0, 0, extent, 0), B_RGBA32, true);
        int32 columns = bitmap.BytesPerRow() / 4;
        EXPECT_EQ(static_cast<int32>(shown.right) + 1, columns) << extent;
        EXPECT_EQ(static_cast<int32>(shown.left), columns - 50) << extent;
    }
}

TEST(PlaceImage, IsInvalidWithoutRoom) {
    EXPECT_FALSE(place_image({99, -5}, {10, 10}, {0, 0}).destination.IsValid());
}

TEST(MarginsAround, AreTheBandsBesideAnEvenlyCentredImage) {
    // Margins of 40 and 20, halved: bands end one before the image and start one behind it.
    Margins margins = margins_around({99, 49}, {20, 10, 79, 39});
    EXPECT_EQ(margins.left, BRect(0, 0, 19, 49));
    EXPECT_EQ(margins.right, BRect(80, 0, 99, 49));
    EXPECT_EQ(margins.top, BRect(0, 0, 99, 9));
    EXPECT_EQ(margins.bottom, BRect(0, 40, 99, 49));
}

TEST(MarginsAround, AreTheWholeAreaWithoutAnImage) {
    Margins margins = margins_around({99, 49}, BRect());
    EXPECT_EQ(margins.left, BRect(0, 0, 99, 49));
}

TEST(MarginsAround, AreEmptyAroundAnImageThatFills) {
    Margins margins = margins_around({99, 49}, {0, 0, 99, 49});
    for (BRect band : {margins.left, margins.right, margins.top, margins.bottom})
        EXPECT_FALSE(band.IsValid());
}

// Every pixel of the area is drawn exactly by the image or by the background.
TEST(MarginsAround, CoverWhatTheImageLeaves) {
    Extent area(20, 17);
    for (float w = 0; w < 25; w += 0.25F) {
        for (float h = 0; h < 22; h += 0.75F) {
            BRect image = place_image(area, {w, h}, {0, 0}).destination;
            Margins margins = margins_around(area, image);
            for (float y = 0; y <= area.height; ++y) {
                for (float x = 0; x <= area.width; ++x) {
                    BPoint pixel(x, y);
                    bool background = margins.left.Contains(pixel) ||
                        margins.right.Contains(pixel) || margins.top.Contains(pixel) ||
                        margins.bottom.Contains(pixel);
                    ASSERT_NE(background, image.Contains(pixel)) << w << " x " << h;
                }
            }
        }
    }
}

TEST(CommentPoint, FollowsTheAlignment) {
    EXPECT_EQ(comment_point(0, 20, {299, 205}, {100, 30}), BPoint(20, 20));
    EXPECT_EQ(comment_point(1, 20, {299, 205}, {100, 30}), BPoint(20, 155));
    EXPECT_EQ(comment_point(7, 20, {299, 205}, {100, 30}), BPoint(20, 155));
    // 13 higher above the horizontal bar.
    EXPECT_EQ(
        comment_point(1, 20, image_area({299, 219}, {true, false}), {100, 30}), BPoint(20, 142));
}

TEST(ScrollRange, GoesToTheEndInHalfScreens) {
    EXPECT_EQ(scroll_range(400, 100), (ScrollRange{300, 0.25F, 50}));
    EXPECT_EQ(scroll_range(300, 101), (ScrollRange{199, 101.0F / 300, 50}));
    EXPECT_EQ(scroll_range(100, 400), (ScrollRange{0, 1, 50}));
    EXPECT_EQ(scroll_range(0, 400), (ScrollRange{0, 1, 0}));
    EXPECT_EQ(scroll_range(100, -20), (ScrollRange{120, 0, 0}));
}

struct BarsCase {
    Extent image;
    Extent area;
    float viewTop;
    ShownBars bars;
};

const BarsCase kBars[] = {
    {{100, 100}, {100, 134}, 20, {false, false}},  // 100 + menu bar 20 + status bar 14
    {{100, 100}, {99, 200}, 20, {true, false}},
    {{100, 100}, {200, 133}, 20, {false, true}},
    {{100, 100}, {99, 133}, 20, {true, true}},
    {{100, 100}, {99, 134}, 20, {true, true}},  // the horizontal bar calls for the vertical
    {{100, 100}, {99, 147}, 20, {true, false}},
    {{100, 100}, {113, 133}, 20, {true, true}},  // and the vertical for the horizontal
    {{100, 100}, {114, 133}, 20, {false, true}},
};

TEST(NeededScrollBars, CountWhatBarsTake) {
    for (const BarsCase& c : kBars) {
        ShownBars bars = needed_scroll_bars(c.image, c.area, c.viewTop);
        EXPECT_EQ(bars.horizontal, c.bars.horizontal) << c.area.width << " " << c.area.height;
        EXPECT_EQ(bars.vertical, c.bars.vertical) << c.area.width << " " << c.area.height;
    }
}

TEST(ChildFrames, LieAlongTheEdges) {
    ChildFrames frames = child_frames({299, 219});
    EXPECT_EQ(frames.horizontalBar, BRect(0, 193, 286, 206));
    EXPECT_EQ(frames.verticalBar, BRect(286, 0, 299, 193));
    EXPECT_EQ(frames.corner, BRect(286, 193, 299, 206));
    EXPECT_EQ(frames.statusBar, BRect(0, 206, 299, 219));
}

TEST(BarExtents, LeaveRoomForTheOtherBar) {
    EXPECT_EQ(horizontal_bar_extent({299, 219}, false), Extent(300, 13));
    EXPECT_EQ(horizontal_bar_extent({299, 219}, true), Extent(286, 13));
    EXPECT_EQ(vertical_bar_extent({299, 219}, false), Extent(13, 206));
    EXPECT_EQ(vertical_bar_extent({299, 219}, true), Extent(13, 193));
}

TEST(WindowLimit, KeepsOffTheScreensEdges) {
    EXPECT_EQ(window_limit({0, 0, 1919, 1079}), BRect(0, 0, 1909, 1049));
    EXPECT_EQ(window_limit({-1280, 200, -1, 1223}), BRect(-1280, 200, -11, 1193));
}

TEST(FittedWindow, HoldsTheImageAndTheBars) {
    Extent limit(1909, 1049);
    EXPECT_EQ(fitted_window({199, 99}, limit, 20, {false, false}), Extent(199, 133));
    EXPECT_EQ(fitted_window({199, 99}, limit, 20, {true, true}), Extent(213, 146));
    EXPECT_EQ(fitted_window({3999, 2999}, limit, 20, {true, true}), Extent(1909, 1049));
    EXPECT_EQ(fitted_window({199, 2999}, limit, 20, {false, true}), Extent(213, 1049));
}

TEST(MovedOntoScreen, KeepsTheRightAndBottomEdgesInside) {
    BRect limit = window_limit({0, 0, 1919, 1079});
    EXPECT_EQ(moved_onto_screen({50, 60, 300, 400}, limit), BPoint(50, 60));
    // The edges end 5 inside of the screen's.
    EXPECT_EQ(moved_onto_screen({1800, 60, 2000, 400}, limit), BPoint(1714, 60));
    EXPECT_EQ(moved_onto_screen({50, 900, 300, 1100}, limit), BPoint(50, 874));
    EXPECT_EQ(moved_onto_screen({1814, 974, 1914, 1074}, limit), BPoint(1814, 974));
    EXPECT_EQ(moved_onto_screen({1815, 975, 1915, 1075}, limit), BPoint(1814, 974));
}

TEST(MovedOntoScreen, KeepsToAScreenThatLiesElsewhere) {
    BRect limit = window_limit({-1280, 200, -1, 1223});
    EXPECT_EQ(moved_onto_screen({-1000, 300, -700, 500}, limit), BPoint(-1000, 300));
    EXPECT_EQ(moved_onto_screen({-200, 300, 100, 500}, limit), BPoint(-306, 300));
    EXPECT_EQ(moved_onto_screen({-1000, 1100, -700, 1300}, limit), BPoint(-1000, 1018));
}

}  // namespace
