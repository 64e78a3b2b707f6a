#include "framework/LanguageChangedFilter.h"

#include "framework/MessageCodes.h"

#include <app/Message.h>

TLanguageChangedFilter::TLanguageChangedFilter(const BMessenger& target)
    : BMessageFilter(B_ANY_DELIVERY, B_ANY_SOURCE, kMsgLanguageChanged), fTarget(target) {}

filter_result TLanguageChangedFilter::Filter(BMessage* message, BHandler** /*target*/) {
    // The copy comes back through this window's filters; its mark keeps every one of them from
    // sending it on again.
    if (!message->HasBool(kFieldLanguageForwarded)) {
        BMessage copy(*message);
        // A view that has gone need not hear of it.
        if (copy.AddBool(kFieldLanguageForwarded, true) == B_OK)
            (void)fTarget.SendMessage(&copy);
    }
    return B_DISPATCH_MESSAGE;
}
