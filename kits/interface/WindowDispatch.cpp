#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageQueue.h>
#include <interface/View.h>
#include <interface/Window.h>

#include "kits/app/MessageAccess.h"
#include "kits/app/MessengerAccess.h"
#include "kits/interface/ControlPeer.h"
#include "kits/interface/WindowData.h"

using BPrivate::ControlPeer;
using BPrivate::WindowInput;

namespace {

bool FlagOf(const BMessage& message, const char* name) {
    bool flag = false;
    return message.FindBool(name, &flag) == B_OK && flag;
}

/// Whether a later report of the screen's about the size waits already. Laying out for every step
/// of a dragged edge would make the window lag behind.
bool IsOvertaken(BMessageQueue& queue, const BMessage& report) {
    if (!report.HasInt32("serial"))
        return false;
    queue.Lock();
    bool overtaken = false;
    const BMessage* later = nullptr;
    for (int32 i = 0; (later = queue.FindMessage(B_WINDOW_RESIZED, i)) != nullptr; i++)
        overtaken = overtaken || later->HasInt32("serial");
    queue.Unlock();
    return overtaken;
}

/// Whether the next key event that waits is a later repeat of this one. A window that is slower
/// than the keyboard would go on long after a held key was released.
bool IsRepeatedAgain(BMessageQueue& queue, const BMessage& keyDown) {
    if (keyDown.what != B_KEY_DOWN || !keyDown.HasInt32("be:key_repeat"))
        return false;
    queue.Lock();
    bool again = false;
    const BMessage* later = nullptr;
    for (int32 i = 0; (later = queue.FindMessage(i)) != nullptr; i++) {
        const bool press = later->what == B_KEY_DOWN || later->what == B_UNMAPPED_KEY_DOWN;
        if (!press && later->what != B_KEY_UP && later->what != B_UNMAPPED_KEY_UP)
            continue;
        again = later->what == B_KEY_DOWN && later->HasInt32("be:key_repeat") &&
            later->GetInt32("key", 0) == keyDown.GetInt32("key", 0);
        break;
    }
    queue.Unlock();
    return again;
}

/// Whether this step of a control that is dragged is followed by another that waits already. What the
/// control's window does about one may take longer than the user takes for it.
bool IsDraggedOn(BMessageQueue& queue, const BMessage& event) {
    bool final = true;
    if (event.what != BPrivate::kControlChanged || event.FindBool("final", &final) != B_OK || final)
        return false;
    const int32 control = event.GetInt32("control", 0);
    queue.Lock();
    bool again = false;
    const BMessage* later = nullptr;
    for (int32 i = 0;
         !again && (later = queue.FindMessage(BPrivate::kControlChanged, i)) != nullptr; i++)
        again = later->GetInt32("control", 0) == control;
    queue.Unlock();
    return again;
}

/// Whether a view has yet to be told its new size. It would draw what belongs to the size before.
bool IsAViewToBeResized(BMessageQueue& queue) {
    queue.Lock();
    const bool is = queue.FindMessage(B_VIEW_RESIZED, 0) != nullptr;
    queue.Unlock();
    return is;
}

bool IsForPreferredHandler(const BMessage& message) {
    return BPrivate::MessengerAccess::HandlerToken(BPrivate::MessageAccess::Target(message)) == 0;
}

/// Sends the message to the next of the windows that it names.
void PassOn(BMessage& message) {
    status_t status = B_ERROR;
    BMessenger next;
    while (status != B_OK && message.RemoveData("windows") == B_OK &&
        message.FindMessenger("windows", &next) == B_OK)
        status = next.SendMessage(&message);
}

}  // namespace

BHandler* BWindow::DetermineTarget(BMessage* message, BHandler* target) {
    // What becomes of the message is one change on the screen.
    if (fData->Screen() != nullptr)
        fData->Screen()->Hold();
    // A menu item's, for example. The view that has the focus is not meant.
    if (message->what == B_QUIT_REQUESTED && IsForPreferredHandler(*message))
        return this;
    // Before any filter sees it.
    if (target == this &&
        (IsRepeatedAgain(*MessageQueue(), *message) || IsDraggedOn(*MessageQueue(), *message)))
        return nullptr;
    return target == this ? fData->input.Target(*message) : target;
}

void BWindow::DispatchMessage(BMessage* message, BHandler* handler) {
    if (message->what == B_KEY_DOWN && fData->InvokeShortcut(*message))
        return;
    // A window that makes something else of its keys could not be operated by them otherwise.
    if (message->what == B_KEY_DOWN && handler == this && fData->TakeFocusBy(*message))
        return;

    // Only pointers are compared until the view is known to be in this window.
    auto* view = dynamic_cast<BView*>(handler);
    if (view != nullptr && view->Window() == this) {
        if (WindowInput::IsInput(message->what)) {
            fData->input.Dispatch(*message, *view);
            return;
        }
        if (message->what == B_VIEW_MOVED) {
            view->fMovePending = false;
            view->FrameMoved(view->Frame().LeftTop());
            return;
        }
        if (message->what == B_VIEW_RESIZED) {
            view->fResizePending = false;
            view->FrameResized(view->Frame().Width(), view->Frame().Height());
            return;
        }
    }
    if (handler != this) {
        BLooper::DispatchMessage(message, handler);
        return;
    }

    switch (message->what) {
    case _UPDATE_:
        fData->surface.UpdateArrived();
        if (!IsAViewToBeResized(*MessageQueue()) || !fData->surface.PutOffUpdate())
            fData->surface.Update();
        break;
    case B_WINDOW_RESIZED:
        if (IsOvertaken(*MessageQueue(), *message))
            break;
        _FrameReported(*message);
        break;
    case B_WINDOW_MOVED: _FrameReported(*message); break;
    case B_WINDOW_ACTIVATED:
        fData->active = FlagOf(*message, "active");
        WindowActivated(fData->active);
        fData->Top()._Activate(fData->active);
        break;
    case B_MINIMIZE:
        // Known before the hook is called: the screen has done it.
        fData->minimized = FlagOf(*message, "minimize");
        Minimize(fData->minimized);
        break;
    case B_ZOOM: Zoom(Frame().LeftTop(), Frame().Width(), Frame().Height()); break;
    case BPrivate::kWindowHeld:
        fData->hold.Set(FlagOf(*message, "held"), fData->frame, fData->ScreenFrame());
        break;
    case BPrivate::kScreenChanged: {
        fData->surface.FollowScreen();
        BRect frame;
        if (message->FindRect("frame", &frame) == B_OK)
            ScreenChanged(frame, B_RGB32);
        break;
    }
    case BPrivate::kControlFocused: {
        int32 id = 0;
        (void)message->FindInt32("control", &id);
        fData->FocusTakenByUser(id);
        break;
    }
    case BPrivate::kControlChanged: {
        int32 id = 0;
        (void)message->FindInt32("control", &id);
        ControlPeer* peer = fData->PeerOf(id);
        if (peer != nullptr && (peer->_IsFresh(*message) || peer->TakesLate(*message)))
            peer->UserChanged(*message);
        break;
    }
    case BPrivate::kMenusOpen: fData->MenusAre(FlagOf(*message, "open")); break;
    case BPrivate::kBringToFront:
        if (IsHidden()) {
            PassOn(*message);
            break;
        }
        Minimize(false);
        fData->Screen()->ActivateWith(message->GetString("token", ""));
        break;
    case BPrivate::kControlsChanged: break;  // handed down when this is done
    case B_MOUSE_DOWN:
    case B_MOUSE_MOVED:
    case B_MOUSE_UP:
        // Beside all views.
        fData->input.Dispatch(*message, fData->Top());
        break;
    default: BLooper::DispatchMessage(message, handler);
    }
}

void BWindow::MessageDispatched() {
    fData->HandDownChanges();
    // The controls wait for the picture that belongs to them.
    if (fData->surface.UpdateComes())
        return;
    fData->surface.Flush();
    if (fData->Screen() != nullptr)
        fData->Screen()->Release();
}

void BWindow::MessageReceived(BMessage* message) {
    if (message->what == B_KEY_DOWN)
        fData->OpenMenuBy(*message);
    BLooper::MessageReceived(message);
}

void BWindow::WindowActivated(bool) {}

void BWindow::FrameMoved(BPoint) {}

void BWindow::FrameResized(float, float) {}
