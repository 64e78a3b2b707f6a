#include "framework/LanguageChangedFilter.h"

#include <algorithm>
#include <app/Message.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "framework/BasicView.h"
#include "framework/BasicWindow.h"
#include "framework/MessageCodes.h"
#include "tests/framework/TestWindows.h"

namespace {

constexpr uint32 kEnd = 'end!';

class FilteringView : public TBasicView {
public:
    FilteringView(const char* name, TLog* log)
        : TBasicView(BRect(0, 0, 99, 99), name, B_FOLLOW_NONE, 0), fLog(log) {}

    void AttachedToWindow() override {
        TBasicView::AttachedToWindow();
        Window()->AddCommonFilter(new TLanguageChangedFilter(BMessenger(this)));
    }
    void LanguageChanged() override { fLog->Add(Name()); }

private:
    TLog* fLog;
};

class LoggingWindow : public TBasicWindow {
public:
    explicit LoggingWindow(TLog* log)
        : TBasicWindow(BRect(0, 0, 199, 199), "Languages", B_TITLED_WINDOW, 0), fLog(log) {}

    void LanguageChanged() override {
        fLog->Add("window");
        EXPECT_EQ(CurrentMessage()->HasBool(kFieldLanguageForwarded), fExpectMark);
    }
    void MessageReceived(BMessage* message) override {
        if (message->what == kEnd)
            fLog->Add("end");
        else
            TBasicWindow::MessageReceived(message);
    }

    bool fExpectMark = false;

private:
    TLog* fLog;
};

class LanguageChangedFilterTest : public testing::Test {
protected:
    LanguageChangedFilterTest() : fWindow(new LoggingWindow(&fLog)), fQuitter(fWindow) {}

    FilteringView* Add(const char* name) {
        auto* view = new FilteringView(name, &fLog);
        fWindow->AddChild(view);
        return view;
    }

    /// What the message makes happen, with all that it is forwarded as.
    std::vector<std::string> Post(const BMessage& message) {
        fWindow->Show();
        fWindow->PostMessage(&message);
        // The copies are queued while the message is handled; the first end is handled after it,
        // the second after them.
        EXPECT_TRUE(RoundTrip());
        EXPECT_TRUE(RoundTrip());
        std::vector<std::string> happened;
        for (const std::string& entry : fLog.Entries()) {
            if (entry != "end")
                happened.push_back(entry);
        }
        return happened;
    }

    bool RoundTrip() {
        const auto ends = [this] {
            const auto entries = fLog.Entries();
            return std::count(entries.begin(), entries.end(), "end");
        };
        const auto before = ends();
        fWindow->PostMessage(kEnd);
        return recording::WaitFor([&] { return ends() > before; });
    }

    TLog fLog;
    LoggingWindow* fWindow;
    TWindowQuitter fQuitter;
};

using Entries = std::vector<std::string>;

TEST_F(LanguageChangedFilterTest, IsForLanguageChangesOfAnySource) {
    const TLanguageChangedFilter filter{BMessenger()};
    EXPECT_FALSE(filter.FiltersAnyCommand());
    EXPECT_EQ(filter.Command(), uint32{'_BLC'});
    EXPECT_EQ(filter.MessageDelivery(), B_ANY_DELIVERY);
    EXPECT_EQ(filter.MessageSource(), B_ANY_SOURCE);
}

TEST_F(LanguageChangedFilterTest, EachViewAndTheWindowHearOnce) {
    Add("first");
    Add("second");
    EXPECT_EQ(Post(BMessage(kMsgLanguageChanged)), (Entries{"window", "first", "second"}));
}

TEST_F(LanguageChangedFilterTest, AMarkedMessageIsNotForwarded) {
    Add("first");
    Add("second");
    fWindow->fExpectMark = true;
    BMessage message(kMsgLanguageChanged);
    ASSERT_EQ(message.AddBool("LFSendFlag", true), B_OK);
    EXPECT_EQ(Post(message), (Entries{"window"}));
}

TEST_F(LanguageChangedFilterTest, OtherMessagesAreNotForwarded) {
    Add("first");
    EXPECT_EQ(Post(BMessage(kMsgOpen)), (Entries{}));
}

TEST_F(LanguageChangedFilterTest, AViewThatHasGoneIsNotMissed) {
    FilteringView* gone = Add("gone");
    Add("left");
    fWindow->RemoveChild(gone);
    delete gone;
    EXPECT_EQ(Post(BMessage(kMsgLanguageChanged)), (Entries{"window", "left"}));
}

TEST_F(LanguageChangedFilterTest, LeavesTheMessageAndItsTargetAlone) {
    TLanguageChangedFilter filter{BMessenger()};
    BMessage message(kMsgLanguageChanged);
    BHandler handler("handler");
    BHandler* target = &handler;
    EXPECT_EQ(filter.Filter(&message, &target), B_DISPATCH_MESSAGE);
    EXPECT_EQ(target, &handler);
    EXPECT_TRUE(message.IsEmpty());
}

TEST_F(LanguageChangedFilterTest, TheCopyCarriesWhatTheMessageCarried) {
    class CopyView : public FilteringView {
    public:
        using FilteringView::FilteringView;
        void MessageReceived(BMessage* message) override {
            if (message->what == kMsgLanguageChanged) {
                EXPECT_TRUE(message->GetBool("LFSendFlag", false));
                EXPECT_EQ(message->GetInt32("number", 0), 7);
            }
            FilteringView::MessageReceived(message);
        }
    };
    fWindow->AddChild(new CopyView("view", &fLog));
    BMessage message(kMsgLanguageChanged);
    ASSERT_EQ(message.AddInt32("number", 7), B_OK);
    EXPECT_EQ(Post(message), (Entries{"window", "view"}));
}

}  // namespace
