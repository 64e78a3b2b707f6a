#include "tests/kits/translators/CodecHarness.h"
#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <lcms2.h>

using namespace BPrivate::AddOn;

namespace {

// The bytes in a block of exactly their size, so that a sanitizer sees a read beyond them.
class MemorySource final : public Source {
public:
    explicit MemorySource(const Bytes& bytes) : fBytes(bytes.begin(), bytes.end()) {
        fBytes.shrink_to_fit();
    }

    int64 ReadAt(int64 offset, void* buffer, size_t size) override {
        if (offset < 0 || size_t(offset) >= fBytes.size())
            return offset < 0 ? int64(B_BAD_VALUE) : 0;
        size = std::min(size, fBytes.size() - size_t(offset));
        memcpy(buffer, fBytes.data() + offset, size);
        return int64(size);
    }

    int64 Size() override { return int64(fBytes.size()); }

private:
    Bytes fBytes;
};

Bytes SaveProfile(cmsHPROFILE profile) {
    cmsUInt32Number size = 0;
    cmsSaveProfileToMem(profile, nullptr, &size);
    Bytes bytes(size);
    cmsSaveProfileToMem(profile, bytes.data(), &size);
    cmsCloseProfile(profile);
    return bytes;
}

}  // namespace

Picture MakePicture(uint32 width, uint32 height, int alpha) {
    Picture picture{width, height, {}};
    for (uint32 y = 0; y < height; y++) {
        for (uint32 x = 0; x < width; x++) {
            picture.pixels.push_back(Bgra(uint8(x * 255 / std::max(width - 1, 1u)),
                uint8(y * 255 / std::max(height - 1, 1u)), uint8((x + y) * 7),
                alpha >= 0 ? uint8(alpha) : uint8(x * 31 + y * 17)));
        }
    }
    return picture;
}

Picture Upright(const Picture& stored, int orientation) {
    const uint32 w = stored.width;
    const uint32 h = stored.height;
    Picture turned = orientation >= 5 ? Picture{h, w, {}} : Picture{w, h, {}};
    for (uint32 y = 0; y < turned.height; y++) {
        for (uint32 x = 0; x < turned.width; x++) {
            // Where the upright pixel is found in the stored picture (Exif 2.32, tag 274).
            switch (orientation) {
            case 2: turned.pixels.push_back(stored.At(w - 1 - x, y)); break;
            case 3: turned.pixels.push_back(stored.At(w - 1 - x, h - 1 - y)); break;
            case 4: turned.pixels.push_back(stored.At(x, h - 1 - y)); break;
            case 5: turned.pixels.push_back(stored.At(y, x)); break;
            case 6: turned.pixels.push_back(stored.At(y, h - 1 - x)); break;
            case 7: turned.pixels.push_back(stored.At(w - 1 - y, h - 1 - x)); break;
            case 8: turned.pixels.push_back(stored.At(w - 1 - y, x)); break;
            default: turned.pixels.push_back(stored.At(x, y)); break;
            }
        }
    }
    return turned;
}

int Difference(const Picture& a, const Picture& b) {
    if (a.width != b.width || a.height != b.height)
        return 256;
    int largest = 0;
    for (size_t i = 0; i < a.pixels.size(); i++) {
        for (int shift = 0; shift < 32; shift += 8) {
            const int one = int(a.pixels[i] >> shift & 0xff);
            const int other = int(b.pixels[i] >> shift & 0xff);
            largest = std::max(largest, abs(one - other));
        }
    }
    return largest;
}

Bytes MakeExif(int orientation, bool littleEndian) {
    const auto value = uint8(orientation);
    if (littleEndian)
        return {'E', 'x', 'i', 'f', 0, 0, 'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, 0x12, 0x01, 3, 0, 1, 0,
            0, 0, value, 0, 0, 0, 0, 0, 0, 0};
    return {'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42, 0, 0, 0, 8, 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0,
        1, 0, value, 0, 0, 0, 0, 0, 0};
}

Bytes MakeExchangedProfile() {
    const cmsCIExyY white{0.3127, 0.3290, 1};
    const cmsCIExyYTRIPLE primaries{{0.30, 0.60, 1}, {0.64, 0.33, 1}, {0.15, 0.06, 1}};
    const cmsFloat64Number parameters[] = {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* curve = cmsBuildParametricToneCurve(nullptr, 4, parameters);
    cmsToneCurve* curves[] = {curve, curve, curve};
    cmsHPROFILE profile = cmsCreateRGBProfile(&white, &primaries, curves);
    cmsFreeToneCurve(curve);
    return SaveProfile(profile);
}

Bytes MakeSrgbProfile() {
    return SaveProfile(cmsCreate_sRGBProfile());
}

Bytes MakeGrayProfile(double gamma) {
    cmsToneCurve* curve = cmsBuildGamma(nullptr, gamma);
    cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
    cmsFreeToneCurve(curve);
    return SaveProfile(profile);
}

Translator& LoadAddOn(const std::string& name) {
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe");
    const std::string path = program.parent_path().parent_path() / "add-ons" / "translators" / name;
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
        fprintf(stderr, "%s\n", dlerror());
        abort();
    }
    const auto entry = reinterpret_cast<EntryPoint>(dlsym(module, kEntryPoint));
    if (entry == nullptr || entry(kInterfaceVersion) == nullptr)
        abort();
    EXPECT_EQ(entry(kInterfaceVersion + 1), nullptr);
    return *entry(kInterfaceVersion);
}

status_t DecodeFile(Translator& translator, const Bytes& file, Picture* picture, Problem* problem,
    uint64 memoryBudget) {
    MemorySource source(file);
    Format format{};
    if (status_t status = translator.Identify(source, &format); status != B_OK)
        return status;
    Problem own;
    Problem& what = problem != nullptr ? *problem : own;
    const std::unique_ptr<Decoder> decoder = translator.Open(source, memoryBudget, &what);
    if (!decoder) {
        EXPECT_NE(what.status, B_OK);
        EXPECT_STRNE(what.text, "");
        return what.status;
    }
    const Size size = decoder->PictureSize();
    constexpr uint64 kMaxPixels = 16'000'000;
    if (uint64(size.width) * size.height > kMaxPixels)
        return B_NO_MEMORY;
    // Rows are further apart than they need to be, and what is between them is nobody's.
    constexpr uint32 kGuard = 0x5a5a5a5a;
    const size_t rowPixels = size.width + 3;
    std::vector<uint32> bits(rowPixels * size.height, kGuard);
    const status_t status =
        decoder->Decode(reinterpret_cast<uint8*>(bits.data()), rowPixels * 4, &what);
    *picture = {size.width, size.height, {}};
    for (size_t y = 0; y < size.height; y++) {
        const auto row = bits.begin() + ptrdiff_t(y * rowPixels);
        picture->pixels.insert(picture->pixels.end(), row, row + size.width);
        for (size_t x = size.width; x < rowPixels; x++)
            EXPECT_EQ(row[ptrdiff_t(x)], kGuard);
    }
    if (status != B_OK) {
        EXPECT_EQ(what.status, status);
        EXPECT_STRNE(what.text, "");
    }
    return status;
}

std::string IdentifyFile(Translator& translator, const Bytes& file) {
    MemorySource source(file);
    Format format{};
    return translator.Identify(source, &format) == B_OK ? format.name : "";
}

std::ostream& operator<<(std::ostream& out, const Sample& sample) {
    return out << sample.name;
}

void EnsureApplication() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static auto* application = new QGuiApplication(argc, argv);
    ASSERT_NE(application, nullptr);
}
