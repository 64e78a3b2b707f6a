// How the view is built, taken down and driven by messages.

#include "viewer/LorivaneView.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageRunner.h>
#include <interface/InterfaceDefs.h>
#include <interface/Window.h>

#include "framework/LanguageChangedFilter.h"
#include "framework/MessageCodes.h"
#include "framework/WaitingMessages.h"

namespace {

/// Whether it tells of what the user did, not of what was going on by itself.
bool is_action(uint32 what) {
    switch (what) {
    case B_REFS_RECEIVED:
    case B_SIMPLE_DATA:
    case B_MOUSE_WHEEL_CHANGED:
    case kMsgFirstImage:
    case kMsgPrevImage:
    case kMsgNextImage:
    case kMsgLastImage:
    case kMsgChooseDisplayOption:
    case kMsgToggleComment:
    case kMsgToggleFullScreen: return true;
    default: return false;
    }
}

}  // namespace

TLorivaneView::TLorivaneView(BRect frame)
    : TBasicView(frame, "LorivaneView", B_FOLLOW_ALL_SIDES, B_WILL_DRAW | B_FRAME_EVENTS) {
    SetViewColor(B_TRANSPARENT_COLOR);

    ChildFrames frames = child_frames(Extent(frame));
    fScrollBarH = new TScrollBar(frames.horizontalBar, "ScrlBarH", this, B_HORIZONTAL);
    AddChild(fScrollBarH);
    fScrollBarH->Hide();
    fScrollBarV = new TScrollBar(frames.verticalBar, "ScrlBarV", this, B_VERTICAL);
    AddChild(fScrollBarV);
    fScrollBarV->Hide();
    fCornerView = new BView(frames.corner, "ScrlCornerView", B_FOLLOW_RIGHT | B_FOLLOW_BOTTOM, 0);
    fCornerView->SetViewColor(ui_color(B_PANEL_BACKGROUND_COLOR));
    AddChild(fCornerView);
    fCornerView->Hide();
    fStatusView = new TStatusView(frames.statusBar);
    AddChild(fStatusView);
}

TLorivaneView::~TLorivaneView() = default;

void TLorivaneView::AttachedToWindow() {
    TBasicView::AttachedToWindow();
    Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
    SetWinTitle("");
    MakeFocus();
}

void TLorivaneView::AllAttached() {
    HideScrollBars();
    ResizeOffscreen();
}

void TLorivaneView::MessageReceived(BMessage* message) {
    if (is_action(message->what))
        TakeMessageAway();
    switch (message->what) {
    case B_REFS_RECEIVED:
    case B_SIMPLE_DATA: RefsReceived(message); break;
    case B_MOUSE_WHEEL_CHANGED: MouseWheelChanged(message); break;
    case kMsgImageLoaded: ImageLoaded(message); break;
    case kMsgImageFound: ImageFound(message); break;
    case kMsgRetryLoad: LaunchLoadThreadRqtd(message); break;
    case kMsgFirstImage: SetFirstImage(); break;
    case kMsgPrevImage: SetPrevImage(); break;
    case kMsgNextImage: SetNextImage(); break;
    case kMsgLastImage: SetLastImage(); break;
    case kMsgChooseDisplayOption: MItemDisplayOptionClicked(message); break;
    case kMsgToggleComment: MItemEnableCommentClicked(); break;
    case kMsgToggleFullScreen: MItemFullScreenClicked(); break;
    case kPrefColors:
        // A slider that is dragged sends many, and each would draw the colours of the last.
        remove_waiting(
            *Window(), [](const BMessage& waiting) { return waiting.what == kPrefColors; });
        PrefColChanged();
        break;
    case kPrefDisplayOption: PrefDisplayOptionChanged(); break;
    case kPrefEnableComment: PrefEnableCommentChanged(); break;
    case kPrefCommentEncoding: PrefCommentEncodingChanged(); break;
    case kPrefCommentFileExts: PrefCommentFileExtsChanged(); break;
    case kPrefCommentFontFamily: PrefCommentFontFamilyChanged(); break;
    case kPrefCommentFontSize: PrefCommentFontSizeChanged(); break;
    case kPrefCommentPadding: PrefCommentPaddingChanged(); break;
    case kPrefCommentMargin: PrefCommentMarginChanged(); break;
    case kPrefCommentAlign: PrefCommentAlignChanged(); break;
    case kPrefEnablePreload: PrefEnablePreloadChanged(); break;
    default:
        if (!fContextMenu.MessageReceived(message) && !OpenContextMenuBy(*message))
            TBasicView::MessageReceived(message);
        break;
    }
}

void TLorivaneView::LanguageChanged() {
    SetWinTitle(fCurrentImage ? fCurrentImage->FileName() : std::string());
    fStatusView->LanguageChanged();
    RenewMessage();
}

void TLorivaneView::Clear() {
    fCurrentImage.reset();
    SetWinTitle("");
    fStatusView->Clear();
    TellPicture();
}

// What is left when an image was expected and there is none.
void TLorivaneView::ShowNothing() {
    Clear();
    HideScrollBars();
    Invalidate();
}
