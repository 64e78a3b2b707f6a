#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "kits/interface/PixelRule.h"

namespace BPrivate {

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

}  // namespace

TEST(PixelRule, FilledPixels) {
    const struct {
        BRect rect;
        PixelRect pixels;
    } table[] = {
        {{0, 0, 0, 0}, {0, 0, 1, 1}},
        {{0, 0, 9, 4}, {0, 0, 10, 5}},
        {{0, 0, 0.5F, 0.5F}, {0, 0, 1, 1}},
        {{0.5F, 0.5F, 1.4F, 1.4F}, {0, 0, 2, 2}},
        {{49.5F, 0, 350.5F, 0}, {49, 0, 351, 1}},
        {{-0.5F, -3, -0.1F, -2.5F}, {-1, -3, 0, -2}},
        {{0, 0, -0.5F, 9}, {}},
        {{0, 0, -1, 9}, {}},
        {{kNaN, 0, 1, 1}, {}},
        {{0, 0, kInfinity, 1}, {}},
        {{-kInfinity, 0, 1, 1}, {}},
        {{-1e30F, 0, 1e30F, 0}, {-kPixelLimit, 0, kPixelLimit + 1, 1}},
    };
    for (const auto& row : table)
        EXPECT_EQ(FilledPixels(row.rect), row.pixels);
}

TEST(PixelRule, CountOfColumns) {
    const struct {
        float left;
        float right;
        int32 count;
    } table[] = {
        {0, 0, 1},
        {0, 299, 300},
        {0, 299.4F, 301},
        {0, 299.9F, 301},
        {0, 0.5F, 2},
        {0.5F, 299.5F, 300},
        {0, -0.5F, 0},
        {0, -1, 0},
        {kNaN, 5, 0},
        {0, kInfinity, 0},
        {-1e38F, 1e38F, kPixelLimit},
    };
    for (const auto& row : table)
        EXPECT_EQ(PixelCount(row.left, row.right), row.count) << row.left << " " << row.right;
}

// A width keeps its columns wherever the rectangle is moved, although its edges are rounded there.
TEST(PixelRule, MovingKeepsTheCount) {
    for (const float width : {0.0F, 1.0F, 99.5F, 299.4F, 400.0F, 1919.0F}) {
        const int32 count = PixelCount(0, width);
        for (const float by : {0.5F, 0.1F, 50.3F, 777.7F, 4095.9F, 16000.3F}) {
            const BRect moved = BRect(0, 0, width, 0).OffsetByCopy(by, 0);
            EXPECT_EQ(PixelCount(moved.left, moved.right), count) << width << " by " << by;
        }
    }
}

TEST(PixelRule, CoveredPixelsStartAtTheFloor) {
    EXPECT_EQ(CoveredPixels({49.5F, 2.9F, 249.5F, 12.9F}), (PixelRect{49, 2, 250, 13}));
    EXPECT_EQ(CoveredPixels({-0.5F, 0, 9.5F, 1}), (PixelRect{-1, 0, 10, 2}));
    EXPECT_TRUE(CoveredPixels({0, 0, -1, 5}).IsEmpty());
    EXPECT_TRUE(CoveredPixels({0, kNaN, 5, 5}).IsEmpty());
}

TEST(PixelRule, RectOfPixels) {
    EXPECT_EQ((PixelRect{2, 3, 12, 5}).ToRect(), BRect(2, 3, 11, 4));
    EXPECT_EQ((PixelRect{}) | (PixelRect{1, 1, 2, 2}), (PixelRect{1, 1, 2, 2}));
    EXPECT_EQ((PixelRect{5, 5, 6, 6}) | (PixelRect{1, 1, 2, 2}), (PixelRect{1, 1, 6, 6}));
}

}  // namespace BPrivate
