#include "kits/app/FilterList.h"

#include <algorithm>
#include <app/Message.h>

// Being in a list is a mark on the filter, since a list may have no looper yet.

namespace BPrivate {

FilterList::~FilterList() = default;

bool FilterList::Add(BMessageFilter* filter, BLooper* looper) {
    if (filter == nullptr || filter->fInList)
        return false;
    fFilters.emplace_back(filter);
    filter->fInList = true;
    filter->fLooper = looper;
    return true;
}

bool FilterList::Remove(BMessageFilter* filter) {
    const auto found = std::find_if(fFilters.begin(), fFilters.end(),
        [filter](const auto& owned) { return owned.get() == filter; });
    if (found == fFilters.end())
        return false;
    found->release();
    fFilters.erase(found);
    filter->fInList = false;
    filter->fLooper = nullptr;
    return true;
}

void FilterList::Set(const std::vector<BMessageFilter*>& filters, BLooper* looper) {
    for (BMessageFilter* filter : filters)
        Remove(filter);
    fFilters.clear();
    for (BMessageFilter* filter : filters)
        Add(filter, looper);
}

void FilterList::SetLooper(BLooper* looper) {
    for (const auto& filter : fFilters)
        filter->fLooper = looper;
}

bool FilterList::Contains(const BMessageFilter* filter) const {
    return std::any_of(fFilters.begin(), fFilters.end(),
        [filter](const auto& owned) { return owned.get() == filter; });
}

std::vector<BMessageFilter*> FilterList::Filters() const {
    std::vector<BMessageFilter*> filters;
    for (const auto& filter : fFilters)
        filters.push_back(filter.get());
    return filters;
}

BHandler* FilterList::Run(BMessage* message, BHandler* target) const {
    for (BMessageFilter* filter : Filters()) {
        if (!Contains(filter))
            continue;  // removed by one before it
        if (!filter->fAnyCommand && filter->fCommand != message->what)
            continue;
        if (filter->fSource != B_ANY_SOURCE &&
            (filter->fSource == B_REMOTE_SOURCE) != message->IsSourceRemote())
            continue;
        if (filter->fDelivery != B_ANY_DELIVERY &&
            (filter->fDelivery == B_DROPPED_DELIVERY) != message->WasDropped())
            continue;
        const filter_result result = filter->fHook != nullptr
            ? filter->fHook(message, &target, filter)
            : filter->Filter(message, &target);
        if (result == B_SKIP_MESSAGE || target == nullptr)
            return nullptr;
    }
    return target;
}

}  // namespace BPrivate
