#include "window/LorivaneWindow.h"

#include "framework/MessageCodes.h"
#include "settings/ExitStates.h"
#include "viewer/KeyDownFilter.h"
#include "viewer/LorivaneView.h"
#include "window/WindowFrame.h"

#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <interface/MenuBar.h>
#include <interface/Screen.h>

namespace {

constexpr float kMinWidth = 70.0F;
constexpr float kMinHeightBelowMenu = 84.0F;
constexpr float kMaxSide = 10000.0F;

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
    : TBasicWindow(frame, "", B_DOCUMENT_WINDOW, B_ASYNCHRONOUS_CONTROLS),
      fMenuBar(new BMenuBar(BRect(), "MenuBar")) {
    AddChild(fMenuBar);
    const float minHeight = fMenuBar->Bounds().Height() + kMinHeightBelowMenu;
    SetSizeLimits(kMinWidth, kMaxSide, minHeight, kMaxSide);
    const BRect usable = UsableFrame(frame, BScreen(this).Frame());
    MoveTo(usable.LeftTop());
    ResizeTo(usable.Width(), usable.Height());

    BRect viewFrame = Bounds();
    viewFrame.top = fMenuBar->Frame().bottom + 1;
    fView = new TLorivaneView(viewFrame);
    AddChild(fView);
    AddCommonFilter(new TKeyDownFilter(fView));
    InitHistory();
    CreateMenu();
}

void TLorivaneWindow::DispatchMessage(BMessage* message, BHandler* handler) {
    // What the view does not know comes up to MessageReceived() and must not go down again.
    if (handler == this && is_for_view(message->what)) {
        NoteForView(message->what);
        (void)PostMessage(message, fView);
    } else {
        TBasicWindow::DispatchMessage(message, handler);
    }
}

void TLorivaneWindow::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kMsgAddHistory: AddHistoryRqtd(message); break;
    case kMsgRemoveHistory: RemoveHistoryRqtd(message); break;
    case kMsgDeleteAllHistory: MItemDelAllMRUFClicked(); break;
    case kMsgSharedItemChanged: IAPChanged(message); break;
    default: TBasicWindow::MessageReceived(message); break;
    }
}

// What the window itself does about a message it passes on.
void TLorivaneWindow::NoteForView(uint32 what) {
    switch (what) {
    case B_REFS_RECEIVED: RefsReceived(); break;
    case kPrefDisplayOption: PrefDisplayOptionChanged(); break;
    case kPrefEnableComment: PrefEnableCommentChanged(); break;
    default: break;
    }
}

void TLorivaneWindow::RefsReceived() {
    fMenuBar->ResizeTo(Bounds().Width() + 1, fMenuBar->Bounds().Height());
}

void TLorivaneWindow::ScreenChanged(BRect frame, color_space) {
    fView->ScreenChanged();
    if (!fView->IsFullScreen())
        return;
    // The frame to go back to may lie on a screen that is gone.
    fView->SetNormalWindowFrame(UsableFrame(fView->NormalWindowFrame(), frame));
    fView->CoverScreen(frame);
}

BRect TLorivaneWindow::UsableFrame(BRect wanted, BRect screen) const {
    float minWidth = 0;
    float minHeight = 0;
    GetSizeLimits(&minWidth, nullptr, &minHeight, nullptr);
    return usable_window_frame(wanted, TExitStates().fWindowFrame, screen, minWidth, minHeight);
}

bool TLorivaneWindow::QuitRequested() {
    (void)be_app->PostMessage(B_QUIT_REQUESTED);
    return TBasicWindow::QuitRequested();
}

void TLorivaneWindow::Quit() {
    gExitStates.fWindowFrame = fView->NormalWindowFrame();
    TBasicWindow::Quit();
}

TImage* TLorivaneWindow::CurrentImage() const {
    return fView->CurrentImage();
}
