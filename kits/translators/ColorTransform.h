#pragma once

#include <cstddef>
#include <memory>
#include <support/SupportDefs.h>

namespace BPrivate::AddOn {

/// The pixels a decoder has before they are converted.
enum class PixelKind {
    kBgra8,
    kBgra16,        ///< in the machine's byte order
    kCmyk8,         ///< 0 is no ink
    kInvertedCmyk8  ///< 255 is no ink
};

/// Where a file's red, green, blue and white are, as CIE x and y.
struct Primaries {
    double redX, redY, greenX, greenY, blueX, blueY, whiteX, whiteY;
};

/// Turns rows of a file's own colours into 8-bit sRGB, B, G, R, A; alpha is kept. One thread at a
/// time.
class ColorTransform {
public:
    /// By an embedded ICC profile. `gray`: the file is gray, its values spread to B, G and R. Null
    /// if nothing needs to be done, or nothing can be: a profile that is broken or for another kind
    /// of picture is ignored, as the colours without it are the best there are.
    static std::unique_ptr<ColorTransform> FromProfile(
        const void* profile, size_t length, PixelKind kind, bool gray);
    /// By the exponent that the light was stored with (0.45 is about sRGB), and maybe the
    /// primaries.
    static std::unique_ptr<ColorTransform> FromGamma(
        double encodingGamma, const Primaries* primaries, PixelKind kind);

    virtual ~ColorTransform() = default;

    /// `from` and `to` may be the same for 4-byte pixels.
    virtual void Convert(const void* from, uint8* to, size_t pixels) = 0;
};

}  // namespace BPrivate::AddOn
