#include <app/MessageFilter.h>
#include <interface/ScrollBar.h>

#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Two views side by side and one within the second, without drawing.
class WindowInput : public testing::Test {
protected:
    WindowInput() : window(BRect(100, 100, 199, 179)) {
        left = new LoggingView(BRect(0, 0, 49, 79), "left", log, 0, B_NAVIGABLE);
        right = new LoggingView(BRect(50, 0, 99, 79), "right", log, 0, B_NAVIGABLE);
        inner = new LoggingView(BRect(10, 10, 29, 29), "inner", log, 0, 0);
        right->AddChild(inner);
        window->AddChild(left);
        window->AddChild(right);
        window->Show();
        Entries();
    }
    /// What happened since the last call.
    std::vector<std::string> Entries() {
        window.Settle();
        auto entries = log.Entries();
        log.Clear();
        return entries;
    }

    Log log;
    TestWindow window;
    LoggingView* left = nullptr;
    LoggingView* right = nullptr;
    LoggingView* inner = nullptr;
};

/// Takes down the messages a view gets.
class ReceivingView : public LoggingView {
public:
    using LoggingView::LoggingView;
    void MessageReceived(BMessage* message) override {
        BPoint where;
        if (message->what == B_SIMPLE_DATA)
            Add(message->WasDropped() ? "drop " + Text(ConvertFromScreen(message->DropPoint()))
                                      : "data");
        else if (message->what == B_MOUSE_WHEEL_CHANGED)
            Add("wheel");
        else
            LoggingView::MessageReceived(message);
    }
};

}  // namespace

TEST_F(WindowInput, MouseGoesToTheViewBelowIt) {
    window.Screen().MouseDown(BPoint(70, 15));
    window.Screen().MouseUp(BPoint(20, 30));
    window.Screen().MouseDown(BPoint(90, 70));
    window.Screen().MouseUp(BPoint(90, 70));
    EXPECT_THAT(Entries(),
        ElementsAre("inner: down 10,5", "left: up 20,30", "right: down 40,70", "right: up 40,70"));
    window.Do([&] { inner->Hide(); });
    Entries();
    window.Screen().MouseDown(BPoint(70, 15));
    window.Screen().MouseDown(BPoint(-5, 15));
    window.Screen().MouseDown(BPoint(std::numeric_limits<float>::quiet_NaN(), 15));
    EXPECT_THAT(Entries(), ElementsAre("right: down 20,15"));
}

TEST_F(WindowInput, ModifiersAreThoseOfTheMessage) {
    class AskingView : public BView {
    public:
        using BView::BView;
        void KeyDown(const char*, int32) override { held = modifiers(); }
        void MessageReceived(BMessage* message) override {
            if (message->what == 'ask ')
                now = modifiers();
            else
                BView::MessageReceived(message);
        }
        uint32 held = 0;
        uint32 now = 0;
    };
    auto* view = new AskingView(BRect(0, 0, 9, 9), "asking", 0, 0);
    window.Do([&] {
        window->AddChild(view);
        view->MakeFocus();
    });
    // Released before the window came to handle it.
    recording::TheRecordingDisplay().SetModifiers(B_SHIFT_KEY);
    window.Screen().PressKey('x', B_CONTROL_KEY);
    window->PostMessage('ask ', view);
    window.Settle();
    EXPECT_EQ(view->held, B_CONTROL_KEY);
    EXPECT_EQ(view->now, B_SHIFT_KEY);

    BMessage chosen('ask ');  // as a menu's item sends it
    (void)chosen.AddInt32("be:modifiers", B_OPTION_KEY);
    window->PostMessage(&chosen, view);
    window.Settle();
    EXPECT_EQ(view->now, B_OPTION_KEY);
    recording::TheRecordingDisplay().SetModifiers(0);
}

TEST_F(WindowInput, MessageTellsTheRest) {
    class AskingView : public BView {
    public:
        using BView::BView;
        void MouseDown(BPoint where) override {
            const BMessage* message = Window()->CurrentMessage();
            EXPECT_EQ(message->FindInt32("buttons", &buttons), B_OK);
            EXPECT_EQ(message->FindInt32("clicks", &clicks), B_OK);
            BPoint given;
            EXPECT_EQ(message->FindPoint("be:view_where", &given), B_OK);
            EXPECT_EQ(given, where);
            uint32 held = 0;
            GetMouse(&pointer, &held);
            EXPECT_EQ(held, static_cast<uint32>(buttons));
        }
        int32 buttons = 0;
        int32 clicks = 0;
        BPoint pointer;
    };
    AskingView* view = nullptr;
    window.Do([&] {
        view = new AskingView(BRect(10, 10, 19, 19), "asking", 0, 0);
        left->AddChild(view);
    });
    window.Screen().MouseDown(BPoint(12, 13), 2, 5);
    window.Do([&] {
        EXPECT_EQ(view->buttons, 2);
        EXPECT_EQ(view->clicks, 5);
        EXPECT_EQ(view->pointer, BPoint(2, 3));
    });
}

TEST_F(WindowInput, Transit) {
    auto& screen = window.Screen();
    screen.MouseMoved(BPoint(10, 10));
    screen.MouseMoved(BPoint(11, 10));
    screen.MouseMoved(BPoint(65, 15));
    screen.MouseMoved(BPoint(55, 5));
    screen.MouseMoved(BPoint(100, 5), 0, 0, false);
    screen.MouseMoved(BPoint(5, 5));
    EXPECT_THAT(Entries(),
        ElementsAre("left: entered 10,10", "left: inside 11,10", "left: exited 65,15",
            "inner: entered 5,5", "inner: exited -5,-5", "right: entered 5,5", "right: exited 50,5",
            "left: entered 5,5"));
}

TEST_F(WindowInput, CaptureUntilTheLastButton) {
    inner->captureMask = B_POINTER_EVENTS;
    auto& screen = window.Screen();
    screen.MouseDown(BPoint(65, 15));
    screen.MouseMoved(BPoint(20, 15), 1);
    screen.MouseMoved(BPoint(66, 16), 1);
    screen.MouseDown(BPoint(20, 15), 3);
    screen.MouseUp(BPoint(20, 15), 1);
    screen.MouseUp(BPoint(150, 15), 0);
    screen.MouseUp(BPoint(20, 15), 0);
    EXPECT_THAT(Entries(),
        ElementsAre("inner: down 5,5", "inner: outside -40,5", "inner: entered 6,6",
            "inner: down -40,5", "inner: up -40,5", "inner: up 90,5", "left: up 20,15"));
}

TEST_F(WindowInput, CaptureNeedsAButton) {
    window.Do([&] { EXPECT_EQ(inner->SetMouseEventMask(B_POINTER_EVENTS), B_NOT_ALLOWED); });
    BView alone(BRect(0, 0, 9, 9), nullptr, 0, 0);
    EXPECT_EQ(alone.SetMouseEventMask(B_POINTER_EVENTS), B_ERROR);
}

TEST_F(WindowInput, NoPointerHistory) {
    inner->captureMask = B_POINTER_EVENTS;
    inner->captureOptions = B_NO_POINTER_HISTORY;
    auto& screen = window.Screen();
    window.Do([&] {
        screen.MouseDown(BPoint(65, 15));
        screen.MouseMoved(BPoint(66, 15), 1);
        screen.MouseMoved(BPoint(67, 15), 1);
        screen.MouseUp(BPoint(67, 15));
        screen.MouseMoved(BPoint(68, 15));
    });
    // The move before the release is where the pointer was dragged to.
    EXPECT_THAT(Entries(),
        ElementsAre("inner: down 5,5", "inner: entered 7,5", "inner: up 7,5", "inner: inside 8,5"));
}

TEST_F(WindowInput, ViewWithTheButtonMayGo) {
    inner->captureMask = B_POINTER_EVENTS;
    auto& screen = window.Screen();
    screen.MouseDown(BPoint(65, 15));
    window.Do([&] { delete inner; });
    screen.MouseMoved(BPoint(66, 15), 1);
    screen.MouseUp(BPoint(66, 15));
    Entries();
    screen.MouseMoved(BPoint(10, 10));
    EXPECT_THAT(Entries(), ElementsAre("right: exited -40,10", "left: entered 10,10"));
}

TEST_F(WindowInput, EventMask) {
    window.Do([&] { (void)left->SetEventMask(B_POINTER_EVENTS | B_KEYBOARD_EVENTS); });
    auto& screen = window.Screen();
    screen.MouseDown(BPoint(90, 70));
    screen.MouseMoved(BPoint(91, 70), 1);
    screen.MouseUp(BPoint(20, 70));
    screen.PressKey('a');
    EXPECT_THAT(Entries(),
        ElementsAre("right: down 40,70", "left: down 90,70", "right: entered 41,70",
            "left: outside 91,70", "left: up 20,70"));
    window.Do([&] { right->MakeFocus(); });
    screen.PressKey('a');
    EXPECT_THAT(Entries(),
        ElementsAre(
            "right: focus", "right: key a", "left: key a", "right: key up a", "left: key up a"));
}

TEST_F(WindowInput, KeysGoToTheFocus) {
    window.Screen().PressKey('x');
    EXPECT_THAT(Entries(), IsEmpty());
    window.Do([&] {
        left->MakeFocus(true);
        EXPECT_TRUE(left->IsFocus());
        EXPECT_EQ(window->CurrentFocus(), left);
        EXPECT_EQ(window->PreferredHandler(), left);
    });
    EXPECT_THAT(Entries(), ElementsAre("left: focus"));
    window.Screen().PressKey('x');
    EXPECT_THAT(Entries(), ElementsAre("left: key x", "left: key up x"));
    window.Do([&] { inner->MakeFocus(); });
    EXPECT_THAT(Entries(), ElementsAre("left: no focus", "inner: focus"));
    window.Do([&] {
        left->MakeFocus(false);
        EXPECT_TRUE(inner->IsFocus());
        right->RemoveSelf();
        EXPECT_EQ(window->CurrentFocus(), nullptr);
        delete right;
    });
    Entries();
    window.Screen().PressKey('x');
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(WindowInput, TabMovesTheFocus) {
    auto& screen = window.Screen();
    window.Do([&] { left->MakeFocus(); });
    screen.KeyDown(B_TAB);
    window.Do([&] { EXPECT_TRUE(right->IsFocus()); });
    screen.KeyDown(B_TAB);
    window.Do([&] { EXPECT_TRUE(left->IsFocus()); });
    screen.KeyDown(B_TAB, B_SHIFT_KEY);
    window.Do([&] { EXPECT_TRUE(right->IsFocus()); });
    // A control on the screen leaves it to the kits, too.
    screen.KeyDown(B_TAB, 0, 0, 99);
    window.Do([&] { EXPECT_TRUE(left->IsFocus()); });
}

TEST_F(WindowInput, FiltersSeeTheTargetAndMayChangeIt) {
    class KeyFilter : public BMessageFilter {
    public:
        KeyFilter(BHandler*& seen, BHandler* redirect)
            : BMessageFilter(B_KEY_DOWN), fSeen(seen), fRedirect(redirect) {}
        filter_result Filter(BMessage*, BHandler** target) override {
            fSeen = *target;
            if (fRedirect != nullptr)
                *target = fRedirect;
            return B_DISPATCH_MESSAGE;
        }

    private:
        BHandler*& fSeen;
        BHandler* fRedirect;
    };
    BHandler* seen = nullptr;
    window.Do([&] {
        left->MakeFocus();
        window->AddCommonFilter(new KeyFilter(seen, inner));
    });
    Entries();
    window.Screen().KeyDown('q');
    EXPECT_THAT(Entries(), ElementsAre("inner: key q"));
    EXPECT_EQ(seen, left);
}

TEST_F(WindowInput, RedirectedToTheWindowAKeyIsAMessage) {
    class KeyWindow : public BWindow {
    public:
        explicit KeyWindow(Log& log)
            : BWindow(BRect(0, 0, 99, 99), "keys", B_TITLED_WINDOW, 0), fLog(log) {}
        void MessageReceived(BMessage* message) override {
            if (message->what == B_KEY_DOWN)
                fLog.Add("window key");
            else
                BWindow::MessageReceived(message);
        }

    private:
        Log& fLog;
    };
    const auto redirect = [](BMessage*, BHandler** target, BMessageFilter* filter) {
        *target = filter->Looper();
        return B_DISPATCH_MESSAGE;
    };
    TestWindow keys(new KeyWindow(log));
    auto* view = new LoggingView(BRect(0, 0, 9, 9), "view", log);
    keys->AddChild(view);
    view->MakeFocus();
    keys->AddCommonFilter(new BMessageFilter(B_KEY_DOWN, redirect));
    keys->Show();
    keys.Settle();
    log.Clear();
    keys.Screen().KeyDown(B_ESCAPE);
    keys.Screen().KeyDown('o', B_CONTROL_KEY);
    keys.Settle();
    EXPECT_THAT(log.Entries(), ElementsAre("window key", "window key"));
}

TEST_F(WindowInput, CommandKeysAreShortcuts) {
    window.Do([&] {
        left->MakeFocus();
        window->AddShortcut('K', 0, new BMessage('shrt'), left);
        window->AddShortcut('K', B_SHIFT_KEY, new BMessage('shft'), left);
        EXPECT_TRUE(window->HasShortcut('k', B_COMMAND_KEY));
        EXPECT_FALSE(window->HasShortcut('j', 0));
        EXPECT_TRUE(window->HasShortcut('W', 0));
    });
    class What : public BMessageFilter {
    public:
        explicit What(Log& log) : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE), fLog(log) {}
        filter_result Filter(BMessage* message, BHandler**) override {
            if (message->what == 'shrt')
                fLog.Add("shortcut");
            if (message->what == 'shft')
                fLog.Add("shifted");
            return B_DISPATCH_MESSAGE;
        }

    private:
        Log& fLog;
    };
    window.Do([&] { left->AddFilter(new What(log)); });
    Entries();
    auto& screen = window.Screen();
    screen.KeyDown('k', B_COMMAND_KEY);
    screen.KeyDown('k', B_COMMAND_KEY | B_SHIFT_KEY | B_NUM_LOCK);
    screen.KeyDown('k', B_COMMAND_KEY | B_CONTROL_KEY);
    screen.KeyDown(B_UP_ARROW, B_COMMAND_KEY);
    screen.KeyDown('k');
    window.Settle();
    EXPECT_THAT(Entries(), testing::UnorderedElementsAre("left: key k", "shortcut", "shifted"));
    window.Do([&] { window->RemoveShortcut('K', 0); });
    screen.KeyDown('k', B_COMMAND_KEY);
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(WindowInput, WheelAndDrops) {
    window.Do([&] {
        auto* view = new ReceivingView(BRect(10, 10, 29, 29), "receiver", log, 0, 0);
        left->AddChild(view);
        // A child that knows nothing of it passes it on.
        view->AddChild(new BView(BRect(0, 0, 9, 9), "child", 0, 0));
    });
    Entries();
    auto& screen = window.Screen();
    screen.Wheel(BPoint(25, 25), 0, 1);
    screen.Wheel(BPoint(12, 12), 0, 1);
    screen.Drop({}, BPoint(25, 25));
    screen.Drop({}, BPoint(12, 12));
    EXPECT_THAT(Entries(),
        ElementsAre(
            "receiver: wheel", "receiver: wheel", "receiver: drop 15,15", "receiver: drop 2,2"));
    // Beside all views the wheel is the focus's.
    window.Do([&] { window->FindView("receiver")->MakeFocus(); });
    Entries();
    screen.Wheel(BPoint(-1, -1), 0, 1);
    EXPECT_THAT(Entries(), ElementsAre("receiver: wheel"));
}

TEST_F(WindowInput, WheelTurnsTheScrollBars) {
    BScrollBar* bar = nullptr;
    window.Do([&] {
        bar = new BScrollBar(BRect(0, 0, 9, 9), "bar", left, 0, 100, B_VERTICAL);
        bar->SetSteps(5, 50);
        right->AddChild(bar);
        EXPECT_EQ(left->ScrollBar(B_VERTICAL), bar);
    });
    window.Screen().Wheel(BPoint(20, 20), 1, 2);
    window.Do([&] {
        EXPECT_EQ(bar->Value(), 30);
        EXPECT_EQ(left->Bounds().LeftTop(), BPoint(0, 30));
        left->ScrollTo(0, 7);
        EXPECT_EQ(bar->Value(), 7);
        // The bar outlives what it scrolls.
        delete left;
        bar->SetValue(50);
        EXPECT_EQ(bar->Target(), nullptr);
    });
}
