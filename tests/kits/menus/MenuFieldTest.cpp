#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>

#include "tests/kits/menus/MenuWindow.h"

using namespace BPrivate;

namespace {

class MenuFieldTest : public ControlTest {
protected:
    BMenuField* AddField(const char* label = "Format:") {
        auto* menu = new BPopUpMenu("Select...");
        menu->AddItem(Item("one", 'one '));
        menu->AddItem(Item("two", 'two '));
        return Add(new BMenuField(BRect(10, 10, 209, 34), "field", label, menu));
    }
    MenuFieldState Shown() const { return StateOf<MenuFieldState>("Format:"); }
    bool Choose(const char* label) const {
        return fWindow.Screen().ChooseItem(OnScreen("Format:").id, {label});
    }
};

}  // namespace

TEST_F(MenuFieldTest, ShowsItsState) {
    BMenuField* field = AddField();
    const MenuFieldState state = Shown();
    EXPECT_EQ(state.title, "Select...");
    EXPECT_EQ(state.divider, 99);
    EXPECT_FALSE(state.fixedSize);
    ASSERT_EQ(state.items.size(), 2U);
    EXPECT_TRUE(state.items[0].radio);
    EXPECT_TRUE(OnScreen("Format:").place.navigable);
    EXPECT_EQ(OnScreen("Format:").place.name, "Format:");
    field->SetDivider(60);
    EXPECT_EQ(Shown().divider, 60);
    field->SetEnabled(false);
    EXPECT_FALSE(OnScreen("Format:").place.enabled);
    field->SetEnabled(true);
    field->Menu()->SetEnabled(false);
    EXPECT_FALSE(OnScreen("Format:").place.enabled);
    field->SetLabel("Other:");
    EXPECT_EQ(OnScreen("Other:").place.name, "Other:");
    field->SetLabel(nullptr);
    EXPECT_EQ(OnScreen("field").place.name, "");
}

TEST_F(MenuFieldTest, WithoutALabelItBeginsAtTheLeft) {
    EXPECT_EQ(BMenuField(BRect(0, 0, 99, 9), "", nullptr, new BPopUpMenu("")).Divider(), 0);
    EXPECT_TRUE(std::get<MenuFieldState>([&] {
        Add(new BMenuField(BRect(0, 50, 99, 74), "fixed", "Format:", new BMenu("m"), true));
        return OnScreen("Format:").state;
    }())
                    .fixedSize);
}

TEST_F(MenuFieldTest, OneWithoutAMenuIsEmpty) {
    BMenuField* field = Add(new BMenuField(BRect(0, 0, 99, 9), "field", "Format:", nullptr));
    EXPECT_EQ(field->MenuItem(), nullptr);
    EXPECT_TRUE(Shown().items.empty());
    EXPECT_TRUE(OnScreen("Format:").place.enabled);
}

TEST_F(MenuFieldTest, TheChosenItemIsMarkedAndSent) {
    BMenuField* field = AddField();
    EXPECT_EQ(field->MenuItem(), nullptr);
    Show();
    ASSERT_TRUE(Choose("two"));
    EXPECT_EQ(Received('two ').size(), 1U);
    fWindow.Do([&] { EXPECT_EQ(field->MenuItem(), field->Menu()->ItemAt(1)); });
    EXPECT_TRUE(Shown().items[1].marked);
    ASSERT_TRUE(Choose("one"));
    EXPECT_EQ(Received('one ').size(), 1U);
    EXPECT_TRUE(Shown().items[0].marked);
    EXPECT_FALSE(Shown().items[1].marked);
}

TEST_F(MenuFieldTest, EveryChoiceIsAnswered) {
    BMenuField* field = AddField();
    Show();
    const auto choose = [&](int32 item, int32 choice) {
        BMessage event(kControlChanged);
        event.AddInt32("control", OnScreen("Format:").id);
        event.AddInt32("serial", OnScreen("Format:").serial);
        event.AddInt32("item", item);
        event.AddInt32("choice", choice);
        fWindow.Screen().Send(event);
        fWindow.Settle();
    };
    choose(Shown().items[1].id, 5);
    EXPECT_EQ(Shown().choice, 5);
    EXPECT_TRUE(Shown().items[1].marked);
    // Also one that changes nothing, for whatever reason.
    choose(Shown().items[1].id, 6);
    EXPECT_EQ(Shown().choice, 6);
    choose(-77, 7);
    EXPECT_EQ(Shown().choice, 7);
    fWindow.Do([&] { field->SetEnabled(false); });
    choose(Shown().items[0].id, 8);
    EXPECT_EQ(Shown().choice, 8);
    EXPECT_TRUE(Shown().items[1].marked);
}

TEST_F(MenuFieldTest, ADisabledOneIsNotChosenFrom) {
    BMenuField* field = AddField();
    Show();
    fWindow.Do([&] { field->SetEnabled(false); });
    ASSERT_TRUE(Choose("two"));
    EXPECT_TRUE(Received('two ').empty());
    fWindow.Do([&] { EXPECT_EQ(field->MenuItem(), nullptr); });
}

TEST_F(MenuFieldTest, ChangesOfItsMenuAreShownOnce) {
    BMenuField* field = AddField();
    Show();
    const int32 before = OnScreen("Format:").serial;
    fWindow.Do([&] {
        for (const char* label : {"three", "four", "five"})
            field->Menu()->AddItem(Item(label, 'more'));
        field->Menu()->ItemAt(3)->SetMarked(true);
    });
    EXPECT_EQ(OnScreen("Format:").serial, before + 1);
    EXPECT_EQ(Shown().items.size(), 5U);
    EXPECT_TRUE(Shown().items[3].marked);
}

TEST_F(MenuFieldTest, TakesTheFocus) {
    BMenuField* field = AddField();
    field->MakeFocus();
    EXPECT_TRUE(OnScreen("Format:").place.focused);
    EXPECT_EQ(fReceiver->CurrentFocus(), field);
    Show();
    // What it does not know goes on to the window.
    Choose("one");
    EXPECT_EQ(Received('one ').size(), 1U);
}

TEST_F(MenuFieldTest, HasRoomForItsLongestItem) {
    BMenuField* field = AddField();
    float width = 0;
    float height = 0;
    field->GetPreferredSize(&width, &height);
    const float before = width;
    field->Menu()->AddItem(new BMenuItem("a much longer item", nullptr));
    field->GetPreferredSize(&width, nullptr);
    EXPECT_GT(width, before);
    EXPECT_GT(height, 0);
}

TEST_F(MenuFieldTest, ItsShortcutsAreNotKeys) {
    BMenuField* field = AddField();
    field->Menu()->ItemAt(0)->SetShortcut('1', 0);
    Show();
    fWindow.Screen().PressKey('1', B_COMMAND_KEY);
    EXPECT_TRUE(Received('one ').empty());
}
