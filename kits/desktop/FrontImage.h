#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QRegion>
#include <interface/Rect.h>
#include <mutex>

#include "kits/interface/Display.h"

class QPainter;

namespace BPrivate {

/// The pixels BRect covers: both edges belong to it.
QRect PixelsOf(BRect rect);

/// What a window shows: a copy of the back buffer's finished areas. The looper copies into it, the
/// main thread paints from it; each waits at most for the other's copying.
class FrontImage {
public:
    /// `empty` shows where nothing was presented yet.
    explicit FrontImage(QColor empty);

    /// Takes over the area of the buffer, which is in its pixels. A buffer of another ratio than
    /// the last is taken over as a whole.
    /// \return true if the main thread is to be told: nothing was waiting to be painted before
    [[nodiscard]] bool Present(const PixelBuffer& buffer, QRect area);

    /// What has changed since the last call, in units.
    QRect TakeChanged();

    /// Paints the region of a window of that size, both in units, a pixel of the image on each of
    /// the screen's. What lies beyond the image, as after the user has made the window larger,
    /// takes the colour of the image's edge.
    void Paint(QPainter& painter, const QRegion& region, QSize window);

private:
    void Resize(QSize size, const QRect& area);

    std::mutex fLock;
    QImage fImage;
    qreal fRatio = 1;
    QRect fChanged;  // units
    QColor fEmpty;
};

}  // namespace BPrivate
