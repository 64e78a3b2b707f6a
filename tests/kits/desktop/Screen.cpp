#include "tests/kits/desktop/Screen.h"

#include <gtest/gtest.h>

using namespace BPrivate;

namespace desktop_test {

namespace {

// Answered when all that was sent before has been kept.
constexpr uint32 kAreAllKept = 'kept';

}  // namespace

bool PumpUntil(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void Pump() {
    for (int i = 0; i < 4; ++i)
        QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Recorder::DispatchMessage(BMessage* message, BHandler*) {
    if (message->what == kAreAllKept) {
        (void)message->SendReply(B_REPLY);
        return;
    }
    const std::lock_guard lock(fLock);
    fMessages.push_back(*message);
}

std::vector<BMessage> Recorder::All(uint32 what) const {
    BMessage answer;
    EXPECT_EQ(BMessenger(this).SendMessage(kAreAllKept, &answer), B_OK);
    const std::lock_guard lock(fLock);
    std::vector<BMessage> found;
    for (const BMessage& message : fMessages) {
        if (message.what == what)
            found.push_back(message);
    }
    return found;
}

int Recorder::IndexOf(uint32 what) const {
    const std::lock_guard lock(fLock);
    int index = static_cast<int>(fMessages.size()) - 1;
    while (index >= 0 && fMessages[static_cast<size_t>(index)].what != what)
        index--;
    return index;
}

Screen::Screen(WindowSpec spec) : fRecorder(new Recorder) {
    fRecorder->Run();
    fWindow = TheDisplay().CreateWindow(spec, BMessenger(fRecorder));
    Pump();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle().toStdString() == spec.title)
            fWidget = widget;
    }
    if (fWidget == nullptr)
        ADD_FAILURE() << "no window was made";
}

Screen::~Screen() {
    fWindow.reset();
    Pump();
    fRecorder->Lock();
    fRecorder->Quit();
}

BMessage Screen::Expect(uint32 what, size_t count) {
    if (!PumpUntil([&] { return fRecorder->All(what).size() >= count; })) {
        ADD_FAILURE() << "message " << std::hex << what << " did not come";
        return BMessage();
    }
    return fRecorder->All(what)[count - 1];
}

void Screen::Show() {
    fWindow->Show();
    fWindow->Activate();
    Expect(B_WINDOW_ACTIVATED);
}

}  // namespace desktop_test
