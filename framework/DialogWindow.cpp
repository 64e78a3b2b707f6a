#include "framework/DialogWindow.h"

#include "framework/DialogView.h"
#include "framework/ShortCutFilter.h"

#include <app/AppDefs.h>
#include <kernel/OS.h>

namespace {

constexpr int32 kShownPriority = 15;
constexpr int32 kHiddenPriority = 5;

}  // namespace

TDialogWindow::TDialogWindow(
    BRect frame, const char* title, window_type type, uint32 flags, uint32 workspaces)
    : TBasicWindow(frame, title, type, flags, workspaces) {
    Init();
}

TDialogWindow::TDialogWindow(BRect frame, const char* title, window_look look, window_feel feel,
    uint32 flags, uint32 workspaces)
    : TBasicWindow(frame, title, look, feel, flags, workspaces) {
    Init();
}

void TDialogWindow::Init() {
    AddCommonFilter(new TShortCutFilter(nullptr));  // the window's from here on
}

void TDialogWindow::Show() {
    (void)set_thread_priority(Thread(), kShownPriority);
    ForgetFocus();
    TBasicWindow::Show();
}

void TDialogWindow::ForgetFocus() {
    if (!Lock())
        return;
    // Its user left it at the button that closed it, and begins again with the first component.
    BView* focus = IsHidden() ? CurrentFocus() : nullptr;
    if (focus != nullptr)
        focus->MakeFocus(false);
    Unlock();
}

void TDialogWindow::Hide() {
    TBasicWindow::Hide();
    (void)set_thread_priority(Thread(), kHiddenPriority);
}

void TDialogWindow::MessageReceived(BMessage* message) {
    if (message->what == B_KEY_DOWN)
        KeyDown(message);
    else
        TBasicWindow::MessageReceived(message);
}

void TDialogWindow::KeyDown(BMessage* message) {
    const auto* view = dynamic_cast<TDialogView*>(ChildAt(0));
    if (view == nullptr)
        return;
    int32 rawChar = 0;
    int32 key = 0;
    (void)message->FindInt32("raw_char", &rawChar);
    (void)message->FindInt32("key", &key);
    view->ShortCutDown(rawChar, key);
}

BMessenger TDialogWindow::Target() const {
    return fTarget;
}

void TDialogWindow::SetTarget(const BMessenger& target) {
    fTarget = target;
}

BMessage* TDialogWindow::Message() const {
    return fMessage.get();
}

void TDialogWindow::SetMessage(BMessage* message) {
    if (message != fMessage.get())
        fMessage.reset(message);
}

status_t TDialogWindow::Invoke(BMessage* message) {
    if (message == nullptr)
        message = fMessage.get();
    if (message == nullptr)
        return B_BAD_VALUE;
    return fTarget.SendMessage(message, static_cast<BHandler*>(nullptr), B_INFINITE_TIMEOUT);
}
