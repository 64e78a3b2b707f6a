#include <interface/Alert.h>

#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/Messenger.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>

#include "kits/interface/AlertContent.h"
#include "kits/interface/AlertMessages.h"

using BPrivate::AlertAnswer;
using BPrivate::AlertAsker;

namespace {

// Until it is laid out.
constexpr BRect kFirstFrame(100, 100, 400, 250);

constexpr uint32 kFlags =
    B_NOT_RESIZABLE | B_NOT_ZOOMABLE | B_NOT_MINIMIZABLE | B_ASYNCHRONOUS_CONTROLS;

}  // namespace

BAlert::BAlert(const char* title, const char* text, const char* button0, const char* button1,
    const char* button2, button_width width, alert_type type)
    : BAlert(title, text, button0, button1, button2, width, B_EVEN_SPACING, type) {}

// It stays above the window that was active, as a modal one does, but keeps nobody from using it:
// only the thread that asks is held up.
BAlert::BAlert(const char* title, const char* text, const char* button0, const char* button1,
    const char* button2, button_width width, button_spacing spacing, alert_type type)
    : BWindow(kFirstFrame, title, B_MODAL_WINDOW_LOOK, B_FLOATING_APP_WINDOW_FEEL, kFlags) {
    const char* first = button0 != nullptr ? button0 : "OK";
    fContent = std::make_unique<Content>(*this, text,
        std::vector<const char*>{first, button0 != nullptr ? button1 : nullptr, button2}, width,
        spacing, type);
    // Who asks wants an answer first.
    RemoveShortcut('Q', B_COMMAND_KEY);
}

BAlert::~BAlert() = default;

void BAlert::SetShortcut(int32 button, char key) {
    fContent->SetShortcut(button, key);
}

char BAlert::Shortcut(int32 button) const {
    return fContent->Shortcut(button);
}

BButton* BAlert::ButtonAt(int32 index) const {
    return fContent->ButtonAt(index);
}

int32 BAlert::CountButtons() const {
    return fContent->CountButtons();
}

const char* BAlert::Text() const {
    return fContent->Text().c_str();
}

int32 BAlert::Go() {
    const std::shared_ptr<AlertAnswer> answer = fContent->SharedAnswer();
    if (AlertAnswer::ApplicationEnds()) {
        Quit();
        return AlertAnswer::kNone;
    }
    const AlertAsker asker;
    asker.ShowWindow();
    fContent->LayOut(asker);
    const BMessenger self(this);
    const bigtime_t start = system_time();
    Show();  // from here on it may be gone at any moment
    if (!answer->WaitForClose() && self.LockTarget())
        Quit();
    asker.DropInputSince(start);
    return answer->Button();
}

status_t BAlert::Go(BInvoker* invoker) {
    fContent->SetInvoker(invoker);
    fContent->LayOut(AlertAsker());
    Show();
    return B_OK;
}

bool BAlert::QuitRequested() {
    // The application asks its windows directly when it quits; the user's close box is a message.
    if (CurrentMessage() == nullptr)
        return true;
    const int32 button = fContent->ButtonOfShortcut(B_ESCAPE);
    if (button == AlertAnswer::kNone)
        return false;
    fContent->Answer(button);
    return true;
}

void BAlert::MessageReceived(BMessage* message) {
    int32 button = AlertAnswer::kNone;
    if (message->what != BPrivate::kAlertButton)
        BWindow::MessageReceived(message);
    else if (message->FindInt32("which", &button) == B_OK)
        fContent->Choose(button);
}

void BAlert::DispatchMessage(BMessage* message, BHandler* handler) {
    if (message->what != B_KEY_DOWN || !fContent->TakeKey(*message))
        BWindow::DispatchMessage(message, handler);
}
