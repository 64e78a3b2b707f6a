#include "kits/interface/SmoothWeights.h"

#include <algorithm>
#include <cmath>

namespace BPrivate {

namespace {

/// A position that is whole but for the rounding of its computation is whole: no pixel counts
/// that is hardly touched.
double Snapped(double position) {
    constexpr double kRounding = 1e-6;
    const double whole = std::round(position);
    return std::fabs(position - whole) < kRounding ? whole : position;
}

}  // namespace

SmoothWeights::SmoothWeights(int32 size, double start, double extent, int32 first, int32 last)
    : fReduced(extent < size) {
    const double step = size / extent;  // pixels of the source to one of the destination
    fSpans.reserve(static_cast<std::size_t>(last - first));
    // Always from the start: nothing adds up, and a range's place in the whole changes nothing.
    for (int32 at = first; at < last; at++) {
        if (fReduced)
            AddMean(Snapped((at - start) * step), Snapped((at + 1 - start) * step), size);
        else
            AddBlend(Snapped((at + 0.5 - start) * step - 0.5), size);
    }
}

void SmoothWeights::AddMean(double from, double to, int32 size) {
    // At the edges of the whole a pixel may be covered in part only.
    from = std::clamp(from, 0.0, size - 1.0);
    to = std::clamp(to, from + 1e-3, static_cast<double>(size));
    const auto low = static_cast<int32>(from);
    const auto high = static_cast<int32>(std::ceil(to));
    fSpans.push_back({low, high - low, fShares.size()});
    for (int32 i = low; i < high; i++) {
        const double covered = std::min(to, i + 1.0) - std::max(from, static_cast<double>(i));
        fShares.push_back(static_cast<float>(covered / (to - from)));
    }
}

void SmoothWeights::AddBlend(double middle, int32 size) {
    middle = std::clamp(middle, 0.0, size - 1.0);
    const auto low = static_cast<int32>(middle);
    const double beyond = middle - low;
    fSpans.push_back({low, beyond > 0 ? 2 : 1, fShares.size()});
    fShares.push_back(static_cast<float>(1 - beyond));
    if (beyond > 0)
        fShares.push_back(static_cast<float>(beyond));
}

}  // namespace BPrivate
