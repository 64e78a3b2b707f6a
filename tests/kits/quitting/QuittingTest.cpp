#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <atomic>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <interface/Alert.h>
#include <interface/InterfaceDefs.h>
#include <interface/Window.h>
#include <kernel/OS.h>
#include <storage/FilePanel.h>
#include <thread>

#include "tests/recording_display/RecordingDisplay.h"

namespace {

constexpr uint32 kAsk = 'ask!';
constexpr int32 kNotAsked = -9;

/// What the alerts were answered, by who asked.
struct Answers {
    std::atomic<int32> application = kNotAsked;
    std::atomic<int32> window = kNotAsked;
    std::atomic<int32> thread = kNotAsked;
};

int32 Ask(const char* title) {
    auto* alert = new BAlert(title, "Really?", "No", "Yes");
    alert->SetShortcut(0, B_ESCAPE);
    return alert->Go();
}

class AskingWindow : public BWindow {
public:
    explicit AskingWindow(Answers& answers)
        : BWindow(BRect(10, 10, 99, 99), "asker", B_TITLED_WINDOW, 0), fAnswers(answers) {}
    void MessageReceived(BMessage* message) override {
        if (message->what == kAsk)
            fAnswers.window = Ask("of the window");
        else
            BWindow::MessageReceived(message);
    }

private:
    Answers& fAnswers;
};

/// Quits what the test gives it to do.
class AskingApplication : public BApplication {
public:
    explicit AskingApplication(Answers& answers)
        : BApplication("application/x-vnd.ZELKAN-Lorivane-Quitting"), fAnswers(answers),
          fWindow(new AskingWindow(answers)) {
        fWindow->Show();
    }
    void MessageReceived(BMessage* message) override {
        if (message->what == kAsk)
            fAnswers.application = Ask("of the application");
        else
            BApplication::MessageReceived(message);
    }
    bool QuitRequested() override {
        fAsked++;
        return fAgrees && BApplication::QuitRequested();
    }
    BWindow& Window() { return *fWindow; }

    std::atomic<bool> fAgrees = true;
    std::atomic<int> fAsked = 0;

private:
    Answers& fAnswers;
    AskingWindow* const fWindow;  // its own
};

/// Runs the application while the user (another thread) does something, and ends it if that did
/// not.
void RunWith(AskingApplication& application, const std::function<void()>& user) {
    std::thread does(user);
    application.Run();
    does.join();
}

std::shared_ptr<recording::Window> Shown(const char* title) {
    auto window = recording::TheRecordingDisplay().WaitForWindow(title);
    EXPECT_TRUE(window) << title;
    return window;
}

class Quitting : public testing::Test {
protected:
    Answers fAnswers;
};

}  // namespace

TEST_F(Quitting, IsNotHeldUpByAWindowThatWaits) {
    AskingApplication application(fAnswers);
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        Shown("of the window");
        application.PostMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(fAnswers.window, -1);
    EXPECT_TRUE(recording::TheRecordingDisplay().Windows().empty());
}

TEST_F(Quitting, ByASignalIsNotHeldUpByAnyoneWhoWaits) {
    AskingApplication application(fAnswers);
    std::thread thread;
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        Shown("of the window");
        application.PostMessage(kAsk);
        Shown("of the application");
        thread = std::thread([&] { fAnswers.thread = Ask("of a thread"); });
        Shown("of a thread");
        std::raise(SIGTERM);
    });
    thread.join();
    EXPECT_EQ(fAnswers.window, -1);
    EXPECT_EQ(fAnswers.application, -1);
    EXPECT_EQ(fAnswers.thread, -1);
    EXPECT_TRUE(recording::TheRecordingDisplay().Windows().empty());
}

TEST_F(Quitting, AtOnceIsNotHeldUpEither) {
    AskingApplication application(fAnswers);
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        Shown("of the window");
        application.PostMessage(kAsk);
        Shown("of the application");
        application.Quit();
    });
    EXPECT_EQ(fAnswers.window, -1);
    EXPECT_EQ(fAnswers.application, -1);
}

TEST_F(Quitting, WhoAsksThenIsAnsweredAtOnce) {
    AskingApplication application(fAnswers);
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        Shown("of the window");
        for (int i = 0; i < 5; i++)
            application.Window().PostMessage(kAsk);
        application.PostMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(fAnswers.window, -1);
}

TEST_F(Quitting, ThatIsRefusedLetsTheUserBeAskedAgain) {
    AskingApplication application(fAnswers);
    application.fAgrees = false;
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        Shown("of the window");
        application.PostMessage(B_QUIT_REQUESTED);
        EXPECT_TRUE(recording::WaitFor([&] { return fAnswers.window == -1; }));
        application.PostMessage(kAsk);
        Shown("of the application")->PressKey(B_ENTER);
        EXPECT_TRUE(recording::WaitFor([&] { return fAnswers.application == 1; }));
        application.fAgrees = true;
        application.PostMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(application.fAsked, 2);
}

TEST_F(Quitting, AnAnswerGivenBeforeItCounts) {
    AskingApplication application(fAnswers);
    RunWith(application, [&] {
        application.Window().PostMessage(kAsk);
        const auto alert = Shown("of the window");
        alert->PressKey(B_ESCAPE);
        EXPECT_TRUE(recording::WaitFor([&] { return fAnswers.window != kNotAsked; }));
        application.PostMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(fAnswers.window, 0);
}

TEST_F(Quitting, ClosesPanelsThatAreShownOrHidden) {
    AskingApplication application(fAnswers);
    BFilePanel shown;
    BFilePanel hidden;
    RunWith(application, [&] {
        shown.Show();
        Shown("Open");
        application.PostMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(shown.Window(), nullptr);
    EXPECT_EQ(hidden.Window(), nullptr);
    // Nothing happens from then on.
    shown.Show();
    shown.SetPanelDirectory("/");
    EXPECT_FALSE(shown.IsShowing());
    EXPECT_FALSE(shown.Target().IsValid());
    EXPECT_TRUE(recording::TheRecordingDisplay().Windows().empty());
}
