#include <interface/InterfaceDefs.h>

#include "kits/interface/Display.h"

using BPrivate::TheDisplay;

status_t get_key_info(key_info* info) {
    if (info == nullptr)
        return B_BAD_VALUE;
    TheDisplay().GetKeyInfo(*info);
    return B_OK;
}

uint32 modifiers() {
    return TheDisplay().Modifiers();
}

rgb_color ui_color(color_which which) {
    return TheDisplay().UiColor(which);
}
