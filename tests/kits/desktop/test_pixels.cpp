// What is on the screen, pixel by pixel. CMakeLists.txt runs these on screens of several ratios.

#include <QBackingStore>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

/// A back buffer of noise, in which no pixel is like its neighbours.
class Noise {
public:
    Noise(QSize units, qreal ratio, uint32 seed)
        : fSize(units * ratio), fRatio(static_cast<float>(ratio)) {
        std::mt19937 random(seed);
        for (int i = 0; i < fSize.width() * fSize.height(); ++i)
            fPixels.push_back(static_cast<uint32>(random()) | 0xff000000U);
    }

    PixelBuffer Get() {
        return {reinterpret_cast<uint8*>(fPixels.data()), fSize.width() * 4, fSize.width(),
            fSize.height(), fRatio};
    }
    QSize Size() const { return fSize; }
    BRect All() const {
        return BRect(
            0, 0, static_cast<float>(fSize.width() - 1), static_cast<float>(fSize.height() - 1));
    }
    uint32 At(int x, int y) const {
        return fPixels[static_cast<size_t>(y) * fSize.width() + static_cast<size_t>(x)];
    }

private:
    QSize fSize;
    float fRatio;
    std::vector<uint32> fPixels;
};

/// The window's own pixels as the screen has them.
QImage OnScreen(Screen& screen) {
    QWidget& widget = screen.Widget();
    // Of the offscreen platform's windows only so many pixels as they have units can be grabbed.
    if (QGuiApplication::platformName() == QStringLiteral("offscreen")) {
        auto* device = widget.backingStore()->paintDevice();
        return device->devType() == QInternal::Image ? *static_cast<QImage*>(device) : QImage();
    }
    const QPixmap grabbed =
        widget.screen()->grabWindow(widget.winId(), 0, 0, widget.width(), widget.height());
    return grabbed.toImage().convertToFormat(QImage::Format_RGB32);
}

int CountDifferent(const QImage& image, const Noise& noise, const QRect& area) {
    int different = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            different += !image.valid(x, y) || image.pixel(x, y) != noise.At(x, y);
    }
    return different;
}

TEST(Pixels, AreTheBuffersOwn) {
    Screen screen({BRect(40, 40, 40 + 300, 40 + 200), "Pixels"});
    screen.Show();
    const qreal ratio = screen.Widget().devicePixelRatioF();
    Noise noise(screen.Widget().size(), ratio, 1);
    ASSERT_EQ(noise.Size(), (QSizeF(301, 201) * ratio).toSize());
    screen.Window().Present(noise.Get(), noise.All());
    const QRect all(QPoint(), noise.Size());
    EXPECT_TRUE(PumpUntil([&] { return CountDifferent(OnScreen(screen), noise, all) == 0; }))
        << "at " << ratio << ", different: " << CountDifferent(OnScreen(screen), noise, all);
}

TEST(Pixels, OfAPartReplaceNoOthers) {
    Screen screen({BRect(40, 40, 40 + 300, 40 + 200), "Part"});
    screen.Show();
    const qreal ratio = screen.Widget().devicePixelRatioF();
    Noise before(screen.Widget().size(), ratio, 1);
    Noise after(screen.Widget().size(), ratio, 2);
    screen.Window().Present(before.Get(), before.All());
    const QRect all(QPoint(), before.Size());
    ASSERT_TRUE(PumpUntil([&] { return CountDifferent(OnScreen(screen), before, all) == 0; }));
    for (const QRect part :
        {QRect(7, 11, 1, 1), QRect(33, 17, 50, 31), QRect(101, 64, 3, 77), QRect(0, 150, 299, 5)}) {
        screen.Window().Present(
            after.Get(), BRect(part.left(), part.top(), part.right(), part.bottom()));
        EXPECT_TRUE(PumpUntil([&] { return CountDifferent(OnScreen(screen), after, part) == 0; }))
            << "at " << ratio;
        const QImage shown = OnScreen(screen);
        const QRect around = part.adjusted(-4, -4, 4, 4) & all;
        int changed = 0;
        for (int y = around.top(); y <= around.bottom(); ++y) {
            for (int x = around.left(); x <= around.right(); ++x)
                changed += !part.contains(x, y) && shown.pixel(x, y) != before.At(x, y);
        }
        EXPECT_EQ(changed, 0) << "at " << ratio;
        screen.Window().Present(before.Get(), before.All());
        ASSERT_TRUE(PumpUntil([&] { return CountDifferent(OnScreen(screen), before, all) == 0; }));
    }
}

// The content of a full-screen window starts above the screen, at a fraction of a pixel even.
TEST(Pixels, AreWholeWhereTheContentIsMoved) {
    Screen screen;
    screen.Show();
    const QRect whole = screen.Widget().screen()->geometry();
    constexpr int kAbove = 19;
    screen.Window().SetFrame(
        BRect(static_cast<float>(whole.left()), static_cast<float>(whole.top() - kAbove),
            static_cast<float>(whole.right()), static_cast<float>(whole.bottom())),
        1);
    ASSERT_TRUE(PumpUntil([&] { return screen.Content().y() == -kAbove; }));
    const qreal ratio = screen.Widget().devicePixelRatioF();
    Noise noise(screen.Content().size(), ratio, 3);
    screen.Window().Present(noise.Get(), noise.All());
    const auto isShownFrom = [&](int first) {
        const QImage shown = OnScreen(screen);
        for (int y = 0; y < shown.height() && y + first < noise.Size().height(); ++y) {
            for (int x = 0; x < shown.width() && x < noise.Size().width(); ++x) {
                if (shown.pixel(x, y) != noise.At(x, y + first))
                    return false;
            }
        }
        return true;
    };
    EXPECT_TRUE(PumpUntil([&] {
        return isShownFrom(static_cast<int>(std::floor(kAbove * ratio))) ||
            isShownFrom(static_cast<int>(std::ceil(kAbove * ratio)));
    })) << "at "
        << ratio;
}

TEST(Pixels, BeyondTheImageAreTheGround) {
    Screen screen({BRect(40, 40, 40 + 300, 40 + 200), "Beyond"});
    screen.Show();
    const qreal ratio = screen.Widget().devicePixelRatioF();
    std::vector<uint32> pixels(90 * 60, 0xff204060);
    screen.Window().SetGround({0x80, 0x60, 0x10, 255});
    screen.Window().Present(
        {reinterpret_cast<uint8*>(pixels.data()), 90 * 4, 90, 60, static_cast<float>(ratio)},
        BRect(0, 0, 89, 59));
    EXPECT_TRUE(PumpUntil([&] {
        screen.Content().update();
        const QImage shown = OnScreen(screen);
        const auto isAll = [&](std::initializer_list<QPoint> points, QRgb color) {
            return std::all_of(points.begin(), points.end(), [&](QPoint at) {
                return shown.valid(at) && (shown.pixel(at) | 0xff000000U) == color;
            });
        };
        return isAll({{0, 0}, {89, 59}}, 0xff204060) &&
            isAll({{90, 0}, {90, 59}, {0, 60}, {90, 60}, {shown.width() - 1, shown.height() - 1}},
                0xff806010);
    })) << "at "
        << ratio;
}

TEST(Pixels, BothLinesOfAGrooveLieInItsFrame) {
    Screen screen({BRect(40, 40, 40 + 300, 40 + 200), "Groove"});
    screen.Show();
    const qreal ratio = screen.Widget().devicePixelRatioF();
    constexpr QRgb kGround = 0xff204060;
    screen.Window().SetGround({0x20, 0x40, 0x60, 255});
    // At odd places, so that the lines begin within a pixel at some ratios.
    const QRect frames[] = {{33, 20, 2, 50}, {61, 33, 50, 2}};
    ControlId id = 1;
    for (const QRect& frame : frames) {
        screen.Window().SetControl(id, BoxState{B_FANCY_BORDER, ""}, 0);
        ControlPlace place;
        place.frame = BRect(static_cast<float>(frame.left()), static_cast<float>(frame.top()),
            static_cast<float>(frame.right()), static_cast<float>(frame.bottom()));
        place.visible = true;
        screen.Window().PlaceControl(id++, place);
    }
    const QPalette palette = screen.Content().palette();
    const QRgb dark = palette.color(QPalette::Dark).rgb();
    const QRgb light = palette.color(QPalette::Light).rgb();
    for (const QRect& frame : frames) {
        const bool vertical = frame.width() < frame.height();
        const QPoint middle = frame.center() * ratio;
        // Across the groove and some pixels more on each side: dark ones, and then light ones.
        const int around = static_cast<int>(std::ceil(4 * ratio));
        const auto isGroove = [&] {
            const QImage shown = OnScreen(screen);
            std::vector<QRgb> colors;
            size_t lines = 0;
            for (int at = -around; at <= around; ++at) {
                const QPoint pixel = vertical ? middle + QPoint(at, 0) : middle + QPoint(0, at);
                const QRgb color = shown.valid(pixel) ? shown.pixel(pixel) | 0xff000000U : 0;
                lines += color == dark || color == light;
                if (colors.empty() || colors.back() != color)
                    colors.push_back(color);
            }
            return colors == std::vector<QRgb>{kGround, dark, light, kGround} &&
                std::abs(static_cast<qreal>(lines) - 2 * ratio) < 1;
        };
        EXPECT_TRUE(PumpUntil(isGroove)) << "vertical " << vertical << " at " << ratio;
    }
}

}  // namespace
