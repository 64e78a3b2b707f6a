#include "framework/DialogView.h"

#include <algorithm>
#include <app/Message.h>
#include <app/Messenger.h>
#include <gtest/gtest.h>
#include <interface/Box.h>
#include <interface/Button.h>
#include <interface/CheckBox.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <interface/RadioButton.h>
#include <interface/TextControl.h>

#include "framework/DialogWindow.h"
#include "tests/framework/TestWindows.h"

namespace {

using Entries = std::vector<std::string>;

constexpr uint32 kSync = 'sync';

/// Logs the messages of the controls by their code's text.
class DialogTestView : public TDialogView {
public:
    explicit DialogTestView(TLog* log)
        : TDialogView(BRect(0, 0, 299, 299), "DialogTestView", B_FOLLOW_NONE, B_WILL_DRAW),
          fLog(log) {}

    void MessageReceived(BMessage* message) override {
        const char* text = nullptr;
        if (message->what == kSync)
            fLog->Add("sync");
        else if (message->FindString("text", &text) == B_OK)
            fLog->Add(text);
        else
            TDialogView::MessageReceived(message);
    }

private:
    TLog* fLog;
};

BMessage* log_message(const char* text) {
    auto* message = new BMessage('test');
    message->AddString("text", text);
    return message;
}

constexpr BRect kFrame(0, 0, 99, 19);

class DialogTest : public testing::Test {
protected:
    DialogTest()
        : fWindow(new TDialogWindow(
              BRect(0, 0, 299, 299), "Dialog", B_TITLED_WINDOW, B_ASYNCHRONOUS_CONTROLS)),
          fQuitter(fWindow), fView(new DialogTestView(&fLog)) {
        fWindow->AddChild(fView);
        auto* box = new BBox(BRect(0, 0, 199, 199), "Box");
        fView->AddChild(box);
        fOpen = new BButton(kFrame, "ButtonOpen", "Open(O)...", log_message("open"));
        box->AddChild(fOpen);
        fCheck = new BCheckBox(kFrame, "CBoxShow", "S) Show", log_message("show"));
        box->AddChild(fCheck);
        fTop = new BRadioButton(kFrame, "RButtonTop", "T・Top", log_message("top"));
        box->AddChild(fTop);
        fBottom = new BRadioButton(kFrame, "RButtonBottom", "B - Bottom", log_message("bottom"));
        box->AddChild(fBottom);
        fMargin = new BTextControl(kFrame, "TxtCtrlMargin", "Margin(M): ", "5", nullptr);
        fView->AddChild(fMargin);
        fPlain = new BButton(kFrame, "ButtonPlain", "Plain", log_message("plain"));
        fView->AddChild(fPlain);
        fDefault = new BButton(kFrame, "ButtonOK", "OK", log_message("ok"));
        fView->AddChild(fDefault);
        fDefault->MakeDefault(true);
        fSecondOpen = new BButton(kFrame, "ButtonOther", "Other(O)", log_message("other"));
        fView->AddChild(fSecondOpen);
        fView->SetTargetToThis(fView);
        fWindow->Show();
        fScreen = recording::TheRecordingDisplay().WaitForWindow("Dialog");
    }

    void Press(int32 rawChar, uint32 modifiers = 0) {
        fScreen->PressKey(static_cast<char>(rawChar), modifiers);
    }
    /// What the controls have sent once the keys pressed so far are dealt with.
    Entries Logged() {
        // The first comes when the keys are dealt with, the second after what those have posted.
        for (int i = 1; i <= 2; i++) {
            BMessenger(fView).SendMessage(kSync);
            EXPECT_TRUE(recording::WaitFor([&] {
                const Entries entries = fLog.Entries();
                return std::count(entries.begin(), entries.end(), "sync") == i;
            }));
        }
        Entries entries = fLog.Entries();
        std::erase(entries, "sync");
        return entries;
    }

    TLog fLog;
    TDialogWindow* fWindow;
    TWindowQuitter fQuitter;
    DialogTestView* fView;
    BButton* fOpen;
    BCheckBox* fCheck;
    BRadioButton* fTop;
    BRadioButton* fBottom;
    BTextControl* fMargin;
    BButton* fPlain;
    BButton* fDefault;
    BButton* fSecondOpen;
    std::shared_ptr<recording::Window> fScreen;
};

TEST_F(DialogTest, AButtonIsClickedByItsKey) {
    Press('o', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), Entries{"open"});  // the first of two, inside the box
    EXPECT_EQ(with_lock(fWindow, [&] { return fOpen->Value(); }), B_CONTROL_OFF);
}

TEST_F(DialogTest, TheKeyboardIsInNoViewWheneverItAppears) {
    with_lock(fWindow, [&] {
        EXPECT_EQ(fWindow->CurrentFocus(), nullptr);
        fDefault->MakeFocus(true);
        fWindow->Show();  // it is shown already
        fWindow->Hide();
        EXPECT_TRUE(fDefault->IsFocus());
        fWindow->Hide();
        fWindow->Show();
        EXPECT_EQ(fWindow->CurrentFocus(), nullptr);
    });
    Press(B_TAB);
    EXPECT_EQ(Logged(), Entries{});
    EXPECT_TRUE(with_lock(fWindow, [&] { return fOpen->IsFocus(); }));
}

TEST_F(DialogTest, ACheckBoxIsToggledByItsKey) {
    Press('s', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), Entries{"show"});
    with_lock(fWindow, [&] {
        EXPECT_EQ(fCheck->Value(), B_CONTROL_ON);
        EXPECT_TRUE(fCheck->IsFocus());
    });
}

TEST_F(DialogTest, ACheckBoxIsToggledBack) {
    Press('s', B_CONTROL_KEY);
    Press('s', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), (Entries{"show", "show"}));
    EXPECT_EQ(with_lock(fWindow, [&] { return fCheck->Value(); }), B_CONTROL_OFF);
}

TEST_F(DialogTest, ARadioButtonIsTurnedOnByItsKey) {
    Press('t', B_CONTROL_KEY);
    Press('b', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), (Entries{"top", "bottom"}));
    with_lock(fWindow, [&] {
        EXPECT_EQ(fTop->Value(), B_CONTROL_OFF);
        EXPECT_EQ(fBottom->Value(), B_CONTROL_ON);
        EXPECT_TRUE(fBottom->IsFocus());
    });
}

TEST_F(DialogTest, AnyOtherControlIsFocusedByItsKey) {
    Press('m', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), Entries{});
    EXPECT_TRUE(with_lock(fWindow, [&] { return fMargin->IsFocus(); }));
}

TEST_F(DialogTest, AMenuFieldIsFocusedByItsKey) {
    BMenuField* field = nullptr;
    with_lock(fWindow, [&] {
        field = new BMenuField(kFrame, "MFieldFormat", "Format(F): ", new BPopUpMenu("Select..."));
        fView->AddChild(field);
        fMargin->MakeFocus(true);
    });
    Press('f', B_CONTROL_KEY);
    EXPECT_EQ(Logged(), Entries{});
    with_lock(fWindow, [&] {
        EXPECT_TRUE(field->IsFocus());
        EXPECT_EQ(fView->ApplyShortCut(fView, 'f', 0), 0);
    });
}

TEST_F(DialogTest, AKeyWithoutControlBelongsToTheFocusedView) {
    with_lock(fWindow, [&] { fMargin->MakeFocus(true); });
    Press('o');
    Press('s', B_COMMAND_KEY);
    EXPECT_EQ(Logged(), Entries{});
    EXPECT_EQ(with_lock(fWindow, [&] { return fCheck->Value(); }), B_CONTROL_OFF);
}

TEST_F(DialogTest, AKeyWithoutControlIsAShortCutWhenNoViewHasTheFocus) {
    Press('o');
    EXPECT_EQ(Logged(), Entries{"open"});
}

TEST_F(DialogTest, TabBeginsWithTheFirstControl) {
    Press(B_TAB);
    EXPECT_EQ(Logged(), Entries{});
    EXPECT_TRUE(with_lock(fWindow, [&] { return fOpen->IsFocus(); }));
}

TEST_F(DialogTest, EnterClicksTheDefaultButton) {
    Press(B_ENTER);
    EXPECT_EQ(Logged(), Entries{"ok"});
}

TEST_F(DialogTest, EnterClicksTheDefaultButtonWhenAnotherControlHasTheFocus) {
    with_lock(fWindow, [&] { fCheck->MakeFocus(true); });
    Press(B_ENTER);
    EXPECT_EQ(Logged(), Entries{"ok"});
    EXPECT_EQ(with_lock(fWindow, [&] { return fCheck->Value(); }), B_CONTROL_OFF);
}

TEST_F(DialogTest, EnterClicksTheFocusedButton) {
    with_lock(fWindow, [&] { fPlain->MakeFocus(true); });
    Press(B_ENTER);
    EXPECT_EQ(Logged(), Entries{"plain"});
}

TEST_F(DialogTest, EnterWithoutADefaultButtonDoesNothing) {
    with_lock(fWindow, [&] { fDefault->MakeDefault(false); });
    Press(B_ENTER);
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(DialogTest, ShortCutsAreSearchedDepthFirst) {
    with_lock(fWindow, [&] {
        EXPECT_EQ(fView->ApplyShortCut(fView, 'm', 0), 0);
        EXPECT_TRUE(fMargin->IsFocus());
        EXPECT_EQ(fView->ApplyShortCut(fView, 'x', 0), -1);
        EXPECT_EQ(fView->ApplyShortCut(fView, B_FUNCTION_KEY, B_F5_KEY), -1);
        // Labels without a hint match no key, also none that has no character.
        EXPECT_EQ(fView->ApplyShortCut(fView, 0, 0), -1);
        EXPECT_EQ(fView->ApplyShortCut(fMargin, 'm', 0), -1);
    });
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(DialogTest, ADisabledControlKeepsItsKeyToItself) {
    with_lock(fWindow, [&] {
        fCheck->SetEnabled(false);
        fOpen->SetEnabled(false);
        EXPECT_EQ(fView->ApplyShortCut(fView, 's', 0), 0);
        EXPECT_EQ(fView->ApplyShortCut(fView, 'o', 0), 0);  // not the second one's either
        EXPECT_EQ(fCheck->Value(), B_CONTROL_OFF);
        EXPECT_FALSE(fCheck->IsFocus());
    });
    EXPECT_EQ(Logged(), Entries{});
}

TEST_F(DialogTest, AKeyWithoutAContentViewIsLost) {
    auto* window = new TDialogWindow(
        BRect(0, 0, 99, 99), "Empty", B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, 0);
    BMessage key(B_KEY_DOWN);
    window->KeyDown(&key);
    window->AddChild(new BView(kFrame, "plain", B_FOLLOW_NONE, 0));
    window->KeyDown(&key);
    window->Quit();
}

TEST_F(DialogTest, SendsItsMessageToItsTarget) {
    with_lock(fWindow, [&] {
        EXPECT_EQ(fWindow->Message(), nullptr);
        EXPECT_EQ(fWindow->Invoke(), B_BAD_VALUE);
        EXPECT_FALSE(fWindow->Target().IsValid());
        fWindow->SetTarget(BMessenger(fView));
        EXPECT_EQ(fWindow->Target(), BMessenger(fView));

        fWindow->SetMessage(log_message("first"));
        BMessage* second = log_message("stored");
        fWindow->SetMessage(second);
        fWindow->SetMessage(second);
        EXPECT_EQ(fWindow->Message(), second);
        EXPECT_EQ(fWindow->Invoke(), B_OK);
        const std::unique_ptr<BMessage> given(log_message("given"));
        EXPECT_EQ(fWindow->Invoke(given.get()), B_OK);
        fWindow->SetMessage(nullptr);
        EXPECT_EQ(fWindow->Invoke(), B_BAD_VALUE);
    });
    EXPECT_EQ(Logged(), (Entries{"stored", "given"}));
}

TEST_F(DialogTest, RunsAtARaisedPriorityWhileShown) {
    const auto priority = [&] {
        thread_info info;
        EXPECT_EQ(get_thread_info(fWindow->Thread(), &info), B_OK);
        return info.priority;
    };
    EXPECT_EQ(priority(), 15);
    fWindow->Hide();
    EXPECT_EQ(priority(), 5);
    fWindow->Show();
    EXPECT_EQ(priority(), 15);
}

}  // namespace
