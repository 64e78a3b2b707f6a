#include "tests/kits/translators/JpegFile.h"
#include <algorithm>
#include <gtest/gtest.h>

static Sample JpegSample(
    const std::string& name, const Picture& picture, const JpegOptions& options) {
    const Bytes file = MakeJpeg(picture, options);
    return {"jpeg_" + name, "jpeg-translator.so", "JPEG image", file, PlainJpegDecode(file), 0,
        true, false};
}

std::vector<Sample> JpegSamples() {
    const Picture picture = MakePicture(21, 13);
    return {
        JpegSample("color", picture, {}),
        JpegSample("rgb", picture, {.colors = JpegOptions::kRgb}),
        JpegSample("gray", picture, {.colors = JpegOptions::kGray}),
        JpegSample("progressive", picture, {.progressive = true}),
        JpegSample("arithmetic", picture, {.arithmetic = true}),
        JpegSample("restarts", picture, {.restartInterval = 1}),
        JpegSample("one_pixel", MakePicture(1, 1), {}),
        JpegSample("with_metadata", picture, {.exif = MakeExif(1), .profile = MakeSrgbProfile()}),
    };
}

static Picture DecodeJpeg(const Bytes& file) {
    Picture picture;
    EXPECT_EQ(DecodeFile(LoadAddOn("jpeg-translator.so"), file, &picture), B_OK);
    return picture;
}

TEST(JpegTest, TurnsThePictureUprightOnce) {
    // More rows than one strip of those that become columns.
    const Picture picture = MakePicture(37, 29);
    const Picture stored = PlainJpegDecode(MakeJpeg(picture));
    for (bool little : {true, false}) {
        for (int orientation = 0; orientation <= 9; orientation++) {
            const Bytes file = MakeJpeg(picture, {.exif = MakeExif(orientation, little)});
            const int known = orientation >= 1 && orientation <= 8 ? orientation : 1;
            EXPECT_EQ(DecodeJpeg(file), Upright(stored, known)) << orientation;
        }
    }
}

TEST(JpegTest, BrokenExifDoesNoHarm) {
    const Picture picture = MakePicture(8, 8);
    const Bytes whole = MakeExif(6);
    for (size_t length = 1; length < whole.size(); length++) {
        const Bytes exif(whole.begin(), whole.begin() + ptrdiff_t(length));
        const Picture decoded = DecodeJpeg(MakeJpeg(picture, {.exif = exif}));
        EXPECT_EQ(decoded.width, 8u);
    }
    for (size_t at = 6; at < whole.size(); at++) {
        for (uint8 value : {0x00, 0x01, 0x7f, 0x80, 0xff}) {
            Bytes exif = whole;
            exif[at] = value;
            EXPECT_EQ(DecodeJpeg(MakeJpeg(picture, {.exif = exif})).height, 8u);
        }
    }
}

// The B, G, R, A bytes of a pixel stand for C, M, Y, K.
static Picture Inks(uint8 cyan, uint8 magenta, uint8 yellow, uint8 black) {
    Picture picture{16, 16, {}};
    picture.pixels.assign(256, Bgra(yellow, magenta, cyan, black));
    return picture;
}

TEST(JpegTest, TakesInkForInk) {
    const struct {
        Picture stored;
        uint32 inverted;  // with Adobe's marker, 255 is no ink
        uint32 straight;
    } kCases[] = {
        {Inks(255, 255, 255, 255), Bgra(255, 255, 255), Bgra(0, 0, 0)},
        {Inks(0, 0, 0, 0), Bgra(0, 0, 0), Bgra(255, 255, 255)},
        {Inks(0, 255, 255, 255), Bgra(0, 255, 255), Bgra(0, 0, 0)},
        {Inks(255, 0, 0, 0), Bgra(0, 0, 0), Bgra(0, 255, 255)},
    };
    for (const auto& test : kCases) {
        for (const auto colors : {JpegOptions::kCmyk, JpegOptions::kYcck}) {
            const Picture decoded =
                DecodeJpeg(MakeJpeg(test.stored, {.colors = colors, .quality = 100}));
            const Picture expected{16, 16, std::vector<uint32>(256, test.inverted)};
            EXPECT_LE(Difference(decoded, expected), 3) << std::hex << decoded.pixels[0];
        }
        const Picture decoded = DecodeJpeg(MakeJpeg(
            test.stored, {.colors = JpegOptions::kCmyk, .adobeMarker = false, .quality = 100}));
        const Picture expected{16, 16, std::vector<uint32>(256, test.straight)};
        EXPECT_LE(Difference(decoded, expected), 3) << std::hex << decoded.pixels[0];
    }
}

TEST(JpegTest, ConvertsAnEmbeddedProfile) {
    Picture red{16, 16, {}};
    red.pixels.assign(256, Bgra(255, 0, 0));
    const Picture decoded =
        DecodeJpeg(MakeJpeg(red, {.quality = 100, .profile = MakeExchangedProfile()}));
    const Picture green{16, 16, std::vector<uint32>(256, Bgra(0, 255, 0))};
    EXPECT_LE(Difference(decoded, green), 4) << std::hex << decoded.pixels[0];
}

TEST(JpegTest, ConvertsAGrayProfile) {
    Picture gray{16, 16, {}};
    gray.pixels.assign(256, Bgra(128, 128, 128));
    const Picture decoded = DecodeJpeg(MakeJpeg(
        gray, {.colors = JpegOptions::kGray, .quality = 100, .profile = MakeGrayProfile(1.0)}));
    // Half of the light is 188 in sRGB.
    const Picture expected{16, 16, std::vector<uint32>(256, Bgra(188, 188, 188))};
    EXPECT_LE(Difference(decoded, expected), 2) << std::hex << decoded.pixels[0];
}

TEST(JpegTest, IgnoresAProfileThatDoesNotFit) {
    const Picture picture = MakePicture(16, 16);
    const Picture plain = PlainJpegDecode(MakeJpeg(picture));
    EXPECT_EQ(DecodeJpeg(MakeJpeg(picture, {.profile = MakeGrayProfile(1.0)})), plain);
    EXPECT_EQ(DecodeJpeg(MakeJpeg(picture, {.profile = Bytes(300, 'x')})), plain);
    EXPECT_EQ(DecodeJpeg(MakeJpeg(picture, {.profile = MakeSrgbProfile()})), plain);
}

static size_t FindMarker(const Bytes& file, uint8 marker) {
    const uint8 pattern[] = {0xff, marker};
    return size_t(std::search(file.begin(), file.end(), pattern, pattern + 2) - file.begin());
}

TEST(JpegTest, RefusesHugeSizesAtOnce) {
    Bytes file = MakeJpeg(MakePicture(16, 16));
    const size_t frame = FindMarker(file, 0xc0);
    for (size_t i = 5; i < 9; i++)
        file[frame + i] = 0xfe;
    Picture picture;
    EXPECT_EQ(DecodeFile(LoadAddOn("jpeg-translator.so"), file, &picture), B_NO_MEMORY);
    // A size that libjpeg itself does not take.
    for (size_t i = 5; i < 9; i++)
        file[frame + i] = 0xff;
    EXPECT_EQ(DecodeFile(LoadAddOn("jpeg-translator.so"), file, &picture), B_BAD_DATA);
}

TEST(JpegTest, AProgressiveFileStaysInItsBudget) {
    const Bytes file = MakeJpeg(MakePicture(512, 512), {.progressive = true});
    Picture picture;
    BPrivate::AddOn::Problem problem;
    auto& translator = LoadAddOn("jpeg-translator.so");
    EXPECT_EQ(DecodeFile(translator, file, &picture, &problem, 100'000), B_NO_MEMORY);
    EXPECT_EQ(DecodeFile(translator, file, &picture), B_OK);
}

TEST(JpegTest, RefusesScansWithoutEnd) {
    const Picture picture = MakePicture(16, 16);
    EXPECT_EQ(DecodeJpeg(MakeJpeg(picture, {.progressive = true})).width, 16u);
    Picture decoded;
    BPrivate::AddOn::Problem problem;
    EXPECT_EQ(DecodeFile(LoadAddOn("jpeg-translator.so"), MakeJpeg(picture, {.manyScans = true}),
                  &decoded, &problem),
        B_BAD_DATA);
    EXPECT_STREQ(problem.text, "the picture has too many scans");
}
