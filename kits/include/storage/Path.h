#pragma once

#include <storage/Entry.h>
#include <string>

/// An absolute path as text: no "." or "..", no doubled or trailing '/'. Of any length. It need not
/// exist. Not to be used from two threads at a time.
class BPath {
public:
    BPath() = default;
    explicit BPath(const char* path, const char* leaf = nullptr, bool normalize = false);
    explicit BPath(const entry_ref* ref);
    explicit BPath(const BEntry* entry);

    status_t InitCheck() const { return fStatus; }

    /// `path`, made absolute with the working folder, and `leaf` (relative) below it. A path that
    /// holds "." or "..", or any if `normalize`, is resolved in the file system: the links of its
    /// folder part are followed, and the folder must exist. B_BAD_VALUE for an empty path or
    /// absolute leaf.
    status_t SetTo(const char* path, const char* leaf = nullptr, bool normalize = false);
    status_t SetTo(const entry_ref* ref);
    status_t SetTo(const BEntry* entry);
    status_t Append(const char* path, bool normalize = false);
    void Unset();

    /// The whole path, null when unset. Valid until the object changes.
    const char* Path() const;
    /// The part after the last '/', "" for the root, null when unset.
    const char* Leaf() const;
    /// The path without its leaf. B_ENTRY_NOT_FOUND for the root. `path` may be this object.
    status_t GetParent(BPath* path) const;

    bool operator==(const BPath& other) const;
    bool operator==(const char* other) const;

private:
    friend class BEntry;

    std::string fPath;
    status_t fStatus = B_NO_INIT;
};
