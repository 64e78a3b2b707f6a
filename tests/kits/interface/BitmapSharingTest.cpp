#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <interface/View.h>
#include <thread>
#include <vector>

#include "kits/interface/BitmapAccess.h"
#include "tests/kits/interface/Pixels.h"

namespace BPrivate {

namespace {

/// A bitmap with a view over all of it.
struct Canvas {
    explicit Canvas(BRect frame, color_space space = B_RGBA32)
        : bitmap(frame, space, true), view(new BView(frame, "view", 0, 0)) {
        bitmap.AddChild(view);
    }

    /// In pixels: what is all of one colour needs none.
    void Fill(rgb_color color) {
        view->SetHighColor(color);
        view->FillRect(view->Bounds());
        EXPECT_NE(BitmapAccess::PixelsForWriting(bitmap).bits, nullptr);
    }
    rgb_color At(int32 x, int32 y) const {
        const PixelBuffer pixels = BitmapAccess::Pixels(bitmap);
        return ToColor(ReadRgba32::At(pixels.bits + y * pixels.bytesPerRow, x));
    }

    BBitmap bitmap;
    BView* view;
};

constexpr BRect kFrame(0, 0, 39, 29);

}  // namespace

TEST(BitmapSharing, WholeCopyShares) {
    Canvas from(kFrame);
    from.Fill(kRed);
    Canvas to(kFrame);
    to.view->DrawBitmap(&from.bitmap, to.view->Bounds());
    EXPECT_TRUE(BitmapAccess::Share(from.bitmap, to.bitmap));
    EXPECT_EQ(to.At(39, 29), kRed);
}

TEST(BitmapSharing, FractionalFrameOfTheSamePixels) {
    Canvas from(BRect(0, 0, 39, 29));
    from.Fill(kRed);
    Canvas to(BRect(0, 0, 38.6F, 28.2F));
    to.view->DrawBitmap(&from.bitmap, to.view->Bounds());
    EXPECT_TRUE(BitmapAccess::Share(from.bitmap, to.bitmap));
}

TEST(BitmapSharing, WritingEndsIt) {
    Canvas from(kFrame);
    from.Fill(kRed);
    Canvas to(kFrame);
    to.view->DrawBitmap(&from.bitmap, B_ORIGIN);
    ASSERT_TRUE(BitmapAccess::Share(from.bitmap, to.bitmap));
    to.view->SetHighColor(kBlue);
    to.view->FillRect(BRect(0, 0, 0, 0));
    EXPECT_FALSE(BitmapAccess::Share(from.bitmap, to.bitmap));
    EXPECT_EQ(to.At(0, 0), kBlue);
    EXPECT_EQ(to.At(1, 0), kRed);
    EXPECT_EQ(from.At(0, 0), kRed);

    to.view->DrawBitmap(&from.bitmap, B_ORIGIN);
    ASSERT_TRUE(BitmapAccess::Share(from.bitmap, to.bitmap));
    from.Fill(kGreen);
    EXPECT_EQ(to.At(0, 0), kRed);
    EXPECT_EQ(from.At(0, 0), kGreen);
}

TEST(BitmapSharing, BitsEndsItForGood) {
    Canvas from(kFrame);
    from.Fill(kRed);
    Canvas to(kFrame);
    to.view->DrawBitmap(&from.bitmap, B_ORIGIN);
    auto* pixels = static_cast<Pixel*>(from.bitmap.Bits());
    EXPECT_FALSE(BitmapAccess::Share(from.bitmap, to.bitmap));
    to.view->DrawBitmap(&from.bitmap, B_ORIGIN);
    EXPECT_FALSE(BitmapAccess::Share(from.bitmap, to.bitmap));
    pixels[0] = ToPixel(kGreen);
    EXPECT_EQ(to.At(0, 0), kRed);

    BitmapAccess::ForgetBits(from.bitmap);
    to.view->DrawBitmap(&from.bitmap, B_ORIGIN);
    EXPECT_TRUE(BitmapAccess::Share(from.bitmap, to.bitmap));
    EXPECT_EQ(to.At(0, 0), kGreen);
}

TEST(BitmapSharing, WritingWithoutBitsDoesNotEndIt) {
    BBitmap from(kFrame, B_RGBA32);
    EXPECT_NE(BitmapAccess::PixelsForWriting(from).bits, nullptr);
    Canvas to(kFrame);
    to.view->DrawBitmap(&from, B_ORIGIN);
    EXPECT_TRUE(BitmapAccess::Share(from, to.bitmap));
}

TEST(BitmapSharing, OnlyWholeEqualCopies) {
    const auto shares = [](color_space space, BRect frame, auto draw) {
        Canvas from(kFrame);
        from.Fill(kRed);
        Canvas to(frame, space);
        draw(*to.view, from.bitmap);
        return BitmapAccess::Share(from.bitmap, to.bitmap);
    };
    const auto plain = [](BView& view, const BBitmap& from) { view.DrawBitmap(&from, B_ORIGIN); };
    EXPECT_TRUE(shares(B_RGBA32, kFrame, plain));
    EXPECT_FALSE(shares(B_RGB32, kFrame, plain));
    EXPECT_FALSE(shares(B_RGBA32, BRect(0, 0, 40, 29), plain));
    EXPECT_FALSE(shares(B_RGBA32, kFrame,
        [](BView& view, const BBitmap& from) { view.DrawBitmap(&from, BPoint(1, 0)); }));
    EXPECT_FALSE(shares(B_RGBA32, kFrame, [](BView& view, const BBitmap& from) {
        view.SetDrawingMode(B_OP_ALPHA);
        view.DrawBitmap(&from, B_ORIGIN);
    }));
    EXPECT_FALSE(shares(B_RGBA32, kFrame, [](BView& view, const BBitmap& from) {
        view.DrawBitmap(&from, BRect(0, 0, 9, 9), view.Bounds());
    }));
    EXPECT_FALSE(shares(B_RGBA32, kFrame, [](BView& view, const BBitmap& from) {
        view.ResizeBy(-1, 0);
        view.DrawBitmap(&from, B_ORIGIN);
    }));
}

// Bitmaps that share belong to different threads; what one does is never seen by another.
TEST(BitmapSharing, Threads) {
    constexpr int kThreads = 4;
    Canvas source(kFrame);
    source.Fill(kRed);
    std::vector<std::unique_ptr<Canvas>> copies;
    for (int i = 0; i < kThreads; i++) {
        copies.push_back(std::make_unique<Canvas>(kFrame));
        copies.back()->view->DrawBitmap(&source.bitmap, B_ORIGIN);
    }
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; i++) {
        threads.emplace_back([&copy = *copies[static_cast<std::size_t>(i)], i] {
            EXPECT_EQ(copy.At(5, 5), kRed);
            for (int round = 0; round < 50; round++) {
                const rgb_color own{static_cast<uint8>(i), static_cast<uint8>(round), 1, 255};
                copy.Fill(own);
                Canvas second(kFrame);
                second.view->DrawBitmap(&copy.bitmap, B_ORIGIN);
                EXPECT_EQ(second.At(20, 20), own);
            }
        });
    }
    source.Fill(kBlue);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(source.At(5, 5), kBlue);
}

}  // namespace BPrivate
