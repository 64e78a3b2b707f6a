#include "viewer/KeyDownFilter.h"

#include <algorithm>
#include <app/AppDefs.h>
#include <app/Message.h>
#include <cstring>
#include <interface/InterfaceDefs.h>

#include "viewer/LorivaneView.h"

namespace {

constexpr int32 kKeys[] = {
    B_PAGE_UP, B_PAGE_DOWN, B_LEFT_ARROW, B_RIGHT_ARROW, B_UP_ARROW, B_DOWN_ARROW};

}  // namespace

TKeyDownFilter::TKeyDownFilter(TLorivaneView* view) : BMessageFilter(B_KEY_DOWN), fView(view) {}

filter_result TKeyDownFilter::Filter(BMessage* message, BHandler**) {
    int32 key = 0;
    const char* bytes = "";
    if (fView->IsFocus() && (modifiers() & B_COMMAND_KEY) != 0 &&
        message->FindInt32("raw_char", &key) == B_OK &&
        std::ranges::find(kKeys, key) != std::end(kKeys)) {
        message->FindString("bytes", &bytes);
        fView->KeyDown(bytes, static_cast<int32>(std::strlen(bytes)));
    }
    return B_DISPATCH_MESSAGE;
}
