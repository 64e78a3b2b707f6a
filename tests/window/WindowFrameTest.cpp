#include "window/WindowFrame.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr BRect kScreen(0, 0, 1919, 1079);
constexpr BRect kFallback(50, 50, 350, 300);
constexpr float kMinWidth = 70;
constexpr float kMinHeight = 84;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kHuge = std::numeric_limits<float>::max();

struct FrameCase {
    const char* what;
    BRect saved;
    BRect usable;
};

class FrameTest : public testing::TestWithParam<FrameCase> {};

TEST_P(FrameTest, IsUsable) {
    const FrameCase& c = GetParam();
    EXPECT_EQ(usable_window_frame(c.saved, kFallback, kScreen, kMinWidth, kMinHeight), c.usable)
        << c.what;
}

INSTANTIATE_TEST_SUITE_P(Frames, FrameTest,
    testing::Values(FrameCase{"ordinary", {100, 100, 900, 700}, {100, 100, 900, 700}},
        FrameCase{"half off the left", {-400, 100, 400, 700}, {-400, 100, 400, 700}},
        FrameCase{"half off the bottom", {100, 900, 900, 1500}, {100, 900, 900, 1500}},
        FrameCase{"as large as the screen", {0, 0, 1919, 1079}, {0, 0, 1919, 1079}},
        FrameCase{"just a grip left", {1871, 100, 2671, 700}, {1871, 100, 2671, 700}},
        FrameCase{"less than a grip left", {1872, 100, 2672, 700}, {1119, 100, 1919, 700}},
        FrameCase{"off the right", {3000, 100, 3800, 700}, {1119, 100, 1919, 700}},
        FrameCase{"off the left", {-3000, 100, -2200, 700}, {0, 100, 800, 700}},
        FrameCase{"off the bottom", {100, 5000, 900, 5600}, {100, 479, 900, 1079}},
        FrameCase{"title above the top", {100, -1, 900, 599}, {100, 30, 900, 630}},
        FrameCase{"full screen", {0, -20, 1919, 1093}, {0, 30, 1919, 1079}},
        FrameCase{"too small", {100, 100, 110, 110}, {100, 100, 170, 184}},
        FrameCase{"of no size", {100, 100, 100, 100}, {100, 100, 170, 184}},
        FrameCase{"too large", {10, 10, 100000, 100000}, {10, 10, 1919, 1059}},
        FrameCase{"too large and low", {10, 1000, 5000, 5000}, {10, 1000, 1919, 2049}},
        FrameCase{"invalid", {350, 300, 50, 50}, {50, 50, 350, 300}},
        FrameCase{"never set", BRect(), {50, 50, 350, 300}},
        FrameCase{"nan", {kNan, 50, 350, 300}, {50, 50, 350, 300}},
        FrameCase{"nan on the right", {50, 50, kNan, 300}, {50, 50, 350, 300}},
        FrameCase{"infinite", {-kInfinity, 0, kInfinity, 300}, {50, 50, 350, 300}},
        FrameCase{"endless", {-kHuge, -kHuge, kHuge, kHuge}, {0, 30, 1909, 1079}},
        FrameCase{"endlessly far", {kHuge, kHuge, kHuge, kHuge}, {1849, 995, 1919, 1079}},
        FrameCase{"very far", {1e9F, 100, 1e9F + 768, 700}, {1151, 100, 1919, 700}}));

// Whatever was saved, the window can be seen and grabbed.
TEST(Frame, IsAlwaysUsable) {
    const float edges[] = {kNan, kInfinity, -kInfinity, kHuge, -kHuge, 0, -0.0F, 0.5F, 50, -50,
        1919, 1920, 5000, -5000, 1e9F, -1e9F, std::numeric_limits<float>::denorm_min()};
    for (const BRect screen : {kScreen, BRect(0, 0, 319, 199), BRect(1920, 500, 3839, 1579),
             BRect(-1280, -1024, -1, -1)}) {
        for (const float left : edges)
            for (const float top : edges)
                for (const float right : edges)
                    for (const float bottom : edges) {
                        const BRect frame = usable_window_frame(
                            {left, top, right, bottom}, kFallback, screen, kMinWidth, kMinHeight);
                        ASSERT_TRUE(frame.IsValid()) << left << " " << top;
                        ASSERT_GE(frame.Width(), kMinWidth);
                        ASSERT_GE(frame.Height(), kMinHeight);
                        ASSERT_LE(frame.Width(), screen.Width());
                        ASSERT_LE(frame.Height(), screen.Height());
                        const BRect seen = frame & screen;
                        ASSERT_GE(seen.Width(), 48);
                        ASSERT_GE(seen.Height(), 48);
                        ASSERT_GE(frame.top, screen.top);
                    }
    }
}

// The same distances from the screen's left top wherever that is.
TEST(Frame, IsThatOfTheScreensOwnPlace) {
    const BRect frames[] = {{100, 100, 900, 700}, {-400, 100, 400, 700}, {1872, 100, 2672, 700},
        {100, 5000, 900, 5600}, {100, -1, 900, 599}, {0, -20, 1919, 1093}, {10, 10, 9999, 9999}};
    for (const BPoint place : {BPoint(1920, 0), BPoint(-1920, 300), BPoint(0, -1080)}) {
        for (const BRect frame : frames) {
            const BRect expected =
                usable_window_frame(frame, kFallback, kScreen, kMinWidth, kMinHeight);
            EXPECT_EQ(usable_window_frame(frame.OffsetByCopy(place), kFallback,
                          kScreen.OffsetByCopy(place), kMinWidth, kMinHeight),
                expected.OffsetByCopy(place))
                << place.x << " " << place.y << ": " << frame.left;
        }
    }
}

TEST(Frame, OnAScreenSmallerThanTheMinimumKeepsItsLeftTopInReach) {
    EXPECT_EQ(usable_window_frame({0, 0, 500, 500}, kFallback, BRect(0, 0, 39, 39), 70, 84),
        BRect(0, 30, 70, 114));
}

}  // namespace
