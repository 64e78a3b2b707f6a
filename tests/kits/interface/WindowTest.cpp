#include <app/Application.h>
#include <app/MessageQueue.h>
#include <interface/Button.h>
#include <interface/Screen.h>

#include "tests/kits/interface/TestWindow.h"

using testing::ElementsAre;

TEST(Window, AsItWasMade) {
    TestWindow window(new BWindow(BRect(10, 20, 109, 99), "A title", B_DOCUMENT_WINDOW,
        B_NOT_ZOOMABLE | B_ASYNCHRONOUS_CONTROLS));
    const auto spec = window.Screen().Spec();
    EXPECT_EQ(spec.title, "A title");
    EXPECT_EQ(spec.frame, BRect(10, 20, 109, 99));
    EXPECT_EQ(spec.look, B_DOCUMENT_WINDOW_LOOK);
    EXPECT_EQ(spec.feel, B_NORMAL_WINDOW_FEEL);
    EXPECT_EQ(spec.flags, B_NOT_ZOOMABLE | B_ASYNCHRONOUS_CONTROLS);
    EXPECT_EQ(window->Type(), B_DOCUMENT_WINDOW);
    EXPECT_EQ(window->Flags(), spec.flags);
    EXPECT_EQ(window->Frame(), spec.frame);
    EXPECT_EQ(window->Bounds(), BRect(0, 0, 99, 79));
    EXPECT_STREQ(window->Title(), "A title");
    EXPECT_FALSE(window->IsModal());
    EXPECT_TRUE(window->IsLocked());
    EXPECT_TRUE(window->IsHidden());
    EXPECT_FALSE(window.Screen().IsShown());
    EXPECT_EQ(window->Thread(), 0);
}

TEST(Window, TypeIsLookAndFeel) {
    const struct {
        window_look look;
        window_feel feel;
        window_type type;
        bool modal;
        bool floating;
    } table[] = {
        {B_TITLED_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, B_TITLED_WINDOW, false, false},
        {B_MODAL_WINDOW_LOOK, B_MODAL_APP_WINDOW_FEEL, B_MODAL_WINDOW, true, false},
        {B_FLOATING_WINDOW_LOOK, B_FLOATING_APP_WINDOW_FEEL, B_FLOATING_WINDOW, false, true},
        {B_NO_BORDER_WINDOW_LOOK, B_NORMAL_WINDOW_FEEL, B_UNTYPED_WINDOW, false, false},
        {B_TITLED_WINDOW_LOOK, B_MODAL_ALL_WINDOW_FEEL, B_UNTYPED_WINDOW, true, false},
    };
    for (const auto& row : table) {
        TestWindow window(new BWindow(BRect(0, 0, 9, 9), "", row.look, row.feel, 0));
        EXPECT_EQ(window->Type(), row.type);
        EXPECT_EQ(window->IsModal(), row.modal);
        EXPECT_EQ(window->IsFloating(), row.floating);
        EXPECT_EQ(window.Screen().Spec().look, row.look);
        EXPECT_EQ(window.Screen().Spec().feel, row.feel);
    }
}

TEST(Window, ShowStartsItsThread) {
    TestWindow window;
    window->Show();
    EXPECT_FALSE(window->IsLocked());
    EXPECT_GT(window->Thread(), 0);
    EXPECT_TRUE(window.Screen().IsShown());
    window.Do([&] { EXPECT_FALSE(window->IsHidden()); });
}

TEST(Window, HideAndShowNest) {
    TestWindow window;
    window->Hide();
    window->Show();
    EXPECT_FALSE(window.Screen().IsShown());
    window->Show();
    EXPECT_TRUE(window.Screen().IsShown());
    window->Show();
    window->Hide();
    EXPECT_FALSE(window.Screen().IsShown());
    window->Show();
    EXPECT_TRUE(window.Screen().IsShown());
}

TEST(Window, TitleReachesTheScreen) {
    TestWindow window;
    window->SetTitle("sunset.jpg");
    EXPECT_EQ(window.Screen().Title(), "sunset.jpg");
    EXPECT_STREQ(window->Title(), "sunset.jpg");
    window->SetTitle(nullptr);
    EXPECT_EQ(window.Screen().Title(), "");
}

TEST(Window, CloseBoxAsksAndEnds) {
    class AskedWindow : public BWindow {
    public:
        AskedWindow(Log& log)
            : BWindow(BRect(0, 0, 9, 9), "asked", B_TITLED_WINDOW, 0), fLog(log) {}
        ~AskedWindow() override { fLog.Add("gone"); }
        bool QuitRequested() override {
            fLog.Add("asked");
            return fLog.Entries().size() > 1;
        }

    private:
        Log& fLog;
    };
    Log log;
    auto* window = new AskedWindow(log);
    const auto screen = recording::TheRecordingDisplay().Windows().back();
    Log views;
    window->AddChild(new LoggingView(BRect(0, 0, 9, 9), "view", views));
    window->Show();
    screen->PressCloseBox();
    EXPECT_TRUE(log.WaitFor("asked"));
    EXPECT_TRUE(screen->IsOpen());
    screen->PressCloseBox();
    EXPECT_TRUE(recording::WaitFor([&] { return !screen->IsOpen(); }));
    EXPECT_TRUE(log.WaitFor("gone"));
    EXPECT_TRUE(views.WaitFor("view: all detached"));
}

TEST(Window, QuitOnCloseAsksTheApplication) {
    const auto asked = [] {
        BMessageQueue* queue = be_app->MessageQueue();
        return queue->FindMessage(B_QUIT_REQUESTED) != nullptr;
    };
    { TestWindow ordinary; }
    EXPECT_FALSE(asked());
    { TestWindow last(BRect(0, 0, 9, 9), B_QUIT_ON_WINDOW_CLOSE); }
    EXPECT_TRUE(asked());
    BMessageQueue* queue = be_app->MessageQueue();
    while (BMessage* message = queue->NextMessage())
        delete message;
}

TEST(Window, Activation) {
    Log log;
    TestWindow window;
    auto* outer = new LoggingView(BRect(0, 0, 9, 9), "outer", log);
    outer->AddChild(new LoggingView(BRect(0, 0, 9, 9), "inner", log));
    window->AddChild(outer);
    window->Activate();
    EXPECT_EQ(window.Screen().CountActivations(), 0);
    window->Show();
    window.Do([&] { window->Activate(); });
    EXPECT_EQ(window.Screen().CountActivations(), 1);
    log.Clear();
    window.Screen().SetActive(true);
    window.Do([&] {
        EXPECT_TRUE(window->IsActive());
        EXPECT_TRUE(window->IsFront());
    });
    EXPECT_THAT(log.Entries(), ElementsAre("outer: active", "inner: active"));
    window.Screen().SetActive(false);
    window.Do([&] { EXPECT_FALSE(window->IsActive()); });
}

TEST(Window, Minimize) {
    TestWindow window;
    window->Show();
    window.Do([&] { window->Minimize(true); });
    EXPECT_TRUE(window.Screen().IsMinimized());
    window.Screen().UserMinimize(false);
    window.Do([&] { EXPECT_FALSE(window->IsMinimized()); });
    EXPECT_FALSE(window.Screen().IsMinimized());
}

TEST(Window, DefaultButton) {
    TestWindow window;
    auto* one = new BButton(BRect(0, 0, 9, 9), "one", "One", nullptr);
    auto* two = new BButton(BRect(20, 0, 29, 9), "two", "Two", nullptr);
    window->AddChild(one);
    window->AddChild(two);
    window->SetDefaultButton(one);
    EXPECT_EQ(window->DefaultButton(), one);
    EXPECT_TRUE(one->IsDefault());
    window->SetDefaultButton(two);
    EXPECT_FALSE(one->IsDefault());
    EXPECT_TRUE(two->IsDefault());
    EXPECT_EQ(window->DefaultButton(), two);
    delete two;
    EXPECT_EQ(window->DefaultButton(), nullptr);
}

TEST(Window, Screen) {
    auto& display = recording::TheRecordingDisplay();
    EXPECT_EQ(BScreen(B_MAIN_SCREEN_ID).Frame(), display.MainScreenFrame());
    display.SetMainScreenFrame(BRect(0, 0, 799, 599));
    EXPECT_EQ(BScreen().Frame(), BRect(0, 0, 799, 599));
    display.SetMainScreenFrame(BRect(0, 0, 1919, 1079));
}

TEST(Window, KeysHeld) {
    auto& display = recording::TheRecordingDisplay();
    display.SetModifiers(B_SHIFT_KEY | B_CONTROL_KEY);
    display.SetKeyHeld(11, true);
    EXPECT_EQ(modifiers(), B_SHIFT_KEY | B_CONTROL_KEY);
    key_info info;
    EXPECT_EQ(get_key_info(&info), B_OK);
    EXPECT_EQ(info.modifiers, B_SHIFT_KEY | B_CONTROL_KEY);
    EXPECT_EQ(info.key_states[1], 0x10);
    EXPECT_EQ(get_key_info(nullptr), B_BAD_VALUE);
    display.SetModifiers(0);
    display.SetKeyHeld(11, false);
    EXPECT_EQ(modifiers(), 0U);
    EXPECT_EQ(ui_color(B_PANEL_BACKGROUND_COLOR), (rgb_color{216, 216, 216, 255}));
}

// Windows come and go while others are at work.
TEST(Window, ManyAtOnce) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; i++) {
        threads.emplace_back([] {
            for (int round = 0; round < 10; round++) {
                Log log;
                TestWindow window(new BWindow(BRect(0, 0, 99, 99), "many", B_TITLED_WINDOW, 0));
                auto* view = new LoggingView(BRect(0, 0, 99, 99), "view", log, B_FOLLOW_ALL);
                view->fill = {1, 2, 3, 255};
                window->AddChild(view);
                window->Show();
                window->PostMessage('abcd', view);
                window.Do([&] { window->ResizeBy(5, 5); });
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}
