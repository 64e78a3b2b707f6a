#include <app/Roster.h>
#include <storage/Path.h>

#include "kits/app/DocumentOpener.h"

namespace {

// Where a cold disk and a busy machine have found an application long since.
constexpr std::chrono::seconds kPatience(10);

}  // namespace

status_t BRoster::Launch(const entry_ref* ref, const BMessage* /*message*/, team_id* team) const {
    if (team != nullptr)
        *team = -1;
    if (ref == nullptr)
        return B_BAD_VALUE;
    const BEntry document(ref, true);
    BPath path;
    if (document.InitCheck() != B_OK)
        return document.InitCheck();
    if (!document.Exists() || document.GetPath(&path) != B_OK)
        return B_ENTRY_NOT_FOUND;
    return BPrivate::OpenDocument(path.Path(), kPatience);
}
