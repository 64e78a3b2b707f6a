#pragma once

#include <app/Application.h>
#include <interface/Rect.h>
#include <memory>
#include <support/SupportDefs.h>

class BFilePanel;
class BWindow;
class TLorivaneWindow;
class TPrefsWindow;
class TZELKANAboutWindow;

/// The application object: owns the windows, opens the dialogs, and relays what concerns more than
/// one window. It knows nothing of images.
///
/// Made on the main thread; from Run() on everything happens on the application's own thread. An
/// alert holds that thread up until it is answered, while the windows go on.
class TLorivaneApp : public BApplication {
public:
    /// Opens the main window where it was at the end of the last run.
    TLorivaneApp();
    ~TLorivaneApp() override;

    void MessageReceived(BMessage* message) override;
    void RefsReceived(BMessage* message) override;
    /// The main window decides.
    bool QuitRequested() override;
    void Quit() override;
    /// Shows the one about box.
    void AboutRequested() override;

    /// Shows the one panel to open files and folders with.
    void MenuOpenClicked();
    /// Shows the one preferences dialog, or says that there can be none.
    void MItemPrefsClicked();
    /// Opens one more window about the image that is shown, or says that there is none.
    void MItemShowImageInfoClicked();
    void MItemHelpClicked();
    void MItemZELKANCommonPrefsClicked();

    /// The panel's title in the language of the moment.
    void SetOpenPanelLabels();
    /// The panel of the message's "source" was closed.
    /// @return `B_OK`, or the lookup's error when the message has none
    status_t Cancel(BMessage* message);
    void IAPChanged(BMessage* message);

private:
    BRect DialogFrame() const;
    bool IsOvertaken(const BMessage& change) const;
    void SendToPrefsWindow(BMessage* message);
    /// Quits the window, if there is one, and forgets it.
    template <typename Window>
    static void CloseWindow(Window** slot);

    std::unique_ptr<BFilePanel> fOpenPanel;  // null until it is first asked for
    TPrefsWindow* fPrefsWindow = nullptr;    // likewise
    TLorivaneWindow* fMainWindow;            // null after Quit()
    TZELKANAboutWindow* fAboutWindow =
        nullptr;  // null until it is first asked for, and after Quit()
};
