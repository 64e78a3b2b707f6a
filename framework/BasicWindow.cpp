#include "framework/BasicWindow.h"

#include "framework/MessageCodes.h"
#include "framework/Placement.h"

#include <app/Message.h>
#include <interface/Screen.h>

TBasicWindow::TBasicWindow(
    BRect frame, const char* title, window_type type, uint32 flags, uint32 workspaces)
    : BWindow(frame, title, type, flags, workspaces) {}

TBasicWindow::TBasicWindow(BRect frame, const char* title, window_look look, window_feel feel,
    uint32 flags, uint32 workspaces)
    : BWindow(frame, title, look, feel, flags, workspaces) {}

void TBasicWindow::MessageReceived(BMessage* message) {
    if (message->what == kMsgLanguageChanged)
        LanguageChanged();
    else
        BWindow::MessageReceived(message);
}

bool TBasicWindow::QuitRequested() {
    // The application asks its windows directly when it quits; the user's close box is a message.
    if (CurrentMessage() == nullptr)
        return true;
    if (!IsHidden())
        Hide();
    return false;
}

void TBasicWindow::Appear() {
    if (IsHidden())
        Show();
    else
        Activate(true);
}

void TBasicWindow::LanguageChanged() {}

BPoint TBasicWindow::IntelligentMoveTo(BPoint where) {
    const BRect bounds = Bounds();
    const BPoint place =
        placed_on_screen(where, bounds.Width(), bounds.Height(), BScreen(B_MAIN_SCREEN_ID).Frame());
    MoveTo(place);
    return place;
}

BPoint TBasicWindow::IntelligentCentering() {
    const BRect bounds = Bounds();
    const BPoint place =
        centered_on_screen(bounds.Width(), bounds.Height(), BScreen(B_MAIN_SCREEN_ID).Frame());
    MoveTo(place);
    return place;
}
