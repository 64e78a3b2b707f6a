// Windows on screens of other ratios than 1.

#include <cmath>
#include <cstring>
#include <interface/Bitmap.h>
#include <random>

#include "kits/interface/PixelScale.h"
#include "tests/kits/interface/Pixels.h"
#include "tests/kits/interface/TestWindow.h"

using BPrivate::kBlack;
using BPrivate::kBlue;
using BPrivate::kGreen;
using BPrivate::kRed;
using BPrivate::kWhite;
using BPrivate::PixelRect;
using BPrivate::PixelScale;
using recording::Picture;
using testing::ElementsAre;

namespace {

const BRect kScreen(0, 0, 1919, 1079);

/// Draws whatever the test wants, without being erased first.
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

/// A window of 100 by 80 units on a screen of that ratio.
class ScaledWindow : public TestWindow {
public:
    ScaledWindow(
        float ratio, std::function<void(BView&)> paint, BRect frame = BRect(0, 0, 99, 79)) {
        Screen().ChangeScreen(kScreen, ratio);
        canvas = new Canvas(frame, std::move(paint));
        Get()->AddChild(canvas);
        Get()->Show();
        Settle();
    }
    Canvas* canvas;
};

bool Same(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height && a.bits == b.bits;
}

BRect Pixels(float ratio, PixelRect units) {
    return PixelScale(ratio).ToPixels(units).ToRect();
}

std::unique_ptr<BBitmap> NoisyBitmap(std::mt19937& random) {
    auto bitmap = std::make_unique<BBitmap>(BRect(0, 0, 59, 49), B_RGBA32);
    auto* bits = static_cast<uint8*>(bitmap->Bits());
    for (int32 i = 0; i < bitmap->BitsLength(); i++)
        bits[i] = static_cast<uint8>(random());
    return bitmap;
}

class AtRatio : public testing::TestWithParam<float> {};

}  // namespace

TEST_P(AtRatio, TheBufferHasThePixelsOfTheScreen) {
    const float ratio = GetParam();
    ScaledWindow window(ratio, [](BView& view) {
        view.SetHighColor(kRed);
        view.FillRect(view.Bounds());
    });
    const Picture shown = window.Screen().Shown();
    EXPECT_EQ(shown.width, std::lround(100 * double{ratio}));
    EXPECT_EQ(shown.height, std::lround(80 * double{ratio}));
    EXPECT_TRUE(shown.IsAll(
        BRect(0, 0, static_cast<float>(shown.width - 1), static_cast<float>(shown.height - 1)),
        kRed));
}

// Drawn over by inversion, a pixel that is drawn twice or not at all differs from the others.
TEST_P(AtRatio, WhatTouchesLeavesNoGapAndDoesNotOverlap) {
    const float ratio = GetParam();
    std::mt19937 random(7);
    const auto within = [&](int32 low, int32 high) {
        return low + static_cast<int32>(random() % static_cast<uint32>(high - low + 1));
    };
    for (int round = 0; round < 20; round++) {
        // The views' origins have fractions, too.
        const BPoint origin(
            static_cast<float>(within(-40, 40)) / 4, static_cast<float>(within(-40, 40)) / 4);
        std::vector<float> columns{-20};
        while (columns.back() < 130)
            columns.push_back(columns.back() + static_cast<float>(within(1, 17)));
        ScaledWindow window(
            ratio,
            [&](BView& view) {
                view.SetHighColor(kWhite);
                view.FillRect(view.Bounds());
                for (std::size_t i = 0; i + 1 < columns.size(); i++)
                    view.InvertRect(BRect(columns[i], -20, columns[i + 1] - 1, 120));
            },
            BRect(0, 0, 120, 120).OffsetToCopy(origin));
        const Picture shown = window.Screen().Shown();
        const PixelRect units{static_cast<int32>(std::floor(origin.x)),
            static_cast<int32>(std::floor(origin.y)), 100, 80};
        const BRect view = Pixels(ratio, units & PixelRect{0, 0, 100, 80});
        ASSERT_TRUE(shown.IsAll(view, kBlack)) << ratio << " at " << Text(origin);
    }
}

TEST_P(AtRatio, ViewsSideBySideTouch) {
    const float ratio = GetParam();
    TestWindow window;
    window.Screen().ChangeScreen(kScreen, ratio);
    // Each inverts its pixels: one of two views would show it, and one of none stays white.
    float left = 0;
    for (const float width : {7.0F, 12.0F, 1.0F, 30.0F, 50.0F}) {
        auto* view = new Canvas(BRect(left, 0, left + width - 1, 79),
            [](BView& own) { own.InvertRect(BRect(-9, -9, 200, 200)); });
        window->AddChild(view);
        left += width;
    }
    window->Show();
    window.Settle();
    const Picture shown = window.Screen().Shown();
    EXPECT_TRUE(shown.IsAll(Pixels(ratio, {0, 0, 100, 80}), kBlack));
}

TEST_P(AtRatio, DrawnInPartsIsDrawnTheSame) {
    const float ratio = GetParam();
    std::mt19937 random(11);
    const std::unique_ptr<BBitmap> bitmap = NoisyBitmap(random);
    const auto number = [&](float low, float high) {
        return std::uniform_real_distribution<float>(low, high)(random);
    };
    for (int round = 0; round < 15; round++) {
        const BPoint at(number(-10, 60), number(-10, 50));
        const BPoint from(number(-5, 20), number(-5, 20));
        const BRect stretched(at.x, at.y, at.x + number(1, 90), at.y + number(1, 70));
        const BPoint ends[] = {
            {number(-10, 110), number(-10, 90)}, {number(-10, 110), number(-10, 90)}};
        ScaledWindow window(ratio, [&](BView& view) {
            view.SetDrawingMode(B_OP_COPY);
            view.SetHighColor(kGreen);
            view.FillRect(view.Bounds());
            view.DrawBitmap(bitmap.get(), stretched);
            const BRect part(from.x, from.y, from.x + 30, from.y + 25);
            view.DrawBitmap(bitmap.get(), part, part.OffsetToCopy(at));
            view.SetHighColor(kBlue);
            view.StrokeLine(ends[0], ends[1]);
            view.StrokeRect(stretched.InsetByCopy(-2, -3));
            view.DrawString("drawn in parts", at + BPoint(0, 20));
            view.FillRect(BRect(70, 0, 99, 20), B_MIXED_COLORS);
        });
        const Picture whole = window.Screen().Shown();
        for (int part = 0; part < 6; part++) {
            window.Do([&] {
                const float left = number(-5, 95);
                const float top = number(-5, 75);
                const BRect spoilt(left, top, left + number(0, 40), top + number(0, 30));
                // What is spoilt is seen again only if it is not all drawn anew.
                window.canvas->SetHighColor(kRed);
                window.canvas->FillRect(spoilt);
                window.canvas->Invalidate(spoilt);
            });
        }
        ASSERT_TRUE(Same(window.Screen().Shown(), whole)) << ratio;
    }
}

TEST_P(AtRatio, APictureKeepsItsPlaceWhateverIsDrawn) {
    const float ratio = GetParam();
    std::mt19937 random(13);
    const std::unique_ptr<BBitmap> bitmap = NoisyBitmap(random);
    ScaledWindow window(ratio, [&](BView& view) { view.DrawBitmap(bitmap.get(), BPoint(3, 5)); });
    const Picture shown = window.Screen().Shown();
    const auto* bits = static_cast<const uint8*>(bitmap->Bits());
    for (int32 y = 0; y < 50; y++) {
        for (int32 x = 0; x < 60; x++) {
            const uint8* pixel = bits + y * bitmap->BytesPerRow() + 4 * x;
            const rgb_color color{pixel[2], pixel[1], pixel[0], 255};
            ASSERT_TRUE(shown.IsAll(Pixels(ratio, {3 + x, 5 + y, 4 + x, 6 + y}), color));
        }
    }
}

TEST_P(AtRatio, StrokesAreAUnitWide) {
    const float ratio = GetParam();
    ScaledWindow window(ratio, [](BView& view) {
        view.SetHighColor(kWhite);
        view.FillRect(view.Bounds());
        view.SetHighColor(0, 0, 0, 128);
        view.SetDrawingMode(B_OP_ALPHA);
        view.StrokeRect(BRect(10, 10, 40, 30));
        view.StrokeRect(BRect(50, 10, 50, 10));
        view.StrokeRect(BRect(60, 10, 70, 11));
    });
    const Picture shown = window.Screen().Shown();
    const rgb_color gray{127, 127, 127, 255};
    // A corner that was blended twice would be darker.
    for (const PixelRect edge :
        {PixelRect{10, 10, 41, 11}, PixelRect{10, 30, 41, 31}, PixelRect{10, 10, 11, 31},
            PixelRect{40, 10, 41, 31}, PixelRect{50, 10, 51, 11}, PixelRect{60, 10, 71, 12}})
        EXPECT_TRUE(shown.IsAll(Pixels(ratio, edge), gray)) << ratio;
    EXPECT_TRUE(shown.IsAll(Pixels(ratio, {11, 11, 40, 30}), kWhite));
    EXPECT_TRUE(shown.IsAll(Pixels(ratio, {42, 8, 49, 40}), kWhite));
}

INSTANTIATE_TEST_SUITE_P(All, AtRatio, testing::Values(1.0F, 1.25F, 1.3F, 1.5F, 1.75F, 2.0F, 3.0F));

TEST(WindowScale, TextIsDrawnInTheLargerFont) {
    ScaledWindow window(2, [](BView& view) {
        view.SetHighColor(kWhite);
        view.FillRect(view.Bounds());
        view.SetHighColor(kRed);
        view.DrawString("ab", BPoint(10, 30));
        // Measured in units, as ever.
        EXPECT_EQ(view.PenLocation(), BPoint(22, 30));
        EXPECT_EQ(view.StringWidth("ab"), 12);
    });
    const Picture shown = window.Screen().Shown();
    // Blocks of a font of 24: the gap between them is what a larger picture of one of 12 has not.
    EXPECT_TRUE(shown.IsAll(BRect(20, 42, 30, 59), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(31, 42, 31, 59), kWhite));
    EXPECT_TRUE(shown.IsAll(BRect(32, 42, 42, 59), kRed));
    EXPECT_TRUE(shown.IsAll(BRect(20, 60, 60, 80), kWhite));
}

TEST(WindowScale, ChangesUpdatesAreInPixels) {
    ScaledWindow window(1.5F, [](BView& view) {
        view.SetHighColor(kRed);
        view.FillRect(view.Bounds());
    });
    window.Do([&] { window.canvas->Invalidate(BRect(11, 11, 20, 21)); });
    // 11 * 1.5 is 16.5, 21 * 1.5 is 31.5: rounded up, both.
    EXPECT_EQ(window.Screen().Presented().back(), BRect(17, 17, 31, 32));
}

TEST(WindowScale, AnotherScreenDrawsEverythingAnew) {
    Log log;
    TestWindow window;
    auto* view = new LoggingView(BRect(10, 10, 29, 29), "view", log);
    view->fill = kRed;
    window->AddChild(view);
    window->Show();
    window.Settle();
    log.Clear();
    for (const float ratio : {1.5F, 2.0F, 1.25F, 1.0F}) {
        const auto before = window.Screen().Presented().size();
        window.Screen().ChangeScreen(kScreen, ratio);
        window.Settle();
        EXPECT_THAT(log.Entries(), ElementsAre("view: draw 0,0 19,19"));
        log.Clear();
        const Picture shown = window.Screen().Shown();
        EXPECT_EQ(shown.width, static_cast<int32>(100 * ratio));
        EXPECT_TRUE(shown.IsAll(Pixels(ratio, {10, 10, 30, 30}), kRed));
        EXPECT_TRUE(shown.IsAll(Pixels(ratio, {30, 0, 100, 80}), kWhite));
        EXPECT_TRUE(shown.IsAll(Pixels(ratio, {0, 0, 100, 10}), kWhite));
        // The first that is seen of it is all of it.
        const auto presented = window.Screen().Presented();
        ASSERT_EQ(presented.size(), before + 1);
        EXPECT_EQ(presented.back(), Pixels(ratio, {0, 0, 100, 80}));
    }
    // To another screen of the same ratio nothing is drawn.
    window.Screen().ChangeScreen(BRect(0, 0, 639, 479), 1);
    window.Settle();
    EXPECT_THAT(log.Entries(), ElementsAre());
}

TEST(WindowScale, NothingIsShownBeforeAllOfItIsDrawn) {
    ScaledWindow window(1, [](BView& view) {
        view.SetHighColor(kRed);
        view.FillRect(view.Bounds());
    });
    window.Do([&] { window->DisableUpdates(); });
    const auto before = window.Screen().Presented().size();
    window.Screen().ChangeScreen(kScreen, 2);
    window.Do([&] {
        window.canvas->FillRect(BRect(0, 0, 4, 4));
        window->EnableUpdates();
        window.canvas->FillRect(BRect(0, 0, 4, 4));
        window->Flush();
        EXPECT_EQ(window.Screen().Presented().size(), before);
    });
    const auto presented = window.Screen().Presented();
    ASSERT_EQ(presented.size(), before + 1);
    EXPECT_EQ(presented.back(), BRect(0, 0, 199, 159));
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(0, 0, 199, 159), kRed));
}

TEST(WindowScale, AHiddenWindowFollowsWhenItIsShown) {
    ScaledWindow window(1, [](BView& view) {
        view.SetHighColor(kRed);
        view.FillRect(view.Bounds());
    });
    window->Hide();
    window.Screen().ChangeScreen(kScreen, 3);
    window.Do([] {});
    EXPECT_EQ(window.Screen().Shown().width, 100);
    window->Show();
    EXPECT_EQ(window.Screen().Shown().width, 300);
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(0, 0, 299, 239), kRed));
}

TEST(WindowScale, ResizingKeepsTheRatio) {
    ScaledWindow window(1.5F, [](BView& view) {
        view.SetHighColor(kRed);
        view.FillRect(view.Bounds());
    });
    window.Screen().UserResize(120, 60);
    EXPECT_TRUE(recording::WaitFor([&] {
        const Picture shown = window.Screen().Shown();
        return shown.width == 182 && shown.height == 92 &&  // 181.5 by 91.5
            shown.IsAll(BRect(0, 0, 181, 91), kRed);
    }));
}

TEST(WindowScale, BitmapsKeepTheirUnits) {
    BBitmap bitmap(BRect(0, 0, 9, 9), B_RGBA32, true);
    auto* painter = new BView(bitmap.Bounds(), nullptr, 0, 0);
    bitmap.AddChild(painter);
    painter->SetHighColor(kRed);
    ScaledWindow window(2, [&](BView& view) {
        painter->FillRect(BRect(2, 2, 5, 5));
        view.SetHighColor(kWhite);
        view.FillRect(view.Bounds());
        view.DrawBitmap(&bitmap, BRect(2, 2, 5, 5), BRect(0, 0, 3, 3));
    });
    EXPECT_EQ(bitmap.BitsLength(), 400);
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(0, 0, 7, 7), kRed));
    EXPECT_TRUE(window.Screen().Shown().IsAll(BRect(8, 0, 199, 7), kWhite));
}
