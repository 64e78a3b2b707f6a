#pragma once

// Keys, modifiers, mouse buttons, the colours of the desktop, and what several controls share.

#include <interface/GraphicsDefs.h>
#include <support/SupportDefs.h>

/// The character a key produces without modifiers ("raw_char" of a key message), for the keys
/// that have no printable one. A key message's "bytes" carry the same values.
enum : char {
    B_HOME = 0x01,
    B_END = 0x04,
    B_INSERT = 0x05,
    B_BACKSPACE = 0x08,
    B_TAB = 0x09,
    B_ENTER = 0x0a,
    B_RETURN = 0x0a,
    B_PAGE_UP = 0x0b,
    B_PAGE_DOWN = 0x0c,
    B_FUNCTION_KEY = 0x10,  ///< which one is told by "key": B_F1_KEY and so on
    B_ESCAPE = 0x1b,
    B_LEFT_ARROW = 0x1c,
    B_RIGHT_ARROW = 0x1d,
    B_UP_ARROW = 0x1e,
    B_DOWN_ARROW = 0x1f,
    B_SPACE = 0x20,
    B_DELETE = 0x7f,
};

/// "key" of a key message whose "raw_char" is B_FUNCTION_KEY.
enum : int32 {
    B_F1_KEY = 0x02,
    B_F2_KEY,
    B_F3_KEY,
    B_F4_KEY,
    B_F5_KEY,
    B_F6_KEY,
    B_F7_KEY,
    B_F8_KEY,
    B_F9_KEY,
    B_F10_KEY,
    B_F11_KEY,
    B_F12_KEY,
    B_PRINT_KEY,
    B_SCROLL_KEY,
    B_PAUSE_KEY,
};

/// Bits of a modifier set.
enum : uint32 {
    B_SHIFT_KEY = 0x00000001,
    B_COMMAND_KEY = 0x00000002,
    B_CONTROL_KEY = 0x00000004,
    B_CAPS_LOCK = 0x00000008,
    B_SCROLL_LOCK = 0x00000010,
    B_NUM_LOCK = 0x00000020,
    B_OPTION_KEY = 0x00000040,
    B_MENU_KEY = 0x00000080,
    B_LEFT_SHIFT_KEY = 0x00000100,
    B_RIGHT_SHIFT_KEY = 0x00000200,
    B_LEFT_COMMAND_KEY = 0x00000400,
    B_RIGHT_COMMAND_KEY = 0x00000800,
    B_LEFT_CONTROL_KEY = 0x00001000,
    B_RIGHT_CONTROL_KEY = 0x00002000,
    B_LEFT_OPTION_KEY = 0x00004000,
    B_RIGHT_OPTION_KEY = 0x00008000,
};

/// Bits of "buttons" in mouse messages.
enum : uint32 {
    B_PRIMARY_MOUSE_BUTTON = 0x01,
    B_SECONDARY_MOUSE_BUTTON = 0x02,
    B_TERTIARY_MOUSE_BUTTON = 0x04,
};

/// The keyboard at one moment.
struct key_info {
    uint32 modifiers = 0;
    /// One bit a key: key k is held when bit 7 - k % 8 of byte k / 8 is set.
    uint8 key_states[16] = {};
};

/// The keyboard now. Any thread. `B_BAD_VALUE` when `info` is null.
status_t get_key_info(key_info* info);

/// The modifier keys held now. Any thread. In a looper's thread that handles a key, a mouse message
/// or the message of a menu item: those that were held when the user did that, so that it is
/// understood as it was meant however late it is handled.
uint32 modifiers();

enum color_which {
    B_PANEL_BACKGROUND_COLOR = 1,
    B_MENU_BACKGROUND_COLOR = 2,
    B_WINDOW_TAB_COLOR = 3,
    B_KEYBOARD_NAVIGATION_COLOR = 4,
    B_DESKTOP_COLOR = 5,
    B_MENU_SELECTED_BACKGROUND_COLOR = 6,
    B_MENU_ITEM_TEXT_COLOR = 7,
    B_MENU_SELECTED_ITEM_TEXT_COLOR = 8,
    B_PANEL_TEXT_COLOR = 10,
    B_DOCUMENT_BACKGROUND_COLOR = 11,
    B_DOCUMENT_TEXT_COLOR = 12,
    B_CONTROL_BACKGROUND_COLOR = 13,
    B_CONTROL_TEXT_COLOR = 14,
};

/// A colour of the desktop's theme. Any thread.
rgb_color ui_color(color_which which);

/// Bits of `BView::SetEventMask` and `BView::SetMouseEventMask`.
enum : uint32 {
    B_POINTER_EVENTS = 0x00000001,
    B_KEYBOARD_EVENTS = 0x00000002,
};

/// Options of the event masks.
enum : uint32 {
    B_LOCK_WINDOW_FOCUS = 0x00000001,
    B_SUSPEND_VIEW_FOCUS = 0x00000002,
    B_NO_POINTER_HISTORY = 0x00000004,  ///< of several waiting moves only the last is delivered
};

/// How wide the buttons of an alert and the tabs of a tab view are.
enum button_width {
    B_WIDTH_AS_USUAL = 0,
    B_WIDTH_FROM_WIDEST,
    B_WIDTH_FROM_LABEL,
};

/// What a move of the pointer did to a view.
enum : uint32 {
    B_ENTERED_VIEW = 0,
    B_INSIDE_VIEW,
    B_EXITED_VIEW,
    B_OUTSIDE_VIEW,  ///< told only to views whose event mask asks for it
};
