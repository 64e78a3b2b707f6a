#pragma once

#include "app/AboutView.h"
#include "framework/DialogWindow.h"

#include <string>

/// The window that tells what the application is. Closing it hides it. As large as its content.
///
/// Its setters lock the window, so that they may be called from any thread.
class TZELKANAboutWindow : public TDialogWindow {
public:
    /// Takes ownership of the view; null makes a TSimpleAboutView. Of the frame, only the place
    /// counts.
    TZELKANAboutWindow(BRect frame, TZELKANAboutView* aboutView);

    void LanguageChanged() override;

    /// See TZELKANAboutView.
    void SetAppInfo(
        const std::string& name, const std::string& version, const std::string& copyright);
    void SetIAPRef(TInterAppPrefs* prefs);
    /// The title in the language of the moment.
    void SetWinTitle();

private:
    TZELKANAboutView* fView;
};
