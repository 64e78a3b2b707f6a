// Bitmaps that are kept as drawings.

#include <gtest/gtest.h>
#include <interface/Bitmap.h>
#include <interface/View.h>
#include <random>

#include "kits/interface/BitmapAccess.h"
#include "kits/interface/BitmapData.h"
#include "tests/kits/interface/Pixels.h"
#include "tests/kits/interface/TestWindow.h"

namespace BPrivate {

namespace {

/// Noise, partly transparent, so that every pixel is known from the others.
std::unique_ptr<BBitmap> Noise(int32 width, int32 height, bool opaque = true) {
    auto bitmap = std::make_unique<BBitmap>(
        BRect(0, 0, static_cast<float>(width - 1), static_cast<float>(height - 1)), B_RGBA32);
    const PixelBuffer pixels = BitmapAccess::PixelsForWriting(*bitmap);
    std::mt19937 random(static_cast<unsigned>(width * 1000 + height));
    for (int32 y = 0; y < height; y++) {
        for (int32 x = 0; x < width; x++) {
            const Pixel pixel = static_cast<Pixel>(random()) | (opaque ? kOpaque : 0);
            std::memcpy(pixels.bits + y * pixels.bytesPerRow + 4 * x, &pixel, 4);
        }
    }
    return bitmap;
}

/// A bitmap that holds nothing but the picture, drawn over all of it.
struct Scaled {
    Scaled(const BBitmap& picture, float width, float height, bool onRed = false)
        : bitmap(BRect(0, 0, width, height), B_RGBA32, true),
          view(new BView(bitmap.Bounds(), "view", 0, 0)) {
        bitmap.AddChild(view);
        if (onRed) {
            view->SetHighColor(kRed);
            view->FillRect(view->Bounds().InsetByCopy(-1, -1));  // a part of a pixel counts
            view->SetDrawingMode(B_OP_ALPHA);
        }
        view->DrawBitmap(&picture, view->Bounds());
    }

    BBitmap bitmap;
    BView* view;
};

/// What drawing it by the painter into memory of that size gives.
std::vector<Pixel> Rendered(
    const BBitmap& picture, int32 width, int32 height, bool onRed, float ratio = 1) {
    const PixelScale scale(ratio);
    const int32 columns = scale.Edge(width);
    const int32 rows = scale.Edge(height);
    std::vector<Pixel> pixels(static_cast<std::size_t>(columns * rows), onRed ? ToPixel(kRed) : 0);
    const PixelBuffer to{
        reinterpret_cast<uint8*>(pixels.data()), 4 * columns, columns, rows, ratio};
    const PixelBuffer from = BitmapAccess::Pixels(picture);
    Painter::DrawPixels(to, {0, 0, columns, rows}, {from, B_RGBA32},
        {0, 0, from.width, from.height}, {0, 0, width, height}, onRed ? B_OP_ALPHA : B_OP_COPY);
    return pixels;
}

bool HasPixels(const BBitmap& bitmap) {
    return BitmapAccess::HasPixels(bitmap);
}

/// Draws into a window of 60 by 50 units.
class Target : public TestWindow {
public:
    class Canvas : public BView {
    public:
        Canvas(BRect frame, std::function<void(BView&)> paint)
            : BView(frame, nullptr, B_FOLLOW_ALL_SIDES, B_WILL_DRAW), fPaint(std::move(paint)) {
            SetViewColor(B_TRANSPARENT_COLOR);
        }
        void Draw(BRect) override { fPaint(*this); }

    private:
        std::function<void(BView&)> fPaint;
    };

    Target(float ratio, std::function<void(BView&)> paint) {
        Screen().ChangeScreen(BRect(0, 0, 1919, 1079), ratio);
        canvas = new Canvas(BRect(0, 0, 59, 49), std::move(paint));
        Get()->AddChild(canvas);
        Get()->Show();
        Settle();
        // The first drawing may be on the thread that has shown the window.
        Do([&] { canvas->Invalidate(); });
    }
    Canvas* canvas;
};

}  // namespace

TEST(BitmapDrawing, TakesNoMemoryUntilItsPixelsAreAskedFor) {
    const auto picture = Noise(40, 30);
    const Scaled scaled(*picture, 299, 199);
    EXPECT_FALSE(HasPixels(scaled.bitmap));
    const PixelBuffer pixels = BitmapAccess::Pixels(scaled.bitmap);
    EXPECT_TRUE(HasPixels(scaled.bitmap));
    const std::vector<Pixel> expected = Rendered(*picture, 300, 200, false);
    for (int32 y = 0; y < 200; y++) {
        for (int32 x = 0; x < 300; x++)
            ASSERT_EQ(ReadRgba32::At(pixels.bits + y * pixels.bytesPerRow, x),
                expected[static_cast<std::size_t>(y * 300 + x)])
                << x << " " << y;
    }
}

TEST(BitmapDrawing, MayBeLargerThanAnyMemory) {
    const auto picture = Noise(3000, 2);
    Scaled scaled(*picture, 2700000, 900);
    EXPECT_EQ(scaled.bitmap.InitCheck(), B_OK);
    EXPECT_EQ(scaled.bitmap.BitsLength(), 0);
    EXPECT_EQ(scaled.bitmap.Bits(), nullptr);
    scaled.view->FillRect(BRect(0, 0, 3, 3));  // nothing to draw on: no harm

    const Scaled again(*picture, 2700000, 900);
    BBitmap part(BRect(0, 0, 99, 9), B_RGBA32, true);
    auto* view = new BView(part.Bounds(), "view", 0, 0);
    part.AddChild(view);
    for (const float left : {0.0F, 1234567.0F, 2699900.0F}) {
        view->DrawBitmap(&again.bitmap, BRect(left, 445, left + 99, 454), part.Bounds());
        const PixelBuffer pixels = BitmapAccess::Pixels(part);
        const PixelBuffer from = BitmapAccess::Pixels(*picture);
        for (int32 x = 0; x < 100; x++) {
            const auto column =
                static_cast<int32>((static_cast<double>(left) + x + 0.5) * 3000 / 2700001);
            ASSERT_EQ(ReadRgba32::At(pixels.bits, x), ReadRgba32::At(from.bits, column)) << x;
            ASSERT_EQ(ReadRgba32::At(pixels.bits + 9 * pixels.bytesPerRow, x),
                ReadRgba32::At(from.bits + from.bytesPerRow, column))
                << x;
        }
    }
}

TEST(BitmapDrawing, AnyPartIsWhatTheWholeWouldBe) {
    const struct {
        int32 width, height;  // of the picture
        float toWidth, toHeight;
        BRect part;
        BPoint at;
    } table[] = {
        {40, 30, 59, 49, {0, 0, 59, 49}, {0, 0}},
        {200, 170, 59, 49, {0, 0, 59, 49}, {0, 0}},
        {40, 30, 299, 199, {240, 150, 299, 199}, {0, 0}},
        {200, 170, 150, 130, {31, 17, 60, 46}, {7, 9}},
        {37, 41, 83, 29, {11, 3, 40, 29}, {20, 20}},
        {40, 30, 39, 29, {0, 0, 39, 29}, {5, 6}},
        {40, 30, 58.5F, 48.25F, {0, 0, 59, 49}, {0, 0}},
    };
    for (const float ratio : {1.0F, 1.25F, 1.5F, 2.0F}) {
        for (const auto& row : table) {
            for (const bool onRed : {false, true}) {
                const auto picture = Noise(row.width, row.height, !onRed);
                const Scaled scaled(*picture, row.toWidth, row.toHeight, onRed);
                const BRect to = row.part.OffsetToCopy(row.at);
                Target window(ratio, [&](BView& view) {
                    view.SetHighColor(kBlue);
                    view.FillRect(view.Bounds());
                    view.DrawBitmap(&scaled.bitmap, row.part, to);
                });
                // In pieces: each gives the same again.
                const recording::Picture whole = window.Screen().Shown();
                window.Do([&] { window.canvas->Invalidate(BRect(3, 3, 17, 21)); });
                window.Settle();
                EXPECT_EQ(window.Screen().Shown().bits, whole.bits);
                EXPECT_EQ(HasPixels(scaled.bitmap), row.width - 1 == row.toWidth && !onRed);

                // As if the whole were drawn where the part makes it lie.
                const auto width = scaled.bitmap.Bounds().Width();
                const auto height = scaled.bitmap.Bounds().Height();
                const BPoint leftTop = row.at - row.part.LeftTop();
                Target direct(ratio, [&](BView& view) {
                    view.SetHighColor(kBlue);
                    view.FillRect(view.Bounds());
                    view.SetHighColor(kRed);
                    const BRect all(leftTop.x, leftTop.y, leftTop.x + width, leftTop.y + height);
                    if (onRed) {
                        view.FillRect(to);
                        view.SetDrawingMode(B_OP_ALPHA);
                    }
                    view.DrawBitmap(picture.get(), all);
                    view.SetDrawingMode(B_OP_COPY);
                    // What lies beside the part.
                    view.SetHighColor(kBlue);
                    const BRect out = view.Bounds();
                    view.FillRect(BRect(out.left, out.top, out.right, to.top - 1));
                    view.FillRect(BRect(out.left, out.top, to.left - 1, out.bottom));
                    view.FillRect(BRect(to.right + 1, out.top, out.right, out.bottom));
                    view.FillRect(BRect(out.left, to.bottom + 1, out.right, out.bottom));
                });
                EXPECT_EQ(whole.bits, direct.Screen().Shown().bits)
                    << ratio << " " << row.width << " x " << row.height << " to " << row.toWidth;
            }
        }
    }
}

TEST(BitmapDrawing, IsAtTheScreensResolution) {
    const auto picture = Noise(240, 200);
    const Scaled scaled(*picture, 59, 49);
    Target window(2, [&](BView& view) { view.DrawBitmap(&scaled.bitmap, B_ORIGIN); });
    const std::vector<Pixel> expected = Rendered(*picture, 60, 50, false, 2);
    const recording::Picture shown = window.Screen().Shown();
    int uniform = 0;
    for (int32 y = 0; y < 100; y++) {
        for (int32 x = 0; x < 120; x++)
            ASSERT_EQ(shown.At(x, y), ToColor(expected[static_cast<std::size_t>(y * 120 + x)]));
    }
    for (int32 y = 0; y < 100; y += 2) {
        for (int32 x = 0; x < 120; x += 2)
            uniform += shown.At(x, y) == shown.At(x + 1, y + 1) ? 1 : 0;
    }
    EXPECT_LT(uniform, 10);
}

TEST(BitmapDrawing, KeepsWhatItsSourceWas) {
    const auto picture = Noise(40, 30);
    const auto before = Rendered(*picture, 60, 50, false);
    const Scaled scaled(*picture, 59, 49);
    const PixelBuffer pixels = BitmapAccess::PixelsForWriting(*picture);
    std::memset(pixels.bits, 0, static_cast<std::size_t>(pixels.bytesPerRow * pixels.height));
    const PixelBuffer kept = BitmapAccess::Pixels(scaled.bitmap);
    EXPECT_EQ(std::memcmp(kept.bits, before.data(), 4 * before.size()), 0);
}

TEST(BitmapDrawing, IsDrawnOnLikeAnyOther) {
    const auto picture = Noise(40, 30, false);
    Scaled scaled(*picture, 59, 49, true);
    auto expected = Rendered(*picture, 60, 50, true);
    scaled.view->SetDrawingMode(B_OP_COPY);
    scaled.view->SetHighColor(kGreen);
    scaled.view->FillRect(BRect(10, 10, 10, 10));
    expected[10 * 60 + 10] = ToPixel(kGreen);
    const PixelBuffer pixels = BitmapAccess::Pixels(scaled.bitmap);
    EXPECT_EQ(std::memcmp(pixels.bits, expected.data(), 4 * expected.size()), 0);
}

// What shows through is not known to be anything.
TEST(BitmapDrawing, WhatIsTransparentNeedsAColorBelow) {
    const auto picture = Noise(40, 30, false);
    BBitmap bitmap(BRect(0, 0, 39, 29), B_RGBA32, true);
    auto* view = new BView(bitmap.Bounds(), "view", 0, 0);
    bitmap.AddChild(view);
    view->SetHighColor(kBlue);
    view->FillRect(BRect(0, 0, 19, 29));
    view->SetDrawingMode(B_OP_ALPHA);
    view->DrawBitmap(picture.get(), B_ORIGIN);
    const PixelBuffer pixels = BitmapAccess::Pixels(bitmap);
    const PixelBuffer from = BitmapAccess::Pixels(*picture);
    EXPECT_EQ(
        ReadRgba32::At(pixels.bits, 5), BlendPixel(ReadRgba32::At(from.bits, 5), ToPixel(kBlue)));
    EXPECT_EQ(ReadRgba32::At(pixels.bits, 25), BlendPixel(ReadRgba32::At(from.bits, 25), 0));
}

// Text put together off the screen is as sharp as on it.
TEST(BitmapDrawing, HasTheResolutionOfTheWindowItIsMadeFor) {
    for (const float ratio : {1.0F, 1.5F, 2.0F}) {
        const auto paint = [](BView& view) {
            view.SetHighColor(kWhite);
            view.FillRect(view.Bounds());
            view.SetHighColor(kRed);
            view.StrokeLine(BPoint(3, 4), BPoint(41, 33));
            view.FillRect(BRect(7, 9, 8, 29));
        };
        Target direct(ratio, paint);
        Target composed(ratio, [&](BView& view) {
            BBitmap off(view.Bounds(), B_RGBA32, true);
            auto* inner = new BView(view.Bounds(), "inner", 0, 0);
            off.AddChild(inner);
            off.Lock();
            paint(*inner);
            off.Unlock();
            view.DrawBitmap(&off, B_ORIGIN);
        });
        EXPECT_EQ(direct.Screen().Shown().bits, composed.Screen().Shown().bits) << ratio;

        // Who wants the bits gets one to a unit.
        Target plain(ratio, [&](BView& view) {
            BBitmap off(BRect(0, 0, 9, 4), B_RGBA32, true);
            auto* inner = new BView(off.Bounds(), "inner", 0, 0);
            off.AddChild(inner);
            inner->SetHighColor(kGreen);
            inner->FillRect(BRect(0, 0, 4, 4));
            EXPECT_EQ(off.BytesPerRow(), 40);
            EXPECT_EQ(off.BitsLength(), 200);
            const auto* bits = static_cast<const uint8*>(off.Bits());
            EXPECT_EQ(ReadRgba32::At(bits + 160, 4), ToPixel(kGreen));
            EXPECT_EQ(ReadRgba32::At(bits + 160, 5), 0U);
            view.DrawBitmap(&off, B_ORIGIN);
        });
    }
}

}  // namespace BPrivate
