#include "framework/Icons.h"

#include <app/Application.h>
#include <app/Roster.h>
#include <cstring>
#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <memory>
#include <storage/Mime.h>

namespace {

constexpr char kSignature[] = "application/x-vnd.Test-Icons";

std::unique_ptr<BBitmap> square(int32 size, color_space space = B_RGBA32) {
    const auto last = static_cast<float>(size - 1);
    return std::make_unique<BBitmap>(BRect(0, 0, last, last), space);
}

/// Whether every pixel has these bytes.
bool is_all(const BBitmap& bitmap, const char* pixel) {
    const auto* bits = static_cast<const char*>(bitmap.Bits());
    for (int32 i = 0; i < bitmap.BitsLength(); i += 4) {
        if (std::memcmp(bits + i, pixel, 4) != 0)
            return false;
    }
    return bitmap.BitsLength() > 0;
}

TEST(AppInfo, TellsWhatRuns) {
    const BApplication app(kSignature);
    app_info info;
    ASSERT_EQ(app.GetAppInfo(&info), B_OK);
    EXPECT_STREQ(info.signature, kSignature);
    EXPECT_EQ(info.team, app.Team());
    EXPECT_EQ(info.flags, B_MULTIPLE_LAUNCH);  // the program has no resource that says otherwise
    EXPECT_STREQ(info.ref.name, "test_framework");
    EXPECT_TRUE(BEntry(&info.ref).IsFile());
    EXPECT_EQ(app.GetAppInfo(nullptr), B_BAD_VALUE);
}

TEST(AppInfo, IsNotThereForABadSignature) {
    status_t error = B_OK;
    const BApplication app("no signature", &error);
    app_info info;
    EXPECT_EQ(app.GetAppInfo(&info), B_BAD_VALUE);
    EXPECT_EQ(error, B_BAD_VALUE);
}

TEST(MimeTypeIcon, IsThatOfTheRunningApplication) {
    const BApplication app(kSignature);
    const auto icon = square(16);
    ASSERT_EQ(BMimeType("Application/X-vnd.test-icons").GetIcon(icon.get(), B_MINI_ICON), B_OK);
    EXPECT_TRUE(is_all(*icon, "wxyz"));
}

TEST(MimeTypeIcon, NoOtherTypeHasOne) {
    const auto icon = square(32);
    EXPECT_EQ(BMimeType(kSignature).GetIcon(icon.get(), B_LARGE_ICON), B_ENTRY_NOT_FOUND);
    const BApplication app(kSignature);
    EXPECT_EQ(BMimeType("image/png").GetIcon(icon.get(), B_LARGE_ICON), B_ENTRY_NOT_FOUND);
    EXPECT_EQ(BMimeType().GetIcon(icon.get(), B_LARGE_ICON), B_NO_INIT);
    EXPECT_TRUE(is_all(*icon, "\0\0\0"));
}

TEST(MimeTypeIcon, TheBitmapMustFit) {
    const BApplication app(kSignature);
    const BMimeType type(kSignature);
    EXPECT_EQ(type.GetIcon(nullptr, B_LARGE_ICON), B_BAD_VALUE);
    EXPECT_EQ(type.GetIcon(square(16).get(), B_LARGE_ICON), B_BAD_VALUE);
    EXPECT_EQ(type.GetIcon(square(32, B_RGB32).get(), B_LARGE_ICON), B_BAD_TYPE);
}

TEST(GetIcons, MakesBoth) {
    const BApplication app(kSignature);
    BBitmap* large = nullptr;
    BBitmap* small = nullptr;
    get_icons(&large, &small);
    const std::unique_ptr<BBitmap> owners[] = {
        std::unique_ptr<BBitmap>(large), std::unique_ptr<BBitmap>(small)};
    EXPECT_EQ(large->Bounds(), BRect(0, 0, 31, 31));
    EXPECT_EQ(small->Bounds(), BRect(0, 0, 15, 15));
    EXPECT_TRUE(is_all(*large, "abcd"));
    EXPECT_TRUE(is_all(*small, "wxyz"));
}

TEST(GetIcons, RaisesTheReasonAndMakesNone) {
    BBitmap* large = nullptr;
    BBitmap* small = nullptr;
    try {
        get_icons(&large, &small);
        FAIL() << "there is no application";
    } catch (const TIconError& error) {
        EXPECT_EQ(error.Status(), B_NO_INIT);
        EXPECT_STRNE(error.what(), "");
    }
    status_t status = B_OK;
    const BApplication app("no signature", &status);
    EXPECT_THROW(get_icons(&large, &small), TIconError);
    EXPECT_EQ(large, nullptr);
    EXPECT_EQ(small, nullptr);
}

}  // namespace
