#include "viewer/ScrollTiming.h"

namespace {

constexpr bigtime_t kRunEnd = 400'000;
constexpr bigtime_t kTolerance = 50'000;

}  // namespace

bool TScrollTiming::IsNewPress(bigtime_t now) {
    bigtime_t interval = now - fLastScrollTime;
    fLastScrollTime = now;
    if (interval > kRunEnd)
        fAverageInterval = 0;
    else if (fAverageInterval == 0)
        fAverageInterval = interval;
    else
        fAverageInterval = (fAverageInterval + interval) / 2;
    return interval > kRunEnd || interval > fAverageInterval + kTolerance;
}
