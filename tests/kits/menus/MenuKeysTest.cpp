#include "tests/kits/menus/MenuWindow.h"

namespace {

class MenuKeysTest : public MenuWindowTest {
protected:
    void Press(char rawChar, uint32 modifiers = 0, int32 key = 0) const {
        fWindow.Screen().PressKey(rawChar, modifiers, key);
    }
    void PressF10(uint32 modifiers = 0) const { Press(B_FUNCTION_KEY, modifiers, B_F10_KEY); }
    /// The labels of the menus that were opened so far; "first" for the first, whichever it is.
    std::vector<std::string> Opened() const {
        fWindow.Settle();
        std::vector<std::string> labels;
        for (const auto& [bar, item] : fWindow.Screen().OpenedMenus()) {
            EXPECT_EQ(bar, OnScreen("bar").id);
            labels.push_back(item == 0 ? "first" : "none");
            for (const auto& state : Shown()) {
                if (state.id == item)
                    labels.back() = state.label;
            }
        }
        return labels;
    }
};

using Labels = std::vector<std::string>;

}  // namespace

TEST_F(MenuKeysTest, AShortcutInvokesItsItem) {
    auto* inner = new BMenu("Inner");
    inner->AddItem(Item("Deep", 'deep', 'd', B_SHIFT_KEY));
    fFile->AddItem(new BMenuItem(inner, new BMessage('innr')));
    inner->Superitem()->SetShortcut('I', B_COMMAND_KEY);
    Show();
    Press('o', B_COMMAND_KEY);
    EXPECT_EQ(Received('open').size(), 1U);
    Press('d', B_COMMAND_KEY | B_SHIFT_KEY);
    EXPECT_EQ(Received('deep').size(), 1U);
    Press('i', B_COMMAND_KEY);
    EXPECT_EQ(Received('innr').size(), 1U);

    Press('o');
    Press('o', B_CONTROL_KEY);
    Press('o', B_COMMAND_KEY | B_OPTION_KEY);
    Press('d', B_COMMAND_KEY);
    EXPECT_EQ(Received('open').size(), 1U);
    EXPECT_EQ(Received('deep').size(), 1U);
    Press('o', B_COMMAND_KEY | B_CAPS_LOCK | B_NUM_LOCK | B_LEFT_COMMAND_KEY);
    EXPECT_EQ(Received('open').size(), 2U);
}

TEST_F(MenuKeysTest, ItemsThatComeAndGoTakeTheirShortcutsAlong) {
    Show();
    fWindow.Do([&] { fFile->AddItem(Item("New", 'new ', 'N')); });
    Press('n', B_COMMAND_KEY);
    EXPECT_EQ(Received('new ').size(), 1U);
    fWindow.Do([&] { fFile->ItemAt(2)->SetShortcut('M', 0); });
    Press('n', B_COMMAND_KEY);
    EXPECT_EQ(Received('new ').size(), 1U);
    Press('m', B_COMMAND_KEY);
    EXPECT_EQ(Received('new ').size(), 2U);
    fWindow.Do([&] { delete fFile->ItemAt(2); });
    Press('m', B_COMMAND_KEY);
    EXPECT_EQ(Received('new ').size(), 2U);
}

TEST_F(MenuKeysTest, ADisabledItemLeavesItsShortcutToOthers) {
    fReceiver->AddShortcut('O', B_COMMAND_KEY, new BMessage('wind'));
    Show();
    Press('o', B_COMMAND_KEY);
    EXPECT_EQ(Received('open').size(), 1U);
    EXPECT_TRUE(Received('wind').empty());
    fWindow.Do([&] { fFile->SetEnabled(false); });
    Press('o', B_COMMAND_KEY);
    EXPECT_EQ(Received('open').size(), 1U);
    EXPECT_EQ(Received('wind').size(), 1U);
    fWindow.Do([&] { fBar->SubmenuAt(1)->AddItem(Item("Other", 'othr', 'O')); });
    Press('o', B_COMMAND_KEY);
    EXPECT_EQ(Received('othr').size(), 1U);
    EXPECT_EQ(Received('wind').size(), 1U);
}

TEST_F(MenuKeysTest, AMenusCloseIsNotTheWindows) {
    fFile->AddItem(Item("Close it", 'clse', 'W'));
    fFile->AddItem(Item("Quit it", 'quit', 'Q'));
    Show();
    Press('w', B_COMMAND_KEY);
    Press('q', B_COMMAND_KEY);
    EXPECT_EQ(Received('clse').size(), 1U);
    EXPECT_EQ(Received('quit').size(), 1U);
}

TEST_F(MenuKeysTest, OnlyTheKeyMenuBarHasShortcuts) {
    fReceiver->SetKeyMenuBar(nullptr);
    Show();
    Press('o', B_COMMAND_KEY);
    Press('f', B_CONTROL_KEY);
    PressF10();
    EXPECT_TRUE(Received('open').empty());
    EXPECT_EQ(Opened(), Labels{});
}

TEST_F(MenuKeysTest, ControlWithItsLetterOpensAMenu) {
    Show();
    Press('v', B_CONTROL_KEY);
    EXPECT_EQ(Opened(), Labels{"View"});
    Press('F', B_CONTROL_KEY | B_SHIFT_KEY);
    EXPECT_EQ(Opened(), (Labels{"View", "File"}));
    Press('x', B_CONTROL_KEY);
    Press('v');
    Press('v', B_CONTROL_KEY | B_OPTION_KEY);
    Press('v', B_CONTROL_KEY | B_COMMAND_KEY);
    Press('\xe4', B_CONTROL_KEY);
    EXPECT_EQ(Opened(), (Labels{"View", "File"}));
}

TEST_F(MenuKeysTest, ALetterIsTheOneItsLabelShows) {
    fBar->ItemAt(1)->SetLabel("View(I)");
    fBar->AddItem(Item("Go", 'go  '));
    Show();
    Press('v', B_CONTROL_KEY);
    Press('i', B_CONTROL_KEY);
    EXPECT_EQ(Opened(), Labels{"View(I)"});
    // One without a menu is chosen.
    Press('g', B_CONTROL_KEY);
    EXPECT_EQ(Received('go  ').size(), 1U);
    EXPECT_EQ(Opened(), Labels{"View(I)"});
}

TEST_F(MenuKeysTest, F10OpensTheFirst) {
    Show();
    PressF10(B_CONTROL_KEY);
    PressF10(B_SHIFT_KEY);
    Press(B_FUNCTION_KEY, 0, B_F9_KEY);
    EXPECT_EQ(Opened(), Labels{});
    PressF10(B_NUM_LOCK);
    EXPECT_EQ(Opened(), Labels{"first"});
}

TEST_F(MenuKeysTest, WhatAViewTakesOpensNothing) {
    auto* view = Add(new TakingView);
    view->takesKeys = true;
    view->MakeFocus();
    // It hears of all keys, and does not know what becomes of them.
    auto* watcher = Add(new TakingView);
    watcher->SetEventMask(B_KEYBOARD_EVENTS);
    Show();
    PressF10();
    Press('f', B_CONTROL_KEY);
    EXPECT_EQ(Opened(), Labels{});
    fWindow.Do([&] { view->takesKeys = false; });
    PressF10();
    Press('f', B_CONTROL_KEY);
    EXPECT_EQ(Opened(), (Labels{"first", "File"}));
}

TEST_F(MenuKeysTest, WhatCannotBeSeenIsNotOpened) {
    fFile->SetEnabled(false);
    Show();
    Press('f', B_CONTROL_KEY);
    fWindow.Do([&] { fBar->Hide(); });
    PressF10();
    fWindow.Do([&] {
        fBar->Show();
        fBar->SetEnabled(false);
    });
    PressF10();
    EXPECT_EQ(Opened(), Labels{});
}
