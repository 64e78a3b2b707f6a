#pragma once

#include <cctype>
#include <interface/InterfaceDefs.h>
#include <support/SupportDefs.h>

namespace BPrivate {

/// A key with the modifiers that tell shortcuts apart. Command is always one of them, and letters
/// are the same in either case.
struct KeyStroke {
    uint32 key = 0;
    uint32 modifiers = B_COMMAND_KEY;

    KeyStroke() = default;
    KeyStroke(uint32 givenKey, uint32 held)
        : key(givenKey < 128 ? static_cast<uint32>(std::tolower(static_cast<int>(givenKey)))
                             : givenKey),
          modifiers((held | B_COMMAND_KEY) &
              (B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY | B_MENU_KEY)) {}

    bool operator==(const KeyStroke&) const = default;
};

}  // namespace BPrivate
