#include <app/AppDefs.h>
#include <app/Application.h>
#include <app/Message.h>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <interface/Window.h>
#include <storage/Entry.h>

#include "kits/app/CommandLine.h"
#include "tests/kits/app/Waiting.h"

namespace {

constexpr char kSignature[] = "application/x-vnd.Test-Application";

class TestApplication : public BApplication {
public:
    explicit TestApplication(std::function<void(TestApplication&)> ready = {})
        : BApplication(kSignature), fReady(std::move(ready)) {}

    void ReadyToRun() override {
        fJournal.Write('redy');
        if (fReady)
            fReady(*this);
        else
            PostMessage(B_QUIT_REQUESTED);
    }
    void RefsReceived(BMessage* message) override {
        fJournal.Write('refs');
        fRemote = message->IsSourceRemote();
        entry_ref ref;
        for (int32 i = 0; message->FindRef("refs", i, &ref) == B_OK; ++i)
            fNames.emplace_back(ref.name);
    }
    void ArgvReceived(int32 count, char** words) override {
        fJournal.Write('argv');
        EXPECT_EQ(words[count], nullptr);
        for (int32 i = 0; i < count; ++i)
            fWords.emplace_back(words[i]);
    }
    void AboutRequested() override { fJournal.Write('abou'); }
    void Pulse() override { fJournal.Write('puls'); }
    void MessageReceived(BMessage* message) override { fJournal.Write(message->what); }

    std::vector<uint32> Commands() const { return fJournal.Commands(); }
    Journal& TheJournal() { return fJournal; }

    std::vector<std::string> fNames;
    std::vector<std::string> fWords;
    bool fRemote = false;

private:
    std::function<void(TestApplication&)> fReady;
    Journal fJournal;
};

/// Counts how many are there, and says whether it agrees to quit.
class TestWindow : public BWindow {
public:
    TestWindow(std::atomic<int>& alive, bool agrees)
        : BWindow({0, 0, 99, 99}, "test", B_TITLED_WINDOW, 0), fAlive(alive), fAgrees(agrees) {
        ++fAlive;
    }
    ~TestWindow() override { --fAlive; }
    bool QuitRequested() override { return fAgrees; }

private:
    std::atomic<int>& fAlive;
    bool fAgrees;
};

class ApplicationTest : public testing::Test {
protected:
    void SetUp() override { BPrivate::SetCommandLine({"test"}); }
};

}  // namespace

TEST_F(ApplicationTest, RunsAndReturns) {
    TestApplication app;
    EXPECT_EQ(app.InitCheck(), B_OK);
    EXPECT_EQ(be_app, &app);
    EXPECT_STREQ(app.Name(), "x-vnd.Test-Application");
    EXPECT_TRUE(be_app_messenger.IsValid());
    EXPECT_EQ(BMessenger(kSignature), be_app_messenger);
    EXPECT_GT(app.Run(), 0);
    EXPECT_EQ(app.Commands(), (std::vector<uint32>{'redy'}));
    EXPECT_EQ(be_app_messenger.SendMessage('late'), B_BAD_PORT_ID);
    EXPECT_FALSE(be_app_messenger.LockTarget());
}

TEST_F(ApplicationTest, GoesWithItsObject) {
    { TestApplication app; }
    EXPECT_EQ(be_app, nullptr);
    EXPECT_FALSE(be_app_messenger.IsValid());
    TestApplication again;
    EXPECT_EQ(be_app, &again);
    EXPECT_GT(again.Run(), 0);
}

TEST_F(ApplicationTest, BadSignaturesAndSecondsAreRefused) {
    status_t status = B_OK;
    {
        BApplication app("no signature", &status);
        EXPECT_EQ(status, B_BAD_VALUE);
        EXPECT_EQ(app.Run(), B_BAD_VALUE);
    }
    TestApplication app;
    {
        BApplication second(kSignature, &status);
        EXPECT_EQ(status, B_ALREADY_RUNNING);
        EXPECT_EQ(second.Run(), B_ALREADY_RUNNING);
    }
    EXPECT_EQ(be_app, &app);
}

TEST_F(ApplicationTest, RunsInAThreadOfItsOwn) {
    const thread_id main = find_thread(nullptr);
    thread_id own = main;
    TestApplication app([&own](TestApplication& self) {
        own = find_thread(nullptr);
        EXPECT_TRUE(self.IsLocked());
        self.Quit();
    });
    EXPECT_EQ(app.Run(), own);
    EXPECT_NE(own, main);
}

TEST_F(ApplicationTest, QuitsWhenTheProcessIsToldToEnd) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        TestApplication app([signal](TestApplication&) { std::raise(signal); });
        EXPECT_GT(app.Run(), 0);
        struct sigaction action;
        ASSERT_EQ(sigaction(signal, nullptr, &action), 0);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << signal;
    }
}

TEST_F(ApplicationTest, LeavesIgnoredSignalsIgnored) {
    std::signal(SIGHUP, SIG_IGN);
    TestApplication app([](TestApplication& self) {
        std::raise(SIGHUP);
        self.PostMessage('_own');
        self.PostMessage(B_QUIT_REQUESTED);
    });
    app.Run();
    EXPECT_EQ(app.Commands(), (std::vector<uint32>{'redy', '_own'}));
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

TEST_F(ApplicationTest, DispatchesToItsHooks) {
    TestApplication app([](TestApplication& self) {
        self.PostMessage(B_ABOUT_REQUESTED);
        self.PostMessage('_own');
        self.PostMessage(B_QUIT_REQUESTED);
        self.PostMessage('late');
    });
    app.Run();
    EXPECT_EQ(app.Commands(), (std::vector<uint32>{'redy', 'abou', '_own'}));
}

TEST_F(ApplicationTest, FilesOfTheCommandLineComeBeforeReadyToRun) {
    const auto folder = std::filesystem::temp_directory_path() / "lorivane-application-test";
    std::filesystem::create_directory(folder);
    for (const char* name : {"one.png", "-two.png"})
        std::ofstream(folder / name) << "x";
    const std::string one = folder / "one.png";
    BPrivate::SetCommandLine({"path/lorivane", one, "/none", "--bad", "--", one, folder});

    TestApplication app;
    testing::internal::CaptureStderr();
    app.Run();
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "lorivane: /none: No such file or directory\n"
        "lorivane: unknown option: --bad\n");
    EXPECT_EQ(app.Commands(), (std::vector<uint32>{'argv', 'refs', 'redy'}));
    EXPECT_EQ(
        app.fNames, (std::vector<std::string>{"one.png", "one.png", "lorivane-application-test"}));
    EXPECT_EQ(app.fWords.size(), 7U);
    EXPECT_TRUE(app.fRemote);
    std::filesystem::remove_all(folder);
}

TEST_F(ApplicationTest, NothingButErrorsIsNoFile) {
    BPrivate::SetCommandLine({"lorivane", "/none"});
    TestApplication app;
    testing::internal::CaptureStderr();
    app.Run();
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(), "lorivane: /none: No such file or directory\n");
    EXPECT_EQ(app.Commands(), (std::vector<uint32>{'argv', 'redy'}));
}

TEST_F(ApplicationTest, Pulses) {
    TestApplication app([](TestApplication& self) { self.SetPulseRate(1000); });
    std::thread quitter([&app] {
        EXPECT_TRUE(app.TheJournal().WaitForCount(4));
        QuitLooper(&app);
    });
    app.Run();
    quitter.join();
    EXPECT_EQ(app.Commands()[1], uint32('puls'));
}

TEST_F(ApplicationTest, QuitBeforeRunEndsRun) {
    TestApplication app;
    app.Quit();
    app.Run();
    EXPECT_TRUE(app.Commands().empty());
}

TEST_F(ApplicationTest, QuitClosesEveryWindow) {
    std::atomic<int> alive = 0;
    TestApplication app([&alive](TestApplication& self) {
        (new TestWindow(alive, false))->Show();
        new TestWindow(alive, false);  // made here and never shown
        (new TestWindow(alive, true))->Show();
        EXPECT_EQ(self.CountWindows(), 2);
        self.Quit();
    });
    app.Run();
    EXPECT_EQ(alive, 0);
}

TEST_F(ApplicationTest, QuitRequestedAsksEveryWindow) {
    std::atomic<int> alive = 0;
    TestApplication app([&alive](TestApplication& self) {
        (new TestWindow(alive, true))->Show();
        auto* stubborn = new TestWindow(alive, false);
        stubborn->Show();
        EXPECT_FALSE(self.QuitRequested());
        EXPECT_EQ(self.CountWindows(), 1);
        EXPECT_EQ(self.WindowAt(0), stubborn);
        QuitLooper(stubborn);
        EXPECT_TRUE(self.QuitRequested());
        self.Quit();
    });
    app.Run();
    EXPECT_EQ(alive, 0);
}

// A window that waits for the application's answer while the application waits for its end.
TEST_F(ApplicationTest, WindowsThatAskAreAnswered) {
    class Asking : public TestWindow {
    public:
        Asking(std::atomic<int>& alive, Gate& asked) : TestWindow(alive, true), fAsked(asked) {}
        void MessageReceived(BMessage* message) override {
            if (message->what != 'ask?')
                return TestWindow::MessageReceived(message);
            fAsked.Open();
            BMessage reply;
            be_app_messenger.SendMessage('app?', &reply);
        }

    private:
        Gate& fAsked;
    };
    std::atomic<int> alive = 0;
    Gate asked;
    TestApplication app([&](TestApplication& self) {
        auto* window = new Asking(alive, asked);
        window->Show();
        window->PostMessage('ask?');
        EXPECT_TRUE(asked.Wait());
        self.Quit();
    });
    app.Run();
    EXPECT_EQ(alive, 0);
}
