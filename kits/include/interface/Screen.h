#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>

class BWindow;

/// A screen as it was when this was made. Any thread.
class BScreen {
public:
    /// On a window's own thread the screen the window is on, elsewhere the main one: what is sized
    /// by the main screen is meant for the screen its user looks at.
    explicit BScreen(screen_id id = B_MAIN_SCREEN_ID);
    /// The screen the window is on; of a window never shown yet, the one that holds most of it.
    /// The main one when there is no window.
    explicit BScreen(BWindow* window);

    bool IsValid() const { return true; }
    screen_id ID() const { return fId; }
    /// The whole screen in screen coordinates, panels included.
    BRect Frame() const { return fFrame; }
    color_space ColorSpace() const { return B_RGB32; }

private:
    screen_id fId;
    BRect fFrame;
};
