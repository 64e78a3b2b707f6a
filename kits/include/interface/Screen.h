#pragma once

#include <interface/GraphicsDefs.h>
#include <interface/Rect.h>

class BWindow;

/// The main screen; there is no telling the others apart. Any thread.
class BScreen {
public:
    explicit BScreen(screen_id id = B_MAIN_SCREEN_ID);
    /// The screen the window is on.
    explicit BScreen(BWindow* window);

    bool IsValid() const { return true; }
    screen_id ID() const { return fId; }
    /// The whole screen in screen coordinates, panels included.
    BRect Frame() const;
    color_space ColorSpace() const { return B_RGB32; }

private:
    screen_id fId;
};
