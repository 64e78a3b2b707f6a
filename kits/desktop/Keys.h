#pragma once

#include <QtCore/qnamespace.h>
#include <string>
#include <support/SupportDefs.h>

class QKeyEvent;

namespace BPrivate {

/// The kits' modifier bits for Qt's: Ctrl is Command, Alt is Control, Super is Option. With the
/// environment variable `KITS_COMMAND_KEY=alt`, Alt is Command and Ctrl is Control.
uint32 KitModifiers(Qt::KeyboardModifiers modifiers);

/// The platform's number of a key: its place on the keyboard, whatever the layout.
///
/// Keys that every keyboard names alike go by their meaning; only the others, which a layout
/// moves, by their scan code, since the scan codes of the former differ between keyboard drivers.
/// \param scanCode the kernel's number of the key, 0 when unknown
/// \param symbol the X11 or xkb key symbol, 0 when unknown: tells the right Ctrl from the left
/// \return 0 for a key that has no number
int32 KeyCode(int qtKey, bool keypad, uint32 scanCode, uint32 symbol);

/// What a key press says in the kits' terms.
struct KeyInput {
    int32 key = 0;
    uint32 modifiers = 0;
    int32 rawChar = 0;  ///< the character without modifiers; 0 when the key has none
    std::string bytes;  ///< UTF-8 of what it produces; empty for a key that produces nothing
};

KeyInput TranslateKey(const QKeyEvent& event);

}  // namespace BPrivate
