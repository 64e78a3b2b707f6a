#include <QPainter>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "kits/desktop/FrontImage.h"

using namespace BPrivate;

namespace {

/// A back buffer whose rows are longer than its pixels.
class Buffer {
public:
    Buffer(int32 width, int32 height, uint32 pixel, float ratio = 1)
        : fPixels(static_cast<size_t>(width + 3) * height, pixel), fWidth(width), fHeight(height),
          fRatio(ratio) {}

    PixelBuffer Get() {
        return {
            reinterpret_cast<uint8*>(fPixels.data()), (fWidth + 3) * 4, fWidth, fHeight, fRatio};
    }
    /// Makes every pixel another.
    void Number() {
        for (size_t i = 0; i < fPixels.size(); ++i)
            fPixels[i] = 0xff000000U | static_cast<uint32>(i * 2654435761U);
    }
    uint32 At(int x, int y) const {
        return fPixels[static_cast<size_t>(y * (fWidth + 3) + x)] | 0xff000000U;
    }

private:
    std::vector<uint32> fPixels;
    int32 fWidth;
    int32 fHeight;
    float fRatio;
};

/// A window of that size in units on a screen of that ratio.
QImage Painted(FrontImage& image, int width, int height, qreal ratio = 1) {
    QImage shown(QSize(width, height) * ratio, QImage::Format_ARGB32);
    shown.setDevicePixelRatio(ratio);
    shown.fill(Qt::magenta);
    (void)image.TakeChanged();
    QPainter painter(&shown);
    image.Paint(painter, QRect(0, 0, width, height), QSize(width, height));
    return shown;
}

TEST(FrontImage, ShowsWhatWasPresented) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(20, 10, 0x00102030).Get(), QRect(0, 0, 20, 10)));
    const QImage shown = Painted(image, 20, 10);
    EXPECT_EQ(shown.pixel(0, 0), 0xff102030);
    EXPECT_EQ(shown.pixel(19, 9), 0xff102030);
}

TEST(FrontImage, ChangesOnlyTheArea) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(20, 10, 0xffff0000).Get(), QRect(0, 0, 20, 10)));
    EXPECT_TRUE(image.Present(Buffer(20, 10, 0xff00ff00).Get(), QRect(5, 5, 3, 2)));
    const QImage shown = Painted(image, 20, 10);
    EXPECT_EQ(shown.pixel(4, 5), 0xffff0000);
    EXPECT_EQ(shown.pixel(5, 5), 0xff00ff00);
    EXPECT_EQ(shown.pixel(7, 6), 0xff00ff00);
    EXPECT_EQ(shown.pixel(8, 6), 0xffff0000);
    EXPECT_EQ(shown.pixel(5, 7), 0xffff0000);
}

TEST(FrontImage, TellsOnceWhatHasChanged) {
    FrontImage image(Qt::gray);
    Buffer buffer(20, 10, 0);
    EXPECT_TRUE(image.Present(buffer.Get(), QRect(0, 0, 2, 2)));
    EXPECT_TRUE(image.Present(buffer.Get(), QRect(10, 5, 2, 2)));
    EXPECT_EQ(image.TakeChanged(), QRect(0, 0, 12, 7));
    EXPECT_TRUE(image.TakeChanged().isEmpty());
    EXPECT_TRUE(image.Present(buffer.Get(), QRect(1, 1, 1, 1)));
}

TEST(FrontImage, KeepsToTheBuffer) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(20, 10, 0xff00ff00).Get(), QRect(-5, -5, 100, 100)));
    EXPECT_EQ(image.TakeChanged(), QRect(0, 0, 20, 10));
    EXPECT_FALSE(image.Present(Buffer(20, 10, 0).Get(), QRect(20, 0, 5, 5)));
    EXPECT_FALSE(image.Present(PixelBuffer(), QRect(0, 0, 5, 5)));
    EXPECT_EQ(Painted(image, 20, 10).pixel(19, 9), 0xff00ff00);
}

TEST(FrontImage, KeepsThePictureWhenItGrowsAndShrinks) {
    FrontImage image(QColor(1, 2, 3));
    EXPECT_TRUE(image.Present(Buffer(4, 4, 0xffff0000).Get(), QRect(0, 0, 4, 4)));
    EXPECT_TRUE(image.Present(Buffer(8, 8, 0xff00ff00).Get(), QRect(7, 7, 1, 1)));
    QImage shown = Painted(image, 8, 8);
    EXPECT_EQ(shown.pixel(3, 3), 0xffff0000);
    EXPECT_EQ(shown.pixel(4, 4), 0xff010203);
    EXPECT_EQ(shown.pixel(7, 7), 0xff00ff00);
    EXPECT_TRUE(image.Present(Buffer(2, 2, 0xff0000ff).Get(), QRect(0, 0, 1, 1)));
    shown = Painted(image, 2, 2);
    EXPECT_EQ(shown.pixel(0, 0), 0xff0000ff);
    EXPECT_EQ(shown.pixel(1, 1), 0xffff0000);
}

TEST(FrontImage, ShowsWhatWasPresentedOnceItIsTaken) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(8, 8, 0xffff0000).Get(), QRect(0, 0, 8, 8)));
    (void)Painted(image, 8, 8);
    for (const QRect area : {QRect(0, 0, 8, 8), QRect(2, 2, 3, 3)}) {
        EXPECT_TRUE(image.Present(Buffer(8, 8, 0xff00ff00).Get(), area));
        QImage shown(8, 8, QImage::Format_RGB32);
        QPainter painter(&shown);
        image.Paint(painter, shown.rect(), shown.size());
        EXPECT_EQ(shown.pixel(3, 3), 0xffff0000);
        EXPECT_EQ(image.TakeChanged(), area);
        image.Paint(painter, shown.rect(), shown.size());
        EXPECT_EQ(shown.pixel(3, 3), 0xff00ff00);
        EXPECT_TRUE(image.Present(Buffer(8, 8, 0xffff0000).Get(), QRect(0, 0, 8, 8)));
        (void)image.TakeChanged();
    }
}

TEST(FrontImage, IsGroundBeyondIt) {
    FrontImage image(Qt::gray);
    EXPECT_EQ(Painted(image, 5, 5).pixel(4, 4), QColor(Qt::gray).rgb());
    EXPECT_TRUE(image.Present(Buffer(4, 4, 0xffff0000).Get(), QRect(0, 0, 4, 4)));
    const QImage shown = Painted(image, 9, 7);
    for (const QPoint outside : {QPoint(4, 0), QPoint(8, 3), QPoint(0, 4), QPoint(8, 6)})
        EXPECT_EQ(shown.pixel(outside), QColor(Qt::gray).rgb());
    image.SetGround(Qt::green);
    EXPECT_EQ(Painted(image, 9, 7).pixel(4, 4), QColor(Qt::green).rgb());
    EXPECT_EQ(Painted(image, 9, 7).pixel(3, 3), 0xffff0000);
}

TEST(FrontImage, PaintsPixelOnPixelAtAnyRatio) {
    for (const qreal ratio : {1.0, 1.1, 1.25, 4 / 3.0, 1.5, 1.75, 2.0, 3.0}) {
        FrontImage image(Qt::gray);
        const QSize size = QSize(41, 31) * ratio;
        Buffer buffer(size.width(), size.height(), 0, static_cast<float>(ratio));
        buffer.Number();
        EXPECT_TRUE(image.Present(buffer.Get(), QRect(QPoint(), size)));
        const QImage shown = Painted(image, 41, 31, ratio);
        ASSERT_EQ(shown.size(), size);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                ASSERT_EQ(shown.pixel(x, y), buffer.At(x, y)) << ratio << " " << x << " " << y;
        }
    }
}

TEST(FrontImage, TellsInUnitsAroundThePixels) {
    const struct {
        float ratio;
        QRect pixels;
        QRect units;
    } table[] = {
        {2, {3, 4, 1, 2}, {1, 2, 1, 1}},
        {1.5F, {3, 6, 3, 3}, {2, 4, 2, 2}},
        {1.5F, {4, 7, 1, 1}, {2, 4, 2, 2}},
        {1.25F, {5, 10, 5, 1}, {4, 8, 4, 1}},
    };
    for (const auto& row : table) {
        FrontImage image(Qt::gray);
        Buffer buffer(40, 40, 0, row.ratio);
        EXPECT_TRUE(image.Present(buffer.Get(), QRect(0, 0, 40, 40)));
        (void)image.TakeChanged();
        EXPECT_TRUE(image.Present(buffer.Get(), row.pixels));
        EXPECT_EQ(image.TakeChanged(), row.units) << row.ratio;
    }
}

TEST(FrontImage, IsReplacedAsAWholeAtAnotherRatio) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(40, 20, 0xffff0000, 2).Get(), QRect(0, 0, 40, 20)));
    (void)image.TakeChanged();
    // Of the same number of pixels even.
    EXPECT_TRUE(image.Present(Buffer(40, 20, 0xff00ff00, 1).Get(), QRect(5, 5, 1, 1)));
    EXPECT_EQ(image.TakeChanged(), QRect(0, 0, 40, 20));
    const QImage shown = Painted(image, 40, 20);
    EXPECT_EQ(shown.pixel(0, 0), 0xff00ff00);
    EXPECT_EQ(shown.pixel(39, 19), 0xff00ff00);
}

TEST(FrontImage, IsScaledUntilItIsDrawnForTheScreen) {
    FrontImage image(Qt::gray);
    EXPECT_TRUE(image.Present(Buffer(40, 20, 0xffff0000, 2).Get(), QRect(0, 0, 40, 20)));
    // The window is on a screen of ratio 1 by now.
    QImage shown = Painted(image, 30, 10);
    EXPECT_EQ(shown.pixel(19, 9), 0xffff0000);
    EXPECT_EQ(shown.pixel(29, 9), QColor(Qt::gray).rgb());
    EXPECT_TRUE(image.Present(Buffer(20, 10, 0xff0000ff).Get(), QRect(0, 0, 20, 10)));
    shown = Painted(image, 20, 10, 3);
    EXPECT_EQ(shown.pixel(0, 0), 0xff0000ff);
    EXPECT_EQ(shown.pixel(59, 29), 0xff0000ff);
}

TEST(FrontImage, BeyondItAtAnyRatio) {
    for (const float ratio : {1.25F, 1.5F, 2.0F}) {
        FrontImage image(Qt::gray);
        EXPECT_FALSE(image.Present(Buffer(10, 7, 0, ratio).Get(), QRect()));
        EXPECT_TRUE(image.Present(Buffer(10, 7, 0xffff0000, ratio).Get(), QRect(0, 0, 10, 7)));
        const QImage shown = Painted(image, 15, 13, ratio);
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                ASSERT_EQ(shown.pixel(x, y), x < 10 && y < 7 ? 0xffff0000 : QColor(Qt::gray).rgb())
                    << ratio << " " << x << " " << y;
        }
    }
}

TEST(PixelsOf, CoversBothEdges) {
    EXPECT_EQ(PixelsOf(BRect(2, 3, 4, 3)), QRect(2, 3, 3, 1));
    EXPECT_EQ(PixelsOf(BRect(0.5F, -0.5F, 9.9F, 4)), QRect(0, -1, 10, 6));
    EXPECT_TRUE(PixelsOf(BRect()).isEmpty());
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(PixelsOf(BRect(-infinity, -infinity, infinity, infinity)).contains(0, 0));
}

}  // namespace
