#include "settings/DisplayOption.h"

#include "settings/Prefs.h"

const char LKK_MITEM_DO[kDisplayOptionCount][128] = {
    "Don't Fit Anything",
    "Fit Window to Image",
    "Fit Image to Window",
    "Scale Image to Window",
    "Scale Image to Window Width",
    "Scale Image to Window Height",
};

const char* const ACC_KEY_DO[kDisplayOptionCount] = {"D", "W", "I", "S", "X", "Y"};

BMessage* create_display_option_message(uint32 what, int32 option) {
    auto* message = new BMessage(what);
    message->AddInt32("DispOpt", option);
    return message;
}

status_t set_display_option(BMessage* message) {
    int32 option = 0;
    if (message->FindInt32("DispOpt", &option) != B_OK)
        return B_ERROR;
    gPrefs.fDisplayOption = option;
    return B_OK;
}
