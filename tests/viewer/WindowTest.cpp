#include "tests/viewer/WindowTest.h"

#include <app/Application.h>
#include <app/MessageQueue.h>
#include <app/Messenger.h>
#include <storage/Entry.h>

#include <filesystem>

#include "framework/MessageCodes.h"
#include "settings/DisplayOption.h"
#include "viewer/KeyDownFilter.h"

namespace {

// A message the view does not know and answers so, when all before it is done.
constexpr uint32 kEcho = 'echo';

constexpr char kTitle[] = "Lorivane";
constexpr char kTitleEnd[] = " - Lorivane";

}  // namespace

TestWindow::TestWindow(BRect frame)
    : BWindow(frame, "", B_DOCUMENT_WINDOW, B_ASYNCHRONOUS_CONTROLS) {
    BRect bounds = Bounds();
    bounds.top = kViewTop;
    fView = new TestView(bounds);
    AddChild(fView);
    AddCommonFilter(new TKeyDownFilter(fView));
}

void TestWindow::MessageReceived(BMessage* message) {
    if (message->what == kMsgAddHistory || message->what == kMsgRemoveHistory)
        fHistoryRequests.push_back(*message);
    else
        BWindow::MessageReceived(message);
}

WindowTest::WindowTest() {
    gPrefs = TPrefs();
    gPrefs.fDisplayOption = kDontFitAnything;
    gPrefs.fColors[kColorBackground] = kGray;
}

WindowTest::~WindowTest() {
    recording::TheRecordingDisplay().SetModifiers(0);
    if (fWindow != nullptr)
        QuitWindow();
    // What is decoded for nobody would be taken for lost by the sanitizers.
    EXPECT_TRUE(recording::WaitFor([] { return TThread::CountAbandoned() == 0; }));
    // What the view has sent to the application, which never runs.
    while (be_app != nullptr && std::unique_ptr<BMessage>(be_app->MessageQueue()->NextMessage())) {
    }
    gPrefs = TPrefs();
}

void WindowTest::Write(const std::string& name, const std::string& content) {
    write_text(Path(name), content);
}

void WindowTest::ShowWindow(BRect frame) {
    fWindow = new TestWindow(frame);
    fView = fWindow->fView;
    fWindow->Show();
    fScreen = recording::TheRecordingDisplay().WaitForWindow(kTitle);
    ASSERT_TRUE(fScreen);
}

void WindowTest::QuitWindow() {
    fWindow->Lock();
    fWindow->Quit();
    fWindow = nullptr;
    fView = nullptr;
}

void WindowTest::Open(const std::string& name) {
    BMessage message(B_REFS_RECEIVED);
    entry_ref ref;
    get_ref_for_path(Path(name).c_str(), &ref);
    message.AddRef("refs", &ref);
    Do(message);
}

void WindowTest::Post(uint32 command) {
    Post(BMessage(command));
}

void WindowTest::Post(const BMessage& message) {
    BMessage copy(message);
    ASSERT_EQ(BMessenger(fView).SendMessage(&copy), B_OK);
}

void WindowTest::Do(uint32 command) {
    Do(BMessage(command));
}

void WindowTest::Do(const BMessage& message) {
    Post(message);
    Settle();
}

void WindowTest::Settle() {
    ASSERT_TRUE(recording::WaitFor([&] {
        WaitForQueue();
        return !Locked([&] { return fView->IsLoadingInForeground(); });
    }));
}

void WindowTest::WaitForQueue() {
    BMessage echo(kEcho);
    BMessage reply;
    ASSERT_EQ(BMessenger(fView).SendMessage(&echo, &reply), B_OK);
}

void WindowTest::WaitForLoaders() {
    ASSERT_TRUE(recording::WaitFor([&] {
        Settle();
        return !Locked([&] { return fView->HasLoaders(); });
    }));
}

std::string WindowTest::Shown() {
    std::string title = Locked([&] { return std::string(fWindow->Title()); });
    if (!title.ends_with(kTitleEnd))
        return "";
    return title.substr(0, title.size() - std::size(kTitleEnd) + 1);
}

std::string WindowTest::StatusText(const std::string& field) {
    return Locked([&]() -> std::string {
        auto* view = dynamic_cast<BStringView*>(fWindow->FindView(field.c_str()));
        return view != nullptr ? view->Text() : "no such view";
    });
}

bool WindowTest::IsShown(const std::string& view) {
    return Locked([&] { return !fWindow->FindView(view.c_str())->IsHidden(fView); });
}

void WindowTest::Press(char key, uint32 modifiers, int32 number) {
    recording::TheRecordingDisplay().SetModifiers(modifiers);
    fScreen->PressKey(key, modifiers, number);
    Settle();
    recording::TheRecordingDisplay().SetModifiers(0);
}

bool WindowTest::IsCached(const std::string& name) {
    return Locked([&] {
        int32 slot = 0;
        return fView->IsCacheHit(fView->IndexOf(Path(name)), &slot);
    });
}

void WindowTest::SetKeyHeld(int32 key, bool held) {
    recording::TheRecordingDisplay().SetKeyHeld(key, held);
}
