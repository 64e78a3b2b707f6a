#include "app/LorivaneApp.h"

#include "app/MessageCodes.h"
#include "app/Version.h"
#include "iap/InterAppPrefs.h"
#include "settings/ExitStates.h"
#include "window/LorivaneWindow.h"

#include <app/Messenger.h>

TLorivaneApp::TLorivaneApp()
    : BApplication(kAppSignature), fMainWindow(new TLorivaneWindow(gExitStates.fWindowFrame)) {
    fMainWindow->Show();
}

void TLorivaneApp::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgSharedItemChanged:
        IAPChanged(message);
        // The window reads the value from the store when this arrives.
        (void)BMessenger(fMainWindow).SendMessage(message);
        break;
    case kPrefDisplayOption:
    case kPrefEnableComment:
    case kPrefCommentFontFamily:
    case kPrefCommentAlign:
    case kPrefCommentEncoding:
    case kPrefCommentFileExts:
    case kPrefEnablePreload:
    case kPrefCommentMargin:
    case kPrefColors:
    case kPrefCommentPadding:
    case kPrefCommentFontSize:
        // Fails, and may, once the window is gone.
        (void)BMessenger(fMainWindow).SendMessage(message);
        break;
    default: BApplication::MessageReceived(message);
    }
}

void TLorivaneApp::RefsReceived(BMessage* message) {
    (void)BMessenger(fMainWindow).SendMessage(message);
}

bool TLorivaneApp::QuitRequested() {
    if (fMainWindow == nullptr || !fMainWindow->Lock())
        return true;
    const bool quits = fMainWindow->QuitRequested();
    fMainWindow->Unlock();
    return quits;
}

void TLorivaneApp::Quit() {
    if (fMainWindow != nullptr)
        fMainWindow->Hide();
    CloseWindow(&fMainWindow);
    BApplication::Quit();
}

void TLorivaneApp::IAPChanged(BMessage* message) {
    // Fails for an item of another application's, and for a change without a value.
    (void)gIAPs.SetValue(*message);
}

template <typename Window>
void TLorivaneApp::CloseWindow(Window** slot) {
    if (*slot == nullptr || !(*slot)->Lock())
        return;
    (*slot)->Quit();
    *slot = nullptr;
}
