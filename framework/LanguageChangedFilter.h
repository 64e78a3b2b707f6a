#pragma once

#include <app/MessageFilter.h>
#include <app/Messenger.h>

/// Lets one view of a window hear of a change of the language too, which the system announces to
/// windows only. A view adds one to its window's common filters when it is attached; the window
/// owns it from then on.
class TLanguageChangedFilter : public BMessageFilter {
public:
    explicit TLanguageChangedFilter(const BMessenger& target);

    filter_result Filter(BMessage* message, BHandler** target) override;

private:
    BMessenger fTarget;
};
