#pragma once

#include "framework/BasicWindow.h"

#include <vector>

class BButton;
class BMenuBar;
class BTextControl;
class TInterAppPrefs;

/// A line of text, and a bar of buttons that change its letters. The menu has the same commands.
/// Labels show their letters, and the bar is flat or raised, as the shared preferences say.
class TBarWindow final : public TBasicWindow {
public:
    /// @param prefs outlives the window
    TBarWindow(BRect frame, const TInterAppPrefs& prefs);

    void MessageReceived(BMessage* message) override;
    /// Ends the application.
    bool QuitRequested() override;
    void LanguageChanged() override;

private:
    void CreateMenu();
    void SetLabels();
    void ChangeText(uint32 command);

    const TInterAppPrefs& fPrefs;
    BMenuBar* fMenuBar;
    std::vector<BButton*> fButtons;
    BTextControl* fText;
};
