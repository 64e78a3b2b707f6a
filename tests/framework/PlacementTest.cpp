#include "framework/Placement.h"

#include <gtest/gtest.h>

namespace {

constexpr BRect kScreen(0, 0, 1919, 1079);

struct PlaceCase {
    BPoint where;
    float width;
    float height;
    BPoint placed;
};

class PlaceTest : public testing::TestWithParam<PlaceCase> {};

TEST_P(PlaceTest, KeepsTheWindowOnTheScreen) {
    const PlaceCase& c = GetParam();
    EXPECT_EQ(placed_on_screen(c.where, c.width, c.height, kScreen), c.placed);
}

INSTANTIATE_TEST_SUITE_P(Places, PlaceTest,
    testing::Values(PlaceCase{{100, 200}, 300, 200, {100, 200}},
        PlaceCase{{-20, 10}, 300, 200, {0, 10}}, PlaceCase{{10, -20}, 300, 200, {10, 0}},
        PlaceCase{{1614, 874}, 300, 200, {1614, 874}},  // just fits
        PlaceCase{{1615, 874}, 300, 200, {1614, 874}},
        PlaceCase{{1614, 875}, 300, 200, {1614, 874}},
        PlaceCase{{5000, 5000}, 300, 200, {1614, 874}},
        PlaceCase{{50, 50}, 4000, 3000, {0, 0}},  // too large: the left top corner wins
        PlaceCase{{1614.5F, 0.25F}, 300, 200, {1614, 0.25F}}));

TEST(Centering, PutsTheWindowInTheMiddle) {
    EXPECT_EQ(centered_on_screen(919, 79, kScreen), BPoint(500, 500));
    EXPECT_EQ(centered_on_screen(920, 80, kScreen), BPoint(499.5F, 499.5F));
    EXPECT_EQ(centered_on_screen(2019, 1179, kScreen), BPoint(-50, -50));
    EXPECT_EQ(centered_on_screen(100, 100, BRect(1000, 500, 1200, 800)), BPoint(1050, 600));
}

}  // namespace
