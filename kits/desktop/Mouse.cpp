#include <cmath>

#include "kits/desktop/Mouse.h"

namespace BPrivate {

namespace {

constexpr int kNotch = 120;          // Qt's angle of one notch
constexpr int kPixelsPerNotch = 45;  // three lines of text, as a notch scrolls them

int Add(int& rest, int turn) {
    // Turning back takes effect at once.
    if ((turn > 0 && rest < 0) || (turn < 0 && rest > 0))
        rest = 0;
    rest += turn;
    const int notches = rest / kNotch;
    rest -= notches * kNotch;
    return notches;
}

}  // namespace

int32 ClickCounter::Press(int button, QPointF where, int64 time) {
    const QPointF way = where - fWhere;
    const bool near = std::abs(way.x()) <= fDistance && std::abs(way.y()) <= fDistance;
    const bool soon = time - fTime <= fInterval && time >= fTime;
    fClicks = fClicks > 0 && button == fButton && near && soon ? fClicks + 1 : 1;
    fButton = button;
    fWhere = where;
    fTime = time;
    return fClicks;
}

QPoint WheelCounter::Turn(QPoint angle, QPoint pixels) {
    if (angle.isNull())
        angle = pixels * kNotch / kPixelsPerNotch;
    return -QPoint(Add(fX, angle.x()), Add(fY, angle.y()));
}

}  // namespace BPrivate
