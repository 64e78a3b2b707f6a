#include "framework/Color.h"

#include <gtest/gtest.h>

namespace {

TEST(Color, IsTheSameWhenEveryChannelIs) {
    const rgb_color color{1, 2, 3, 4};
    EXPECT_TRUE(is_same_rgb_color(color, {1, 2, 3, 4}));
    EXPECT_FALSE(is_same_rgb_color(color, {9, 2, 3, 4}));
    EXPECT_FALSE(is_same_rgb_color(color, {1, 9, 3, 4}));
    EXPECT_FALSE(is_same_rgb_color(color, {1, 2, 9, 4}));
    EXPECT_FALSE(is_same_rgb_color(color, {1, 2, 3, 9}));
}

}  // namespace
