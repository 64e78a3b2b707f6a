#include <gtest/gtest.h>

#include "settings/DisplayOption.h"
#include "viewer/StatusView.h"

namespace {

BRect Bounds(float width, float height) {
    return {0, 0, width, height};
}

TEST(StatusText, CountsFromOne) {
    EXPECT_EQ(position_text(0, 1), "1/1");
    EXPECT_EQ(position_text(2, 120), "3/120");
    EXPECT_EQ(position_text(0xFFFFFFFE, 0xFFFFFFFF), "4294967295/4294967295");
}

TEST(StatusText, CountsPixels) {
    EXPECT_EQ(size_text(Bounds(639, 479)), "640 x 480");
    EXPECT_EQ(size_text(Bounds(0, 0)), "1 x 1");
    EXPECT_EQ(size_text(Bounds(9.75F, 4.5F)), "10 x 5");
}

struct PercentCase {
    float scaled;
    float decoded;
    int64 percent;
};

TEST(StatusText, TruncatesPercentages) {
    const PercentCase kCases[] = {
        {999, 999, 100},
        {499, 999, 50},
        {998, 999, 99},
        {0, 999, 0},
        {9, 999, 1},
        {1999, 999, 200},
        {400, 199, 200},
        {28, 99, 29},
        {57, 99, 58},
        {400.5F, 199, 200},
        {1e7F, 0, 1000000100},
    };
    for (const PercentCase& c : kCases)
        EXPECT_EQ(scale_percent(c.scaled, c.decoded), c.percent) << c.scaled << "/" << c.decoded;
}

TEST(StatusText, ShowsTheHorizontalScaleTwiceUnlessTheShapeMayChange) {
    for (int32 option = 0; option < kDisplayOptionCount; ++option) {
        std::string text = scale_text(Bounds(400, 400), Bounds(199, 99), option);
        EXPECT_EQ(text, option == kFitImageToWindow ? "200% x 401%" : "200% x 200%") << option;
    }
    EXPECT_EQ(scale_text(Bounds(499, 1), Bounds(999, 999), 3), "50% x 50%");
}

}  // namespace
