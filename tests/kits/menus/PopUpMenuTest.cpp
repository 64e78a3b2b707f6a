#include <interface/PopUpMenu.h>

#include "tests/kits/menus/MenuWindow.h"

using namespace BPrivate;

namespace {

/// Says when it is deleted.
class WatchedMenu : public BPopUpMenu {
public:
    WatchedMenu(bool radio, bool& gone) : BPopUpMenu("Choices", radio, false), fGone(gone) {
        AddItem(Item("One", 'one '));
        AddItem(Item("Two", 'two '));
        auto* more = new BMenu("More");
        more->AddItem(Item("Three", 'thre'));
        AddItem(more);
    }
    ~WatchedMenu() override { fGone = true; }

private:
    bool& fGone;
};

/// Runs functions on its window's thread, as hooks are.
class Runner : public BView {
public:
    Runner() : BView(BRect(0, 100, 99, 199), "runner", B_FOLLOW_NONE, 0) {}

    void MessageReceived(BMessage* message) override {
        void* function = nullptr;
        if (message->what == 'run ' && message->FindPointer("function", &function) == B_OK)
            (*static_cast<const std::function<void()>*>(function))();
        else
            BView::MessageReceived(message);
    }
    void Run(const std::function<void()>& function) {
        BMessage message('run ');
        (void)message.AddPointer("function", &function);
        BMessage reply;
        (void)BMessenger(this).SendMessage(&message, &reply);
    }
};

class PopUpMenuTest : public ControlTest {
protected:
    void Open(BPoint where = BPoint(150, 140), bool byKeyboard = false) {
        Run([&] { EXPECT_EQ(fMenu->Go(where, true, byKeyboard, true), nullptr); });
    }
    void Run(const std::function<void()>& function) const {
        fRunner->Run(function);
        fWindow.Settle();
    }
    PopUpMenuState Shown() const { return StateOf<PopUpMenuState>("Choices"); }
    bool IsOnScreen() const { return fWindow.Screen().FindControl("Choices").has_value(); }
    bool Choose(const std::vector<std::string>& labels) const {
        return fWindow.Screen().ChooseItem(OnScreen("Choices").id, labels);
    }
    void Close() const {
        fWindow.Screen().ClosePopUp(OnScreen("Choices").id);
        fWindow.Settle();
    }

    Runner* fRunner = Add(new Runner);
    bool fGone = false;
    WatchedMenu* fMenu = new WatchedMenu(false, fGone);
};

}  // namespace

TEST_F(PopUpMenuTest, OpensWhereItIsToldTo) {
    fMenu->ItemAt(1)->SetMarked(true);
    fMenu->SetAsyncAutoDestruct(true);
    Show();
    EXPECT_FALSE(IsOnScreen());
    Open();
    const PopUpMenuState state = Shown();
    EXPECT_EQ(state.where, BPoint(50, 40));
    EXPECT_FALSE(state.byKeyboard);
    ASSERT_EQ(state.items.size(), 3U);
    EXPECT_TRUE(state.items[1].marked);
    EXPECT_FALSE(state.items[1].radio);
    EXPECT_EQ(state.items[0].trigger, 0);
    ASSERT_EQ(fWindow.Screen().OpenedMenus().size(), 1U);
    EXPECT_EQ(fWindow.Screen().OpenedMenus()[0].first, OnScreen("Choices").id);
    EXPECT_FALSE(OnScreen("Choices").place.visible);
    Close();
    EXPECT_FALSE(IsOnScreen());
    EXPECT_TRUE(fGone);
}

TEST_F(PopUpMenuTest, WhatIsChosenSendsItsMessage) {
    fMenu->SetAsyncAutoDestruct(true);
    Show();
    Open(BPoint(100, 100), true);
    EXPECT_TRUE(Shown().byKeyboard);
    EXPECT_TRUE(Choose({"More", "Three"}));
    Close();
    EXPECT_TRUE(fGone);
    EXPECT_EQ(Received('thre').size(), 1U);
    EXPECT_TRUE(Received('one ').empty());
}

TEST_F(PopUpMenuTest, AChoiceWithoutMessagesIsAMark) {
    fMenu->SetRadioMode(true);
    Show();
    Run([&] { fMenu->Go(BPoint(100, 100), false, false, true); });
    EXPECT_TRUE(Choose({"Two"}));
    Close();
    EXPECT_TRUE(Received('two ').empty());
    fWindow.Do([&] { EXPECT_EQ(fMenu->FindMarked(), fMenu->ItemAt(1)); });
    EXPECT_FALSE(fGone);
    delete fMenu;
}

TEST_F(PopUpMenuTest, OpensAgain) {
    Show();
    for (int round = 0; round < 3; round++) {
        Open(BPoint(110.0F + static_cast<float>(round), 100));
        EXPECT_EQ(Shown().where.x, 10 + round);
        Close();
        EXPECT_FALSE(IsOnScreen());
        fWindow.Do([&] { EXPECT_EQ(fMenu->Window(), nullptr); });
    }
    delete fMenu;
}

TEST_F(PopUpMenuTest, OpenedAnewItMoves) {
    fMenu->SetAsyncAutoDestruct(true);
    Show();
    Open();
    Open(BPoint(120, 130));
    EXPECT_EQ(Shown().where, BPoint(20, 30));
    EXPECT_EQ(fWindow.Screen().OpenedMenus().size(), 2U);
    // That it was closed for that crosses it on the way.
    Close();
    EXPECT_TRUE(IsOnScreen());
    EXPECT_TRUE(Choose({"One"}));
    Close();
    EXPECT_TRUE(fGone);
    EXPECT_EQ(Received('one ').size(), 1U);
}

TEST_F(PopUpMenuTest, TakesChangesWhileItIsOpen) {
    fMenu->SetAsyncAutoDestruct(true);
    Show();
    Open();
    fWindow.Do([&] {
        delete fMenu->RemoveItem(int32{0});
        fMenu->ItemAt(0)->SetEnabled(false);
    });
    ASSERT_EQ(Shown().items.size(), 2U);
    EXPECT_EQ(Shown().items[0].label, "Two");
    EXPECT_FALSE(Shown().items[0].enabled);
    EXPECT_FALSE(Choose({"Two"}));
    Close();
    EXPECT_TRUE(fGone);
}

TEST_F(PopUpMenuTest, AWindowThatEndsTakesItAlong) {
    {
        const TestWindow window(BRect(100, 100, 399, 299));
        auto* runner = new Runner;
        window->AddChild(runner);
        window->Show();
        runner->Run([&] { fMenu->Go(BPoint(150, 140), true, false, true); });
        EXPECT_TRUE(window.Screen().FindControl("Choices").has_value());
    }
    EXPECT_TRUE(recording::WaitFor([this] { return fGone; }));
}

TEST_F(PopUpMenuTest, MayBeDeletedWhileItIsOpen) {
    Show();
    Open();
    fWindow.Do([&] { delete fMenu; });
    EXPECT_TRUE(fGone);
    EXPECT_FALSE(IsOnScreen());
}

TEST_F(PopUpMenuTest, DoesNotOpenWhereItCannot) {
    const auto tries = [&](BPopUpMenu& menu, bool async) {
        menu.Go(BPoint(100, 100), true, false, async);
        EXPECT_EQ(menu.Window(), nullptr);
    };
    tries(*fMenu, true);  // this is no window's thread
    Show();
    Run([&] {
        tries(*fMenu, false);
        BPopUpMenu empty("Empty");
        tries(empty, true);
    });
    auto* field = new BMenu("Super");
    field->AddItem(fMenu);
    Run([&] { tries(*fMenu, true); });
    EXPECT_TRUE(fWindow.Screen().OpenedMenus().empty());
    delete field;
    EXPECT_TRUE(fGone);
}

TEST_F(PopUpMenuTest, AHiddenWindowOpensNone) {
    Show();
    Run([&] {
        fReceiver->Hide();
        fMenu->Go(BPoint(100, 100), true, false, true);
        EXPECT_EQ(fMenu->Window(), nullptr);
    });
    delete fMenu;
}
