#include <cstring>
#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <interface/View.h>
#include <limits>
#include <vector>

#include "kits/interface/BitmapAccess.h"
#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

TEST(Bitmap, SizeOfItsPixels) {
    const struct {
        float width;
        float height;
        color_space space;
        int32 bytesPerRow;
        int32 length;
    } table[] = {
        {0, 0, B_RGBA32, 4, 4},
        {9, 4, B_RGBA32, 40, 200},
        {9.2F, 4.7F, B_RGB32, 44, 264},
        {9, 4, B_GRAY8, 12, 60},
    };
    for (const auto& row : table) {
        const BBitmap bitmap(BRect(0, 0, row.width, row.height), row.space);
        EXPECT_EQ(bitmap.InitCheck(), B_OK);
        EXPECT_EQ(bitmap.BytesPerRow(), row.bytesPerRow);
        EXPECT_EQ(bitmap.BitsLength(), row.length);
        EXPECT_EQ(bitmap.ColorSpace(), row.space);
        EXPECT_EQ(bitmap.Bounds(), BRect(0, 0, row.width, row.height));
        const auto* bits = static_cast<const uint8*>(bitmap.Bits());
        EXPECT_TRUE(std::all_of(bits, bits + row.length, [](uint8 byte) { return byte == 0; }));
    }
}

TEST(Bitmap, BadOnesAreSafe) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    const struct {
        BRect frame;
        color_space space;
        bool views;
        status_t status;
    } table[] = {
        {{0, 0, -1, 5}, B_RGBA32, true, B_BAD_VALUE},
        {{0, 0, nan, 5}, B_RGBA32, true, B_BAD_VALUE},
        {{0, 0, infinity, 5}, B_RGBA32, true, B_BAD_VALUE},
        {{0, 0, 5, 5}, B_NO_COLOR_SPACE, false, B_BAD_TYPE},
        {{0, 0, 5, 5}, static_cast<color_space>(0x1234), false, B_BAD_TYPE},
        {{0, 0, 5, 5}, B_GRAY8, true, B_BAD_VALUE},
        {{0, 0, 100000, 100000}, B_RGBA32, false, B_NO_MEMORY},
        {{0, 0, 1e30F, 1e30F}, B_RGBA32, false, B_NO_MEMORY},
        {{0, 0, 1e30F, 0}, B_GRAY8, false, B_OK},
    };
    for (const auto& row : table) {
        BBitmap bitmap(row.frame, row.space, row.views);
        EXPECT_EQ(bitmap.InitCheck(), row.status);
        if (row.status == B_OK)
            continue;
        EXPECT_FALSE(bitmap.IsValid());
        EXPECT_EQ(bitmap.Bits(), nullptr);
        EXPECT_EQ(bitmap.BitsLength(), 0);
        EXPECT_FALSE(bitmap.Lock() && row.status == B_BAD_TYPE);
        bitmap.Unlock();
        auto view = std::make_unique<BView>(BRect(0, 0, 5, 5), "view", 0, 0);
        bitmap.AddChild(view.get());
        view->FillRect(BRect(0, 0, 5, 5));
        view->DrawBitmap(&bitmap, BPoint(0, 0));
        (void)bitmap.RemoveChild(view.get());
        EXPECT_EQ(bitmap.CountChildren(), 0);
        EXPECT_NE(bitmap.ImportBits("abcd", 4, 4, 0, B_RGBA32), B_OK);
    }
}

TEST(Bitmap, ViewsDrawAtOnce) {
    BBitmap bitmap(BRect(0, 0, 9, 9), B_RGBA32, true);
    auto* view = new BView(BRect(2, 2, 9, 9), "inside", 0, 0);
    bitmap.AddChild(view);
    EXPECT_EQ(bitmap.CountChildren(), 1);
    EXPECT_EQ(bitmap.ChildAt(0), view);
    EXPECT_EQ(bitmap.FindView("inside"), view);
    EXPECT_EQ(view->Parent(), nullptr);
    EXPECT_EQ(view->Window(), nullptr);
    ASSERT_TRUE(bitmap.Lock());
    EXPECT_TRUE(bitmap.IsLocked());
    view->SetHighColor(kRed);
    view->FillRect(BRect(-5, -5, 1, 1));
    view->Sync();
    bitmap.Unlock();
    EXPECT_FALSE(bitmap.IsLocked());
    const auto* pixels = static_cast<const Pixel*>(bitmap.Bits());
    EXPECT_EQ(pixels[22], ToPixel(kRed));
    EXPECT_EQ(pixels[33], ToPixel(kRed));
    EXPECT_EQ(pixels[11], 0U);
    EXPECT_EQ(pixels[44], 0U);
    ASSERT_TRUE(bitmap.RemoveChild(view));
    view->FillRect(BRect(0, 0, 9, 9));
    EXPECT_EQ(pixels[44], 0U);
    delete view;
}

TEST(Bitmap, WithoutViews) {
    BBitmap bitmap(BRect(0, 0, 3, 3), B_RGBA32);
    EXPECT_FALSE(bitmap.Lock());
    auto view = std::make_unique<BView>(BRect(0, 0, 3, 3), nullptr, 0, 0);
    bitmap.AddChild(view.get());
    EXPECT_EQ(bitmap.CountChildren(), 0);
}

TEST(Bitmap, ImportBits) {
    BBitmap bitmap(BRect(0, 0, 1, 1), B_RGBA32);
    const Pixel rows[] = {1, 2, 99, 3, 4, 99};
    EXPECT_EQ(bitmap.ImportBits(rows, 24, 12, 0, B_RGBA32), B_OK);
    const auto* pixels = static_cast<const Pixel*>(bitmap.Bits());
    EXPECT_EQ(std::vector<Pixel>(pixels, pixels + 4), (std::vector<Pixel>{1, 2, 3, 4}));
    const Pixel one = 7;
    bitmap.SetBits(&one, 4, 8, B_RGBA32);
    EXPECT_EQ(pixels[2], 7U);
    EXPECT_EQ(bitmap.ImportBits(rows, 24, 12, 8, B_RGBA32), B_BAD_VALUE);
    EXPECT_EQ(bitmap.ImportBits(rows, 8, 8, 12, B_RGBA32), B_BAD_VALUE);
    EXPECT_EQ(bitmap.ImportBits(rows, 4, 4, 0, B_GRAY8), B_BAD_TYPE);
    EXPECT_EQ(bitmap.ImportBits(rows, -4, 4, 0, B_RGBA32), B_BAD_VALUE);
    EXPECT_EQ(bitmap.ImportBits(rows, 4, 4, INT32_MAX, B_RGBA32), B_BAD_VALUE);
    EXPECT_EQ(bitmap.ImportBits(nullptr, 4, 4, 0, B_RGBA32), B_BAD_VALUE);

    const BBitmap copy(&bitmap);
    EXPECT_EQ(std::memcmp(copy.Bits(), bitmap.Bits(), 16), 0);
    BBitmap other(BRect(0, 0, 2, 1), B_RGBA32);
    EXPECT_EQ(other.ImportBits(&bitmap), B_MISMATCHED_VALUES);
}

TEST(Bitmap, AdoptedMemory) {
    std::vector<Pixel> memory(12, 5);
    int released = 0;
    const auto release = [&] { released++; };
    {
        const auto bitmap =
            BitmapAccess::Adopt(BRect(0, 0, 2, 2), B_RGBA32, memory.data(), 16, release);
        ASSERT_NE(bitmap, nullptr);
        EXPECT_EQ(bitmap->InitCheck(), B_OK);
        EXPECT_EQ(bitmap->BytesPerRow(), 16);
        EXPECT_EQ(bitmap->Bits(), memory.data());
        EXPECT_EQ(released, 0);
    }
    EXPECT_EQ(released, 1);
    EXPECT_EQ(
        BitmapAccess::Adopt(BRect(0, 0, 2, 2), B_RGBA32, memory.data(), 11, release), nullptr);
    EXPECT_EQ(BitmapAccess::Adopt(BRect(0, 0, 2, 2), B_RGBA32, nullptr, 16, release), nullptr);
    EXPECT_EQ(
        BitmapAccess::Adopt(BRect(0, 0, -2, 2), B_RGBA32, memory.data(), 16, release), nullptr);
    EXPECT_EQ(released, 4);
}

}  // namespace BPrivate
