#include <thread>

#include "tests/kits/menus/MenuWindow.h"

using namespace BPrivate;

namespace {

using MenuBarTest = MenuWindowTest;

/// Builds its menu anew, as for another language, when it hears of it.
class RebuildingView : public BView {
public:
    explicit RebuildingView(BMenuBar* bar)
        : BView(BRect(0, 100, 99, 199), "rebuilding", B_FOLLOW_NONE, 0), fBar(bar) {}

    void MessageReceived(BMessage* message) override {
        if (message->what != 'open') {
            BView::MessageReceived(message);
            return;
        }
        while (BMenu* menu = fBar->SubmenuAt(0)) {
            EXPECT_TRUE(fBar->RemoveItem(menu));
            delete menu;
        }
        for (const char* label : {"Datei", "Ansicht"}) {
            auto* menu = new BMenu(label);
            fBar->AddItem(menu);
            menu->AddItem(new BMenuItem("eins", nullptr));
            menu->AddSeparatorItem();
            menu->AddItem(new BMenuItem("zwei", nullptr));
        }
    }

private:
    BMenuBar* fBar;
};

}  // namespace

TEST_F(MenuBarTest, StandsAtTheTopOfItsWindow) {
    EXPECT_EQ(fBar->Frame(), BRect(0, 0, 299, 22));
    EXPECT_EQ(OnScreen("bar").place.frame, BRect(0, 0, 299, 22));
    Show();
    fWindow.Do([&] { fReceiver->ResizeTo(399, 199); });
    fWindow.Do([&] { EXPECT_EQ(fBar->Frame(), BRect(0, 0, 399, 22)); });
}

TEST_F(MenuBarTest, AnEmptyOneIsAsHigh) {
    auto* panel = new BView(BRect(50, 50, 149, 149), "panel", 0, 0);
    auto* empty = new BMenuBar(BRect(10, 5, 0, 0), "empty");
    panel->AddChild(empty);
    auto* fixed = new BMenuBar(BRect(0, 50, 20, 60), "fixed", 0, B_ITEMS_IN_ROW, false);
    panel->AddChild(fixed);
    Add(panel);
    EXPECT_EQ(empty->Frame(), BRect(10, 5, 99, 27));
    EXPECT_EQ(fixed->Frame(), BRect(0, 50, 20, 60));
}

TEST_F(MenuBarTest, TheFirstIsTheKeyMenuBar) {
    EXPECT_EQ(fReceiver->KeyMenuBar(), fBar);
    BMenuBar* second = Add(new BMenuBar(BRect(0, 30, 0, 0), "second"));
    EXPECT_EQ(fReceiver->KeyMenuBar(), fBar);
    fReceiver->SetKeyMenuBar(second);
    EXPECT_EQ(fReceiver->KeyMenuBar(), second);
    delete second;
    EXPECT_EQ(fReceiver->KeyMenuBar(), nullptr);
    fReceiver->RemoveChild(fBar);
    EXPECT_EQ(fReceiver->KeyMenuBar(), nullptr);
    Add(fBar);
    EXPECT_EQ(fReceiver->KeyMenuBar(), fBar);
}

TEST_F(MenuBarTest, ShowsItsItems) {
    fFile->AddSeparatorItem();
    auto* recent = new BMenu("Recent");
    recent->SetRadioMode(true);
    recent->AddItem(Item("one", 'one ', '0', B_SHIFT_KEY));
    recent->ItemAt(0)->SetMarked(true);
    fFile->AddItem(new BMenuItem(recent, new BMessage('rcnt')));
    fFile->ItemAt(0)->SetShortcut('o', 0);
    fFile->ItemAt(1)->SetEnabled(false);
    Show();

    const auto items = Shown();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].label, "File");
    EXPECT_TRUE(items[0].hasSubmenu);
    EXPECT_FALSE(items[0].command);
    EXPECT_TRUE(items[1].hasSubmenu);
    EXPECT_TRUE(items[1].items.empty());
    ASSERT_EQ(items[0].items.size(), 4U);
    const MenuItemState& open = items[0].items[0];
    EXPECT_EQ(open.label, "Open");
    EXPECT_EQ(open.shortcut, 'O');
    EXPECT_EQ(open.modifiers, uint32(B_COMMAND_KEY));
    EXPECT_EQ(open.trigger, 0);
    EXPECT_TRUE(open.command);
    EXPECT_FALSE(open.hasSubmenu);
    EXPECT_FALSE(items[0].items[1].enabled);
    EXPECT_TRUE(items[0].items[2].separator);
    EXPECT_FALSE(items[0].items[2].command);
    EXPECT_EQ(items[0].items[2].trigger, -1);
    const MenuItemState& title = items[0].items[3];
    EXPECT_TRUE(title.command);
    ASSERT_EQ(title.items.size(), 1U);
    EXPECT_TRUE(title.items[0].radio);
    EXPECT_TRUE(title.items[0].marked);
    EXPECT_EQ(title.items[0].shortcut, '0');
    EXPECT_EQ(title.items[0].modifiers, uint32(B_COMMAND_KEY | B_SHIFT_KEY));
    EXPECT_NE(title.items[0].id, title.id);
}

TEST_F(MenuBarTest, ManyChangesAreShownOnce) {
    const int32 before = CountShown();
    for (int i = 0; i < 10; i++)
        fFile->AddItem(Item("more", 'more'));
    EXPECT_EQ(CountShown(), before);
    Show();
    EXPECT_EQ(CountShown(), before + 1);
    EXPECT_EQ(Shown()[0].items.size(), 12U);
    fWindow.Do([&] {
        fFile->RemoveItems(2, 10, true);
        fFile->ItemAt(0)->SetLabel("Load");
    });
    EXPECT_EQ(CountShown(), before + 2);
    EXPECT_EQ(Shown()[0].items.size(), 2U);
    EXPECT_EQ(Shown()[0].items[0].label, "Load");
}

TEST_F(MenuBarTest, EveryChangeIsShown) {
    Show();
    BMenuItem* const open = fFile->ItemAt(0);
    const auto changed = [&](auto change) {
        const std::vector<MenuItemState> before = Shown();
        fWindow.Do(change);
        return Shown() != before;
    };
    EXPECT_TRUE(changed([&] { open->SetLabel("Load"); }));
    EXPECT_FALSE(changed([&] { open->SetLabel("Load"); }));
    EXPECT_TRUE(changed([&] { open->SetEnabled(false); }));
    EXPECT_TRUE(changed([&] { open->SetMarked(true); }));
    EXPECT_TRUE(changed([&] { open->SetTrigger('d'); }));
    EXPECT_TRUE(changed([&] { open->SetShortcut('L', 0); }));
    EXPECT_TRUE(changed([&] { fFile->SetRadioMode(true); }));
    EXPECT_TRUE(changed([&] { fFile->SetEnabled(false); }));
    EXPECT_TRUE(changed([&] { fFile->Superitem()->SetMessage(new BMessage('file')); }));
    EXPECT_TRUE(changed([&] { delete open; }));
    EXPECT_TRUE(changed([&] { fFile->AddSeparatorItem(); }));
    EXPECT_TRUE(changed([&] { delete fBar->SubmenuAt(1); }));
    EXPECT_TRUE(changed([&] { fBar->AddItem(new BMenu("Help"), 0); }));
    EXPECT_TRUE(changed([&] { fBar->RemoveItems(0, 3, true); }));
    EXPECT_TRUE(Shown().empty());
}

TEST_F(MenuBarTest, AnotherThreadsChangesAreShown) {
    Show();
    std::thread([&] {
        ASSERT_TRUE(fReceiver->Lock());
        fFile->ItemAt(0)->SetLabel("Load");
        fFile->ItemAt(1)->SetLabel("End");
        fReceiver->Unlock();
    }).join();
    EXPECT_TRUE(recording::WaitFor([&] {
        const auto items = Shown();
        return items[0].items[0].label == "Load" && items[0].items[1].label == "End";
    }));
}

TEST_F(MenuBarTest, ADisabledBarIsDisabled) {
    EXPECT_TRUE(OnScreen("bar").place.enabled);
    fBar->SetEnabled(false);
    Show();
    EXPECT_FALSE(OnScreen("bar").place.enabled);
    EXPECT_FALSE(Shown()[0].items[0].enabled);
}

TEST_F(MenuBarTest, AnItemSendsToTheWindow) {
    Show();
    ASSERT_TRUE(Choose({"File", "Open"}));
    const auto messages = Received('open');
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_GT(messages[0].GetInt64("when", 0), 0);
    EXPECT_EQ(messages[0].GetPointer("source"), fFile->ItemAt(0));
    EXPECT_EQ(messages[0].GetInt32("index", -1), 0);
    EXPECT_TRUE(messages[0].HasMessenger("be:sender"));
}

TEST_F(MenuBarTest, TheFocusIsAskedFirst) {
    auto* view = Add(new TakingView);
    view->taken = 'open';
    fFile->AddItem(Item("Other", 'othr'));
    view->MakeFocus();
    Show();
    Choose({"File", "Open"});
    Choose({"File", "Other"});
    EXPECT_EQ(Received('othr').size(), 1U);
    EXPECT_TRUE(Received('open').empty());
    fWindow.Do([&] { EXPECT_EQ(view->last.GetPointer("source"), fFile->ItemAt(0)); });
}

TEST_F(MenuBarTest, AnExplicitTargetIsKept) {
    auto* view = Add(new TakingView);
    view->taken = 'open';
    EXPECT_EQ(fFile->SetTargetForItems(view), B_OK);
    BMenuItem* late = Item("Late", 'late');
    fFile->AddItem(late);
    EXPECT_EQ(fFile->ItemAt(0)->Target(), view);
    EXPECT_FALSE(late->Messenger().IsValid());
    Show();
    Choose({"File", "Open"});
    EXPECT_TRUE(Received('open').empty());
    fWindow.Do([&] { EXPECT_EQ(view->last.what, uint32('open')); });

    BView stranger(BRect(), "stranger", 0, 0);
    fWindow.Do([&] { EXPECT_EQ(fFile->SetTargetForItems(&stranger), B_BAD_HANDLER); });
    fWindow.Do([&] {
        EXPECT_EQ(fFile->SetTargetForItems(BMessenger(fReceiver)), B_OK);
        EXPECT_EQ(late->Target(), fReceiver);
        (void)fFile->SetTargetForItems(nullptr);
        EXPECT_FALSE(late->Messenger().IsValid());
    });
}

TEST_F(MenuBarTest, QuitEndsTheWindowWhoeverHasTheFocus) {
    class Asked : public BWindow {
    public:
        explicit Asked(Log& log)
            : BWindow(BRect(0, 0, 99, 99), "asked", B_TITLED_WINDOW, 0), fLog(log) {}
        bool QuitRequested() override {
            fLog.Add(CurrentMessage() != nullptr ? "asked" : "no message");
            return fLog.Entries().size() == 2;
        }

    private:
        Log& fLog;
    };
    Log log;
    auto* window = new Asked(log);
    auto* bar = new BMenuBar(BRect(), "bar");
    auto* file = new BMenu("File");
    file->AddItem(Item("Quit", B_QUIT_REQUESTED));
    bar->AddItem(file);
    window->AddChild(bar);
    auto* view = new TakingView;
    view->taken = B_QUIT_REQUESTED;
    window->AddChild(view);
    view->MakeFocus();
    const auto screen = recording::TheRecordingDisplay().Windows().back();
    window->Show();
    const auto id = screen->FindControl("bar")->id;
    EXPECT_TRUE(screen->ChooseItem(id, {"File", "Quit"}));
    EXPECT_TRUE(recording::WaitFor([&] { return log.Entries().size() == 1; }));
    EXPECT_TRUE(screen->IsOpen());
    // A view that is addressed itself may still take it.
    EXPECT_EQ(BMessenger(view).SendMessage(B_QUIT_REQUESTED), B_OK);
    EXPECT_TRUE(screen->ChooseItem(id, {"File", "Quit"}));
    EXPECT_TRUE(recording::WaitFor([&] { return !screen->IsOpen(); }));
    EXPECT_THAT(log.Entries(), testing::ElementsAre("asked", "asked"));
}

TEST_F(MenuBarTest, AChoiceCountsHoweverLate) {
    Show();
    const recording::Control before = OnScreen("bar");
    const int32 open = Shown()[0].items[0].id;
    fWindow.Do([&] { fFile->ItemAt(1)->SetLabel("End"); });
    BMessage late(kControlChanged);
    (void)late.AddInt32("control", before.id);
    (void)late.AddInt32("serial", before.serial);
    (void)late.AddInt32("item", open);
    fWindow.Screen().Send(late);
    EXPECT_EQ(Received('open').size(), 1U);

    // Unless its item is gone, or cannot be chosen any more.
    fWindow.Do([&] { fFile->ItemAt(0)->SetEnabled(false); });
    fWindow.Screen().Send(late);
    EXPECT_EQ(Received('open').size(), 1U);
    fWindow.Do([&] { delete fFile->ItemAt(0); });
    fWindow.Screen().Send(late);
    BMessage empty(kControlChanged);
    (void)empty.AddInt32("control", before.id);
    (void)empty.AddInt32("serial", before.serial + 100);
    fWindow.Screen().Send(empty);
    EXPECT_EQ(Received('open').size(), 1U);
}

TEST_F(MenuBarTest, AChoiceMayRebuildTheMenu) {
    auto* view = Add(new RebuildingView(fBar));
    view->MakeFocus();
    Show();
    const int32 before = CountShown();
    ASSERT_TRUE(Choose({"File", "Open"}));
    EXPECT_TRUE(recording::WaitFor([&] { return CountShown() > before; }));
    fWindow.Settle();
    EXPECT_EQ(CountShown(), before + 1);
    const auto items = Shown();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[1].label, "Ansicht");
    EXPECT_EQ(items[1].items.size(), 3U);
}

TEST_F(MenuBarTest, OneThatLeavesIsShownNoMore) {
    Show();
    fWindow.Do([&] {
        fFile->ItemAt(0)->SetLabel("Load");
        fBar->RemoveSelf();
    });
    EXPECT_TRUE(fWindow.Screen().Controls().empty());
    fFile->ItemAt(0)->SetLabel("Open");
    EXPECT_EQ(fFile->ItemAt(0)->Invoke(), B_BAD_VALUE);
    delete fBar;
}

TEST(MenuHooksTest, AreToldOfTheFirstMenuAndTheLast) {
    class Hooked : public BWindow {
    public:
        explicit Hooked(Log& log)
            : BWindow(BRect(0, 0, 99, 99), "hooked", B_TITLED_WINDOW, 0), fLog(log) {}
        void MenusBeginning() override { fLog.Add("beginning"); }
        void MenusEnded() override { fLog.Add("ended"); }

    private:
        Log& fLog;
    };
    Log log;
    const TestWindow window(new Hooked(log));
    window->Show();
    for (const bool open : {false, true, true, false, false, true}) {
        BMessage message(kMenusOpen);
        (void)message.AddInt32("control", 1);
        (void)message.AddBool("open", open);
        window.Screen().Send(message);
    }
    window.Settle();
    EXPECT_THAT(log.Entries(), testing::ElementsAre("beginning", "ended", "beginning"));
}
