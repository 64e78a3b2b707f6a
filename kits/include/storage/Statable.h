#pragma once

#include <support/SupportDefs.h>
#include <sys/stat.h>

struct node_ref;

/// What is known of a file, folder or link without opening it. The functions that set something
/// act on the same node.
class BStatable {
public:
    virtual ~BStatable() = default;

    /// Fills `*st` for the node itself; a link that was not followed is described as a link.
    virtual status_t GetStat(struct stat* st) const = 0;

    bool IsFile() const;
    bool IsDirectory() const;
    bool IsSymLink() const;

    status_t GetNodeRef(node_ref* ref) const;
    /// The size of the data in bytes.
    status_t GetSize(off_t* size) const;
    /// In seconds since 1970.
    status_t GetModificationTime(time_t* mtime) const;
    status_t GetPermissions(mode_t* permissions) const;
    status_t GetOwner(uid_t* owner) const;
    status_t GetGroup(gid_t* group) const;

    virtual status_t SetPermissions(mode_t permissions) = 0;
    virtual status_t SetModificationTime(time_t mtime) = 0;
};
