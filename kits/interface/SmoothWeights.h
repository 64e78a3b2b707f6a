#pragma once

#include <vector>

#include <support/SupportDefs.h>

namespace BPrivate {

/// One direction of a picture that is brought to another size: for each pixel of a range which
/// pixels of the source it is made of, and how much of each. The shares of a pixel add up to 1.
class SmoothWeights {
public:
    /// \param size   pixels of the source
    /// \param start  where the whole of them begins among those of the destination
    /// \param extent how many of those they become
    /// \param first, last the range, without `last`
    SmoothWeights(int32 size, double start, double extent, int32 first, int32 last);

    struct Pixel {
        int32 first;  ///< of the source
        int32 count;  ///< 1 or more
        const float* shares;
    };
    /// \param index from the first of the range on
    Pixel At(int32 index) const {
        const Span& span = fSpans[static_cast<std::size_t>(index)];
        return {span.first, span.count, fShares.data() + span.shares};
    }
    int32 Count() const { return static_cast<int32>(fSpans.size()); }
    /// Whether a pixel is the mean of what it covers, and not blended from the nearest.
    bool IsReduced() const { return fReduced; }

private:
    struct Span {
        int32 first;
        int32 count;
        std::size_t shares;
    };

    void AddMean(double from, double to, int32 size);
    void AddBlend(double middle, int32 size);

    std::vector<Span> fSpans;
    std::vector<float> fShares;
    bool fReduced;
};

}  // namespace BPrivate
