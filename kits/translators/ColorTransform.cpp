#include "kits/translators/ColorTransform.h"
#include <cstdlib>
#include <lcms2.h>
#include <vector>

namespace BPrivate::AddOn {

namespace {

struct CloseProfile {
    void operator()(void* profile) const { cmsCloseProfile(profile); }
};
using Profile = std::unique_ptr<void, CloseProfile>;

struct DeleteTransform {
    void operator()(void* transform) const { cmsDeleteTransform(transform); }
};
using Transform = std::unique_ptr<void, DeleteTransform>;

Transform MakeTransform(
    cmsHPROFILE from, cmsUInt32Number format, bool hasAlpha, cmsUInt32Number flags = 0) {
    const Profile srgb(cmsCreate_sRGBProfile());
    if (!srgb)
        return nullptr;
    return Transform(cmsCreateTransform(from, format, srgb.get(), TYPE_BGRA_8, INTENT_PERCEPTUAL,
        flags | (hasAlpha ? cmsFLAGS_COPY_ALPHA : 0)));
}

class LcmsTransform final : public ColorTransform {
public:
    LcmsTransform(Transform transform, bool setsAlpha)
        : fTransform(std::move(transform)), fSetsAlpha(setsAlpha) {}

    void Convert(const void* from, uint8* to, size_t pixels) override {
        cmsDoTransform(fTransform.get(), from, to, cmsUInt32Number(pixels));
        if (fSetsAlpha) {
            for (size_t i = 0; i < pixels; i++)
                to[4 * i + 3] = 255;
        }
    }

private:
    const Transform fTransform;
    const bool fSetsAlpha;
};

// Gray of 8 bits has 256 values to convert, whatever the profile is.
class GrayTransform final : public ColorTransform {
public:
    explicit GrayTransform(std::vector<uint8> table) : fTable(std::move(table)) {}

    void Convert(const void* from, uint8* to, size_t pixels) override {
        const auto* in = static_cast<const uint8*>(from);
        for (size_t i = 0; i < pixels; i++) {
            const uint8* entry = fTable.data() + 4 * in[4 * i];
            const uint8 alpha = in[4 * i + 3];
            to[4 * i] = entry[0];
            to[4 * i + 1] = entry[1];
            to[4 * i + 2] = entry[2];
            to[4 * i + 3] = alpha;
        }
    }

private:
    const std::vector<uint8> fTable;
};

bool NearlyEqual(const std::vector<uint8>& a, const std::vector<uint8>& b) {
    for (size_t i = 0; i < a.size(); i++) {
        if (i % 4 != 3 && abs(int(a[i]) - int(b[i])) > 1)
            return false;
    }
    return true;
}

// Most embedded profiles are sRGB in one spelling or another. Whether one is shows in what it does
// to some colours, which costs less than any look at its tables.
bool IsIdentity(cmsHTRANSFORM transform) {
    std::vector<uint8> colors;
    for (int blue = 0; blue <= 255; blue += 51) {
        for (int green = 0; green <= 255; green += 51) {
            for (int red = 0; red <= 255; red += 51)
                colors.insert(colors.end(), {uint8(blue), uint8(green), uint8(red), 255});
        }
    }
    for (int gray = 0; gray <= 255; gray += 5)
        colors.insert(colors.end(), {uint8(gray), uint8(gray), uint8(gray), 255});
    std::vector<uint8> converted(colors.size());
    cmsDoTransform(transform, colors.data(), converted.data(), cmsUInt32Number(colors.size() / 4));
    return NearlyEqual(colors, converted);
}

std::unique_ptr<ColorTransform> ForRgb(cmsHPROFILE profile, PixelKind kind) {
    // What makes a transform fast takes longer than the few colours tried first.
    const Transform probe = MakeTransform(profile, TYPE_BGRA_8, true, cmsFLAGS_NOOPTIMIZE);
    if (!probe || IsIdentity(probe.get()))
        return nullptr;
    Transform transform =
        MakeTransform(profile, kind == PixelKind::kBgra16 ? TYPE_BGRA_16 : TYPE_BGRA_8, true);
    if (!transform)
        return nullptr;
    return std::make_unique<LcmsTransform>(std::move(transform), false);
}

std::unique_ptr<ColorTransform> ForGray(cmsHPROFILE profile) {
    const Transform transform = MakeTransform(profile, TYPE_GRAY_8, false);
    if (!transform)
        return nullptr;
    std::vector<uint8> values;
    std::vector<uint8> identity;
    for (int gray = 0; gray <= 255; gray++) {
        values.push_back(uint8(gray));
        identity.insert(identity.end(), {uint8(gray), uint8(gray), uint8(gray), 255});
    }
    std::vector<uint8> table(identity.size());
    cmsDoTransform(transform.get(), values.data(), table.data(), 256);
    if (NearlyEqual(table, identity))
        return nullptr;
    return std::make_unique<GrayTransform>(std::move(table));
}

}  // namespace

std::unique_ptr<ColorTransform> ColorTransform::FromProfile(
    const void* data, size_t length, PixelKind kind, bool gray) {
    const Profile profile(cmsOpenProfileFromMem(data, cmsUInt32Number(length)));
    if (!profile)
        return nullptr;
    // Whatever four bytes the profile has there, not only values of the enumeration.
    const auto space = cmsUInt32Number(cmsGetColorSpace(profile.get()));
    if (kind == PixelKind::kCmyk8 || kind == PixelKind::kInvertedCmyk8) {
        if (space != cmsUInt32Number(cmsSigCmykData))
            return nullptr;
        Transform transform = MakeTransform(
            profile.get(), kind == PixelKind::kCmyk8 ? TYPE_CMYK_8 : TYPE_CMYK_8_REV, false);
        return transform ? std::make_unique<LcmsTransform>(std::move(transform), true) : nullptr;
    }
    if (gray)
        return space == cmsUInt32Number(cmsSigGrayData) ? ForGray(profile.get()) : nullptr;
    return space == cmsUInt32Number(cmsSigRgbData) ? ForRgb(profile.get(), kind) : nullptr;
}

std::unique_ptr<ColorTransform> ColorTransform::FromGamma(
    double encodingGamma, const Primaries* primaries, PixelKind kind) {
    // The values of ITU-R BT.709, which are those of sRGB.
    static constexpr Primaries kSrgb{0.64, 0.33, 0.30, 0.60, 0.15, 0.06, 0.3127, 0.3290};
    const Primaries& from = primaries != nullptr ? *primaries : kSrgb;
    if (!(encodingGamma > 0.01 && encodingGamma < 10))
        return nullptr;
    const cmsCIExyY white{from.whiteX, from.whiteY, 1};
    const cmsCIExyYTRIPLE colors{
        {from.redX, from.redY, 1}, {from.greenX, from.greenY, 1}, {from.blueX, from.blueY, 1}};
    // 1/2.2 is what files of sRGB say about themselves; its curve is not quite a power.
    const cmsFloat64Number srgbCurve[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* curve = encodingGamma > 0.45 && encodingGamma < 0.46
        ? cmsBuildParametricToneCurve(nullptr, 4, srgbCurve)
        : cmsBuildGamma(nullptr, 1 / encodingGamma);
    if (curve == nullptr)
        return nullptr;
    cmsToneCurve* curves[] = {curve, curve, curve};
    const Profile profile(cmsCreateRGBProfile(&white, &colors, curves));
    cmsFreeToneCurve(curve);
    return profile ? ForRgb(profile.get(), kind) : nullptr;
}

}  // namespace BPrivate::AddOn
