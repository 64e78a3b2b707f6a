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
    Buffer(int32 width, int32 height, uint32 pixel)
        : fPixels(static_cast<size_t>(width + 3) * height, pixel), fWidth(width), fHeight(height) {}

    PixelBuffer Get() {
        return {reinterpret_cast<uint8*>(fPixels.data()), (fWidth + 3) * 4, fWidth, fHeight};
    }

private:
    std::vector<uint32> fPixels;
    int32 fWidth;
    int32 fHeight;
};

QImage Painted(FrontImage& image, int width, int height) {
    QImage shown(width, height, QImage::Format_ARGB32);
    shown.fill(Qt::magenta);
    QPainter painter(&shown);
    image.Paint(painter, shown.rect(), shown.size());
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
    EXPECT_FALSE(image.Present(Buffer(20, 10, 0xff00ff00).Get(), QRect(5, 5, 3, 2)));
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
    EXPECT_FALSE(image.Present(buffer.Get(), QRect(10, 5, 2, 2)));
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
    EXPECT_FALSE(image.Present(Buffer(8, 8, 0xff00ff00).Get(), QRect(7, 7, 1, 1)));
    QImage shown = Painted(image, 8, 8);
    EXPECT_EQ(shown.pixel(3, 3), 0xffff0000);
    EXPECT_EQ(shown.pixel(4, 4), 0xff010203);
    EXPECT_EQ(shown.pixel(7, 7), 0xff00ff00);
    EXPECT_FALSE(image.Present(Buffer(2, 2, 0xff0000ff).Get(), QRect(0, 0, 1, 1)));
    shown = Painted(image, 2, 2);
    EXPECT_EQ(shown.pixel(0, 0), 0xff0000ff);
    EXPECT_EQ(shown.pixel(1, 1), 0xffff0000);
}

TEST(FrontImage, GoesOnInTheEdgesColourBeyondIt) {
    FrontImage image(Qt::gray);
    EXPECT_EQ(Painted(image, 5, 5).pixel(4, 4), QColor(Qt::gray).rgb());
    EXPECT_TRUE(image.Present(Buffer(4, 4, 0xffff0000).Get(), QRect(0, 0, 4, 4)));
    const QImage shown = Painted(image, 9, 7);
    for (const QPoint outside : {QPoint(4, 0), QPoint(8, 3), QPoint(0, 4), QPoint(8, 6)})
        EXPECT_EQ(shown.pixel(outside), 0xffff0000);
}

TEST(PixelsOf, CoversBothEdges) {
    EXPECT_EQ(PixelsOf(BRect(2, 3, 4, 3)), QRect(2, 3, 3, 1));
    EXPECT_EQ(PixelsOf(BRect(0.5F, -0.5F, 9.9F, 4)), QRect(0, -1, 10, 6));
    EXPECT_TRUE(PixelsOf(BRect()).isEmpty());
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(PixelsOf(BRect(-infinity, -infinity, infinity, infinity)).contains(0, 0));
}

}  // namespace
