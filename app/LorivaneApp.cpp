#include "app/LorivaneApp.h"

#include "app/MessageCodes.h"
#include "app/Version.h"
#include "settings/ExitStates.h"
#include "window/LorivaneWindow.h"

#include <app/Messenger.h>

TLorivaneApp::TLorivaneApp()
    : BApplication(kAppSignature), fMainWindow(new TLorivaneWindow(gExitStates.fWindowFrame)) {
    fMainWindow->Show();
}

void TLorivaneApp::MessageReceived(BMessage* message) {
    switch (message->what) {
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

template <typename Window>
void TLorivaneApp::CloseWindow(Window** slot) {
    if (*slot == nullptr || !(*slot)->Lock())
        return;
    (*slot)->Quit();
    *slot = nullptr;
}
