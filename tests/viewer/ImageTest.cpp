#include "viewer/Image.h"

#include <gtest/gtest.h>
#include <storage/File.h>

#include "settings/Additions.h"
#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "tests/framework/TemporaryFolder.h"
#include "tests/viewer/FakeRoster.h"

namespace {

class Image : public testing::Test {
protected:
    Image() {
        fake::ReleaseAll();
        gPrefs.fDisplayOption = kDontFitAnything;
        fRoster.AddTranslators(nullptr);
    }
    ~Image() override { gPrefs = TPrefs(); }

    std::unique_ptr<TImage> Load(int32 width, int32 height, bool broken = false) {
        write_text(fFolder / "a", fake::ImageFile("a", width, height, {1, 2, 3, 255}, broken));
        BFile file((fFolder / "a").c_str(), B_READ_ONLY);
        translator_info info;
        EXPECT_EQ(fRoster.Identify(&file, nullptr, &info, 0, nullptr, 0), B_OK);
        return std::make_unique<TImage>(fFolder / "a", &fRoster, info);
    }

    TTemporaryFolder fFolder;
    BTranslatorRoster fRoster;
};

TEST_F(Image, IsDecodedWithItsNameAndKind) {
    auto image = Load(20, 10);
    ASSERT_EQ(image->InitCheck(), B_OK);
    EXPECT_EQ(image->FileName(), fFolder / "a");
    EXPECT_EQ(image->Kind(), fake::kFormatName);
    EXPECT_EQ(image->Index(), 0xFFFFFFFF);
    EXPECT_EQ(image->NextImageFileName(), "");
    EXPECT_EQ(image->PrevImageFileName(), "");
    EXPECT_EQ(image->OrgImage()->Bounds(), BRect(0, 0, 19, 9));
    EXPECT_EQ(image->Image(), nullptr);
}

TEST_F(Image, TellsWhyItFailed) {
    auto broken = Load(20, 10, true);
    EXPECT_EQ(broken->InitCheck(), B_BAD_DATA);
    translator_info info;
    TImage missing(fFolder / "missing", &fRoster, info);
    TImage unnamed("", &fRoster, info);
    for (TImage* image : {broken.get(), &missing, &unnamed}) {
        EXPECT_NE(image->InitCheck(), B_OK);
        EXPECT_EQ(image->OrgImage(), nullptr);
        EXPECT_EQ(image->FileName(), "");
        EXPECT_EQ(image->Kind(), "");
    }
}

TEST_F(Image, IsCopiedOnceUnderTheNaturalOptions) {
    for (int32 option : {kDontFitAnything, kFitWindowToImage}) {
        gPrefs.fDisplayOption = option;
        auto image = Load(20, 10);
        image->Resize(400, 400);
        BBitmap* scaled = image->Image();
        ASSERT_NE(scaled, nullptr);
        EXPECT_EQ(scaled->Bounds(), BRect(0, 0, 19, 9));
        EXPECT_EQ(scaled->ColorSpace(), B_RGBA32);
        image->Resize(33, 77);
        EXPECT_EQ(image->Image(), scaled);
        const auto* pixel = static_cast<const uint8*>(scaled->Bits());
        EXPECT_EQ(pixel[0], 3);
        EXPECT_EQ(pixel[1], 2);
        EXPECT_EQ(pixel[2], 1);
        EXPECT_EQ(pixel[3], 255);
    }
}

TEST_F(Image, IsScaledAnewOnlyForANewSize) {
    auto image = Load(20, 10);
    gPrefs.fDisplayOption = kFitImageToWindow;
    image->Resize(100, 50);
    BBitmap* scaled = image->Image();
    EXPECT_EQ(scaled->Bounds(), BRect(0, 0, 100, 50));
    image->Resize(100, 50);
    EXPECT_EQ(image->Image(), scaled);
    image->Resize(101, 50);
    EXPECT_EQ(image->Image()->Bounds(), BRect(0, 0, 101, 50));
}

TEST_F(Image, IsDrawnAnewOnceSmoothScalingIsAnotherChoice) {
    auto image = Load(20, 10);
    gPrefs.fDisplayOption = kFitImageToWindow;
    image->Resize(39, 19);
    auto* pixel = static_cast<uint8*>(image->Image()->Bits());
    for (const bool smooth : {true, false}) {
        gAdditions.fSmoothScaling = smooth;
        pixel[0] = 77;
        image->Resize(39, 19);
        EXPECT_EQ(pixel[0], 3) << smooth;
        pixel[0] = 77;
        image->Resize(39, 19);
        EXPECT_EQ(pixel[0], 77) << smooth;
    }
}

TEST_F(Image, KeepsAFractionalSize) {
    auto image = Load(31, 11);
    gPrefs.fDisplayOption = kScaleImageToWindow;
    image->Resize(100, 100);
    EXPECT_FLOAT_EQ(image->Image()->Bounds().Height(), 100.0F / 3);
    BBitmap* scaled = image->Image();
    image->Resize(100, 100);
    EXPECT_EQ(image->Image(), scaled);
}

TEST_F(Image, SurvivesOptionsAndSizesOfEveryKind) {
    for (int32 width : {1, 2, 50}) {
        for (int32 height : {1, 2, 50}) {
            auto image = Load(width, height);
            for (int32 option = -1; option <= kDisplayOptionCount; ++option) {
                gPrefs.fDisplayOption = option;
                for (float size : {-20.0F, -1.0F, 0.0F, 0.5F, 13.0F, 14.0F, 333.0F}) {
                    image->Resize(size, 100);
                    ASSERT_TRUE(image->Image()->IsValid());
                    image->Resize(100, size);
                    ASSERT_TRUE(image->Image()->IsValid());
                    image->Draw();
                }
            }
        }
    }
}

}  // namespace
