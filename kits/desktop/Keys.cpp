#include "kits/desktop/Keys.h"

#include <QKeyEvent>
#include <QString>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <interface/InterfaceDefs.h>

namespace BPrivate {

namespace {

// The control bytes the platform gives to keys that type no character.
constexpr char kHome = 0x01;
constexpr char kEnd = 0x04;
constexpr char kInsert = 0x05;
constexpr char kBackspace = 0x08;
constexpr char kTab = 0x09;
constexpr char kEnter = 0x0a;
constexpr char kPageUp = 0x0b;
constexpr char kPageDown = 0x0c;
constexpr char kFunction = 0x10;
constexpr char kEscape = 0x1b;
constexpr char kLeft = 0x1c;
constexpr char kRight = 0x1d;
constexpr char kUp = 0x1e;
constexpr char kDown = 0x1f;
constexpr char kDelete = 0x7f;

struct NamedKey {
    int qtKey;
    int32 key;
    int32 keypadKey;  // 0 when the keypad has none
    char byte;        // 0 when it produces nothing
};

constexpr std::array kNamedKeys{
    NamedKey{Qt::Key_Escape, 0x01, 0, kEscape},
    NamedKey{Qt::Key_Print, 0x0e, 0, kFunction},
    NamedKey{Qt::Key_SysReq, 0x0e, 0, kFunction},
    NamedKey{Qt::Key_ScrollLock, 0x0f, 0, kFunction},
    NamedKey{Qt::Key_Pause, 0x10, 0, kFunction},
    NamedKey{Qt::Key_Backspace, 0x1e, 0, kBackspace},
    NamedKey{Qt::Key_Insert, 0x1f, 0x64, kInsert},
    NamedKey{Qt::Key_Home, 0x20, 0x37, kHome},
    NamedKey{Qt::Key_PageUp, 0x21, 0x39, kPageUp},
    NamedKey{Qt::Key_NumLock, 0x22, 0x22, 0},
    NamedKey{Qt::Key_Tab, 0x26, 0, kTab},
    NamedKey{Qt::Key_Backtab, 0x26, 0, kTab},
    NamedKey{Qt::Key_Delete, 0x34, 0x65, kDelete},
    NamedKey{Qt::Key_End, 0x35, 0x58, kEnd},
    NamedKey{Qt::Key_PageDown, 0x36, 0x5a, kPageDown},
    NamedKey{Qt::Key_CapsLock, 0x3b, 0, 0},
    NamedKey{Qt::Key_Clear, 0x49, 0x49, 0},
    NamedKey{Qt::Key_Return, 0x47, 0x5b, kEnter},
    NamedKey{Qt::Key_Enter, 0x5b, 0x5b, kEnter},
    NamedKey{Qt::Key_Shift, 0x4b, 0, 0},
    NamedKey{Qt::Key_Up, 0x57, 0x38, kUp},
    NamedKey{Qt::Key_Control, 0x5c, 0, 0},
    NamedKey{Qt::Key_Alt, 0x5d, 0, 0},
    NamedKey{Qt::Key_Space, 0x5e, 0, ' '},
    NamedKey{Qt::Key_AltGr, 0x5f, 0, 0},
    NamedKey{Qt::Key_Left, 0x61, 0x48, kLeft},
    NamedKey{Qt::Key_Down, 0x62, 0x59, kDown},
    NamedKey{Qt::Key_Right, 0x63, 0x4a, kRight},
    NamedKey{Qt::Key_Meta, 0x66, 0, 0},
    NamedKey{Qt::Key_Super_L, 0x66, 0, 0},
    NamedKey{Qt::Key_Super_R, 0x67, 0, 0},
    NamedKey{Qt::Key_Menu, 0x68, 0, 0},
};

// The keypad's characters.
constexpr char kKeypadChars[] = "/*-789+456123\n0.";
constexpr int32 kKeypadKeys[] = {
    0x23, 0x24, 0x25, 0x37, 0x38, 0x39, 0x3a, 0x48, 0x49, 0x4a, 0x58, 0x59, 0x5a, 0x5b, 0x64, 0x65};

// The rows of character keys: the kernel numbers each row's keys in sequence, and so does the
// platform. The characters are those of the layout both numberings were made for.
struct Row {
    uint32 scanCode;
    int32 key;
    const char* plain;
    const char* shifted;
};

constexpr std::array kRows{
    Row{2, 0x12, "1234567890-=", "!@#$%^&*()_+"}, Row{16, 0x27, "qwertyuiop[]", "QWERTYUIOP{}"},
    Row{30, 0x3c, "asdfghjkl;'", "ASDFGHJKL:\""}, Row{41, 0x11, "`", "~"}, Row{43, 0x33, "\\", "|"},
    Row{44, 0x4c, "zxcvbnm,./", "ZXCVBNM<>?"},
    Row{86, 0x69, "\\", "|"},   // between left Shift and Z
    Row{89, 0x6b, "\\", "_"},   // beside right Shift on Japanese keyboards
    Row{124, 0x6a, "\\", "|"},  // beside Backspace on Japanese keyboards
};

// X11 key symbols of the right-hand modifiers.
struct RightKey {
    uint32 symbol;
    int32 key;
};

constexpr std::array kRightKeys{
    RightKey{0xffe2, 0x56},  // Shift_R
    RightKey{0xffe4, 0x60},  // Control_R
    RightKey{0xffea, 0x5f},  // Alt_R
    RightKey{0xfe03, 0x5f},  // ISO_Level3_Shift
    RightKey{0xffec, 0x67},  // Super_R
    RightKey{0xffe8, 0x67},  // Meta_R
};

const NamedKey* FindNamedKey(int qtKey) {
    const auto found =
        std::ranges::find_if(kNamedKeys, [&](const NamedKey& key) { return key.qtKey == qtKey; });
    return found == kNamedKeys.end() ? nullptr : &*found;
}

bool IsFunctionKey(int qtKey) {
    return qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F35;
}

int32 KeypadKey(int qtKey) {
    if (qtKey <= 0 || qtKey > 0x7e)
        return 0;
    const char* found = std::strchr(kKeypadChars, qtKey);
    return found == nullptr ? 0 : kKeypadKeys[found - kKeypadChars];
}

const Row* FindRow(uint32 scanCode) {
    const auto found = std::ranges::find_if(kRows, [&](const Row& row) {
        return scanCode >= row.scanCode && scanCode < row.scanCode + std::strlen(row.plain);
    });
    return found == kRows.end() ? nullptr : &*found;
}

/// The character key's unmodified character where the event does not tell it.
int32 PlainChar(uint32 scanCode, int qtKey) {
    if (const Row* row = FindRow(scanCode))
        return row->plain[scanCode - row->scanCode];
    for (const Row& row : kRows) {
        if (qtKey <= 0 || qtKey > 0x7e)
            break;
        if (const char* found = std::strchr(row.shifted, qtKey))
            return row.plain[found - row.shifted];
    }
    return 0;
}

uint32 ScanCode(const QKeyEvent& event) {
    // X11 and Wayland number a key by the kernel's code plus 8.
    const uint32 native = event.nativeScanCode();
    return native >= 8 ? native - 8 : 0;
}

bool SwapsCommandKey() {
    static const bool swaps = [] {
        const char* setting = std::getenv("KITS_COMMAND_KEY");
        return setting != nullptr && std::strcmp(setting, "alt") == 0;
    }();
    return swaps;
}

int32 RawChar(const QKeyEvent& event) {
    const int key = event.key();
    const bool shift = event.modifiers() & Qt::ShiftModifier;
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key - Qt::Key_A + 'a';
    // Layouts that need Shift for the digits may have them on other keys than the rest of us.
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return key;
    // A letter of another script held with a modifier still stands for the key it is on, or no
    // shortcut could be typed on such a layout.
    const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    if (key > 0x7e && command) {
        if (const int32 plain = PlainChar(ScanCode(event), key))
            return plain;
    }
    if (shift && key <= 0x7e) {
        if (const int32 plain = PlainChar(ScanCode(event), key))
            return plain;
    }
    if (key >= 0x20 && key <= 0x7e)
        return key;
    const auto text = event.text().toLower().toUcs4();
    return text.isEmpty() || text[0] < 0x20 ? 0 : static_cast<int32>(text[0]);
}

std::string CharBytes(const QKeyEvent& event, uint32 modifiers, int32 rawChar) {
    const bool ascii = rawChar > 0 && rawChar < 0x7f;
    // Control makes control characters; Command leaves the character as it is, where Qt does the
    // opposite of both.
    if (ascii && (modifiers & B_CONTROL_KEY) && rawChar >= 'a' && rawChar <= 'z')
        return std::string(1, static_cast<char>(rawChar & 0x1f));
    const QString text = event.text();
    const bool printable = !text.isEmpty() && text[0].unicode() >= 0x20 && text[0] != u'\x7f';
    if (printable)
        return text.toStdString();
    if (!ascii)
        return {};
    char byte = static_cast<char>(rawChar);
    if (modifiers & B_SHIFT_KEY) {
        for (const Row& row : kRows) {
            if (const char* found = std::strchr(row.plain, byte)) {
                byte = row.shifted[found - row.plain];
                break;
            }
        }
    }
    return std::string(1, byte);
}

}  // namespace

uint32 KitModifiers(Qt::KeyboardModifiers modifiers) {
    const bool swaps = SwapsCommandKey();
    uint32 kit = 0;
    if (modifiers & Qt::ShiftModifier)
        kit |= B_SHIFT_KEY;
    if (modifiers & Qt::ControlModifier)
        kit |= swaps ? B_CONTROL_KEY : B_COMMAND_KEY;
    if (modifiers & Qt::AltModifier)
        kit |= swaps ? B_COMMAND_KEY : B_CONTROL_KEY;
    if (modifiers & Qt::MetaModifier)
        kit |= B_OPTION_KEY;
    return kit;
}

int32 KeyCode(int qtKey, bool keypad, uint32 scanCode, uint32 symbol) {
    const auto right =
        std::ranges::find_if(kRightKeys, [&](const RightKey& key) { return key.symbol == symbol; });
    if (symbol != 0 && right != kRightKeys.end())
        return right->key;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12)
        return 0x02 + (qtKey - Qt::Key_F1);
    if (const NamedKey* named = FindNamedKey(qtKey))
        return keypad && named->keypadKey != 0 ? named->keypadKey : named->key;
    if (keypad) {
        if (const int32 key = KeypadKey(qtKey == Qt::Key_Comma ? Qt::Key_Period : qtKey))
            return key;
    }
    if (const Row* row = FindRow(scanCode))
        return row->key + static_cast<int32>(scanCode - row->scanCode);
    if (qtKey <= 0 || qtKey > 0x7e)
        return 0;
    for (const Row& row : kRows) {
        for (const char* keys : {row.plain, row.shifted}) {
            if (const char* found = std::strchr(keys, qtKey))
                return row.key + static_cast<int32>(found - keys);
        }
    }
    return 0;
}

KeyInput TranslateKey(const QKeyEvent& event) {
    KeyInput input;
    input.modifiers = KitModifiers(event.modifiers());
    const bool keypad = event.modifiers() & Qt::KeypadModifier;
    input.key = KeyCode(event.key(), keypad, ScanCode(event), event.nativeVirtualKey());

    if (const NamedKey* named = FindNamedKey(event.key())) {
        if (named->byte != 0) {
            input.rawChar = named->byte;
            input.bytes.assign(1, named->byte);
        }
        return input;
    }
    if (IsFunctionKey(event.key())) {
        input.rawChar = kFunction;
        input.bytes.assign(1, kFunction);
        return input;
    }
    input.rawChar = RawChar(event);
    input.bytes = CharBytes(event, input.modifiers, input.rawChar);
    return input;
}

}  // namespace BPrivate
