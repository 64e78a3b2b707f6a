#include "kits/desktop/FrontImage.h"

#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace BPrivate {

namespace {

int PixelAt(float position) {
    constexpr float kFar = 1 << 24;  // far outside of any screen, and safe to add up
    return std::isnan(position) ? 0
                                : static_cast<int>(std::floor(std::clamp(position, -kFar, kFar)));
}

/// The whole numbers around what becomes of a rectangle.
QRect Around(const QRect& rect, qreal scale) {
    return QRectF(rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
        .toAlignedRect();
}

/// The pixels of the image to one unit of the painter's. The two hear of another screen at
/// different times; between, the image is shown larger or smaller than its pixels.
qreal RatioFor(const QPainter& painter, qreal imageRatio) {
    // Qt's own is more precise. Only a scale that is exactly undone leaves pixels as they are.
    constexpr qreal kSame = 1e-4;
    const qreal own = painter.device()->devicePixelRatioF();
    return std::abs(own - imageRatio) < kSame ? own : imageRatio;
}

}  // namespace

QRect PixelsOf(BRect rect) {
    return QRect(QPoint(PixelAt(rect.left), PixelAt(rect.top)),
        QPoint(PixelAt(rect.right), PixelAt(rect.bottom)));
}

FrontImage::FrontImage(QColor empty) : fEmpty(std::move(empty)) {}

bool FrontImage::Present(const PixelBuffer& buffer, QRect area) {
    const QRect whole(0, 0, buffer.width, buffer.height);
    area &= whole;
    if (area.isEmpty() || buffer.bits == nullptr)
        return false;

    const std::lock_guard lock(fLock);
    const auto ratio = qreal{buffer.ratio};
    // Pixels of two ratios side by side would be a jumble.
    if (!fImage.isNull() && fRatio != ratio)
        area = whole;
    fRatio = ratio;
    if (fImage.size() != whole.size())
        Resize(whole.size(), area);
    if (fImage.isNull())
        return false;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(
                               buffer.bits + static_cast<ptrdiff_t>(y) * buffer.bytesPerRow) +
            area.left();
        auto* to = reinterpret_cast<QRgb*>(fImage.scanLine(y)) + area.left();
        // The format wants its fourth byte set, or a compositor may see through the window.
        for (int x = 0; x < area.width(); ++x)
            to[x] = from[x] | 0xff000000U;
    }
    const bool idle = fChanged.isEmpty();
    fChanged |= Around(area, 1 / ratio);
    return idle;
}

void FrontImage::Resize(QSize size, const QRect& area) {
    QImage image(size, QImage::Format_RGB32);
    if (!image.isNull() && area.size() != size) {
        image.fill(fEmpty);
        QPainter(&image).drawImage(0, 0, fImage);
    }
    fImage = std::move(image);
}

QRect FrontImage::TakeChanged() {
    const std::lock_guard lock(fLock);
    return std::exchange(fChanged, QRect());
}

void FrontImage::Paint(QPainter& painter, const QRegion& region, QSize window) {
    const std::lock_guard lock(fLock);
    // From here on a unit of the painter's is a pixel of the image, which Qt then copies.
    const qreal ratio = RatioFor(painter, fRatio);
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    const QRect whole = Around(QRect(QPoint(), window), ratio);
    const int width = fImage.width();
    const int height = fImage.height();
    QColor right = fEmpty;
    QColor below = fEmpty;
    if (!fImage.isNull()) {
        right = fImage.pixelColor(width - 1, height / 2);
        below = fImage.pixelColor(width / 2, height - 1);
    }
    const QRect beside(width, 0, whole.width() - width, height);
    const QRect under(0, height, whole.width(), whole.height() - height);
    for (const QRect& rect : region) {
        const QRect area = Around(rect, ratio) & whole;
        if (const QRect inside = area & fImage.rect(); !inside.isEmpty())
            painter.drawImage(inside.topLeft(), fImage, inside);
        if (area.intersects(beside))
            painter.fillRect(area & beside, right);
        if (area.intersects(under))
            painter.fillRect(area & under, below);
    }
    painter.restore();
}

}  // namespace BPrivate
