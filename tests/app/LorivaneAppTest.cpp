#include <app/AppDefs.h>
#include <app/Message.h>
#include <app/MessageFilter.h>
#include <app/Messenger.h>

#include "framework/MessageCodes.h"
#include "framework/Version.h"
#include "iap/IAPItemAccKeyFormat.h"
#include "iap/InterAppPrefs.h"
#include "settings/ExitStates.h"
#include "tests/app/AppFixture.h"

namespace {

/// Sees every message of a window, and who it was for, and lets it pass.
class TSpyFilter : public BMessageFilter {
public:
    explicit TSpyFilter(TLog* log) : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE), fLog(log) {}

    filter_result Filter(BMessage* message, BHandler** target) override {
        const bool isOurs = message->HasInt32("tag") || message->what == B_REFS_RECEIVED;
        if (isOurs)
            fLog->Add(Spelling(message->what) + (*target == Looper() ? " window" : " view"));
        return B_DISPATCH_MESSAGE;
    }

    static std::string Spelling(uint32 code) {
        return {static_cast<char>(code >> 24), static_cast<char>(code >> 16),
            static_cast<char>(code >> 8), static_cast<char>(code)};
    }

private:
    TLog* fLog;
};

/// Hears of every change that the store takes.
class TObserver : public BLooper {
public:
    explicit TObserver(TLog* log) : fLog(log) { Run(); }
    void MessageReceived(BMessage* message) override {
        fLog->Add(message->GetString("AccKeyFormat2", "none"));
    }

private:
    TLog* fLog;
};

class LorivaneAppTest : public AppFixture {
protected:
    void WindowMade() override {
        with_lock(fWindow, [&] { fWindow->AddCommonFilter(new TSpyFilter(&fLog)); });
    }

    TLog fLog;
};

TEST_F(LorivaneAppTest, OpensTheMainWindowAtTheSavedFrame) {
    gExitStates.fWindowFrame = BRect(120, 130, 620, 530);
    RunApp([](recording::Window& screen) {
        EXPECT_EQ(screen.Frame(), BRect(120, 130, 620, 530));
        EXPECT_EQ(screen.Spec().look, B_DOCUMENT_WINDOW_LOOK);
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
}

TEST_F(LorivaneAppTest, ShowsAnEmptyWindowWithoutFiles) {
    RunApp([this](recording::Window&) {
        EXPECT_EQ(with_lock(fWindow, [&] { return fWindow->CurrentImage(); }), nullptr);
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
}

TEST_F(LorivaneAppTest, QuitsWhenTheMainWindowIsClosedAndRemembersItsFrame) {
    gExitStates.fWindowFrame = BRect(120, 130, 620, 530);
    RunApp([this](recording::Window& screen) {
        screen.UserMove(BPoint(200, 210));
        screen.UserResize(444, 333);
        const BRect expected(200, 210, 644, 543);
        EXPECT_TRUE(recording::WaitFor(
            [&] { return with_lock(fWindow, [&] { return fWindow->Frame(); }) == expected; }));
        screen.PressCloseBox();
    });
    EXPECT_EQ(gExitStates.fWindowFrame, BRect(200, 210, 644, 543));
}

TEST_F(LorivaneAppTest, RelaysPreferenceNoticesToTheMainWindowAndThatToTheView) {
    constexpr uint32 kNotices[] = {kPrefDisplayOption, kPrefEnableComment, kPrefEnablePreload,
        kPrefCommentAlign, kPrefCommentEncoding, kPrefCommentFontFamily, kPrefCommentFontSize,
        kPrefCommentMargin, kPrefCommentPadding, kPrefCommentFileExts, kPrefColors};
    std::vector<std::string> expected;
    for (const uint32 notice : kNotices) {
        expected.push_back(TSpyFilter::Spelling(notice) + " window");
        expected.push_back(TSpyFilter::Spelling(notice) + " view");
    }
    RunApp([&](recording::Window&) {
        size_t relayed = 0;
        for (const uint32 notice : kNotices) {
            BMessage message(notice);
            message.AddInt32("tag", 1);
            EXPECT_EQ(BMessenger(be_app).SendMessage(&message), B_OK);
            relayed += 2;
            fLog.WaitFor(relayed);
        }
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
    EXPECT_EQ(fLog.Entries(), expected);
}

TEST_F(LorivaneAppTest, RelaysFilesToTheMainWindowAndThatToTheView) {
    RunApp([this](recording::Window&) {
        BMessage message(B_REFS_RECEIVED);
        EXPECT_EQ(BMessenger(be_app).SendMessage(&message), B_OK);
        EXPECT_EQ(fLog.WaitFor(2), (std::vector<std::string>{"_RRC window", "_RRC view"}));
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
}

TEST_F(LorivaneAppTest, TakesASharedPreferenceOverBeforeItTellsTheMainWindow) {
    constexpr char kItem[] = "AccKeyFormat2";
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    // Of another application's, so that nothing is saved here.
    BMessage change(kMsgSharedItemChanged);
    change.AddInt32("tag", 1);
    change.AddString(kFieldSharedApp, "application/x-vnd.ZELKAN-Other");
    change.AddString(kFieldSharedItem, kItem);
    RunApp([&](recording::Window&) {
        size_t relayed = 0;
        for (const char* format : {"\1a) ", "", "\2(a)"}) {
            change.RemoveName(kItem);
            change.AddString(kItem, format);
            EXPECT_EQ(BMessenger(be_app).SendMessage(&change), B_OK);
            fLog.WaitFor(++relayed);
            std::string taken = "nothing";
            EXPECT_EQ(gIAPs.GetString(kItem, &taken), B_OK);
            EXPECT_EQ(taken, format);
        }

        // A change that the store does not take is passed on all the same.
        change.RemoveName(kItem);
        EXPECT_EQ(BMessenger(be_app).SendMessage(&change), B_OK);
        change.ReplaceString(kFieldSharedItem, "Unknown");
        EXPECT_EQ(BMessenger(be_app).SendMessage(&change), B_OK);
        EXPECT_EQ(fLog.WaitFor(5), std::vector<std::string>(5, "_Sic window"));
        std::string kept;
        EXPECT_EQ(gIAPs.GetString(kItem, &kept), B_OK);
        EXPECT_EQ(kept, "\2(a)");
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
}

TEST_F(LorivaneAppTest, TakesOnlyTheLastOfTheChangesThatWait) {
    constexpr char kItem[] = "AccKeyFormat2";
    (void)gIAPs.AddItem(new TIAPItemAccKeyFormat);
    const auto change = [&](const char* application, const char* format) {
        BMessage message(kMsgSharedItemChanged);
        message.AddString(kFieldSharedApp, application);
        message.AddString(kFieldSharedItem, kItem);
        if (format != nullptr)
            message.AddString(kItem, format);
        return message;
    };
    TLog taken;
    auto* observer = new TObserver(&taken);
    (void)gIAPs.AddObserver(BMessenger(observer));
    RunApp([&](recording::Window&) {
        ASSERT_TRUE(be_app->Lock());
        const BMessenger app(be_app);
        for (const char* format : {"\1a) ", "", "\1a - "}) {
            BMessage message = change("application/x-vnd.ZELKAN-Other", format);
            EXPECT_EQ(app.SendMessage(&message), B_OK);
        }
        // Another application's change is one of its own, and one without a value overtakes none.
        BMessage another = change("application/x-vnd.ZELKAN-Third", "\2(a)");
        EXPECT_EQ(app.SendMessage(&another), B_OK);
        BMessage empty = change("application/x-vnd.ZELKAN-Third", nullptr);
        EXPECT_EQ(app.SendMessage(&empty), B_OK);
        be_app->Unlock();
        EXPECT_EQ(taken.WaitFor(2), (std::vector<std::string>{"\1a - ", "\2(a)"}));
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
    ASSERT_TRUE(observer->Lock());
    observer->Quit();
    EXPECT_EQ(taken.Entries().size(), 2U);
}

TEST_F(LorivaneAppTest, AnswersWhatItDoesNotKnow) {
    RunApp([this](recording::Window&) {
        BMessage unknown('unkn');
        unknown.AddInt32("tag", 1);
        BMessage reply;
        EXPECT_EQ(BMessenger(be_app).SendMessage(&unknown, &reply), B_OK);
        EXPECT_EQ(reply.what, static_cast<uint32>(B_MESSAGE_NOT_UNDERSTOOD));
        EXPECT_TRUE(fLog.Entries().empty());
        BMessenger(be_app).SendMessage(B_QUIT_REQUESTED);
    });
}

TEST_F(LorivaneAppTest, MayBeAskedToQuitManyTimes) {
    RunApp([](recording::Window& screen) {
        for (int i = 0; i < 20; i++) {
            screen.PressCloseBox();
            be_app_messenger.SendMessage(B_QUIT_REQUESTED);
        }
    });
}

}  // namespace
