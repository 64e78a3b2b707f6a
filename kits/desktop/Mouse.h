#pragma once

#include <QPoint>
#include <QPointF>
#include <support/SupportDefs.h>

namespace BPrivate {

/// Counts the clicks of one window: a press soon after the one before, near it and with the same
/// button, is the next click of the same series.
class ClickCounter {
public:
    /// `interval` in milliseconds, `distance` in pixels.
    ClickCounter(int64 interval, int distance) : fInterval(interval), fDistance(distance) {}

    /// The number of this press in its series, from 1. `time` is in milliseconds.
    int32 Press(int button, QPointF where, int64 time);

private:
    int64 fInterval;
    int fDistance;
    int fButton = 0;
    QPointF fWhere;
    int64 fTime = 0;
    int32 fClicks = 0;
};

/// Adds up the small turns of a smooth wheel, in one direction, to whole notches.
class WheelCounter {
public:
    /// One event's turn: `angle` in eighths of a degree, as Qt has it (120 is one notch; up and
    /// left are positive), `pixels` for devices that tell only those.
    /// \return the whole notches turned; down and right are positive
    QPoint Turn(QPoint angle, QPoint pixels);

private:
    int fX = 0;  // what is left, in fractions of a notch
    int fY = 0;
};

}  // namespace BPrivate
