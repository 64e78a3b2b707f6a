#include "kits/interface/PixelScale.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace BPrivate {

namespace {

constexpr float kRatios[] = {0.5F, 1, 1.1F, 1.25F, 4 / 3.0F, 1.5F, 1.75F, 2, 2.625F, 3};

}  // namespace

TEST(PixelScale, Edges) {
    const struct {
        float ratio;
        int32 unit;
        int32 edge;
    } table[] = {
        {1, -7, -7},
        {2, 3, 6},
        {2, -3, -6},
        {1.5F, 1, 2},
        {1.5F, 2, 3},
        {1.5F, -1, -1},
        {1.25F, 2, 3},
        {1.25F, 10, 13},
        {1.25F, 100, 125},
        // Halves, which the ratio as a float would miss.
        {1.3F, 5, 7},
        {1.1F, 5, 6},
        {1.7F, 15, 26},
    };
    for (const auto& row : table)
        EXPECT_EQ(PixelScale(row.ratio).Edge(row.unit), row.edge) << row.ratio << " " << row.unit;
}

TEST(PixelScale, RatiosThatAreNone) {
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float none : {0.0F, -1.0F, infinity, std::numeric_limits<float>::quiet_NaN()})
        EXPECT_TRUE(PixelScale(none).IsOne());
    EXPECT_EQ(PixelScale(1e9F).Ratio(), 16);
    EXPECT_EQ(PixelScale(1e-9F).Ratio(), 1.0 / 16);
}

TEST(PixelScale, EveryPixelBelongsToOneUnit) {
    for (const float ratio : kRatios) {
        const PixelScale scale(ratio);
        for (int32 pixel = -3000; pixel <= 3000; pixel++) {
            const int32 unit = scale.UnitAt(pixel);
            ASSERT_LE(scale.Edge(unit), pixel) << ratio;
            ASSERT_GT(scale.Edge(unit + 1), pixel) << ratio;
        }
    }
}

TEST(PixelScale, UnitsAreOfOneSizeButForAPixel) {
    for (const float ratio : kRatios) {
        const PixelScale scale(ratio);
        for (int32 unit = -5000; unit <= 5000; unit++) {
            const int32 size = scale.Edge(unit + 1) - scale.Edge(unit);
            ASSERT_GE(size, std::floor(scale.Ratio())) << ratio << " " << unit;
            ASSERT_LE(size, std::ceil(scale.Ratio())) << ratio << " " << unit;
            // Never off by more than half a pixel, however far from the origin.
            ASSERT_LE(std::fabs(scale.Edge(unit) - unit * scale.Ratio()), 0.5 + 1e-9);
        }
    }
}

TEST(PixelScale, FarOutIsSafe) {
    for (const float ratio : {1 / 16.0F, 1.5F, 16.0F}) {
        const PixelScale scale(ratio);
        const PixelRect far =
            scale.ToPixels(PixelRect{-kPixelLimit, -kPixelLimit, kPixelLimit + 1, kPixelLimit + 1});
        EXPECT_GT(far.Width(), 0);
        const int32 unit = scale.UnitAt(std::numeric_limits<int32>::max());
        EXPECT_GT(unit, 0);
        EXPECT_LT(scale.UnitAt(std::numeric_limits<int32>::min()), 0);
    }
}

}  // namespace BPrivate
