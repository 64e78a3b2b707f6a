#include <storage/Entry.h>

#include "kits/storage/Posix.h"
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <storage/Directory.h>
#include <storage/Path.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace BPrivate;

// What the kernel itself follows.
static constexpr int kMaxLinks = 40;

BEntry::BEntry(const char* path, bool traverse) {
    SetTo(path, traverse);
}

BEntry::BEntry(const entry_ref* ref, bool traverse) {
    SetTo(ref, traverse);
}

BEntry::BEntry(const BDirectory* folder, const char* path, bool traverse) {
    SetTo(folder, path, traverse);
}

status_t BEntry::SetTo(const char* path, bool traverse) {
    if (path == nullptr || *path == '\0') {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    return Resolve(path, traverse);
}

status_t BEntry::SetTo(const entry_ref* ref, bool traverse) {
    if (ref == nullptr || ref->name == nullptr) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    if (ref->folder().empty()) {
        Unset();
        return fStatus = B_ENTRY_NOT_FOUND;
    }
    return Resolve(Join(ref->folder(), ref->name), traverse);
}

status_t BEntry::SetTo(const BDirectory* folder, const char* path, bool traverse) {
    if (folder == nullptr || folder->InitCheck() != B_OK || (path != nullptr && *path == '/')) {
        Unset();
        return fStatus = B_BAD_VALUE;
    }
    if (path == nullptr || *path == '\0')
        return Resolve(folder->fPath, traverse);
    return Resolve(Join(folder->fPath, path), traverse);
}

void BEntry::Unset() {
    fPath.clear();
    fLeaf = 0;
    fStatus = B_NO_INIT;
}

void BEntry::SetToChild(const std::string& folder, std::string_view name) {
    fPath.assign(folder);
    if (fPath.back() != '/')
        fPath += '/';
    fLeaf = fPath.size();
    fPath.append(name);
    fStatus = B_OK;
}

status_t BEntry::Resolve(std::string path, bool traverse) {
    Unset();
    if (status_t status = MakeAbsolute(&path); status != B_OK)
        return fStatus = status;
    for (int links = 0; links <= kMaxLinks; links++) {
        while (path.size() > 1 && path.back() == '/')
            path.pop_back();
        size_t leaf = path.rfind('/') + 1;
        if (const std::string name = path.substr(leaf); name == "." || name == "..") {
            if (status_t status = ResolveFolder(&path); status != B_OK)
                return fStatus = status;
            leaf = path.rfind('/') + 1;
        }
        if (path.size() - leaf >= size_t(B_FILE_NAME_LENGTH))
            return fStatus = B_NAME_TOO_LONG;
        std::string folder = path.substr(0, leaf);
        if (status_t status = ResolveFolder(&folder); status != B_OK)
            return fStatus = status;
        const std::string name = path.substr(leaf);
        path = name.empty() ? folder : Join(folder, name.c_str());

        std::string target;
        if (!traverse || ReadLink(path, &target) != B_OK) {
            fPath = std::move(path);
            fLeaf = fPath.rfind('/') + 1;
            return fStatus = B_OK;
        }
        if (target.empty())
            return fStatus = B_ENTRY_NOT_FOUND;
        path = target.front() == '/' ? std::move(target) : Join(folder, target.c_str());
    }
    return fStatus = B_LINK_LIMIT;
}

bool BEntry::Exists() const {
    struct stat st;
    return GetStat(&st) == B_OK;
}

status_t BEntry::GetStat(struct stat* st) const {
    if (st == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    const AtPath at(fPath);
    if (at.Status() != B_OK)
        return at.Status();
    if (fstatat(at.Folder(), at.Rest(), st, AT_SYMLINK_NOFOLLOW) != 0)
        return StatusFromErrno(errno);
    return B_OK;
}

status_t BEntry::SetPermissions(mode_t permissions) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    const AtPath at(fPath);
    if (at.Status() != B_OK)
        return at.Status();
    if (fchmodat(at.Folder(), at.Rest(), permissions & 07777, AT_SYMLINK_NOFOLLOW) != 0)
        return StatusFromErrno(errno);
    return B_OK;
}

status_t BEntry::SetModificationTime(time_t mtime) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    const AtPath at(fPath);
    if (at.Status() != B_OK)
        return at.Status();
    const timespec times[2] = {{0, UTIME_OMIT}, {mtime, 0}};
    if (utimensat(at.Folder(), at.Rest(), times, AT_SYMLINK_NOFOLLOW) != 0)
        return StatusFromErrno(errno);
    return B_OK;
}

status_t BEntry::GetRef(entry_ref* ref) const {
    if (ref == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    const std::string folder = fPath.substr(0, fLeaf > 1 ? fLeaf - 1 : 1);
    const AtPath at(folder);
    if (at.Status() != B_OK)
        return at.Status();
    struct stat st;
    if (fstatat(at.Folder(), at.Rest(), &st, 0) != 0)
        return StatusFromErrno(errno);
    // The root has no name in a folder above it; it is found as its own entry.
    *ref = entry_ref(st.st_dev, st.st_ino, fLeaf < fPath.size() ? Name() : ".", folder);
    return B_OK;
}

status_t BEntry::GetPath(BPath* path) const {
    if (path == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK) {
        path->Unset();
        return B_NO_INIT;
    }
    path->fPath = fPath;
    path->fStatus = B_OK;
    return B_OK;
}

status_t BEntry::GetParent(BEntry* parent) const {
    if (parent == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (fPath.size() == 1)
        return B_ENTRY_NOT_FOUND;
    const std::string folder = fPath.substr(0, fLeaf > 1 ? fLeaf - 1 : 1);
    parent->fPath = folder;
    parent->fLeaf = folder.rfind('/') + 1;
    parent->fStatus = B_OK;
    return B_OK;
}

status_t BEntry::GetParent(BDirectory* parent) const {
    if (parent == nullptr)
        return B_BAD_VALUE;
    BEntry entry;
    if (status_t status = GetParent(&entry); status != B_OK)
        return status;
    return parent->SetTo(&entry);
}

status_t BEntry::GetName(char* buffer) const {
    if (buffer == nullptr)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    strcpy(buffer, fPath.size() == 1 ? "/" : Name());
    return B_OK;
}

const char* BEntry::Name() const {
    return fPath.c_str() + fLeaf;
}

status_t BEntry::MoveToPath(const std::string& target, bool clobber) {
    BEntry place;
    if (status_t status = place.SetTo(target.c_str()); status != B_OK)
        return status;
    const AtPath from(fPath);
    const AtPath to(place.fPath);
    if (from.Status() != B_OK || to.Status() != B_OK)
        return from.Status() != B_OK ? from.Status() : to.Status();
    int result = -1;
    if (clobber) {
        result = renameat(from.Folder(), from.Rest(), to.Folder(), to.Rest());
    } else {
        result = renameat2(from.Folder(), from.Rest(), to.Folder(), to.Rest(), RENAME_NOREPLACE);
        // Some file systems cannot do both in one step.
        if (result != 0 && errno == EINVAL) {
            if (place.Exists())
                return B_FILE_EXISTS;
            result = renameat(from.Folder(), from.Rest(), to.Folder(), to.Rest());
        }
    }
    if (result != 0)
        return StatusFromErrno(errno);
    *this = place;
    return B_OK;
}

status_t BEntry::Rename(const char* path, bool clobber) {
    if (path == nullptr || *path == '\0')
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    return MoveToPath(*path == '/' ? path : Join(fPath.substr(0, fLeaf), path), clobber);
}

status_t BEntry::MoveTo(BDirectory* folder, const char* path, bool clobber) {
    if (folder == nullptr || folder->InitCheck() != B_OK)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    return MoveToPath(Join(folder->fPath, path != nullptr ? path : Name()), clobber);
}

status_t BEntry::Remove() {
    struct stat st;
    if (status_t status = GetStat(&st); status != B_OK)
        return status;
    const AtPath at(fPath);
    if (at.Status() != B_OK)
        return at.Status();
    if (unlinkat(at.Folder(), at.Rest(), S_ISDIR(st.st_mode) ? AT_REMOVEDIR : 0) != 0)
        return StatusFromErrno(errno);
    return B_OK;
}

bool BEntry::operator==(const BEntry& other) const {
    if (fStatus != B_OK || other.fStatus != B_OK)
        return fStatus != B_OK && other.fStatus != B_OK;
    return fPath == other.fPath;
}
