#include "framework/BasicView.h"

#include "framework/Click.h"
#include "framework/MessageCodes.h"

#include <app/Message.h>
#include <interface/Window.h>

TBasicView::TBasicView(BRect frame, const char* name, uint32 resizingMode, uint32 flags)
    : BView(frame, name, resizingMode, flags) {
    Init();
}

TBasicView::TBasicView(BMessage* archive) : BView(archive) {
    Init();
}

void TBasicView::Init() {
    fDragging = false;
    fButtons = 0;
    fClicks = 0;
    fDownPoint = BPoint();
}

void TBasicView::MessageReceived(BMessage* message) {
    if (message->what == kMsgLanguageChanged)
        LanguageChanged();
    else
        BView::MessageReceived(message);
}

void TBasicView::MouseDown(BPoint where) {
    fDragging = false;
    fButtons = 0;
    fClicks = 0;
    if (const BMessage* message = Window()->CurrentMessage()) {
        (void)message->FindInt32("buttons", &fButtons);
        (void)message->FindInt32("clicks", &fClicks);
    }
    fDownPoint = where;

    if (click_kind(fClicks) == kSingleClick) {
        if (fButtons == B_PRIMARY_MOUSE_BUTTON)
            MouseDownLeft(where);
        else if (fButtons == B_SECONDARY_MOUSE_BUTTON)
            MouseDownRight(where);
    }
    // Moves and the release belong to this press wherever they happen.
    SetMouseEventMask(B_POINTER_EVENTS, B_NO_POINTER_HISTORY);
}

void TBasicView::MouseMoved(BPoint where, uint32 /*transit*/, const BMessage* /*dragMessage*/) {
    if (fButtons == 0 || fDragging || !is_drag(fDownPoint, where))
        return;
    fDragging = true;
    if (fButtons == B_PRIMARY_MOUSE_BUTTON)
        MouseDragLeft(where);
    else if (fButtons == B_SECONDARY_MOUSE_BUTTON)
        MouseDragRight(where);
}

void TBasicView::MouseUp(BPoint where) {
    if (fButtons == 0)
        return;
    if (!fDragging) {
        const TClickKind kind = click_kind(fClicks);
        if (fButtons == B_PRIMARY_MOUSE_BUTTON) {
            if (kind == kSingleClick)
                MouseClickLeftSingle(where);
            else if (kind == kDoubleClick)
                MouseClickLeftDouble(where);
        } else if (fButtons == B_SECONDARY_MOUSE_BUTTON) {
            if (kind == kSingleClick)
                MouseClickRightSingle(where);
            else if (kind == kDoubleClick)
                MouseClickRightDouble(where);
        }
    }
    fButtons = 0;
    fDragging = false;
}

void TBasicView::LanguageChanged() {}

void TBasicView::MouseClickLeftDouble(BPoint /*where*/) {}

void TBasicView::MouseClickLeftSingle(BPoint /*where*/) {}

void TBasicView::MouseClickRightDouble(BPoint /*where*/) {}

void TBasicView::MouseClickRightSingle(BPoint /*where*/) {}

void TBasicView::MouseDownLeft(BPoint /*where*/) {}

void TBasicView::MouseDownRight(BPoint /*where*/) {}

void TBasicView::MouseDragLeft(BPoint /*where*/) {}

void TBasicView::MouseDragRight(BPoint /*where*/) {}
