#include "tests/kits/translators/PngFile.h"
#include <algorithm>
#include <gtest/gtest.h>

static Sample PngSample(
    const std::string& name, const Picture& picture, const PngOptions& options) {
    return {"png_" + name, "png-translator.so", "PNG image", MakePng(picture, options),
        PngPicture(picture, options), 0, true, false};
}

std::vector<Sample> PngSamples() {
    const Picture picture = MakePicture(11, 9, -1);
    std::vector<Sample> samples;
    static constexpr struct {
        const char* name;
        int type;
        std::initializer_list<int> depths;
        bool canHaveTransparency;
    } kTypes[] = {
        {"gray", 0, {1, 2, 4, 8, 16}, true},
        {"rgb", 2, {8, 16}, true},
        {"palette", 3, {1, 2, 4, 8}, true},
        {"gray_alpha", 4, {8, 16}, false},
        {"rgb_alpha", 6, {8, 16}, false},
    };
    for (const auto& type : kTypes) {
        for (const int depth : type.depths) {
            for (const bool interlaced : {false, true}) {
                for (const bool transparency : {false, true}) {
                    if (transparency && !type.canHaveTransparency)
                        continue;
                    const std::string name = std::string(type.name) + "_" + std::to_string(depth) +
                        (interlaced ? "_interlaced" : "") + (transparency ? "_keyed" : "");
                    samples.push_back(PngSample(name, picture,
                        {.colorType = type.type,
                            .depth = depth,
                            .interlaced = interlaced,
                            .transparency = transparency}));
                }
            }
        }
    }
    samples.push_back(PngSample("one_pixel", MakePicture(1, 1), {.interlaced = true}));
    samples.push_back(PngSample("with_metadata", picture, {.srgb = true, .exif = MakeExif(1)}));
    samples.push_back(PngSample("srgb_profile", picture, {.profile = MakeSrgbProfile()}));
    return samples;
}

static status_t TryPng(const Bytes& file, Picture* picture) {
    return DecodeFile(LoadAddOn("png-translator.so"), file, picture);
}

static Picture DecodePng(const Bytes& file) {
    Picture picture;
    EXPECT_EQ(TryPng(file, &picture), B_OK);
    return picture;
}

TEST(PngTest, TurnsThePictureUprightOnce) {
    const Picture picture = MakePicture(37, 29, -1);
    for (const bool interlaced : {false, true}) {
        for (int orientation = 1; orientation <= 8; orientation++) {
            const PngOptions options{.interlaced = interlaced, .exif = MakeExif(orientation)};
            EXPECT_EQ(DecodePng(MakePng(picture, options)), Upright(picture, orientation))
                << orientation;
            // Tools that add it later put it behind the pixels.
            const Bytes exif(options.exif.begin() + 6, options.exif.end());
            const Bytes file =
                InsertChunk(MakePng(picture, {.interlaced = interlaced}), "IEND", "eXIf", exif);
            EXPECT_EQ(DecodePng(file), Upright(picture, orientation)) << orientation;
        }
    }
}

TEST(PngTest, ConvertsAnEmbeddedProfile) {
    Picture red{4, 3, {}};
    red.pixels.assign(12, Bgra(255, 0, 0, 100));
    const Picture green{4, 3, std::vector<uint32>(12, Bgra(0, 255, 0, 100))};
    for (const int depth : {8, 16}) {
        for (const bool interlaced : {false, true}) {
            const Picture decoded = DecodePng(MakePng(red,
                {.depth = depth, .interlaced = interlaced, .profile = MakeExchangedProfile()}));
            EXPECT_LE(Difference(decoded, green), 2) << std::hex << decoded.pixels[0];
        }
    }
}

TEST(PngTest, ConvertsGammaAndGrayProfiles) {
    Picture gray{4, 3, {}};
    gray.pixels.assign(12, Bgra(128, 128, 128, 77));
    // Half of the light is 188 in sRGB.
    const Picture light{4, 3, std::vector<uint32>(12, Bgra(188, 188, 188, 77))};
    for (const int type : {4, 6}) {
        for (const int depth : {8, 16}) {
            EXPECT_LE(Difference(DecodePng(MakePng(
                                     gray, {.colorType = type, .depth = depth, .gamma = 1.0})),
                          light),
                1);
            EXPECT_EQ(
                DecodePng(MakePng(gray, {.colorType = type, .depth = depth, .gamma = 0.45455})),
                gray);
            // The statement that it is sRGB goes before the number.
            EXPECT_EQ(DecodePng(MakePng(gray,
                          {.colorType = type, .depth = depth, .gamma = 0.45455, .srgb = true})),
                gray);
        }
    }
    for (const int depth : {8, 16}) {
        EXPECT_LE(Difference(DecodePng(MakePng(gray,
                                 {.colorType = 4, .depth = depth, .profile = MakeGrayProfile(1)})),
                      light),
            1);
    }
}

static Bytes WithSize(uint32 width, uint32 height) {
    Bytes file = MakePng(MakePicture(1, 1));
    Bytes header(file.begin() + 16, file.begin() + 29);
    for (int i = 0; i < 4; i++) {
        header[size_t(i)] = uint8(width >> (24 - 8 * i));
        header[size_t(i) + 4] = uint8(height >> (24 - 8 * i));
    }
    file.erase(file.begin() + 8, file.begin() + 33);
    return InsertChunk(file, "IDAT", "IHDR", header);
}

TEST(PngTest, RefusesHugeSizesAtOnce) {
    Picture picture;
    EXPECT_EQ(TryPng(WithSize(60000, 60000), &picture), B_NO_MEMORY);
    EXPECT_EQ(TryPng(WithSize(0x7fffffff, 0x7fffffff), &picture), B_BAD_DATA);
    EXPECT_EQ(TryPng(WithSize(0, 5), &picture), B_BAD_DATA);
    EXPECT_EQ(TryPng(WithSize(0xffffffff, 1), &picture), B_BAD_DATA);
    EXPECT_EQ(TryPng(WithSize(3000, 3000), &picture), B_BAD_DATA);
}

TEST(PngTest, AnInterlacedFileStaysInItsBudget) {
    const Bytes file = MakePng(MakePicture(300, 300), {.interlaced = true, .exif = MakeExif(6)});
    auto& translator = LoadAddOn("png-translator.so");
    Picture picture;
    BPrivate::AddOn::Problem problem;
    EXPECT_EQ(DecodeFile(translator, file, &picture, &problem, 100'000), B_NO_MEMORY);
    EXPECT_EQ(DecodeFile(translator, file, &picture), B_OK);
}

TEST(PngTest, AWrongCheckSumIsAnErrorWhereverItIs) {
    const Bytes file = InsertChunk(MakePng(MakePicture(5, 5)), "IDAT", "teSt", {1, 2, 3});
    Picture picture;
    ASSERT_EQ(TryPng(file, &picture), B_OK);
    for (size_t at = 8; at + 12 <= file.size();) {
        const size_t length = size_t(file[at]) << 24 | size_t(file[at + 1]) << 16 |
            size_t(file[at + 2]) << 8 | file[at + 3];
        Bytes broken = file;
        broken[at + 8 + length] ^= 1;
        EXPECT_EQ(TryPng(broken, &picture), B_BAD_DATA) << at;
        at += 12 + length;
    }
}
