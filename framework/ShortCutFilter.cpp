#include "framework/ShortCutFilter.h"

#include <app/AppDefs.h>
#include <app/Looper.h>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>

namespace {

bool is_short_cut(const BMessage& message) {
    int32 held = 0;
    if (message.FindInt32("modifiers", &held) == B_OK && (held & B_CONTROL_KEY) != 0)
        return true;
    int32 rawChar = 0;
    if (message.FindInt32("raw_char", &rawChar) != B_OK)
        return false;
    return rawChar == B_ESCAPE || rawChar == B_ENTER || rawChar == B_FUNCTION_KEY;
}

}  // namespace

TShortCutFilter::TShortCutFilter(BHandler* handler)
    : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE, B_KEY_DOWN), fHandler(handler) {}

filter_result TShortCutFilter::Filter(BMessage* message, BHandler** target) {
    if (is_short_cut(*message))
        *target = fHandler != nullptr ? fHandler : Looper();
    return B_DISPATCH_MESSAGE;
}
