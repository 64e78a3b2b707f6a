#include <app/AppDefs.h>
#include <app/Invoker.h>
#include <app/Message.h>
#include <gmock/gmock.h>
#include <interface/Alert.h>
#include <interface/Button.h>
#include <interface/InterfaceDefs.h>
#include <thread>

#include "kits/interface/AlertAnswer.h"
#include "tests/kits/dialogs/Asking.h"

using namespace BPrivate;
using recording::Window;

namespace {

BAlert* MakeAlert(const char* button0 = "No", const char* button1 = "Maybe",
    const char* button2 = "Yes", alert_type type = B_WARNING_ALERT) {
    return new BAlert("title", "Really?", button0, button1, button2, B_WIDTH_AS_USUAL, type);
}

/// An alert with three buttons, on the screen.
class AlertTest : public testing::Test {
protected:
    void Ask(BAlert* alert = MakeAlert()) {
        fAsking = std::make_unique<Asking>(alert);
        fScreen = fAsking->Screen();
        ASSERT_TRUE(fScreen);
    }
    int32 Answer() { return fAsking->Answer(); }

    ControlPlace PlaceOf(const char* name) const {
        const auto control = fScreen->FindControl(name);
        EXPECT_TRUE(control.has_value()) << name;
        return control.has_value() ? control->place : ControlPlace();
    }
    /// The label of the button that has the keyboard.
    std::string Focused() const {
        for (const recording::Control& control : fScreen->Controls()) {
            if (control.place.focused)
                return control.place.name;
        }
        return "";
    }
    bool WaitFocused(const char* label) const {
        return recording::WaitFor([&] { return Focused() == label; });
    }
    bool IsOpen() {
        fAsking->Settle();
        return fScreen->IsOpen();
    }

    std::unique_ptr<Asking> fAsking;
    std::shared_ptr<Window> fScreen;
};

}  // namespace

TEST_F(AlertTest, ShowsItsPartsInAWindowThatKeepsNobodyFromTheOthers) {
    Ask();
    EXPECT_EQ(fScreen->Spec().look, B_MODAL_WINDOW_LOOK);
    EXPECT_EQ(fScreen->Spec().feel, B_FLOATING_APP_WINDOW_FEEL);
    EXPECT_EQ(fScreen->Spec().flags & B_NOT_CLOSABLE, 0U);
    const auto text = fScreen->FindControl("Really?");
    ASSERT_TRUE(text.has_value());
    EXPECT_EQ(std::get<AlertTextState>(text->state).text, "Really?");
    EXPECT_EQ(std::get<AlertTextState>(text->state).type, B_WARNING_ALERT);
    EXPECT_FALSE(text->place.navigable);
    const BRect no = PlaceOf("No").frame;
    const BRect maybe = PlaceOf("Maybe").frame;
    const BRect yes = PlaceOf("Yes").frame;
    EXPECT_LT(no.right, maybe.left);
    EXPECT_LT(maybe.right, yes.left);
    EXPECT_GT(yes.top, text->place.frame.bottom);
    EXPECT_TRUE(std::get<ButtonState>(fScreen->FindControl("Yes")->state).isDefault);
    EXPECT_FALSE(std::get<ButtonState>(fScreen->FindControl("No")->state).isDefault);
    EXPECT_EQ(Focused(), "Yes");
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);
    EXPECT_TRUE(recording::WaitFor([&] { return !fScreen->IsOpen(); }));
}

TEST_F(AlertTest, AButtonIsTheAnswer) {
    for (const auto& [label, index] :
        {std::pair("No", 0), std::pair("Maybe", 1), std::pair("Yes", 2)}) {
        Ask();
        const auto button = fScreen->FindControl(label);
        fScreen->SetValue(button->id, 1);
        fScreen->SetValue(button->id, 1);  // too late
        EXPECT_EQ(Answer(), index);
    }
}

TEST_F(AlertTest, WithoutALabelThereIsAnOk) {
    Ask(new BAlert(nullptr, nullptr, nullptr, "ignored"));
    EXPECT_TRUE(fScreen->FindControl("OK").has_value());
    EXPECT_FALSE(fScreen->FindControl("ignored").has_value());
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, ANullLabelEndsTheList) {
    BAlert* alert = MakeAlert("One", nullptr, "Three");
    EXPECT_EQ(alert->CountButtons(), 1);
    EXPECT_EQ(alert->ButtonAt(1), nullptr);
    EXPECT_EQ(alert->ButtonAt(-1), nullptr);
    EXPECT_STREQ(alert->ButtonAt(0)->Label(), "One");
    EXPECT_STREQ(alert->Text(), "Really?");
    Ask(alert);
    EXPECT_FALSE(fScreen->FindControl("Three").has_value());
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, ShortcutsPressTheirButtons) {
    struct Case {
        char key;
        uint32 modifiers;
        int32 answer;
    };
    for (const Case& c : {Case{'n', 0, 0}, Case{'N', B_SHIFT_KEY, 0}, Case{'m', B_CONTROL_KEY, 1},
             Case{B_ESCAPE, 0, 2}, Case{B_ESCAPE, B_OPTION_KEY | B_SHIFT_KEY, 2}}) {
        BAlert* alert = MakeAlert();
        alert->SetShortcut(0, 'N');
        alert->SetShortcut(1, 'm');
        alert->SetShortcut(2, B_ESCAPE);
        EXPECT_EQ(alert->Shortcut(0), 'N');
        Ask(alert);
        fScreen->PressKey(c.key, c.modifiers);
        EXPECT_EQ(Answer(), c.answer) << c.key;
    }
}

TEST_F(AlertTest, AKeyThatIsNoShortcutDoesNothing) {
    BAlert* alert = MakeAlert();
    alert->SetShortcut(0, 'n');
    alert->SetShortcut(1, 'm');
    alert->SetShortcut(1, 0);
    alert->SetShortcut(3, 'x');
    alert->SetShortcut(-1, 'x');
    EXPECT_EQ(alert->Shortcut(3), 0);
    EXPECT_EQ(alert->Shortcut(-1), 0);
    Ask(alert);
    for (const char key : {'m', 'x', 'y', static_cast<char>(B_ESCAPE), '\0'})
        fScreen->PressKey(key);
    fScreen->PressKey('q', B_COMMAND_KEY);
    EXPECT_TRUE(IsOpen());
    fScreen->PressKey('n');
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, ACommandIsNoAnswer) {
    BAlert* alert = MakeAlert();
    alert->SetShortcut(0, 'n');
    alert->SetShortcut(1, 'a');
    Ask(alert);
    for (const char key : {'a', 'n', 'A'})
        fScreen->PressKey(key, B_COMMAND_KEY);
    fScreen->PressKey('a', B_COMMAND_KEY | B_SHIFT_KEY | B_CONTROL_KEY);
    EXPECT_TRUE(IsOpen());
    fScreen->PressKey('n');
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, AKeyThatWasHeldBeforeIsNoAnswer) {
    BAlert* alert = MakeAlert();
    alert->SetShortcut(0, 'n');
    Ask(alert);
    for (const char key : {'n', static_cast<char>(B_ENTER)}) {
        BMessage held(B_KEY_DOWN);
        (void)held.AddInt32("raw_char", key);
        (void)held.AddString("bytes", std::string(1, key).c_str());
        (void)held.AddInt32("be:key_repeat", 3);
        fScreen->Send(held);
    }
    EXPECT_TRUE(IsOpen());
    fScreen->PressKey('n');
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, TabAndArrowsGoFromButtonToButton) {
    Ask();
    EXPECT_EQ(Focused(), "Yes");
    fScreen->PressKey(B_LEFT_ARROW);
    EXPECT_TRUE(WaitFocused("Maybe"));
    fScreen->PressKey(B_UP_ARROW);
    EXPECT_TRUE(WaitFocused("No"));
    fScreen->PressKey(B_LEFT_ARROW);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Focused(), "No");
    fScreen->PressKey(B_RIGHT_ARROW);
    EXPECT_TRUE(WaitFocused("Maybe"));
    fScreen->PressKey(B_DOWN_ARROW);
    EXPECT_TRUE(WaitFocused("Yes"));
    fScreen->PressKey(B_TAB);
    EXPECT_TRUE(WaitFocused("No"));
    fScreen->PressKey(B_TAB, B_SHIFT_KEY);
    EXPECT_TRUE(WaitFocused("Yes"));
    fScreen->PressKey(B_TAB);
    fScreen->PressKey(B_TAB);
    EXPECT_TRUE(WaitFocused("Maybe"));
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 1);
}

TEST_F(AlertTest, TheCloseBoxIsTheEscapeButton) {
    BAlert* alert = MakeAlert();
    alert->SetShortcut(1, B_ESCAPE);
    Ask(alert);
    fScreen->PressCloseBox();
    EXPECT_EQ(Answer(), 1);
}

TEST_F(AlertTest, WithoutAnEscapeButtonTheCloseBoxDoesNothing) {
    Ask();
    fScreen->PressCloseBox();
    fScreen->PressKey('w', B_COMMAND_KEY);
    EXPECT_TRUE(IsOpen());
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, QuitWithoutAnAnswerItIsMinusOne) {
    BAlert* alert = MakeAlert();
    alert->SetShortcut(1, B_ESCAPE);
    Ask(alert);
    ASSERT_TRUE(alert->Lock());
    alert->Quit();
    EXPECT_EQ(Answer(), -1);
}

TEST_F(AlertTest, WhoDoesNotWaitIsSentTheAnswer) {
    AskingWindow window;
    window.Show();
    BInvoker invoker(new BMessage('answ'), BMessenger(window.Get()));
    BAlert* alert = MakeAlert();
    alert->SetShortcut(0, B_ESCAPE);
    EXPECT_EQ(alert->Go(&invoker), B_OK);
    const auto screen = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(screen);
    screen->PressCloseBox();
    const BMessage answer = window.Received('answ');
    EXPECT_EQ(answer.GetInt32("which", -2), 0);
    EXPECT_FALSE(invoker.Message()->HasInt32("which"));
    // And without anyone who is to be told.
    EXPECT_EQ(MakeAlert()->Go(nullptr), B_OK);
    const auto again = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(again);
    again->PressKey(B_ENTER);
    EXPECT_TRUE(recording::WaitFor([&] { return !again->IsOpen(); }));
}

TEST_F(AlertTest, ALongTextIsScrolledByKeys) {
    const std::string text(20000, 'x');
    Ask(new BAlert("title", text.c_str(), "OK"));
    const BRect screen = recording::TheRecordingDisplay().MainScreenFrame();
    EXPECT_TRUE(screen.Contains(fScreen->Frame()));
    const ControlPlace place = PlaceOf(text.c_str());
    EXPECT_TRUE(place.navigable);
    EXPECT_TRUE(fScreen->Frame().OffsetToCopy(B_ORIGIN).Contains(place.frame));
    fScreen->PressKey(B_TAB);
    EXPECT_TRUE(WaitFocused(text.c_str()));
    // The default button stands for Enter where no button has the keyboard.
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 0);
}

TEST_F(AlertTest, LiesOverTheWindowWhoseThreadAsks) {
    AskingWindow window(BRect(600, 400, 799, 599));
    window.Show();
    window.Ask([] { return MakeAlert(); });
    const auto screen = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(screen);
    const BRect frame = screen->Frame();
    EXPECT_NEAR((frame.left + frame.right) / 2, 699.5, 1);
    EXPECT_NEAR((frame.top + frame.bottom) / 2, 499.5, 1);
    screen->PressKey(B_ENTER);
    EXPECT_EQ(window.Answer(), 2);
}

TEST_F(AlertTest, LiesOverTheActiveWindowOrElseOnTheScreen) {
    const BRect whole = recording::TheRecordingDisplay().MainScreenFrame();
    Ask();
    BRect frame = fScreen->Frame();
    EXPECT_NEAR((frame.left + frame.right) / 2, (whole.left + whole.right) / 2, 1);
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);

    AskingWindow window(BRect(10, 400, 29, 419));
    window.Show();
    window.Activate();
    Ask();
    frame = fScreen->Frame();
    EXPECT_EQ(frame.left, whole.left + 5);  // beside the border
    EXPECT_NEAR((frame.top + frame.bottom) / 2, 409.5, 1);
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);
}

TEST_F(AlertTest, ABusyWindowIsNotWaitedFor) {
    AskingWindow window;
    window.Show();
    ASSERT_TRUE(window.Get()->Lock());
    Ask();
    fScreen->PressKey(B_ENTER);
    EXPECT_EQ(Answer(), 2);
    window.Get()->Unlock();
}

TEST_F(AlertTest, AWaitingWindowShowsWhatItHasDrawn) {
    AskingWindow window;
    window.Show();
    window.Ask([&] {
        window.SetColor({10, 20, 30, 255});
        return MakeAlert();
    });
    const auto alert = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(alert);
    EXPECT_EQ(window.Screen().Shown().At(5, 5), (rgb_color{10, 20, 30, 255}));
    alert->PressKey(B_ENTER);
    EXPECT_EQ(window.Answer(), 2);
}

TEST_F(AlertTest, WhatIsDoneToAWaitingWindowIsForgotten) {
    AskingWindow window;
    window.Show();
    window.Ask([] { return MakeAlert(); });
    const auto alert = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(alert);
    window.Screen().PressKey('x');
    window.Screen().MouseDown(BPoint(3, 3));
    window.Screen().MouseUp(BPoint(3, 3));
    window.Screen().Wheel(BPoint(3, 3), 0, 1);
    BMessage other('othr');
    window.Screen().Send(other);
    alert->PressKey(B_ENTER);
    EXPECT_EQ(window.Answer(), 2);
    (void)window.Received('othr');
    EXPECT_EQ(window.Count(B_KEY_DOWN), 0U);
    EXPECT_EQ(window.Count(B_MOUSE_DOWN), 0U);
    EXPECT_EQ(window.Count(B_MOUSE_WHEEL_CHANGED), 0U);
    EXPECT_EQ(window.Count(B_MOUSE_UP), 1U);
    window.Screen().PressKey('y');
    (void)window.Received(B_KEY_DOWN);
}

TEST_F(AlertTest, TwoWindowsMayAskAtOnce) {
    AskingWindow one;
    AskingWindow two;
    one.Show();
    two.Show();
    one.Ask([] { return new BAlert("first", "?", "a", "b"); });
    two.Ask([] { return new BAlert("second", "?", "a", "b"); });
    const auto first = recording::TheRecordingDisplay().WaitForWindow("first");
    const auto second = recording::TheRecordingDisplay().WaitForWindow("second");
    ASSERT_TRUE(first && second);
    first->SetValue(first->FindControl("a")->id, 1);
    EXPECT_EQ(one.Answer(), 0);
    EXPECT_TRUE(second->IsOpen());
    second->SetValue(second->FindControl("b")->id, 1);
    EXPECT_EQ(two.Answer(), 1);
}

TEST_F(AlertTest, OtherWindowsGoOnWhileOneWaits) {
    AskingWindow asker;
    AskingWindow other;
    asker.Show();
    other.Show();
    asker.Ask([] { return MakeAlert(); });
    const auto alert = recording::TheRecordingDisplay().WaitForWindow("title");
    ASSERT_TRUE(alert);
    BMessage message('ping');
    other.Screen().Send(message);
    (void)other.Received('ping');
    alert->PressKey(B_ENTER);
    EXPECT_EQ(asker.Answer(), 2);
}

TEST_F(AlertTest, WhileTheApplicationEndsNobodyIsAsked) {
    AlertAnswer::SetApplicationEnds(true);
    EXPECT_EQ(MakeAlert()->Go(), -1);
    AlertAnswer::SetApplicationEnds(false);
    EXPECT_TRUE(recording::TheRecordingDisplay().Windows().empty());
}
