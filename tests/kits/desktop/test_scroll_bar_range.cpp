#include <gtest/gtest.h>
#include <limits>

#include "kits/desktop/ScrollBarRange.h"

using namespace BPrivate;

namespace {

ScrollBarRange Range(
    float min, float max, float proportion = 0.5F, float small = 10, float big = 50) {
    return ScrollBarRange(ScrollBarState{B_VERTICAL, min, max, min, proportion, small, big});
}

TEST(ScrollBarRange, CountsWholeUnits) {
    const ScrollBarRange range = Range(0, 300);
    EXPECT_EQ(range.Last(), 300);
    EXPECT_EQ(range.SmallStep(), 10);
    EXPECT_EQ(range.BigStep(), 50);
    EXPECT_EQ(range.PositionOf(120), 120);
    EXPECT_EQ(range.ValueAt(120), 120);
}

TEST(ScrollBarRange, EndsExactlyAtAFraction) {
    const ScrollBarRange range = Range(0, 100.25F);
    EXPECT_EQ(range.Last(), 101);
    EXPECT_EQ(range.ValueAt(100), 100);
    EXPECT_EQ(range.ValueAt(101), 100.25F);
    EXPECT_EQ(range.PositionOf(100.25F), 101);
    EXPECT_EQ(range.PositionOf(100.2F), 100);
}

TEST(ScrollBarRange, StartsAnywhere) {
    const ScrollBarRange range = Range(-20.5F, 20);
    EXPECT_EQ(range.ValueAt(0), -20.5F);
    EXPECT_EQ(range.ValueAt(20), -0.5F);
    EXPECT_EQ(range.ValueAt(range.Last()), 20);
}

TEST(ScrollBarRange, TheThumbIsTheVisiblePart) {
    for (const float proportion : {0.1F, 0.5F, 0.75F}) {
        const ScrollBarRange range = Range(0, 1000, proportion);
        const double part = range.Page() / double(range.Page() + range.Last());
        EXPECT_NEAR(part, proportion, 0.01);
    }
}

TEST(ScrollBarRange, HasASmallerUnitForSmallSteps) {
    const ScrollBarRange range = Range(0, 1, 0.5F, 0.25F, 0.5F);
    EXPECT_EQ(range.Last(), 4);
    EXPECT_EQ(range.SmallStep(), 1);
    EXPECT_EQ(range.BigStep(), 2);
    EXPECT_EQ(range.ValueAt(3), 0.75F);
}

TEST(ScrollBarRange, AnEmptyRangeHasOnePosition) {
    const ScrollBarRange range = Range(5, 5);
    EXPECT_EQ(range.Last(), 0);
    EXPECT_EQ(range.ValueAt(0), 5);
    EXPECT_EQ(range.PositionOf(5), 0);
}

TEST(ScrollBarRange, FitsAnyRangeIntoItsNumbers) {
    const float huge = std::numeric_limits<float>::max() / 4;
    const ScrollBarRange range = Range(-huge, huge, 1);
    EXPECT_GT(range.Last(), 0);
    EXPECT_GT(range.Page() + range.Last(), range.Last());
    EXPECT_EQ(range.ValueAt(range.Last()), huge);
    EXPECT_EQ(range.ValueAt(0), -huge);
}

}  // namespace
