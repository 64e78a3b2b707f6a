// Full screen: the window so placed that the image area alone is seen.

#include <interface/Screen.h>
#include <interface/Window.h>

#include "settings/DisplayOption.h"
#include "settings/Prefs.h"
#include "viewer/LorivaneView.h"

BRect TLorivaneView::NormalWindowFrame() const {
    return fFullScreen ? fNormalFrame : Window()->NormalFrame();
}

void TLorivaneView::SetFullScreen(bool on) {
    if (on == fFullScreen)
        return;
    fFullScreen = on;
    BWindow* window = Window();
    if (on) {
        fNormalFrame = window->NormalFrame();
        CoverScreen(BScreen(B_MAIN_SCREEN_ID).Frame());
        return;
    }
    window->MoveTo(fNormalFrame.LeftTop());
    int32 option = gPrefs.fDisplayOption;
    if (option == kFitWindowToImage && fCurrentImage) {
        ResizeWindow(fCurrentImage.get());
    } else if (option >= 0 && option < kDisplayOptionCount) {
        window->ResizeTo(fNormalFrame.Width(), fNormalFrame.Height());
        FrameResized(Bounds().Width(), Bounds().Height());
    }
}

// The image is laid out at once: it is not seen in its old size on the new screen.
void TLorivaneView::CoverScreen(BRect screen) {
    float top = Frame().top;
    BWindow* window = Window();
    window->MoveTo(screen.left, screen.top - top);
    window->ResizeTo(screen.Width(), top + screen.Height() + kStatusBarHeight);
    fFullScreenFrame = window->Frame();
    FrameResized(Bounds().Width(), Bounds().Height());
}

// The desktop has commands of its own to end full screen. The window is smaller then.
void TLorivaneView::NoticeEndOfFullScreen() {
    Extent now(Window()->Frame());
    Extent covering(fFullScreenFrame);
    if (now.width < covering.width || now.height < covering.height)
        fFullScreen = false;
}

void TLorivaneView::MItemFullScreenClicked() {
    SetFullScreen(!IsFullScreen());
}
