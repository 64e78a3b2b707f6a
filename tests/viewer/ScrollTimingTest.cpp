#include "viewer/ScrollTiming.h"

#include <gtest/gtest.h>

namespace {

struct Request {
    bigtime_t after;  // microseconds since the one before
    bool isNewPress;
};

void ExpectPresses(std::initializer_list<Request> requests) {
    TScrollTiming timing;
    bigtime_t now = 10'000'000;
    int number = 0;
    for (const Request& request : requests) {
        now += request.after;
        EXPECT_EQ(timing.IsNewPress(now), request.isNewPress) << "request " << number;
        ++number;
    }
}

TEST(ScrollTiming, TakesSeparatePressesForNew) {
    ExpectPresses({{0, true}, {500'000, true}, {400'001, true}});
}

TEST(ScrollTiming, TakesASteadyRepeatForOnePress) {
    ExpectPresses({{0, true}, {30'000, false}, {30'000, false}, {30'000, false}});
}

TEST(ScrollTiming, TakesAnEventLaterThanTheRunForANewPress) {
    // The average moves half way to the interval before it is compared: (30 + 190) / 2 + 50 < 190.
    ExpectPresses({{0, true}, {30'000, false}, {30'000, false}, {190'000, true}});
    ExpectPresses({{0, true}, {30'000, false}, {30'000, false}, {130'000, false}});
    ExpectPresses({{0, true}, {30'000, false}, {30'000, false}, {130'001 + 1, true}});
}

TEST(ScrollTiming, TakesTheDelayBeforeTheRepeatForTheSamePress) {
    ExpectPresses({{0, true}, {400'000, false}, {30'000, false}});
}

TEST(ScrollTiming, StartsARunAnewAfterAPause) {
    ExpectPresses({{0, true}, {30'000, false}, {900'000, true}, {300'000, false}});
}

}  // namespace
