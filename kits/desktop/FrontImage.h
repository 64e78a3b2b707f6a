#pragma once

#include <QColor>
#include <QImage>
#include <QRect>
#include <QRegion>
#include <interface/Rect.h>
#include <mutex>
#include <utility>

#include "kits/interface/Display.h"

class QPainter;

namespace BPrivate {

/// The pixels BRect covers: both edges belong to it.
QRect PixelsOf(BRect rect);

/// What a window shows: a copy of the back buffer's finished areas. What the looper has copied into
/// it is seen once the main thread has taken it, which then paints from a copy of its own.
class FrontImage {
public:
    explicit FrontImage(QColor ground) : fGround(std::move(ground)) {}

    /// Takes over the area of the buffer, which is in its pixels. A buffer of another ratio than
    /// the last is taken over as a whole.
    /// \return false when there was nothing to take over
    [[nodiscard]] bool Present(const PixelBuffer& buffer, QRect area);

    // The main thread.

    /// Lets be seen what was presented since the last call.
    /// \return what has changed by that, in units
    QRect TakeChanged();
    /// The colour where nothing was presented yet.
    void SetGround(const QColor& color) { fGround = color; }
    const QColor& Ground() const { return fGround; }

    /// Paints the region of a window of that size, both in units, a pixel of the image on each of
    /// the screen's. What lies beyond the image, as after the user has made the window larger,
    /// is ground.
    void Paint(QPainter& painter, const QRegion& region, QSize window);

private:
    void Resize(QSize size);

    // What comes: of it only what has changed is of any worth.
    std::mutex fLock;
    QImage fComing;
    qreal fComingRatio = 1;
    QRegion fChanged;  // pixels

    // The main thread's.
    QImage fImage;
    qreal fRatio = 1;
    QColor fGround;
};

}  // namespace BPrivate
