#pragma once

#include "framework/BasicWindow.h"

class TImage;
class TLorivaneView;

/// The application's one document window: holds the viewer view and relays to it what concerns
/// it. Closing it quits the application.
class TLorivaneWindow : public TBasicWindow {
public:
    /// @param frame screen coordinates; brought onto the screen where it cannot be used as it is.
    explicit TLorivaneWindow(BRect frame);

    /// Relays to the view what is addressed to the window and meant for the view.
    void DispatchMessage(BMessage* message, BHandler* handler) override;
    /// Asks the application to quit, too.
    bool QuitRequested() override;
    /// Remembers the frame for the next run.
    void Quit() override;

    /// The image shown; null when there is none. Borrowed, for as long as the window is locked.
    TImage* CurrentImage() const;

private:
    TLorivaneView* fView;
};
