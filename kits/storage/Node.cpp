#include <storage/Node.h>

#include "kits/storage/Posix.h"
#include <cerrno>
#include <fcntl.h>
#include <storage/Directory.h>
#include <storage/Path.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace BPrivate;

BNode::BNode(const char* path) {
    SetTo(path);
}
BNode::BNode(const entry_ref* ref) {
    SetTo(ref);
}
BNode::BNode(const BEntry* entry) {
    SetTo(entry);
}
BNode::BNode(const BDirectory* folder, const char* path) {
    SetTo(folder, path);
}

BNode::~BNode() {
    if (fDescriptor >= 0)
        close(fDescriptor);
}

status_t BNode::SetTo(const char* path) {
    const BEntry entry(path);
    return SetTo(&entry);
}

status_t BNode::SetTo(const entry_ref* ref) {
    const BEntry entry(ref);
    return SetTo(&entry);
}

status_t BNode::SetTo(const BDirectory* folder, const char* path) {
    const BEntry entry(folder, path);
    return SetTo(&entry);
}

status_t BNode::SetTo(const BEntry* entry) {
    Unset();
    if (entry == nullptr)
        return fStatus = B_BAD_VALUE;
    BPath path;
    if (entry->GetPath(&path) != B_OK)
        return fStatus = entry->InitCheck();
    return OpenPath(path.Path());
}

status_t BNode::OpenPath(const std::string& path) {
    const AtPath at(path);
    if (at.Status() != B_OK)
        return fStatus = at.Status();
    struct stat st;
    if (fstatat(at.Folder(), at.Rest(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return fStatus = StatusFromErrno(errno);
    // Only files and folders have attributes, and only they can be opened without an effect on
    // somebody else. O_PATH opens the node, not what it leads to.
    int descriptor = -1;
    if (S_ISREG(st.st_mode) || S_ISDIR(st.st_mode))
        descriptor = openat(
            at.Folder(), at.Rest(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        descriptor = openat(at.Folder(), at.Rest(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
    return Adopt(descriptor >= 0 ? descriptor : StatusFromErrno(errno));
}

status_t BNode::Adopt(int descriptorOrStatus) {
    if (descriptorOrStatus < 0)
        return fStatus = descriptorOrStatus;
    if (fDescriptor >= 0)
        close(fDescriptor);
    fDescriptor = descriptorOrStatus;
    return fStatus = B_OK;
}

void BNode::Unset() {
    if (fDescriptor >= 0)
        close(fDescriptor);
    fDescriptor = -1;
    fStatus = B_NO_INIT;
    fAttributes.clear();
    fNextAttribute = 0;
    fAttributesListed = false;
}

status_t BNode::GetStat(struct stat* st) const {
    if (st == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    return fstat(fDescriptor, st) == 0 ? B_OK : StatusFromErrno(errno);
}

status_t BNode::SetPermissions(mode_t permissions) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    return fchmod(fDescriptor, permissions & 07777) == 0 ? B_OK : StatusFromErrno(errno);
}

status_t BNode::SetModificationTime(time_t mtime) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    const timespec times[2] = {{0, UTIME_OMIT}, {mtime, 0}};
    return futimens(fDescriptor, times) == 0 ? B_OK : StatusFromErrno(errno);
}

status_t BNode::Sync() {
    if (fStatus != B_OK)
        return B_NO_INIT;
    return fsync(fDescriptor) == 0 ? B_OK : StatusFromErrno(errno);
}

bool BNode::operator==(const BNode& other) const {
    node_ref own;
    node_ref its;
    const bool known = GetNodeRef(&own) == B_OK;
    if (known != (other.GetNodeRef(&its) == B_OK))
        return false;
    return !known || own == its;
}
