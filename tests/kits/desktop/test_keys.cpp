#include <QKeyEvent>
#include <gtest/gtest.h>
#include <interface/InterfaceDefs.h>

#include "kits/desktop/Keys.h"

using namespace BPrivate;

namespace {

struct Code {
    int qtKey;
    bool keypad;
    uint32 scanCode;
    uint32 symbol;
    int32 key;
};

class KeyCodes : public testing::TestWithParam<Code> {};

TEST_P(KeyCodes, AreThePlatforms) {
    const Code& code = GetParam();
    EXPECT_EQ(KeyCode(code.qtKey, code.keypad, code.scanCode, code.symbol), code.key);
}

INSTANTIATE_TEST_SUITE_P(Named, KeyCodes,
    testing::Values(Code{Qt::Key_Escape, false, 1, 0, 0x01}, Code{Qt::Key_F1, false, 59, 0, 0x02},
        Code{Qt::Key_F5, false, 63, 0, 0x06}, Code{Qt::Key_F12, false, 88, 0, 0x0d},
        Code{Qt::Key_Backspace, false, 14, 0, 0x1e}, Code{Qt::Key_Insert, false, 110, 0, 0x1f},
        Code{Qt::Key_Home, false, 102, 0, 0x20}, Code{Qt::Key_PageUp, false, 104, 0, 0x21},
        Code{Qt::Key_Tab, false, 15, 0, 0x26}, Code{Qt::Key_Backtab, false, 15, 0, 0x26},
        Code{Qt::Key_Delete, false, 111, 0, 0x34}, Code{Qt::Key_End, false, 107, 0, 0x35},
        Code{Qt::Key_PageDown, false, 109, 0, 0x36}, Code{Qt::Key_Return, false, 28, 0, 0x47},
        Code{Qt::Key_Up, false, 103, 0, 0x57}, Code{Qt::Key_Space, false, 57, 0, 0x5e},
        Code{Qt::Key_Left, false, 105, 0, 0x61}, Code{Qt::Key_Down, false, 108, 0, 0x62},
        Code{Qt::Key_Right, false, 106, 0, 0x63}));

INSTANTIATE_TEST_SUITE_P(Modifiers, KeyCodes,
    testing::Values(Code{Qt::Key_Shift, false, 42, 0xffe1, 0x4b},
        Code{Qt::Key_Shift, false, 54, 0xffe2, 0x56}, Code{Qt::Key_Control, false, 29, 0, 0x5c},
        Code{Qt::Key_Control, false, 97, 0xffe4, 0x60}, Code{Qt::Key_Alt, false, 56, 0, 0x5d},
        Code{Qt::Key_AltGr, false, 100, 0xfe03, 0x5f}, Code{Qt::Key_Meta, false, 125, 0, 0x66},
        Code{Qt::Key_Meta, false, 126, 0xffec, 0x67}));

INSTANTIATE_TEST_SUITE_P(Characters, KeyCodes,
    testing::Values(Code{Qt::Key_1, false, 2, 0, 0x12}, Code{Qt::Key_0, false, 11, 0, 0x1b},
        Code{Qt::Key_Q, false, 16, 0, 0x27}, Code{Qt::Key_A, false, 30, 0, 0x3c},
        Code{Qt::Key_Z, false, 44, 0, 0x4c}, Code{Qt::Key_Slash, false, 53, 0, 0x55},
        Code{Qt::Key_QuoteLeft, false, 41, 0, 0x11}, Code{Qt::Key_Backslash, false, 43, 0, 0x33},
        // A key keeps its number on a layout that moves its character,
        Code{Qt::Key_A, false, 16, 0, 0x27}, Code{Qt::Key_Adiaeresis, false, 40, 0, 0x46},
        // and one without a scan code has that of the usual layout.
        Code{Qt::Key_A, false, 0, 0, 0x3c}, Code{Qt::Key_Exclam, false, 0, 0, 0x12},
        Code{Qt::Key_Adiaeresis, false, 0, 0, 0}));

INSTANTIATE_TEST_SUITE_P(Keypad, KeyCodes,
    testing::Values(Code{Qt::Key_7, true, 71, 0, 0x37}, Code{Qt::Key_Home, true, 71, 0, 0x37},
        Code{Qt::Key_Clear, true, 76, 0, 0x49}, Code{Qt::Key_0, true, 82, 0, 0x64},
        Code{Qt::Key_Insert, true, 82, 0, 0x64}, Code{Qt::Key_Period, true, 83, 0, 0x65},
        Code{Qt::Key_Comma, true, 83, 0, 0x65}, Code{Qt::Key_Enter, true, 96, 0, 0x5b},
        Code{Qt::Key_Plus, true, 78, 0, 0x3a}, Code{Qt::Key_Minus, true, 74, 0, 0x25},
        Code{Qt::Key_Slash, true, 98, 0, 0x23}, Code{Qt::Key_Down, true, 80, 0, 0x59}));

struct Press {
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    const char* text;
    uint32 scanCode;
    int32 rawChar;
    const char* bytes;
};

class KeyInputs : public testing::TestWithParam<Press> {};

TEST_P(KeyInputs, SayWhatThePlatformSays) {
    const Press& press = GetParam();
    const QKeyEvent event(QEvent::KeyPress, press.qtKey, press.modifiers,
        press.scanCode == 0 ? 0 : press.scanCode + 8, 0, 0, QString::fromUtf8(press.text));
    const KeyInput input = TranslateKey(event);
    EXPECT_EQ(input.rawChar, press.rawChar);
    EXPECT_EQ(input.bytes, press.bytes);
}

INSTANTIATE_TEST_SUITE_P(Named, KeyInputs,
    testing::Values(Press{Qt::Key_Home, {}, "", 102, 0x01, "\x01"},
        Press{Qt::Key_End, {}, "", 107, 0x04, "\x04"},
        Press{Qt::Key_PageUp, {}, "", 104, 0x0b, "\x0b"},
        Press{Qt::Key_PageDown, {}, "", 109, 0x0c, "\x0c"},
        Press{Qt::Key_Left, {}, "", 105, 0x1c, "\x1c"},
        Press{Qt::Key_Right, Qt::ControlModifier, "", 106, 0x1d, "\x1d"},
        Press{Qt::Key_Up, {}, "", 103, 0x1e, "\x1e"},
        Press{Qt::Key_Down, Qt::KeypadModifier, "", 80, 0x1f, "\x1f"},
        Press{Qt::Key_Return, {}, "\r", 28, 0x0a, "\x0a"},
        Press{Qt::Key_Return, Qt::AltModifier, "\r", 28, 0x0a, "\x0a"},
        Press{Qt::Key_Enter, Qt::KeypadModifier, "\r", 96, 0x0a, "\x0a"},
        Press{Qt::Key_Escape, {}, "\x1b", 1, 0x1b, "\x1b"},
        Press{Qt::Key_Backspace, {}, "\x08", 14, 0x08, "\x08"},
        Press{Qt::Key_Delete, {}, "\x7f", 111, 0x7f, "\x7f"},
        Press{Qt::Key_Backtab, Qt::ShiftModifier, "\t", 15, 0x09, "\x09"},
        Press{Qt::Key_Space, Qt::ShiftModifier, " ", 57, 0x20, " "},
        Press{Qt::Key_F5, {}, "", 63, 0x10, "\x10"}, Press{Qt::Key_Shift, {}, "", 42, 0, ""}));

INSTANTIATE_TEST_SUITE_P(Characters, KeyInputs,
    testing::Values(Press{Qt::Key_A, {}, "a", 30, 'a', "a"},
        Press{Qt::Key_A, Qt::ShiftModifier, "A", 30, 'a', "A"},
        // Command leaves the character as it is, Control makes a control character.
        Press{Qt::Key_O, Qt::ControlModifier, "\x0f", 24, 'o', "o"},
        Press{Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier, "\x0f", 24, 'o', "O"},
        Press{Qt::Key_O, Qt::AltModifier, "o", 24, 'o', "\x0f"},
        Press{Qt::Key_1, {}, "1", 2, '1', "1"},
        Press{Qt::Key_Exclam, Qt::ShiftModifier, "!", 2, '1', "!"},
        Press{Qt::Key_Slash, Qt::ShiftModifier, "/", 8, '7', "/"},
        Press{Qt::Key_Adiaeresis, {}, "\xc3\xa4", 40, 0xe4, "\xc3\xa4"},
        Press{Qt::Key_Adiaeresis, Qt::ShiftModifier, "\xc3\x84", 40, 0xe4, "\xc3\x84"},
        // A shortcut on a layout of another script goes by the key's place.
        Press{0x429, Qt::ControlModifier, "", 24, 'o', "o"},
        Press{Qt::Key_5, Qt::KeypadModifier, "5", 76, '5', "5"}));

constexpr Qt::KeyboardModifiers kCommandShift = Qt::ControlModifier | Qt::ShiftModifier;

// A digit's key, with Shift and Command, is that digit whatever the layout has beside it.
INSTANTIATE_TEST_SUITE_P(ShiftedDigits, KeyInputs,
    testing::Values(Press{Qt::Key_ParenRight, kCommandShift, "", 11, '0', ")"},  // American
        Press{Qt::Key_Equal, kCommandShift, "", 11, '0', ")"},                   // German
        Press{Qt::Key_AsciiTilde, kCommandShift, "", 11, '0', ")"},              // Japanese
        Press{Qt::Key_0, kCommandShift, "0", 11, '0', "0"},                      // French
        Press{Qt::Key_sterling, kCommandShift, "", 4, '3', "#"},                 // British
        Press{Qt::Key_Dead_Circumflex, kCommandShift, "", 7, '6', "^"},
        // Its place tells nothing where the digits are in another order.
        Press{Qt::Key_7, kCommandShift, "7", 3, '7', "7"},
        Press{Qt::Key_1, kCommandShift, "1", 6, '1', "1"}));

TEST(KitModifiers, PutCommandOnCtrl) {
    EXPECT_EQ(KitModifiers(Qt::ControlModifier), B_COMMAND_KEY);
    EXPECT_EQ(KitModifiers(Qt::AltModifier), B_CONTROL_KEY);
    EXPECT_EQ(KitModifiers(Qt::MetaModifier), B_OPTION_KEY);
    EXPECT_EQ(KitModifiers(Qt::ShiftModifier | Qt::KeypadModifier), B_SHIFT_KEY);
    EXPECT_EQ(KitModifiers(Qt::NoModifier), 0U);
}

}  // namespace
