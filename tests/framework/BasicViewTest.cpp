#include "framework/BasicView.h"

#include <app/Message.h>
#include <gtest/gtest.h>

#include "framework/BasicWindow.h"
#include "framework/MessageCodes.h"
#include "tests/framework/TestWindows.h"

namespace {

std::string at(const char* what, BPoint where) {
    return std::string(what) + " " + std::to_string(static_cast<int>(where.x)) + "," +
        std::to_string(static_cast<int>(where.y));
}

class LoggingView : public TBasicView {
public:
    explicit LoggingView(TLog* log)
        : TBasicView(BRect(10, 20, 109, 119), "LoggingView", B_FOLLOW_NONE, B_WILL_DRAW),
          fLog(log) {}

    void LanguageChanged() override { fLog->Add("language"); }
    void MouseClickLeftDouble(BPoint where) override { fLog->Add(at("left double", where)); }
    void MouseClickLeftSingle(BPoint where) override { fLog->Add(at("left single", where)); }
    void MouseClickRightDouble(BPoint where) override { fLog->Add(at("right double", where)); }
    void MouseClickRightSingle(BPoint where) override { fLog->Add(at("right single", where)); }
    void MouseDownLeft(BPoint where) override { fLog->Add(at("left down", where)); }
    void MouseDownRight(BPoint where) override { fLog->Add(at("right down", where)); }
    void MouseDragLeft(BPoint where) override { fLog->Add(at("left drag", where)); }
    void MouseDragRight(BPoint where) override { fLog->Add(at("right drag", where)); }

private:
    TLog* fLog;
};

class BasicViewTest : public testing::Test {
protected:
    BasicViewTest()
        : fWindow(new TBasicWindow(BRect(0, 0, 299, 299), "Basic view", B_TITLED_WINDOW, 0)),
          fQuitter(fWindow) {
        fView = new LoggingView(&fLog);
        fWindow->AddChild(fView);
        fWindow->Show();
        fScreen = recording::TheRecordingDisplay().WaitForWindow("Basic view");
    }

    void Press(BPoint where, int32 buttons, int32 clicks) {
        fScreen->MouseDown(where, buttons, clicks);
    }
    void Click(BPoint where, int32 buttons, int32 clicks) {
        Press(where, buttons, clicks);
        fScreen->MouseUp(where);
    }
    /// Everything logged so far, once all that was sent has been handled.
    std::vector<std::string> Logged() {
        fWindow->PostMessage(kMsgLanguageChanged, fView);
        EXPECT_TRUE(recording::WaitFor([&] {
            const auto entries = fLog.Entries();
            return !entries.empty() && entries.back() == "language";
        }));
        auto entries = fLog.Entries();
        entries.pop_back();
        return entries;
    }

    TLog fLog;
    TBasicWindow* fWindow;
    TWindowQuitter fQuitter;
    LoggingView* fView;
    std::shared_ptr<recording::Window> fScreen;
};

using Entries = std::vector<std::string>;

TEST_F(BasicViewTest, FiveQuickClicksAreSingleDoubleNothingSingleDouble) {
    for (int32 clicks = 1; clicks <= 5; clicks++)
        Click(BPoint(15, 30), B_PRIMARY_MOUSE_BUTTON, clicks);
    EXPECT_EQ(Logged(),
        (Entries{"left down 5,10", "left single 5,10", "left double 5,10", "left down 5,10",
            "left single 5,10", "left double 5,10"}));
}

TEST_F(BasicViewTest, TheSecondaryButtonClicksToo) {
    Click(BPoint(15, 30), B_SECONDARY_MOUSE_BUTTON, 1);
    Click(BPoint(15, 30), B_SECONDARY_MOUSE_BUTTON, 2);
    Click(BPoint(15, 30), B_SECONDARY_MOUSE_BUTTON, 3);
    EXPECT_EQ(Logged(), (Entries{"right down 5,10", "right single 5,10", "right double 5,10"}));
}

TEST_F(BasicViewTest, OtherButtonsDoNothing) {
    Click(BPoint(15, 30), B_TERTIARY_MOUSE_BUTTON, 1);
    Click(BPoint(15, 30), B_PRIMARY_MOUSE_BUTTON | B_SECONDARY_MOUSE_BUTTON, 1);
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(BasicViewTest, AMoveOfTwoInBothDirectionsIsStillAClick) {
    Press(BPoint(50, 50), B_PRIMARY_MOUSE_BUTTON, 1);
    fScreen->MouseMoved(BPoint(52, 52), B_PRIMARY_MOUSE_BUTTON);
    fScreen->MouseUp(BPoint(52, 52));
    EXPECT_EQ(Logged(), (Entries{"left down 40,30", "left single 42,32"}));
}

TEST_F(BasicViewTest, AMoveOfThreeInBothDirectionsIsOneDragAndNoClick) {
    Press(BPoint(50, 50), B_PRIMARY_MOUSE_BUTTON, 1);
    fScreen->MouseMoved(BPoint(53, 53), B_PRIMARY_MOUSE_BUTTON);
    fLog.WaitFor(2);  // or the next move might take its place in the queue
    fScreen->MouseMoved(BPoint(80, 80), B_PRIMARY_MOUSE_BUTTON);
    fScreen->MouseUp(BPoint(80, 80));
    EXPECT_EQ(Logged(), (Entries{"left down 40,30", "left drag 43,33"}));
}

TEST_F(BasicViewTest, ADragGoesOnOutsideOfTheView) {
    Press(BPoint(50, 50), B_SECONDARY_MOUSE_BUTTON, 1);
    fScreen->MouseMoved(BPoint(250, 250), B_SECONDARY_MOUSE_BUTTON);
    fScreen->MouseUp(BPoint(250, 250));
    // The press is over: the next one counts from anew.
    Click(BPoint(15, 30), B_PRIMARY_MOUSE_BUTTON, 1);
    EXPECT_EQ(Logged(),
        (Entries{"right down 40,30", "right drag 240,230", "left down 5,10", "left single 5,10"}));
}

TEST_F(BasicViewTest, MovesWithoutAPressAreNoDrag) {
    fScreen->MouseMoved(BPoint(20, 30));
    fScreen->MouseMoved(BPoint(80, 90));
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(BasicViewTest, AReleaseWithoutAPressIsNoClick) {
    with_lock(fWindow, [&] {
        fView->MouseUp(BPoint(1, 1));
        fView->MouseMoved(BPoint(50, 50), B_INSIDE_VIEW, nullptr);
    });
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(BasicViewTest, APressWithoutItsFieldsIsNoClick) {
    BMessage press(B_MOUSE_DOWN);
    press.AddPoint("be:window_where", BPoint(15, 30));
    fScreen->Send(press);
    fScreen->MouseUp(BPoint(15, 30));
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(BasicViewTest, HearsOfTheLanguage) {
    fWindow->PostMessage(kMsgLanguageChanged, fView);
    EXPECT_EQ(fLog.WaitFor(1), Entries{"language"});
}

}  // namespace
