// A window's states on the desktop: full-screen, minimised, maximised.

#include <QWindow>
#include <app/AppDefs.h>
#include <app/Message.h>

#include "kits/desktop/WindowWidget.h"

namespace BPrivate {

namespace {

// A request is lost at times when others were made just before it.
constexpr int kTries = 3;

}  // namespace

void WindowWidget::Cover(const QRect& screen) {
    fCovered = screen;
    fCovers = true;
    ApplyLimits();
    // The desktop takes the screen the window is on.
    if (HasPositions() && fScreens.Table()->Holding(geometry()).frame != screen)
        setGeometry(screen);
    setWindowState(windowState() | Qt::WindowFullScreen);
    BeginSettling(kTries);
}

void WindowWidget::Uncover() {
    // Until the time is over nothing is told of the frames the window goes through.
    BeginSettling(kTries);
    if (fHeld) {
        setWindowState(windowState() & ~Qt::WindowFullScreen);
    } else {
        setWindowState(windowState() & ~(Qt::WindowFullScreen | Qt::WindowMaximized));
        setGeometry(fFrame);
    }
    fCovers = false;
    ApplyLimits();
}

void WindowWidget::FullScreenChanged() {
    if (fSettling.isActive() || !fCovers || isFullScreen())
        return;
    // The window manager has ended it, and gives the window another frame now or has done so.
    fCovers = false;
    ApplyLimits();
    PlaceContent();
    TellMoved();
    TellResized();
}

void WindowWidget::BeginSettling(int tries) {
    fTriesLeft = tries;
    fSettling.start();
}

bool WindowWidget::HasSettled() const {
    if (isFullScreen() != fCovers)
        return false;
    if (fCovers)
        return size() == fCovered.size();
    return CurrentFrame() == fFrame;
}

void WindowWidget::Settle() {
    if (!isVisible() || isMinimized())
        return;
    if (HasSettled()) {
        TellHeld();
        PlaceContent();
        FollowScreen();
        return;
    }
    // Where the desktop holds the window it decides on the frame, too.
    const bool isDesktops = !fCovers && !isFullScreen() && (fHeld || IsHeld());
    if (fTriesLeft > 0 && !isDesktops) {
        fTriesLeft--;
        fSettling.start();
        if (fCovers && isFullScreen()) {
            // Where there is no window manager nobody gives the window the size.
            if (HasPositions())
                setGeometry(fCovered);
        } else if (fCovers) {
            setWindowState(windowState() | Qt::WindowFullScreen);
        } else {
            setWindowState(windowState() & ~Qt::WindowFullScreen);
            setGeometry(fFrame);
        }
        return;
    }
    // The desktop wants it otherwise.
    TellHeld();
    if (fCovers && !isFullScreen()) {
        fCovers = false;
        ApplyLimits();
    }
    PlaceContent();
    FollowScreen();
    if (fCovers)
        return;
    TellMoved();
    TellResized();
}

void WindowWidget::Minimize(bool minimize) {
    fMinimized = minimize;
    fTriedMinimize = false;
    fReappeared.stop();
    fMinimizing.start();
    // On X11 Qt asks for this by ending the states there are and beginning them anew, full screen
    // among them.
    BeginSettling(fCovers ? kTries : 0);
    setWindowState(
        minimize ? windowState() | Qt::WindowMinimized : windowState() & ~Qt::WindowMinimized);
}

void WindowWidget::TellMinimized() {
    if (isMinimized() == fMinimized)
        return;
    // Minimised although the kits have just asked for the contrary: that request was too early
    // for the window manager, which had not done the one before.
    const bool isTooEarly = !fMinimized;
    // Not minimised, nor what it was before: asked for in parts, and they are not all done yet.
    const bool isInParts = isFullScreen() != fCovers || isMaximized() != fZoomed;
    if (fMinimizing.isActive() && (isTooEarly || isInParts))
        return;
    fMinimized = isMinimized();
    // Full screen comes back with the window, and is asked for again where it does not. Its frame
    // may be another one from the first moment, since the user can have it by now.
    if (!fMinimized)
        BeginSettling(fCovers ? kTries : 0);
    BMessage message(B_MINIMIZE);
    message.AddBool("minimize", fMinimized);
    Send(message);
}

void WindowWidget::SettleMinimized() {
    if (isMinimized() && !fMinimized && !fTriedMinimize) {
        fTriedMinimize = true;
        setWindowState(windowState() & ~Qt::WindowMinimized);
        fMinimizing.start();
        return;
    }
    TellMinimized();
}

void WindowWidget::Restored() {
    // A window that was minimised and restored before Qt looked counts as minimised for Qt, which
    // would pass no more such requests on.
    if (!isMinimized() || windowHandle() == nullptr || !windowHandle()->isExposed())
        return;
    setWindowState(windowState() & ~Qt::WindowMinimized);
    TellMinimized();
}

bool WindowWidget::IsHeld() const {
    return !IsDialog() && (fHold.IsHeld() || isFullScreen());
}

void WindowWidget::TellHeld() {
    // Some window managers forget of one that covers the screen what they held it by, and remember
    // it afterwards.
    if (!isVisible() || isMinimized() || fCovers || fSettling.isActive())
        return;
    const bool held = IsHeld();
    if (held == fHeld)
        return;
    fHeld = held;
    BMessage message(kWindowHeld);
    message.AddBool("held", fHeld);
    Send(message);
}

void WindowWidget::TellZoomed() {
    fZooming.stop();
    if (isMaximized() == fZoomed)
        return;
    fZoomed = isMaximized();
    BMessage message(B_ZOOM);
    Send(message);
}

}  // namespace BPrivate
