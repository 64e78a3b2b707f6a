#include "settings/PrefsWindow.h"

#include <app/Message.h>
#include <locale/Locale.h>
#include <memory>

#include "framework/Layout.h"
#include "framework/MessageCodes.h"
#include "settings/PrefView.h"

TPrefsWindow::TPrefsWindow(BRect frame)
    : TDialogWindow(frame, "PrefWin", B_TITLED_WINDOW,
          B_ASYNCHRONOUS_CONTROLS | B_NOT_ZOOMABLE | B_NOT_RESIZABLE, B_CURRENT_WORKSPACE),
      fInitStatus(B_NO_INIT), fView(nullptr) {
    BuildView();
}

void TPrefsWindow::BuildView() {
    BMessage layout;
    if (load_layout("PrefsViewRsrc", &layout) != B_OK)
        return;
    auto view = std::make_unique<TPrefView>(&layout);
    if (view->InitCheck() != B_OK)
        return;
    fView = view.release();
    AddChild(fView);  // which gives itself, and the window, the size its labels need
    SetWinTitle();
    fInitStatus = B_OK;
}

void TPrefsWindow::SetWinTitle() {
    SetTitle(be_locale->GetString("Preferences"));
}

void TPrefsWindow::LanguageChanged() {
    TDialogWindow::LanguageChanged();
    SetWinTitle();
}

void TPrefsWindow::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kPrefDisplayOption:
    case kPrefEnableComment:
    case kMsgSharedItemChanged:
        if (fView != nullptr)
            (void)PostMessage(message, fView);
        break;
    default: TDialogWindow::MessageReceived(message);
    }
}

bool TPrefsWindow::QuitRequested() {
    if (CurrentMessage() != nullptr && fView != nullptr)
        fView->ButtonCancelClicked();
    return TDialogWindow::QuitRequested();
}
