#include "kits/desktop/ScrollBarRange.h"

#include <algorithm>
#include <cmath>

namespace BPrivate {

namespace {

// Leaves room for the page on top of it.
constexpr double kMostPositions = 1 << 28;

int Whole(double count) {
    return static_cast<int>(std::clamp(std::round(count), 1.0, kMostPositions));
}

}  // namespace

ScrollBarRange::ScrollBarRange(const ScrollBarState& state)
    : fMin(state.min), fMax(std::max(state.min, state.max)) {
    const double span = fMax - fMin;
    fUnit = state.smallStep > 0 && state.smallStep < 1 ? state.smallStep : 1;
    fUnit = std::max(fUnit, span / kMostPositions);
    fLast = static_cast<int>(std::ceil(span / fUnit));
    fSmallStep = Whole(state.smallStep / fUnit);
    fBigStep = Whole(state.bigStep / fUnit);
    // A thumb covers page / (range + page) of the bar.
    const double part = std::clamp<double>(state.proportion, 0, 0.999);
    fPage = part > 0 ? Whole(fLast * part / (1 - part)) : std::min(fBigStep, std::max(1, fLast));
}

int ScrollBarRange::PositionOf(float value) const {
    if (value >= fMax)
        return fLast;
    const double position = std::round((value - fMin) / fUnit);
    // Only the maximum stands at the last position.
    return static_cast<int>(std::clamp(position, 0.0, std::max(0.0, fLast - 1.0)));
}

float ScrollBarRange::ValueAt(int position) const {
    return static_cast<float>(position >= fLast ? fMax : fMin + position * fUnit);
}

}  // namespace BPrivate
