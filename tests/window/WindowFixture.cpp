#include "tests/window/WindowFixture.h"

#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"

namespace {

// A message that nobody knows is answered when all before it is done.
constexpr uint32 kEcho = 'echo';

}  // namespace

WindowFixture::WindowFixture() : fApp("application/x-vnd.ZELKAN-Test") {
    gPrefs = TPrefs();
    // Takes the place of the one of the test before.
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    recording::TheRecordingDisplay().SetMainScreenFrame({0, 0, 1919, 1079});
}

WindowFixture::~WindowFixture() {
    if (fWindow != nullptr && fWindow->Lock())
        fWindow->Quit();
    gPrefs = TPrefs();
    recording::TheRecordingDisplay().SetMainScreenFrame({0, 0, 1919, 1079});
}

void WindowFixture::Open(BRect frame) {
    fWindow = new TLorivaneWindow(frame);
    fScreen = recording::TheRecordingDisplay().Windows().back();
}

void WindowFixture::Show() {
    fWindow->Show();
    Settle();
}

void WindowFixture::Do(const BMessage& message) {
    BMessage copy(message);
    ASSERT_EQ(BMessenger(fWindow).SendMessage(&copy), B_OK);
    Settle();
}

// Twice: the window passes messages on to its view.
void WindowFixture::Settle() {
    for (int i = 0; i < 2; ++i) {
        BMessage reply;
        ASSERT_EQ(BMessenger(fWindow).SendMessage(kEcho, &reply), B_OK);
    }
}

uint32 WindowFixture::TakeFromApplication() {
    std::unique_ptr<BMessage> message(fApp.MessageQueue()->NextMessage());
    return message ? message->what : 0;
}
