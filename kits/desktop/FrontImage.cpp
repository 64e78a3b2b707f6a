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

bool FrontImage::Present(const PixelBuffer& buffer, QRect area) {
    const QRect whole(0, 0, buffer.width, buffer.height);
    area &= whole;
    if (area.isEmpty() || buffer.bits == nullptr)
        return false;

    const std::lock_guard lock(fLock);
    const auto ratio = qreal{buffer.ratio};
    // Pixels of two ratios side by side would be a jumble.
    if (!fComing.isNull() && fComingRatio != ratio)
        area = whole;
    fComingRatio = ratio;
    if (fComing.size() != whole.size())
        Resize(whole.size());
    if (fComing.isNull())
        return false;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(
                               buffer.bits + static_cast<ptrdiff_t>(y) * buffer.bytesPerRow) +
            area.left();
        auto* to = reinterpret_cast<QRgb*>(fComing.scanLine(y)) + area.left();
        // The format wants its fourth byte set, or a compositor may see through the window.
        for (int x = 0; x < area.width(); ++x)
            to[x] = from[x] | 0xff000000U;
    }
    fChanged += area;
    return true;
}

void FrontImage::Resize(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    fChanged &= QRect(QPoint(), size);
    if (!image.isNull() && !fChanged.isEmpty()) {
        QPainter painter(&image);
        painter.setClipRegion(fChanged);
        painter.drawImage(0, 0, fComing);
    }
    fComing = std::move(image);
}

QRect FrontImage::TakeChanged() {
    const std::lock_guard lock(fLock);
    if (fChanged.isEmpty())
        return {};
    const QRegion changed = std::exchange(fChanged, QRegion());
    fRatio = fComingRatio;
    const QRect units = Around(changed.boundingRect(), 1 / fRatio);
    if (changed == QRegion(fComing.rect())) {
        // All of it: what was seen is the memory for what comes next.
        fImage.swap(fComing);
        if (fComing.size() != fImage.size())
            fComing = QImage(fImage.size(), QImage::Format_RGB32);
        return units;
    }
    if (fImage.size() != fComing.size()) {
        QImage image(fComing.size(), QImage::Format_RGB32);
        image.fill(fGround);
        QPainter(&image).drawImage(0, 0, fImage);
        fImage = std::move(image);
    }
    QPainter painter(&fImage);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& rect : changed)
        painter.drawImage(rect.topLeft(), fComing, rect);
    return units;
}

void FrontImage::Paint(QPainter& painter, const QRegion& region, QSize window) {
    // From here on a unit of the painter's is a pixel of the image, which Qt then copies.
    const qreal ratio = RatioFor(painter, fRatio);
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    const QRect whole = Around(QRect(QPoint(), window), ratio);
    for (const QRect& rect : region) {
        const QRect area = Around(rect, ratio) & whole;
        const QRect inside = area & fImage.rect();
        if (!inside.isEmpty())
            painter.drawImage(inside.topLeft(), fImage, inside);
        for (const QRect& beyond : QRegion(area) - inside)
            painter.fillRect(beyond, fGround);
    }
    painter.restore();
}

}  // namespace BPrivate
