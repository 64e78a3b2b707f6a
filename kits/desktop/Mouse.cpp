#include "kits/desktop/Mouse.h"

#include <cmath>

namespace BPrivate {

namespace {

constexpr int kNotch = 120;                       // Qt's angle of one notch
constexpr int kPixelsPerNotch = 45;               // three lines of text, as a notch scrolls them
constexpr int kParts = kNotch * kPixelsPerNotch;  // of a notch, in which both are whole

int Add(int& rest, int turn) {
    // Turning back takes effect at once.
    if ((turn > 0 && rest < 0) || (turn < 0 && rest > 0))
        rest = 0;
    rest += turn;
    const int notches = rest / kParts;
    rest -= notches * kParts;
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
    const QPoint turn = angle.isNull() ? pixels * kNotch : angle * kPixelsPerNotch;
    return -QPoint(Add(fX, turn.x()), Add(fY, turn.y()));
}

}  // namespace BPrivate
