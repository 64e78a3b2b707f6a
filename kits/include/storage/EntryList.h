#pragma once

#include <support/SupportDefs.h>

class BEntry;
struct entry_ref;
struct dirent;

/// Something that can be walked entry by entry, in no particular order. "." and ".." are never
/// among the entries that GetNextEntry and GetNextRef give and CountEntries counts.
class BEntryList {
public:
    virtual ~BEntryList() = default;

    /// The next entry; `traverse` follows a link to what it names. B_ENTRY_NOT_FOUND at the end.
    virtual status_t GetNextEntry(BEntry* entry, bool traverse = false) = 0;
    /// The same as a reference. B_ENTRY_NOT_FOUND at the end.
    virtual status_t GetNextRef(entry_ref* ref) = 0;
    /// Fills `buffer` with as many whole records of <dirent.h> as fit, at most `count`, "." and
    /// ".." among them. Returns their number, 0 at the end, or an error.
    virtual int32 GetNextDirents(struct dirent* buffer, size_t length, int32 count = INT32_MAX) = 0;
    /// Starts again at the first entry.
    virtual status_t Rewind() = 0;
    /// Counts all entries, whatever has been read already. Negative is an error.
    virtual int32 CountEntries() = 0;
};
