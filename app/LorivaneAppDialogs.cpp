// The dialogs that the application opens.

#include "app/LorivaneApp.h"

#include "app/AboutWindow.h"
#include "framework/Alert.h"
#include "framework/AppPrivacy.h"
#include "framework/FilePanelPriority.h"
#include "framework/Help.h"
#include "framework/LocalText.h"
#include "framework/MessageCodes.h"
#include "framework/Version.h"
#include "iap/InterAppPrefs.h"
#include "settings/PrefsWindow.h"
#include "window/LorivaneWindow.h"
#include "window/PropertyWindow.h"

#include <app/Messenger.h>
#include <interface/Window.h>
#include <locale/Locale.h>
#include <storage/FilePanel.h>
#include <string>

namespace {

/// How far below the main window's top a dialog opens.
constexpr float kDialogOffset = 20.0F;

constexpr int32 kShownPanelPriority = 15;
constexpr int32 kHiddenPanelPriority = 5;

BRect below_top(BRect frame) {
    frame.top += kDialogOffset;
    return frame;
}

/// Shows the window, or brings it to the front.
template <typename Window>
void appear(Window* window) {
    if (!window->Lock())
        return;
    window->Appear();
    window->Unlock();
}

}  // namespace

BRect TLorivaneApp::DialogFrame() const {
    if (!fMainWindow->Lock())
        return {};
    const BRect frame = fMainWindow->Frame();
    fMainWindow->Unlock();
    return below_top(frame);
}

// #pragma mark - The open panel

void TLorivaneApp::MenuOpenClicked() {
    if (fOpenPanel == nullptr) {
        BMessenger self(this);
        fOpenPanel = std::make_unique<BFilePanel>(B_OPEN_PANEL, &self, nullptr, B_ANY_NODE);
        SetOpenPanelLabels();
    } else {
        set_file_panel_priority(fOpenPanel.get(), kShownPanelPriority);
    }
    fOpenPanel->Show();
}

void TLorivaneApp::SetOpenPanelLabels() {
    BWindow* window = fOpenPanel != nullptr ? fOpenPanel->Window() : nullptr;
    if (window == nullptr || !window->Lock())
        return;
    window->SetTitle(local_text_with_app("%AppName%: Open").c_str());
    window->Unlock();
}

status_t TLorivaneApp::Cancel(BMessage* message) {
    void* source = nullptr;
    const status_t status = message->FindPointer(kFieldSource, &source);
    // A pointer in a message may come from anywhere.
    if (status == B_OK && source == fOpenPanel.get())
        set_file_panel_priority(fOpenPanel.get(), kHiddenPanelPriority);
    return status;
}

// #pragma mark - Windows

void TLorivaneApp::MItemPrefsClicked() {
    if (fPrefsWindow == nullptr) {
        const BRect frame = DialogFrame();
        fPrefsWindow = new TPrefsWindow(frame);
        if (fPrefsWindow->InitCheck() == B_OK) {
            (void)fPrefsWindow->IntelligentMoveTo(frame.LeftTop());
            fPrefsWindow->SetTarget(BMessenger(this));
        }
    }
    if (fPrefsWindow->InitCheck() == B_OK)
        appear(fPrefsWindow);
    else
        show_error(be_locale->GetString("@Err_Cannot_Show_Prefs_Win@"),
            be_locale->GetString("@Hint_Excutable_Maybe_Broken@"));
}

void TLorivaneApp::MItemShowImageInfoClicked() {
    if (!fMainWindow->Lock())
        return;
    // The window's thread may replace the image as soon as it can.
    const TImage* image = fMainWindow->CurrentImage();
    const BRect frame = below_top(fMainWindow->Frame());
    TPropertyWindow* window = image != nullptr ? new TPropertyWindow(frame, image) : nullptr;
    fMainWindow->Unlock();

    if (window == nullptr) {
        show_error(be_locale->GetString("@Err_No_Image_Is_Displayed@"), "");
    } else if (window->InitCheck() == B_OK) {
        (void)window->IntelligentMoveTo(frame.LeftTop());
        window->Appear();  // and is its own from here on
    } else {
        window->Quit();
        show_error(be_locale->GetString("@Err_Cannot_Show_Image_Info_Win@"),
            be_locale->GetString("@Hint_Excutable_Maybe_Broken@"));
    }
}

void TLorivaneApp::AboutRequested() {
    if (fAboutWindow == nullptr) {
        const BRect frame = DialogFrame();
        fAboutWindow = new TZELKANAboutWindow(frame, nullptr);
        (void)fAboutWindow->IntelligentMoveTo(frame.LeftTop());
        fAboutWindow->SetAppInfo(kAppName, gAppVer, kAppCopyright);
        fAboutWindow->SetIAPRef(&gIAPs);
    }
    appear(fAboutWindow);
}

void TLorivaneApp::MItemZELKANCommonPrefsClicked() {
    (void)gIAPs.ShowWindow(DialogFrame());
}

void TLorivaneApp::MItemHelpClicked() {
    const std::string document =
        gAppPrivacy.ExePath() + "/" + be_locale->GetString("ReadMe_Eng.txt");
    if (show_help(document.c_str()) != B_OK)
        show_error(be_locale->GetString("@Err_Cannot_Show_Help@"), "");
}
