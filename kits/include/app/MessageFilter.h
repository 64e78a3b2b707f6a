#pragma once

#include <support/SupportDefs.h>

class BHandler;
class BLooper;
class BMessage;
class BMessageFilter;

namespace BPrivate {
class FilterList;
}

enum filter_result {
    B_SKIP_MESSAGE,      ///< the message goes nowhere
    B_DISPATCH_MESSAGE,  ///< it goes on, to the target the filter left
};

enum message_delivery { B_ANY_DELIVERY, B_DROPPED_DELIVERY, B_PROGRAMMED_DELIVERY };

enum message_source { B_ANY_SOURCE, B_REMOTE_SOURCE, B_LOCAL_SOURCE };

using filter_hook = filter_result (*)(BMessage* message, BHandler** target, BMessageFilter* filter);

/// Sees messages before they are dispatched, and may drop them or send them to another handler of
/// the same looper (to any other handler is to drop them).
///
/// A filter is in one list at most: of a handler, or the common one of a looper. Filters run in
/// the looper's thread, under its lock: first the common ones in the order added, then those of
/// the message's target.
class BMessageFilter {
public:
    /// For messages of one command.
    explicit BMessageFilter(uint32 command, filter_hook hook = nullptr);
    /// For messages of any command.
    BMessageFilter(message_delivery delivery, message_source source, filter_hook hook = nullptr);
    BMessageFilter(message_delivery delivery, message_source source, uint32 command,
        filter_hook hook = nullptr);
    /// A copy is in no list.
    BMessageFilter(const BMessageFilter& other);
    BMessageFilter& operator=(const BMessageFilter& other);
    virtual ~BMessageFilter();

    /// Asked only when there is no hook function. The base lets everything pass.
    virtual filter_result Filter(BMessage* message, BHandler** target);

    message_delivery MessageDelivery() const { return fDelivery; }
    message_source MessageSource() const { return fSource; }
    uint32 Command() const { return fCommand; }
    bool FiltersAnyCommand() const { return fAnyCommand; }
    /// The looper whose messages it sees, null when there is none.
    BLooper* Looper() const { return fLooper; }

private:
    friend class BPrivate::FilterList;

    message_delivery fDelivery = B_ANY_DELIVERY;
    message_source fSource = B_ANY_SOURCE;
    uint32 fCommand = 0;
    bool fAnyCommand = false;
    filter_hook fHook = nullptr;
    BLooper* fLooper = nullptr;
    bool fInList = false;
};
