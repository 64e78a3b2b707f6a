#include <QAccessible>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>

#include "tests/kits/desktop/Input.h"
#include "tests/kits/desktop/Screen.h"

using namespace BPrivate;
using namespace desktop_test;
using testing::ElementsAre;

namespace {

constexpr ControlId kBar = 1;

MenuItemState Item(int32 id, const char* label) {
    MenuItemState item;
    item.id = id;
    item.label = label;
    return item;
}

MenuItemState SubmenuOf(int32 id, const char* label, std::vector<MenuItemState> items) {
    MenuItemState item = Item(id, label);
    item.hasSubmenu = true;
    item.command = false;
    item.items = std::move(items);
    return item;
}

MenuItemState Separator(int32 id) {
    MenuItemState item = Item(id, "");
    item.separator = true;
    return item;
}

class Menus : public testing::Test {
protected:
    void SetUp() override { fScreen.Show(); }

    void Set(std::vector<MenuItemState> items) {
        fScreen.Window().SetControl(kBar, MenuBarState{std::move(items)}, ++fSerial);
        if (fSerial == 1) {
            ControlPlace place;
            place.name = "MainMenu";
            place.frame = BRect(0, 0, 299, 24);
            fScreen.Window().PlaceControl(kBar, place);
        }
        Pump();
    }

    /// A bar with one menu of those items.
    void SetMenu(std::vector<MenuItemState> items) {
        Set({SubmenuOf(1, "Menu", std::move(items))});
    }

    /// A bar as a program has it.
    void SetUsual() {
        MenuItemState open = SubmenuOf(10, "Open...", {Item(11, "a.png"), Item(12, "b.png")});
        open.command = true;
        open.trigger = 0;
        MenuItemState quit = Item(14, "Quit");
        quit.trigger = 0;
        MenuItemState file = SubmenuOf(1, "File", {open, Separator(13), quit});
        file.trigger = 0;
        MenuItemState off = Item(20, "Off");
        off.enabled = false;
        Set({file, SubmenuOf(2, "View", {off, Item(21, "On"), SubmenuOf(22, "More", {})})});
    }

    QMenuBar& Bar() { return *fScreen.Find<QMenuBar>("MainMenu"); }
    static QMenu& MenuOf(const QWidget& owner, int index) {
        return *owner.actions()[index]->menu();
    }
    QMenu& FirstMenu() { return MenuOf(Bar(), 0); }
    QAction& Entry(int index) { return *FirstMenu().actions()[index]; }

    void Open(int32 item) {
        fScreen.Window().OpenMenu(kBar, item);
        Pump();
    }
    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(fScreen.Widget().windowHandle(), key, modifiers);
    }
    static void Click(QMenu& menu, int index) {
        const QPoint where = menu.actionGeometry(menu.actions()[index]).center();
        QTest::mouseMove(&menu, where);
        QTest::mouseClick(&menu, Qt::LeftButton, {}, where);
    }

    /// The items chosen so far.
    std::vector<int32> Chosen() {
        Settle();
        std::vector<int32> items;
        for (const BMessage& change : fScreen.Messages().All(kControlChanged))
            items.push_back(change.GetInt32("item", -1));
        return items;
    }
    /// What was told of menus being open.
    std::vector<bool> Sessions() {
        Settle();
        std::vector<bool> open;
        for (const BMessage& told : fScreen.Messages().All(kMenusOpen))
            open.push_back(told.GetBool("open", false));
        return open;
    }
    /// Until all that was sent has arrived.
    void Settle() {
        Pump();
        BMessenger(&fScreen.Messages()).SendMessage('last');
        fScreen.Expect('last', ++fSettled);
    }

    Screen fScreen;
    int32 fSerial = 0;
    size_t fSettled = 0;
};

TEST_F(Menus, ShowTheirItems) {
    MenuItemState marked = Item(3, "Marked");
    marked.marked = true;
    MenuItemState radio = Item(4, "Radio");
    radio.radio = true;
    MenuItemState off = Item(5, "Off");
    off.enabled = false;
    SetMenu({Item(2, "Plain"), marked, radio, off, Separator(6), SubmenuOf(7, "Sub", {})});
    EXPECT_EQ(Bar().actions()[0]->text().toStdString(), "Menu");
    EXPECT_FALSE(Entry(0).isCheckable());
    EXPECT_TRUE(Entry(1).isChecked());
    EXPECT_EQ(Entry(1).actionGroup(), nullptr);
    EXPECT_TRUE(Entry(2).isCheckable());
    EXPECT_FALSE(Entry(2).isChecked());
    ASSERT_NE(Entry(2).actionGroup(), nullptr);
    EXPECT_TRUE(Entry(2).actionGroup()->isExclusive());
    EXPECT_FALSE(Entry(3).isEnabled());
    EXPECT_TRUE(Entry(4).isSeparator());
    EXPECT_NE(Entry(5).menu(), nullptr);
}

struct Spelling {
    const char* label;
    int32 trigger;
    const char* text;
};

class MenuLabels : public Menus, public testing::WithParamInterface<Spelling> {};

TEST_P(MenuLabels, AreShownAsTheyAre) {
    MenuItemState item = Item(2, GetParam().label);
    item.trigger = GetParam().trigger;
    SetMenu({item});
    EXPECT_EQ(Entry(0).text().toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, MenuLabels,
    testing::Values(Spelling{"Open...", 0, "&Open..."}, Spelling{"Quit (Q)", 6, "Quit (&Q)"},
        Spelling{"Save & Quit", -1, "Save && Quit"}, Spelling{"A & B", 4, "A && &B"},
        Spelling{"A & B", 2, "A && B"}, Spelling{"a\tb\nc", -1, "a b c"},
        Spelling{"Open", 4, "Open"}, Spelling{"Open", 4000, "Open"}, Spelling{"", 0, ""},
        // In the middle of a character there is none to underline.
        Spelling{"\xc3\xa4rger", 1, "\xc3\xa4rger"}, Spelling{"\xc3\xa4rger", 0, "&\xc3\xa4rger"},
        Spelling{"\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d", -1, "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"}));

struct ShortcutText {
    char key;
    uint32 modifiers;
    const char* text;
};

class MenuShortcuts : public Menus, public testing::WithParamInterface<ShortcutText> {};

TEST_P(MenuShortcuts, AreShownByTheNamesOfTheirKeys) {
    MenuItemState item = Item(2, "Item");
    item.shortcut = GetParam().key;
    item.modifiers = GetParam().modifiers;
    SetMenu({item});
    EXPECT_EQ(
        Entry(0).shortcut().toString(QKeySequence::NativeText).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(All, MenuShortcuts,
    testing::Values(ShortcutText{'O', B_COMMAND_KEY, "Ctrl+O"},
        ShortcutText{'I', B_COMMAND_KEY | B_SHIFT_KEY, "Ctrl+Shift+I"},
        ShortcutText{'M', B_COMMAND_KEY | B_CONTROL_KEY, "Ctrl+Alt+M"},
        ShortcutText{'M', B_COMMAND_KEY | B_OPTION_KEY, "Meta+Ctrl+M"},
        ShortcutText{'1', B_COMMAND_KEY, "Ctrl+1"}, ShortcutText{'q', B_COMMAND_KEY, "Ctrl+Q"},
        ShortcutText{B_DELETE, B_COMMAND_KEY, "Ctrl+Del"},
        ShortcutText{B_LEFT_ARROW, B_COMMAND_KEY, "Ctrl+Left"}, ShortcutText{0, 0, ""},
        ShortcutText{'\xe4', B_COMMAND_KEY, ""}));

std::vector<std::string> Texts(const QWidget& owner) {
    std::vector<std::string> texts;
    for (const QAction* entry : owner.actions())
        texts.push_back(entry->text().toStdString());
    return texts;
}

TEST_F(Menus, FollowTheirItems) {
    const char* names[] = {"", "1", "2", "3", "4", "5", "6"};
    const std::vector<int> lists[] = {{2, 3, 4, 5}, {3, 4, 5}, {5, 3, 4}, {3, 4, 5}, {4, 2, 6, 1},
        {}, {1, 2, 3, 4, 5, 6}, {6, 5, 4, 3, 2, 1}, {2}};
    for (const std::vector<int>& list : lists) {
        std::vector<MenuItemState> items;
        std::vector<std::string> expected;
        for (const int id : list) {
            items.push_back(Item(100 + id, names[id]));
            expected.emplace_back(names[id]);
        }
        SetMenu(items);
        EXPECT_EQ(Texts(FirstMenu()), expected);
    }
    Set({SubmenuOf(8, "Other", {Item(9, "x")}), SubmenuOf(1, "Menu", {})});
    EXPECT_THAT(Texts(Bar()), ElementsAre("Other", "Menu"));
    EXPECT_THAT(Texts(FirstMenu()), ElementsAre("x"));
}

TEST_F(Menus, AnItemMayBecomeASubmenuAndBack) {
    SetMenu({Item(2, "Item")});
    SetMenu({SubmenuOf(2, "Sub", {Item(3, "below")})});
    EXPECT_THAT(Texts(FirstMenu()), ElementsAre("Sub"));
    EXPECT_THAT(Texts(MenuOf(FirstMenu(), 0)), ElementsAre("below"));
    SetMenu({Item(2, "Item")});
    EXPECT_THAT(Texts(FirstMenu()), ElementsAre("Item"));
    EXPECT_EQ(Entry(0).menu(), nullptr);
}

TEST_F(Menus, AnOpenMenuStaysAsItIsWhenItsItemsChange) {
    SetMenu({Item(2, "One"), Item(3, "Two"), Item(4, "Three")});
    Open(1);
    Type(Qt::Key_Down);
    const QAction* highlighted = FirstMenu().activeAction();
    EXPECT_EQ(highlighted->text().toStdString(), "Two");
    MenuItemState marked = Item(3, "Two");
    marked.marked = true;
    SetMenu({Item(5, "New"), Item(2, "One"), marked, Item(6, "Last")});
    EXPECT_TRUE(FirstMenu().isVisible());
    EXPECT_EQ(FirstMenu().activeAction(), highlighted);
    EXPECT_TRUE(highlighted->isChecked());
    EXPECT_THAT(Texts(FirstMenu()), ElementsAre("New", "One", "Two", "Last"));
    EXPECT_THAT(Sessions(), ElementsAre(true));
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(3));
}

TEST_F(Menus, AnItemThatIsChosenIsTold) {
    SetMenu({Item(2, "One"), Item(3, "Two")});
    QTest::mouseClick(
        &Bar(), Qt::LeftButton, {}, Bar().actionGeometry(Bar().actions()[0]).center());
    ASSERT_TRUE(FirstMenu().isVisible());
    Click(FirstMenu(), 1);
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("control", 0), kBar);
    EXPECT_EQ(change.GetInt32("item", 0), 3);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
    EXPECT_THAT(Chosen(), ElementsAre(3));
}

TEST_F(Menus, MarksAreThoseGivenAndNotThoseClicked) {
    MenuItemState check = Item(2, "Check");
    check.marked = true;
    MenuItemState on = Item(3, "On");
    on.radio = on.marked = true;
    MenuItemState off = Item(4, "Off");
    off.radio = true;
    SetMenu({check, on, off});
    for (int i = 0; i < 3; ++i) {
        Open(1);
        Click(FirstMenu(), i);
        EXPECT_TRUE(Entry(0).isChecked());
        EXPECT_TRUE(Entry(1).isChecked());
        EXPECT_FALSE(Entry(2).isChecked());
    }
    EXPECT_THAT(Chosen(), ElementsAre(2, 3, 4));
    check.marked = on.marked = false;
    off.marked = true;
    SetMenu({check, on, off});
    EXPECT_FALSE(Entry(0).isCheckable());
    EXPECT_FALSE(Entry(1).isChecked());
    EXPECT_TRUE(Entry(2).isChecked());
}

TEST_F(Menus, ADisabledItemIsNotChosen) {
    MenuItemState off = Item(2, "Off");
    off.enabled = false;
    SetMenu({off, Item(3, "On")});
    Open(1);
    EXPECT_EQ(FirstMenu().activeAction(), &Entry(1));
    Click(FirstMenu(), 0);
    EXPECT_TRUE(Chosen().empty());
}

TEST_F(Menus, ADisabledMenuStaysSoWhenItsBarIsTurnedOffAndOn) {
    MenuItemState menu = SubmenuOf(1, "Menu", {Item(2, "x")});
    menu.enabled = false;
    Set({menu, SubmenuOf(3, "On", {Item(4, "y")})});
    ControlPlace place;
    place.name = "MainMenu";
    place.frame = BRect(0, 0, 299, 24);
    for (const bool enabled : {false, true}) {
        place.enabled = enabled;
        fScreen.Window().PlaceControl(kBar, place);
    }
    Open(1);
    EXPECT_FALSE(FirstMenu().isVisible());
    Open(0);
    EXPECT_TRUE(MenuOf(Bar(), 1).isVisible());
}

TEST_F(Menus, ACommandWithAMenuIsChosenByAClick) {
    SetUsual();
    Open(1);
    Click(FirstMenu(), 0);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_FALSE(MenuOf(FirstMenu(), 0).isVisible());
    EXPECT_THAT(Chosen(), ElementsAre(10));
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
}

TEST_F(Menus, ACommandWithAMenuIsChosenByAClickWhileThatIsOpen) {
    SetUsual();
    Open(1);
    QMenu& below = MenuOf(FirstMenu(), 0);
    QTest::mouseMove(&FirstMenu(), FirstMenu().actionGeometry(&Entry(0)).center());
    ASSERT_TRUE(PumpUntil([&] { return below.isVisible(); }));
    // The innermost menu has the pointer's events, wherever they are.
    const QPoint where = below.mapFromGlobal(
        FirstMenu().mapToGlobal(FirstMenu().actionGeometry(&Entry(0)).center()));
    QTest::mouseClick(&below, Qt::LeftButton, {}, where);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_THAT(Chosen(), ElementsAre(10));
}

TEST_F(Menus, ACommandWithAMenuIsChosenByKeys) {
    SetUsual();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_O}) {
        Open(1);
        EXPECT_EQ(FirstMenu().activeAction(), &Entry(0));
        Type(key);
        EXPECT_FALSE(FirstMenu().isVisible());
    }
    EXPECT_THAT(Chosen(), ElementsAre(10, 10, 10));
}

TEST_F(Menus, ACommandWithAMenuOpensItByTheRightKey) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Right);
    QMenu& below = MenuOf(FirstMenu(), 0);
    ASSERT_TRUE(below.isVisible());
    EXPECT_EQ(below.activeAction(), below.actions()[0]);
    Type(Qt::Key_Down);
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(12));
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
}

TEST_F(Menus, ATitleOnlyOpensItsMenu) {
    SetMenu({SubmenuOf(2, "Title", {Item(3, "x")})});
    Open(1);
    Type(Qt::Key_Return);
    EXPECT_TRUE(MenuOf(FirstMenu(), 0).isVisible());
    Type(Qt::Key_Left);
    EXPECT_FALSE(MenuOf(FirstMenu(), 0).isVisible());
    Click(FirstMenu(), 0);
    EXPECT_TRUE(PumpUntil([&] { return MenuOf(FirstMenu(), 0).isVisible(); }));
    EXPECT_TRUE(Chosen().empty());
}

TEST_F(Menus, LettersChooseInTheOpenMenu) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Q);
    EXPECT_THAT(Chosen(), ElementsAre(14));
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_UP).empty());
}

TEST_F(Menus, EscapeGivesTheKeysBackToTheContent) {
    SetUsual();
    const size_t activations = fScreen.Messages().All(B_WINDOW_ACTIVATED).size();
    Open(0);
    EXPECT_EQ(FirstMenu().activeAction(), &Entry(0));
    Type(Qt::Key_Right);
    ASSERT_TRUE(MenuOf(FirstMenu(), 0).isVisible());
    Type(Qt::Key_Escape);
    EXPECT_FALSE(MenuOf(FirstMenu(), 0).isVisible());
    EXPECT_TRUE(FirstMenu().isVisible());
    Type(Qt::Key_Escape);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_EQ(Bar().activeAction(), nullptr);
    Type(Qt::Key_Down);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), B_DOWN_ARROW);
    EXPECT_EQ(fScreen.Expect(B_KEY_UP).GetInt32("raw_char", 0), B_DOWN_ARROW);
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
    EXPECT_EQ(fScreen.Messages().All(B_KEY_DOWN).size(), 1U);
    EXPECT_EQ(fScreen.Messages().All(B_WINDOW_ACTIVATED).size(), activations);
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

TEST_F(Menus, ArrowsMoveBetweenMenusInOneSession) {
    SetUsual();
    Open(2);
    QMenu& view = MenuOf(Bar(), 1);
    ASSERT_TRUE(view.isVisible());
    // The first entry cannot be chosen.
    EXPECT_EQ(view.activeAction(), view.actions()[1]);
    Type(Qt::Key_Left);
    EXPECT_FALSE(view.isVisible());
    EXPECT_TRUE(FirstMenu().isVisible());
    Type(Qt::Key_Left);
    EXPECT_TRUE(view.isVisible());
    EXPECT_THAT(Sessions(), ElementsAre(true));
    Type(Qt::Key_Escape);
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
}

TEST_F(Menus, AKeyHeldAcrossAMenuIsReleasedWhereItWasPressed) {
    SetUsual();
    QWidget& window = fScreen.Widget();
    PressKey(window, {Qt::Key_Alt, "", {}, false, 56});
    PressKey(window, {Qt::Key_F, "f", Qt::AltModifier, false, 33});
    fScreen.Expect(B_KEY_DOWN);
    Open(1);
    ReleaseKey(window, {Qt::Key_F, "f", Qt::AltModifier, false, 33});
    ReleaseKey(window, {Qt::Key_Alt, "", Qt::AltModifier, false, 56});
    EXPECT_EQ(fScreen.Expect(B_KEY_UP).GetInt32("raw_char", 0), 'f');
    fScreen.Expect(B_UNMAPPED_KEY_UP);
    EXPECT_TRUE(FirstMenu().isVisible());
    // And what the menu takes is the menu's, however long it is held.
    const KeyAction enter{Qt::Key_Return, "\r", {}, false, 28};
    const KeyAction held{Qt::Key_Return, "\r", {}, true, 28};
    PressKey(window, enter);
    EXPECT_FALSE(FirstMenu().isVisible());
    ReleaseKey(window, held);
    PressKey(window, held);
    ReleaseKey(window, enter);
    Settle();
    EXPECT_EQ(fScreen.Messages().All(B_KEY_DOWN).size(), 1U);
    EXPECT_EQ(fScreen.Messages().All(B_KEY_UP).size(), 1U);
    PressKey(window, enter);
    fScreen.Expect(B_KEY_DOWN, 2);
    ReleaseKey(window, enter);
    fScreen.Expect(B_KEY_UP, 2);
}

TEST_F(Menus, QtOpensNoneByKeys) {
    SetUsual();
    MenuItemState item = Item(30, "Open");
    item.shortcut = 'O';
    item.modifiers = B_COMMAND_KEY;
    MenuItemState file = SubmenuOf(1, "File", {item});
    file.trigger = 0;
    Set({file});
    Type(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN).GetInt32("raw_char", 0), 'f');
    Type(Qt::Key_F10);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN, 2).GetInt32("key", 0), B_F10_KEY);
    Type(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN, 3).GetInt32("raw_char", 0), 'o');
    Type(Qt::Key_Alt);
    Type(Qt::Key_X);
    EXPECT_EQ(fScreen.Expect(B_KEY_DOWN, 4).GetInt32("raw_char", 0), 'x');
    EXPECT_TRUE(Sessions().empty());
    EXPECT_TRUE(Chosen().empty());
    Open(1);
    Type(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(Chosen().empty());
}

TEST_F(Menus, OpenOnTheScreenThoughTheirBarIsAboveIt) {
    SetUsual();
    const QRect screen = fScreen.Widget().screen()->geometry();
    fScreen.Window().SetFrame(BRect(0, -25, static_cast<float>(screen.width() - 1),
                                  static_cast<float>(screen.height() + 20)),
        1);
    ASSERT_TRUE(PumpUntil([&] { return Bar().mapToGlobal(QPoint(0, 0)).y() < screen.top(); }));
    Open(2);
    QMenu& view = MenuOf(Bar(), 1);
    ASSERT_TRUE(view.isVisible());
    EXPECT_EQ(view.geometry().top(), screen.top());
    EXPECT_TRUE(screen.contains(view.geometry()));
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(21));
}

TEST_F(Menus, AreClosedWithTheirBar) {
    SetUsual();
    Open(1);
    fScreen.Window().RemoveControl(kBar);
    Pump();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
    Type(Qt::Key_Down);
    fScreen.Expect(B_KEY_DOWN);
}

TEST_F(Menus, AreClosedWithTheirItem) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Right);
    Set({SubmenuOf(3, "File", {Item(31, "New")})});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
    Open(3);
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(31));
}

TEST_F(Menus, MayBeVeryLong) {
    std::vector<MenuItemState> items;
    for (int32 id = 1000; id < 11000; ++id)
        items.push_back(Item(id, ("Item " + std::to_string(id)).c_str()));
    SetMenu(items);
    Open(1);
    EXPECT_LE(FirstMenu().height(), fScreen.Widget().screen()->geometry().height());
    items[5000].marked = true;
    SetMenu(items);
    Type(Qt::Key_Up);
    EXPECT_EQ(FirstMenu().activeAction(), FirstMenu().actions().last());
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(10999));
}

TEST_F(Menus, LongOnesMayBeReplacedWhileTheyAreOpen) {
    std::vector<MenuItemState> items;
    for (int32 id = 1000; id < 3000; ++id)
        items.push_back(Item(id, "old"));
    SetMenu(items);
    Open(1);
    for (MenuItemState& item : items)
        item.id += 10000;
    SetMenu(items);
    EXPECT_EQ(FirstMenu().actions().size(), 2000);
    Open(1);
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(11000));
}

TEST_F(Menus, AreReadOut) {
    SetUsual();
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(&Bar());
    EXPECT_EQ(bar->text(QAccessible::Name).toStdString(), "MainMenu");
    EXPECT_EQ(bar->child(0)->text(QAccessible::Name).toStdString(), "File");
    QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(&FirstMenu());
    ASSERT_EQ(menu->childCount(), 3);
    QAccessibleInterface* open = menu->child(0);
    EXPECT_EQ(open->text(QAccessible::Name).toStdString(), "Open...");
    EXPECT_EQ(open->role(), QAccessible::MenuItem);
    EXPECT_EQ(menu->child(1)->role(), QAccessible::Separator);
    EXPECT_EQ(open->child(0)->object(), &MenuOf(FirstMenu(), 0));
    // Pressed while its menu is closed, and while it is open.
    const QString press = QAccessibleActionInterface::pressAction();
    open->actionInterface()->doAction(press);
    EXPECT_THAT(Chosen(), ElementsAre(10));
    Open(1);
    open->actionInterface()->doAction(press);
    EXPECT_THAT(Chosen(), ElementsAre(10, 10));
    EXPECT_THAT(Sessions(), ElementsAre(true, false));
    menu->child(2)->actionInterface()->doAction(press);
    EXPECT_THAT(Chosen(), ElementsAre(10, 10, 14));

    MenuItemState marked = Item(15, "Save & Quit\t");
    marked.marked = true;
    marked.shortcut = 'S';
    marked.modifiers = B_COMMAND_KEY;
    marked.trigger = 0;
    MenuItemState off = Item(16, "Off");
    off.enabled = false;
    SetMenu({marked, off});
    menu = QAccessible::queryAccessibleInterface(&FirstMenu());
    EXPECT_EQ(menu->child(0)->text(QAccessible::Name).toStdString(), "Save & Quit ");
    EXPECT_EQ(menu->child(0)->text(QAccessible::Accelerator).toStdString(), "Ctrl+S");
    EXPECT_TRUE(menu->child(0)->state().checked);
    EXPECT_TRUE(menu->child(1)->state().disabled);
    EXPECT_TRUE(menu->child(1)->actionInterface()->actionNames().isEmpty());
}

TEST_F(Menus, TheBarIsAsHighWithoutMenusAsWithThem) {
    const auto height = [](std::vector<MenuItemState> items) {
        return TheDisplay().PreferredSize(MenuBarState{std::move(items)}).y;
    };
    SetUsual();
    EXPECT_EQ(height({}), static_cast<float>(Bar().QMenuBar::sizeHint().height() - 1));
    EXPECT_EQ(height({}), height({SubmenuOf(1, "File", {}), SubmenuOf(2, "View", {})}));
    EXPECT_GT(height({}), 10);
}

}  // namespace
