#pragma once

#include <interface/Rect.h>
#include <optional>

namespace BPrivate {

/// What becomes of a program's wishes for a window's frame while the desktop holds the window, that
/// is, keeps it maximised or tiled: the window stays where it is. Only covering the whole screen is
/// granted, and afterwards the window comes back to where the desktop held it.
///
/// A wish for a place and one for a size follow each other, so one that was not granted counts for
/// the next. Under the window's lock.
class FrameHold {
public:
    /// The desktop takes the window, which has the frame `now`, or lets it go.
    void Set(bool held, BRect now, BRect screen);
    bool IsHeld() const { return fHeld; }

    /// The frame a window gets that has the frame `now` and wants another.
    BRect Granted(BRect wanted, BRect now, BRect screen);
    /// What the next wish changes a part of: the last one, or the frame.
    BRect Wanted(BRect now) const { return fWanted.value_or(now); }
    /// The desktop has given it a frame: earlier wishes are past.
    void Reported() { fWanted.reset(); }

    /// Where the window is when the desktop does not hold it.
    BRect Normal(BRect now) const { return fHeld ? fNormal : now; }

private:
    bool fHeld = false;
    BRect fNormal;
    std::optional<BRect> fWanted;
    std::optional<BRect> fUncovered;  // its frame before it covered the screen
};

}  // namespace BPrivate
