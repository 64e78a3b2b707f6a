#include "window/LorivaneWindow.h"

#include "app/MessageCodes.h"
#include "settings/ExitStates.h"
#include "viewer/KeyDownFilter.h"
#include "viewer/LorivaneView.h"
#include "window/WindowFrame.h"

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <interface/Screen.h>

namespace {

constexpr float kMinWidth = 70.0F;
constexpr float kMinHeight = 84.0F;
constexpr float kMaxSide = 10000.0F;

BRect opening_frame(BRect saved) {
    const BRect fallback = TExitStates().fWindowFrame;
    return usable_window_frame(
        saved, fallback, BScreen(B_MAIN_SCREEN_ID).Frame(), kMinWidth, kMinHeight);
}

bool is_for_view(uint32 what) {
    switch (what) {
    case B_REFS_RECEIVED:
    case kPrefDisplayOption:
    case kPrefEnableComment:
    case kPrefEnablePreload:
    case kPrefCommentAlign:
    case kPrefCommentEncoding:
    case kPrefCommentFontFamily:
    case kPrefCommentFontSize:
    case kPrefCommentMargin:
    case kPrefCommentPadding:
    case kPrefCommentFileExts:
    case kPrefColors: return true;
    default: return false;
    }
}

}  // namespace

TLorivaneWindow::TLorivaneWindow(BRect frame)
    : TBasicWindow(opening_frame(frame), "", B_DOCUMENT_WINDOW, B_ASYNCHRONOUS_CONTROLS) {
    SetSizeLimits(kMinWidth, kMaxSide, kMinHeight, kMaxSide);
    fView = new TLorivaneView(Bounds());
    AddChild(fView);  // the window's from here on
    AddCommonFilter(new TKeyDownFilter(fView));
}

void TLorivaneWindow::DispatchMessage(BMessage* message, BHandler* handler) {
    // What the view does not know comes up to MessageReceived() and must not go down again.
    if (handler == this && is_for_view(message->what))
        (void)PostMessage(message, fView);
    else
        TBasicWindow::DispatchMessage(message, handler);
}

bool TLorivaneWindow::QuitRequested() {
    (void)be_app->PostMessage(B_QUIT_REQUESTED);
    return TBasicWindow::QuitRequested();
}

void TLorivaneWindow::Quit() {
    gExitStates.fWindowFrame = Frame();
    TBasicWindow::Quit();
}

TImage* TLorivaneWindow::CurrentImage() const {
    return fView->CurrentImage();
}
