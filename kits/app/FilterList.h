#pragma once

#include <app/MessageFilter.h>
#include <memory>
#include <vector>

namespace BPrivate {

/// The filters of one handler, or the common ones of one looper, which it owns. Under the
/// looper's lock.
class FilterList {
public:
    ~FilterList();

    /// False when the filter is in a list already; it stays the caller's then.
    bool Add(BMessageFilter* filter, BLooper* looper);
    /// Gives the filter back; false when it is not here.
    bool Remove(BMessageFilter* filter);
    /// Deletes what is here, except for what is given again.
    void Set(const std::vector<BMessageFilter*>& filters, BLooper* looper);
    /// The list's owner has come to another looper.
    void SetLooper(BLooper* looper);

    bool Contains(const BMessageFilter* filter) const;
    std::vector<BMessageFilter*> Filters() const;

    /// Shows the message to those filters it concerns, until one drops it. Filters may change
    /// the list meanwhile. Returns the target they leave, null to drop the message.
    BHandler* Run(BMessage* message, BHandler* target) const;

private:
    std::vector<std::unique_ptr<BMessageFilter>> fFilters;
};

}  // namespace BPrivate
