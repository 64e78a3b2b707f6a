#include <QAccessible>
#include <QActionGroup>
#include <gmock/gmock.h>

#include "tests/kits/desktop/MenuScreen.h"

using namespace BPrivate;
using namespace desktop_test;
using testing::ElementsAre;

namespace {

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
    EXPECT_THAT(OpenTold(), ElementsAre(true));
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
    EXPECT_EQ(change.GetInt32("modifiers", -1), 0);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
    EXPECT_THAT(Chosen(), ElementsAre(3));
}

TEST_F(Menus, ALongLabelIsCutInItsMiddleAndToldWhole) {
    for (const size_t length : {300, 1'000'000}) {
        const std::string label = "a & b" + std::string(length, 'W') + "<i> & c(0)";
        MenuItemState item = Item(2, label.c_str());
        item.trigger = static_cast<int32>(label.size()) - 2;
        item.shortcut = '0';
        item.modifiers = B_COMMAND_KEY | B_SHIFT_KEY;
        SetMenu({item, Item(3, "Short")});
        Open(1);
        const QString text = Entry(0).text();
        EXPECT_TRUE(text.startsWith(QStringLiteral("a && bWW"))) << text.toStdString();
        EXPECT_TRUE(text.contains(u'\u2026')) << text.toStdString();
        EXPECT_TRUE(text.endsWith(QStringLiteral("W<i> && c(&0)"))) << text.toStdString();
        EXPECT_LT(FirstMenu().width(), 800);
        // As markup only where the text's own is none.
        EXPECT_EQ(
            Entry(0).toolTip().contains(QStringLiteral("W&lt;i&gt; &amp; c(0)")), length < 1000);
        EXPECT_LT(Entry(0).toolTip().size(), 1000);
        EXPECT_EQ(
            QAccessible::queryAccessibleInterface(&Entry(0))->text(QAccessible::Name).toStdString(),
            label);
        EXPECT_TRUE(FirstMenu().toolTipsVisible());

        SetMenu({Item(2, "No longer"), Item(3, "Short")});
        EXPECT_EQ(Entry(0).text(), QStringLiteral("No longer"));
        EXPECT_EQ(Entry(0).toolTip(), QStringLiteral("No longer"));  // which is not shown
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&Entry(0))->text(QAccessible::Name),
            QStringLiteral("No longer"));
        FirstMenu().close();
    }
}

TEST_F(Menus, AnItemTellsTheModifiersOfItsChoice) {
    SetMenu({Item(2, "One"), Item(3, "Two")});
    Open(1);
    Type(Qt::Key_Return, Qt::AltModifier);
    const BMessage change = fScreen.Expect(kControlChanged);
    EXPECT_EQ(change.GetInt32("item", 0), 2);
    EXPECT_EQ(change.GetInt32("modifiers", 0) & 0x47, B_CONTROL_KEY);
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
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
}

TEST_F(Menus, ACommandWithAMenuIsChosenByAClickWhileThatIsOpen) {
    SetUsual();
    Open(1);
    QMenu& below = MenuOf(FirstMenu(), 0);
    FirstMenu().setActiveAction(&Entry(0));
    ASSERT_TRUE(PumpUntil([&] { return below.isVisible(); }));
    // The innermost menu has the pointer's events, wherever they are.
    const QPoint where = below.mapFromGlobal(
        FirstMenu().mapToGlobal(FirstMenu().actionGeometry(&Entry(0)).center()));
    QTest::mouseClick(&below, Qt::LeftButton, {}, where);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_THAT(Chosen(), ElementsAre(10));
    // And so it is by Enter, as long as nothing in its own menu is highlighted.
    Open(1);
    FirstMenu().setActiveAction(&Entry(0));
    ASSERT_TRUE(PumpUntil([&] { return below.isVisible(); }));
    Type(Qt::Key_Return);
    EXPECT_FALSE(FirstMenu().isVisible());
    EXPECT_THAT(Chosen(), ElementsAre(10, 10));
}

TEST_F(Menus, AreClosedWithTheirBar) {
    SetUsual();
    Open(1);
    fScreen.Window().RemoveControl(kBar);
    Pump();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
    Type(Qt::Key_Down);
    fScreen.Expect(B_KEY_DOWN);
}

TEST_F(Menus, AreClosedWithTheirItem) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Right);
    Set({SubmenuOf(3, "File", {Item(31, "New")})});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
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
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
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
