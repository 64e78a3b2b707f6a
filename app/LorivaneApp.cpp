// The life of the application, and what it relays.

#include "app/LorivaneApp.h"

#include "app/AboutWindow.h"
#include "framework/LanguageChangedFilter.h"
#include "framework/MessageCodes.h"
#include "framework/Version.h"
#include "framework/WaitingMessages.h"
#include "iap/InterAppPrefs.h"
#include "settings/ExitStates.h"
#include "settings/PrefsWindow.h"
#include "window/LorivaneWindow.h"

#include <app/AppDefs.h>
#include <app/Messenger.h>
#include <cstring>
#include <storage/FilePanel.h>
#include <string>

TLorivaneApp::TLorivaneApp()
    : BApplication(kAppSignature), fMainWindow(new TLorivaneWindow(gExitStates.fWindowFrame)) {
    // Only windows hear of another language, and the panel's title is the application's.
    fMainWindow->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
    fMainWindow->Show();
}

TLorivaneApp::~TLorivaneApp() = default;

void TLorivaneApp::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgOpen: MenuOpenClicked(); break;
    case kMsgShowPrefs: MItemPrefsClicked(); break;
    case kMsgShowImageInfo: MItemShowImageInfoClicked(); break;
    case kMsgShowHelp: MItemHelpClicked(); break;
    case kMsgShowSharedPrefs: MItemZELKANCommonPrefsClicked(); break;
    case kMsgLanguageChanged: SetOpenPanelLabels(); break;
    case B_CANCEL: (void)Cancel(message); break;
    case kMsgSharedItemChanged:
        if (IsOvertaken(*message))
            break;
        // The windows read the value from the store when this arrives.
        IAPChanged(message);
        [[fallthrough]];
    case kPrefDisplayOption:
    case kPrefEnableComment:
        (void)BMessenger(fMainWindow).SendMessage(message);
        SendToPrefsWindow(message);
        break;
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

// Not under the window's lock, which it holds while it decodes an image or asks the user.
bool TLorivaneApp::QuitRequested() {
    return fMainWindow == nullptr || fMainWindow->QuitRequested();
}

// The other windows are closed by the base.
void TLorivaneApp::Quit() {
    if (fMainWindow != nullptr)
        fMainWindow->Hide();
    CloseWindow(&fAboutWindow);
    CloseWindow(&fMainWindow);
    BApplication::Quit();
}

// Whether a later change, by the same application, of the same item waits already. Some are saved
// one by one, and every window hears of each.
bool TLorivaneApp::IsOvertaken(const BMessage& change) const {
    const std::string item = change.GetString(kFieldSharedItem, "");
    const auto isSame = same_shared_item(change);
    return is_waiting(*this, [&](const BMessage& later) {
        type_code type = 0;
        return isSame(later) && later.GetInfo(item.c_str(), &type) == B_OK &&
            std::strcmp(
                later.GetString(kFieldSharedApp, ""), change.GetString(kFieldSharedApp, "")) == 0;
    });
}

void TLorivaneApp::IAPChanged(BMessage* message) {
    // Fails for an item of another application's, and for a change without a value.
    (void)gIAPs.SetValue(*message);
}

void TLorivaneApp::SendToPrefsWindow(BMessage* message) {
    if (fPrefsWindow != nullptr && fPrefsWindow->InitCheck() == B_OK)
        (void)BMessenger(fPrefsWindow).SendMessage(message);
}

template <typename Window>
void TLorivaneApp::CloseWindow(Window** slot) {
    if (*slot == nullptr || !(*slot)->Lock())
        return;
    (*slot)->Quit();
    *slot = nullptr;
}
