#include <QPainter>
#include <algorithm>
#include <cmath>

#include "kits/desktop/FrontImage.h"

namespace BPrivate {

namespace {

int PixelAt(float position) {
    constexpr float kFar = 1 << 24;  // far outside of any screen, and safe to add up
    return std::isnan(position) ? 0
                                : static_cast<int>(std::floor(std::clamp(position, -kFar, kFar)));
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
    fChanged |= area;
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
    for (const QRect& rect : region& fImage.rect())
        painter.drawImage(rect.topLeft(), fImage, rect);

    const int width = fImage.width();
    const int height = fImage.height();
    QColor right = fEmpty;
    QColor below = fEmpty;
    if (!fImage.isNull()) {
        right = fImage.pixelColor(width - 1, height / 2);
        below = fImage.pixelColor(width / 2, height - 1);
    }
    const QRegion beside = region & QRect(width, 0, window.width() - width, height);
    for (const QRect& rect : beside)
        painter.fillRect(rect, right);
    const QRegion under = region & QRect(0, height, window.width(), window.height() - height);
    for (const QRect& rect : under)
        painter.fillRect(rect, below);
}

}  // namespace BPrivate
