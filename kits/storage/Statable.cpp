#include <storage/Statable.h>

#include <storage/Node.h>
#include <sys/stat.h>

bool BStatable::IsFile() const {
    struct stat st;
    return GetStat(&st) == B_OK && S_ISREG(st.st_mode);
}

bool BStatable::IsDirectory() const {
    struct stat st;
    return GetStat(&st) == B_OK && S_ISDIR(st.st_mode);
}

bool BStatable::IsSymLink() const {
    struct stat st;
    return GetStat(&st) == B_OK && S_ISLNK(st.st_mode);
}

// Every getter is the same but for the field.
template <typename Value, typename Read>
static status_t Get(const BStatable& node, Value* value, Read read) {
    if (value == nullptr)
        return B_BAD_VALUE;
    struct stat st;
    const status_t status = node.GetStat(&st);
    if (status == B_OK)
        *value = read(st);
    return status;
}

status_t BStatable::GetNodeRef(node_ref* ref) const {
    return Get(*this, ref, [](const struct stat& st) { return node_ref{st.st_dev, st.st_ino}; });
}

status_t BStatable::GetSize(off_t* size) const {
    return Get(*this, size, [](const struct stat& st) { return st.st_size; });
}

status_t BStatable::GetModificationTime(time_t* mtime) const {
    return Get(*this, mtime, [](const struct stat& st) { return st.st_mtime; });
}

status_t BStatable::GetPermissions(mode_t* permissions) const {
    return Get(*this, permissions, [](const struct stat& st) { return st.st_mode & 07777; });
}

status_t BStatable::GetOwner(uid_t* owner) const {
    return Get(*this, owner, [](const struct stat& st) { return st.st_uid; });
}

status_t BStatable::GetGroup(gid_t* group) const {
    return Get(*this, group, [](const struct stat& st) { return st.st_gid; });
}
