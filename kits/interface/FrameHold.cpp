#include "kits/interface/FrameHold.h"

namespace BPrivate {

namespace {

/// As the display takes it for full screen: nothing of the screen is free, and more is wanted.
bool Covers(BRect frame, BRect screen) {
    return screen.IsValid() && frame.Contains(screen) &&
        (frame.top < screen.top || frame.bottom > screen.bottom);
}

}  // namespace

void FrameHold::Set(bool held, BRect now, BRect screen) {
    if (held && !fHeld)
        fNormal = Covers(now, screen) ? fUncovered.value_or(now) : now;
    fHeld = held;
    fWanted.reset();
}

BRect FrameHold::Granted(BRect wanted, BRect now, BRect screen) {
    if (fHeld)
        fWanted = wanted;
    const bool covered = Covers(now, screen);
    if (Covers(wanted, screen)) {
        if (!covered)
            fUncovered = now;
        return wanted;
    }
    if (!fHeld)
        return wanted;
    return covered ? fUncovered.value_or(wanted) : now;
}

}  // namespace BPrivate
