#include "framework/Help.h"

#include <app/Roster.h>
#include <storage/Entry.h>
#include <storage/Path.h>

status_t show_help(const char* path) {
    const BPath document(path, nullptr, true);
    if (document.InitCheck() != B_OK)
        return document.InitCheck();
    entry_ref ref;
    const status_t status = get_ref_for_path(document.Path(), &ref);
    return status == B_OK ? be_roster->Launch(&ref) : status;
}
