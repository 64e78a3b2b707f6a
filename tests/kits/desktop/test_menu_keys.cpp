#include <gmock/gmock.h>

#include "tests/kits/desktop/MenuScreen.h"

using namespace BPrivate;
using namespace desktop_test;
using testing::ElementsAre;

namespace {

class MenusByKeys : public Menus {};

TEST_F(MenusByKeys, ACommandWithAMenuIsChosenByKeys) {
    SetUsual();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_O}) {
        Open(1);
        EXPECT_EQ(FirstMenu().activeAction(), &Entry(0));
        Type(key);
        EXPECT_FALSE(FirstMenu().isVisible());
    }
    EXPECT_THAT(Chosen(), ElementsAre(10, 10, 10));
}

TEST_F(MenusByKeys, ACommandWithAMenuOpensItByTheRightKey) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Right);
    QMenu& below = MenuOf(FirstMenu(), 0);
    ASSERT_TRUE(below.isVisible());
    EXPECT_EQ(below.activeAction(), below.actions()[0]);
    Type(Qt::Key_Down);
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(12));
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
}

TEST_F(MenusByKeys, ATitleOnlyOpensItsMenu) {
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

TEST_F(MenusByKeys, LettersChooseInTheOpenMenu) {
    SetUsual();
    Open(1);
    Type(Qt::Key_Q);
    EXPECT_THAT(Chosen(), ElementsAre(14));
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_DOWN).empty());
    EXPECT_TRUE(fScreen.Messages().All(B_KEY_UP).empty());
}

TEST_F(MenusByKeys, EscapeGivesTheKeysBackToTheContent) {
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
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
    EXPECT_EQ(fScreen.Messages().All(B_KEY_DOWN).size(), 1U);
    EXPECT_EQ(fScreen.Messages().All(B_WINDOW_ACTIVATED).size(), activations);
    EXPECT_TRUE(fScreen.Messages().All(kControlFocused).empty());
}

TEST_F(MenusByKeys, ArrowsMoveBetweenOpenMenus) {
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
    EXPECT_THAT(OpenTold(), ElementsAre(true));
    Type(Qt::Key_Escape);
    EXPECT_THAT(OpenTold(), ElementsAre(true, false));
}

TEST_F(MenusByKeys, AKeyHeldAcrossAMenuIsReleasedWhereItWasPressed) {
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

TEST_F(MenusByKeys, QtOpensNoneByKeys) {
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
    EXPECT_TRUE(OpenTold().empty());
    EXPECT_TRUE(Chosen().empty());
    Open(1);
    Type(Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(Chosen().empty());
}

TEST_F(MenusByKeys, OpenOnTheScreenThoughTheirBarIsAboveIt) {
    SetUsual();
    const QRect screen = fScreen.Widget().screen()->geometry();
    fScreen.Window().SetFrame(BRect(0, -25, static_cast<float>(screen.width() - 1),
                                  static_cast<float>(screen.height() + 20)),
        1);
    ASSERT_TRUE(PumpUntil([&] { return Bar().mapToGlobal(QPoint(0, 0)).y() < screen.top(); }));
    Open(2);
    QMenu& view = MenuOf(Bar(), 1);
    ASSERT_TRUE(view.isVisible());
    EXPECT_LE(view.geometry().top(), screen.top() + 4);
    EXPECT_TRUE(screen.contains(view.geometry()));
    Type(Qt::Key_Return);
    EXPECT_THAT(Chosen(), ElementsAre(21));
}

}  // namespace
