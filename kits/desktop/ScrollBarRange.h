#pragma once

#include "kits/interface/Display.h"

namespace BPrivate {

/// A scroll bar's range in the whole numbers a Qt scroll bar counts in.
///
/// Positions count from the minimum in whole kit units, so that a user always scrolls by whole
/// pixels; the last position is the maximum itself, wherever that lies. Where a single step is
/// less than a unit, or the range has more units than numbers, a position is another distance.
class ScrollBarRange {
public:
    explicit ScrollBarRange(const ScrollBarState& state);

    int Last() const { return fLast; }
    int SmallStep() const { return fSmallStep; }
    int BigStep() const { return fBigStep; }
    /// How many positions the visible part covers, which makes the thumb's length.
    int Page() const { return fPage; }

    int PositionOf(float value) const;
    float ValueAt(int position) const;

private:
    double fMin;
    double fMax;
    double fUnit;  // kit units a position
    int fLast;
    int fSmallStep;
    int fBigStep;
    int fPage;
};

}  // namespace BPrivate
