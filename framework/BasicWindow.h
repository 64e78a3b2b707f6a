#pragma once

#include <interface/Window.h>

/// Base of every window: closing it by hand only hides it, it can be placed safely on the screen,
/// and it hears of a change of the system's language.
class TBasicWindow : public BWindow {
public:
    TBasicWindow(BRect frame, const char* title, window_type type, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);
    TBasicWindow(BRect frame, const char* title, window_look look, window_feel feel, uint32 flags,
        uint32 workspaces = B_CURRENT_WORKSPACE);

    void MessageReceived(BMessage* message) override;
    /// True when the application is quitting; a window the user closes hides and stays.
    bool QuitRequested() override;

    /// Shows the window, or brings it to the front when it is shown already.
    virtual void Appear();
    /// Fetches every text that is shown again.
    virtual void LanguageChanged();

    /// Moves the window to the place nearest to `where` that keeps it on the main screen.
    /// @return that place.
    BPoint IntelligentMoveTo(BPoint where);
    /// Centres the window on the main screen. @return its left top corner.
    BPoint IntelligentCentering();
};
