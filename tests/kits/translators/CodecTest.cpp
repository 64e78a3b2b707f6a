#include "tests/kits/translators/CodecHarness.h"
#include <cctype>
#include <gtest/gtest.h>

// The same for every format.

class CodecTest : public testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        if (GetParam().needsApplication)
            EnsureApplication();
    }

    BPrivate::AddOn::Translator& Translator() { return LoadAddOn(GetParam().addOn); }
};

static std::vector<Sample> AllSamples() {
    std::vector<Sample> all;
    for (const auto& some : {JpegSamples(), PngSamples(), QtSamples()})
        all.insert(all.end(), some.begin(), some.end());
    return all;
}

INSTANTIATE_TEST_SUITE_P(Samples, CodecTest, testing::ValuesIn(AllSamples()),
    [](const auto& test) { return test.param.name; });

TEST_P(CodecTest, GivesTheReferencePixels) {
    const Sample& sample = GetParam();
    Picture picture;
    BPrivate::AddOn::Problem problem;
    ASSERT_EQ(DecodeFile(Translator(), sample.file, &picture, &problem), B_OK) << problem.text;
    EXPECT_EQ(picture.width, sample.expected.width);
    EXPECT_EQ(picture.height, sample.expected.height);
    EXPECT_LE(Difference(picture, sample.expected), sample.tolerance);
    EXPECT_EQ(IdentifyFile(Translator(), sample.file), sample.format);
}

TEST_P(CodecTest, NoTruncatedFileLooksWhole) {
    const Sample& sample = GetParam();
    for (size_t length = 0; length < sample.file.size(); length++) {
        const Bytes part(sample.file.begin(), sample.file.begin() + ptrdiff_t(length));
        Picture picture;
        if (DecodeFile(Translator(), part, &picture) != B_OK)
            continue;
        EXPECT_FALSE(sample.needsEveryByte) << length << " of " << sample.file.size();
        EXPECT_LE(Difference(picture, sample.expected), sample.tolerance)
            << length << " of " << sample.file.size();
    }
}

TEST_P(CodecTest, SurvivesEveryChangedByte) {
    const Sample& sample = GetParam();
    for (size_t at = 0; at < sample.file.size(); at++) {
        for (const uint8 change : {0x01, 0x80, 0xff}) {
            Bytes file = sample.file;
            file[at] ^= change;
            Picture picture;
            (void)DecodeFile(Translator(), file, &picture);
        }
    }
}
