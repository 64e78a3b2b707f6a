#include "tests/kits/desktop/MenuScreen.h"

using namespace BPrivate;
using namespace desktop_test;

namespace {

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

}  // namespace
