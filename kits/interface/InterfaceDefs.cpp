#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <kernel/OS.h>

#include "kits/interface/Display.h"

using BPrivate::TheDisplay;

namespace {

bool is_input(uint32 what) {
    switch (what) {
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

// The input message this thread is handling; null when it handles none.
const BMessage* current_input() {
    const BLooper* looper = BLooper::LooperForThread(find_thread(nullptr));
    const BMessage* message = looper != nullptr ? looper->CurrentMessage() : nullptr;
    return message != nullptr && is_input(message->what) ? message : nullptr;
}

}  // namespace

status_t get_key_info(key_info* info) {
    if (info == nullptr)
        return B_BAD_VALUE;
    TheDisplay().GetKeyInfo(*info);
    return B_OK;
}

uint32 modifiers() {
    int32 held = 0;
    if (const BMessage* input = current_input();
        input != nullptr && input->FindInt32("modifiers", &held) == B_OK)
        return static_cast<uint32>(held);
    return TheDisplay().Modifiers();
}

rgb_color ui_color(color_which which) {
    return TheDisplay().UiColor(which);
}
