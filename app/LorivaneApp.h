#pragma once

#include <app/Application.h>

class TLorivaneWindow;

/// The application object: owns the windows and relays what concerns more than one of them. It
/// knows nothing of images.
///
/// Made on the main thread; from Run() on everything happens on the application's own thread.
class TLorivaneApp : public BApplication {
public:
    /// Opens the main window where it was at the end of the last run.
    TLorivaneApp();

    void MessageReceived(BMessage* message) override;
    void RefsReceived(BMessage* message) override;
    /// The main window decides.
    bool QuitRequested() override;
    void Quit() override;

private:
    void IAPChanged(BMessage* message);
    /// Quits the window, if there is one, and forgets it.
    template <typename Window>
    static void CloseWindow(Window** slot);

    TLorivaneWindow* fMainWindow;  // null after Quit()
};
