#include "framework/Click.h"

#include <gtest/gtest.h>

namespace {

TEST(Click, IsCountedInThrees) {
    const TClickKind kinds[] = {
        kNoClick, kSingleClick, kDoubleClick, kNoClick, kSingleClick, kDoubleClick, kNoClick};
    for (int32 clicks = 0; clicks < 7; clicks++)
        EXPECT_EQ(click_kind(clicks), kinds[clicks]) << clicks;
    EXPECT_EQ(click_kind(-1), kNoClick);
}

TEST(Drag, StartsAtASquaredDistanceOfTen) {
    EXPECT_FALSE(is_drag({5, 5}, {5, 5}));
    EXPECT_FALSE(is_drag({5, 5}, {7, 7}));  // 8
    EXPECT_TRUE(is_drag({5, 5}, {8, 8}));   // 18
    EXPECT_FALSE(is_drag({5, 5}, {8, 5}));  // 9
    EXPECT_TRUE(is_drag({5, 5}, {8, 6}));   // 10
    EXPECT_TRUE(is_drag({5, 5}, {4, 2}));
    EXPECT_TRUE(is_drag({5, 5}, {1, 5}));
}

}  // namespace
