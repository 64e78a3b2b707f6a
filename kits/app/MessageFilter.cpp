#include <app/MessageFilter.h>

BMessageFilter::BMessageFilter(uint32 command, filter_hook hook) : fCommand(command), fHook(hook) {}

BMessageFilter::BMessageFilter(message_delivery delivery, message_source source, filter_hook hook)
    : fDelivery(delivery), fSource(source), fAnyCommand(true), fHook(hook) {}

BMessageFilter::BMessageFilter(
    message_delivery delivery, message_source source, uint32 command, filter_hook hook)
    : fDelivery(delivery), fSource(source), fCommand(command), fHook(hook) {}

BMessageFilter::BMessageFilter(const BMessageFilter& other) {
    *this = other;
}

BMessageFilter& BMessageFilter::operator=(const BMessageFilter& other) {
    // Not the looper: which list a filter is in is no part of what it filters.
    fDelivery = other.fDelivery;
    fSource = other.fSource;
    fCommand = other.fCommand;
    fAnyCommand = other.fAnyCommand;
    fHook = other.fHook;
    return *this;
}

BMessageFilter::~BMessageFilter() = default;

filter_result BMessageFilter::Filter(BMessage*, BHandler**) {
    return B_DISPATCH_MESSAGE;
}
