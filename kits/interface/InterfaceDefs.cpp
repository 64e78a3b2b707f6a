#include <interface/InterfaceDefs.h>

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <kernel/OS.h>

#include "kits/interface/Display.h"

using BPrivate::TheDisplay;

namespace {

bool is_input(uint32 what) {
    switch (what) {
    case BPrivate::kControlChanged:
    case B_KEY_DOWN:
    case B_KEY_UP:
    case B_UNMAPPED_KEY_DOWN:
    case B_UNMAPPED_KEY_UP:
    case B_MOUSE_DOWN:
    case B_MOUSE_UP:
    case B_MOUSE_MOVED: return true;
    default: return false;
    }
}

// Whether the message tells what was held when the user did what it is about. An item of a menu
// hands that on in its own message, which is handled later still.
bool find_held(const BMessage& message, int32* held) {
    if (message.IsSourceRemote())
        return false;
    return message.FindInt32(is_input(message.what) ? "modifiers" : "be:modifiers", held) == B_OK;
}

}  // namespace

status_t get_key_info(key_info* info) {
    if (info == nullptr)
        return B_BAD_VALUE;
    TheDisplay().GetKeyInfo(*info);
    return B_OK;
}

uint32 modifiers() {
    const BLooper* looper = BLooper::LooperForThread(find_thread(nullptr));
    const BMessage* message = looper != nullptr ? looper->CurrentMessage() : nullptr;
    int32 held = 0;
    if (message != nullptr && find_held(*message, &held))
        return static_cast<uint32>(held);
    return TheDisplay().Modifiers();
}

rgb_color ui_color(color_which which) {
    return TheDisplay().UiColor(which);
}
