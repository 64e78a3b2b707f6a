#pragma once

#include <algorithm>
#include <chrono>
#include <support/SupportDefs.h>

namespace BPrivate {

/// The moment that many microseconds from now, however many those are.
inline std::chrono::steady_clock::time_point AfterTimeout(bigtime_t timeout) {
    constexpr bigtime_t kCentury = bigtime_t(100) * 365 * 24 * 3600 * 1000000;
    return std::chrono::steady_clock::now() +
        std::chrono::microseconds(std::clamp<bigtime_t>(timeout, 0, kCentury));
}

}  // namespace BPrivate
