#pragma once

// From units to the pixels of a buffer that has more of them, or fewer.
//
// The left edge of unit u lies at pixel round(u * ratio), whoever asks and wherever the origin of a
// view is. So what touches in units touches in pixels: no gap, no overlap, nothing that adds up. At
// a ratio with a fraction some units are a pixel wider than others.

#include "kits/interface/PixelRule.h"

namespace BPrivate {

/// How many pixels there are to a unit. A value.
class PixelScale {
public:
    /// One to one.
    constexpr PixelScale() = default;
    /// A ratio that is none counts as 1; one beyond all screens is cut.
    explicit PixelScale(float ratio) {
        if (!std::isfinite(ratio) || ratio <= 0)
            return;
        // Ratios are short decimal numbers. As floats they are off by enough to turn a half the
        // wrong way.
        constexpr double kDigits = 1e5;
        fRatio = std::clamp(std::round(double{ratio} * kDigits) / kDigits, 1.0 / 16, 16.0);
    }

    double Ratio() const { return fRatio; }
    bool IsOne() const { return fRatio == 1; }
    bool operator==(const PixelScale&) const = default;

    /// The first pixel of a unit, which is the one after the last of the unit before.
    int32 Edge(int32 unit) const { return IsOne() ? unit : EdgeAt(unit); }
    /// The same for something a unit wide that lies between two units.
    int32 EdgeAt(double position) const { return Rounded(position * fRatio); }

    PixelRect ToPixels(PixelRect units) const {
        return {Edge(units.left), Edge(units.top), Edge(units.right), Edge(units.bottom)};
    }

    /// A position as one among pixels.
    BPoint ToPixels(BPoint at) const {
        return {static_cast<float>(at.x * fRatio), static_cast<float>(at.y * fRatio)};
    }

    /// The unit a pixel belongs to.
    int32 UnitAt(int32 pixel) const {
        if (IsOne())
            return pixel;
        // No buffer reaches further, and no unit there is beyond what Edge() takes.
        pixel = std::clamp(pixel, -kPixelLimit / 16, kPixelLimit / 16);
        int32 unit = Rounded(pixel / fRatio);
        while (Edge(unit) > pixel)
            unit--;
        while (Edge(unit + 1) <= pixel)
            unit++;
        return unit;
    }

private:
    static int32 Rounded(double position) {
        // Twice what units may reach: still safe to subtract.
        constexpr double limit = 2.0 * kPixelLimit;
        return static_cast<int32>(std::floor(std::clamp(position, -limit, limit) + 0.5));
    }

    double fRatio = 1;
};

}  // namespace BPrivate
