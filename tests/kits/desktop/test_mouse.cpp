#include <gtest/gtest.h>

#include "kits/desktop/Mouse.h"

using namespace BPrivate;

namespace {

TEST(ClickCounter, CountsOnPastTwo) {
    ClickCounter clicks(400, 5);
    for (int32 i = 1; i <= 5; ++i)
        EXPECT_EQ(clicks.Press(1, QPointF(10, 10), 1000 + i * 100), i);
}

TEST(ClickCounter, StartsAgainAfterAPause) {
    ClickCounter clicks(400, 5);
    clicks.Press(1, QPointF(10, 10), 1000);
    EXPECT_EQ(clicks.Press(1, QPointF(10, 10), 1400), 2);
    EXPECT_EQ(clicks.Press(1, QPointF(10, 10), 1801), 1);
}

TEST(ClickCounter, StartsAgainElsewhereOrWithAnotherButton) {
    ClickCounter clicks(400, 5);
    clicks.Press(1, QPointF(10, 10), 1000);
    EXPECT_EQ(clicks.Press(1, QPointF(16, 10), 1100), 1);
    EXPECT_EQ(clicks.Press(2, QPointF(16, 10), 1200), 1);
    EXPECT_EQ(clicks.Press(2, QPointF(16, 15), 1300), 2);
}

TEST(ClickCounter, TheFirstPressEverIsOne) {
    ClickCounter clicks(400, 5);
    EXPECT_EQ(clicks.Press(1, QPointF(0, 0), 0), 1);
}

TEST(WheelCounter, OneNotchIsOneStepDownwards) {
    WheelCounter wheel;
    EXPECT_EQ(wheel.Turn(QPoint(0, -120), QPoint()), QPoint(0, 1));
    EXPECT_EQ(wheel.Turn(QPoint(0, 120), QPoint()), QPoint(0, -1));
    EXPECT_EQ(wheel.Turn(QPoint(-120, 0), QPoint()), QPoint(1, 0));
}

TEST(WheelCounter, AddsUpSmallTurnsWithoutLoss) {
    WheelCounter wheel;
    int notches = 0;
    for (int i = 0; i < 64; ++i)
        notches += wheel.Turn(QPoint(0, -15), QPoint()).y();
    EXPECT_EQ(notches, 8);
    EXPECT_EQ(wheel.Turn(QPoint(0, -300), QPoint()), QPoint(0, 2));
    EXPECT_EQ(wheel.Turn(QPoint(0, -60), QPoint()), QPoint(0, 1));
}

TEST(WheelCounter, TurningBackForgetsTheRest) {
    WheelCounter wheel;
    EXPECT_EQ(wheel.Turn(QPoint(0, -119), QPoint()), QPoint());
    EXPECT_EQ(wheel.Turn(QPoint(0, 119), QPoint()), QPoint());
    EXPECT_EQ(wheel.Turn(QPoint(0, 1), QPoint()), QPoint(0, -1));
}

TEST(WheelCounter, KeepsTheDirectionsApart) {
    WheelCounter wheel;
    EXPECT_EQ(wheel.Turn(QPoint(60, -60), QPoint()), QPoint());
    EXPECT_EQ(wheel.Turn(QPoint(60, 0), QPoint()), QPoint(-1, 0));
    EXPECT_EQ(wheel.Turn(QPoint(0, -60), QPoint()), QPoint(0, 1));
}

TEST(WheelCounter, TakesPixelsWhereThereIsNoAngle) {
    WheelCounter wheel;
    int notches = 0;
    for (int i = 0; i < 90; ++i)
        notches += wheel.Turn(QPoint(), QPoint(0, -3)).y();
    EXPECT_EQ(notches, 6);
}

TEST(WheelCounter, LosesNoFractionOfAPixelsAngle) {
    WheelCounter wheel;
    int notches = 0;
    for (int i = 0; i < 450; ++i)
        notches += wheel.Turn(QPoint(), QPoint(1, 0)).x();
    EXPECT_EQ(notches, -10);
}

TEST(WheelCounter, TheManySmallEventsOfATouchpadAreNoMoreThanTheirSum) {
    WheelCounter wheel;
    QPoint notches;
    for (int i = 0; i < 1000; ++i)
        notches += wheel.Turn(QPoint(-7, -11), QPoint(-3, -5));
    EXPECT_EQ(notches, QPoint(7000 / 120, 11000 / 120));
}

}  // namespace
