#include <storage/Directory.h>

#include "kits/storage/Posix.h"
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <storage/Entry.h>
#include <storage/File.h>
#include <storage/Path.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace BPrivate;

// The records that one call of the system gave and what has been taken of them.
struct BDirectory::Listing {
    static constexpr size_t kSize = 64 * 1024;

    alignas(struct dirent) char records[kSize];
    size_t at = 0;
    size_t end = 0;

    // The next record, null at the end or on an error.
    struct dirent* Next(int descriptor, status_t* status) {
        *status = B_OK;
        if (at == end) {
            const ssize_t got = getdents64(descriptor, records, kSize);
            if (got <= 0) {
                *status = got == 0 ? B_ENTRY_NOT_FOUND : StatusFromErrno(errno);
                return nullptr;
            }
            at = 0;
            end = size_t(got);
        }
        auto* record = reinterpret_cast<struct dirent*>(records + at);
        at += record->d_reclen;
        return record;
    }
};

static bool IsDots(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

BDirectory::BDirectory() = default;
BDirectory::BDirectory(const char* path) {
    SetTo(path);
}
BDirectory::BDirectory(const entry_ref* ref) {
    SetTo(ref);
}
BDirectory::BDirectory(const BEntry* entry) {
    SetTo(entry);
}
BDirectory::BDirectory(const BDirectory* folder, const char* path) {
    SetTo(folder, path);
}
BDirectory::~BDirectory() = default;

status_t BDirectory::SetTo(const char* path) {
    const BEntry entry(path, true);
    return SetTo(&entry);
}

status_t BDirectory::SetTo(const entry_ref* ref) {
    const BEntry entry(ref, true);
    return SetTo(&entry);
}

status_t BDirectory::SetTo(const BDirectory* folder, const char* path) {
    const BEntry entry(folder, path, true);
    return SetTo(&entry);
}

status_t BDirectory::SetTo(const BEntry* entry) {
    BPath path;
    const status_t status = entry == nullptr ? B_BAD_VALUE : entry->InitCheck();
    if (status != B_OK || entry->GetPath(&path) != B_OK) {
        Unset();
        return fStatus = status;
    }
    if (!entry->IsSymLink())
        return Open(path.Path());
    const BEntry target(path.Path(), true);
    if (target.InitCheck() != B_OK || target.GetPath(&path) != B_OK) {
        Unset();
        return fStatus = target.InitCheck();
    }
    return Open(path.Path());
}

status_t BDirectory::Open(const std::string& path) {
    Unset();
    const AtPath at(path);
    if (at.Status() != B_OK)
        return fStatus = at.Status();
    // O_DIRECTORY refuses everything else before its driver is asked.
    const int descriptor =
        openat(at.Folder(), at.Rest(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
    if (Adopt(descriptor >= 0 ? descriptor : StatusFromErrno(errno)) == B_OK)
        fPath = path;
    return fStatus;
}

void BDirectory::Unset() {
    BNode::Unset();
    fPath.clear();
    fListing.reset();
}

status_t BDirectory::GetEntry(BEntry* entry) const {
    if (entry == nullptr)
        return B_BAD_VALUE;
    return fStatus != B_OK ? B_NO_INIT : entry->SetTo(fPath.c_str());
}

bool BDirectory::IsRootDirectory() const {
    struct stat own;
    struct stat parent;
    if (fStatus != B_OK || fstat(fDescriptor, &own) != 0 ||
        fstatat(fDescriptor, "..", &parent, 0) != 0)
        return false;
    // The root of a volume lies on another volume than what is above it, or is its own parent.
    return own.st_dev != parent.st_dev || own.st_ino == parent.st_ino;
}

struct dirent* BDirectory::NextRecord(status_t* status) {
    if (fStatus != B_OK) {
        *status = B_NO_INIT;
        return nullptr;
    }
    if (!fListing)
        fListing = std::make_unique_for_overwrite<Listing>();
    struct dirent* record;
    do {
        record = fListing->Next(fDescriptor, status);
    } while (record != nullptr && IsDots(record->d_name));
    return record;
}

status_t BDirectory::GetNextEntry(BEntry* entry, bool traverse) {
    if (entry == nullptr)
        return B_BAD_VALUE;
    status_t status;
    const struct dirent* record = NextRecord(&status);
    if (record == nullptr)
        return status;
    if (traverse && (record->d_type == DT_LNK || record->d_type == DT_UNKNOWN))
        return entry->SetTo(Join(fPath, record->d_name).c_str(), true);
    entry->SetToChild(fPath, record->d_name);
    return B_OK;
}

status_t BDirectory::GetNextRef(entry_ref* ref) {
    if (ref == nullptr)
        return B_BAD_VALUE;
    status_t status;
    const struct dirent* record = NextRecord(&status);
    if (record == nullptr)
        return status;
    struct stat st;
    if (fstat(fDescriptor, &st) != 0)
        return StatusFromErrno(errno);
    *ref = entry_ref(st.st_dev, st.st_ino, record->d_name, fPath);
    return B_OK;
}

int32 BDirectory::GetNextDirents(struct dirent* buffer, size_t length, int32 count) {
    if (buffer == nullptr || count <= 0)
        return B_BAD_VALUE;
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (!fListing)
        fListing = std::make_unique_for_overwrite<Listing>();
    char* out = reinterpret_cast<char*>(buffer);
    int32 done = 0;
    while (done < count) {
        status_t status;
        const struct dirent* record = fListing->Next(fDescriptor, &status);
        if (record == nullptr)
            return done > 0 || status == B_ENTRY_NOT_FOUND ? done : status;
        if (record->d_reclen > length) {
            fListing->at -= record->d_reclen;
            return done > 0 ? done : B_BAD_VALUE;
        }
        memcpy(out, record, record->d_reclen);
        out += record->d_reclen;
        length -= record->d_reclen;
        done++;
    }
    return done;
}

status_t BDirectory::Rewind() {
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (fListing)
        fListing->at = fListing->end = 0;
    return lseek(fDescriptor, 0, SEEK_SET) < 0 ? StatusFromErrno(errno) : B_OK;
}

int32 BDirectory::CountEntries() {
    if (fStatus != B_OK)
        return B_NO_INIT;
    // An open of its own, so that the walk of this object goes on where it was.
    const Descriptor folder(openat(fDescriptor, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder)
        return StatusFromErrno(errno);
    const auto listing = std::make_unique_for_overwrite<Listing>();
    int32 count = 0;
    status_t status;
    while (const struct dirent* record = listing->Next(folder.Get(), &status))
        count += IsDots(record->d_name) ? 0 : 1;
    return status == B_ENTRY_NOT_FOUND ? count : status;
}

status_t BDirectory::FindEntry(const char* path, BEntry* entry, bool traverse) const {
    if (entry == nullptr)
        return B_BAD_VALUE;
    status_t status = entry->SetTo(this, path, traverse);
    if (status == B_OK && !entry->Exists())
        status = B_ENTRY_NOT_FOUND;
    if (status != B_OK)
        entry->Unset();
    return status;
}

bool BDirectory::Contains(const char* path) const {
    BEntry entry;
    return path != nullptr && FindEntry(path, &entry) == B_OK;
}

bool BDirectory::Contains(const BEntry* entry) const {
    BPath path;
    if (fStatus != B_OK || entry == nullptr || !entry->Exists() || entry->GetPath(&path) != B_OK)
        return false;
    const std::string prefix = fPath.size() == 1 ? fPath : fPath + '/';
    return strncmp(path.Path(), prefix.c_str(), prefix.size()) == 0 &&
        path.Path()[prefix.size()] != '\0';
}

status_t BDirectory::CreateDirectory(const char* path, BDirectory* folder) {
    if (path == nullptr || *path == '\0')
        return B_BAD_VALUE;
    BEntry entry;
    if (status_t status = entry.SetTo(this, path); status != B_OK)
        return status;
    const AtPath at(entry.fPath);
    if (at.Status() != B_OK)
        return at.Status();
    if (mkdirat(at.Folder(), at.Rest(), 0777) != 0)
        return StatusFromErrno(errno);
    return folder != nullptr ? folder->SetTo(&entry) : B_OK;
}

status_t BDirectory::CreateFile(const char* path, BFile* file, bool failIfExists) {
    BFile own;
    BFile& made = file != nullptr ? *file : own;
    // A new file is there at once; only an old one is replaced when the object is closed.
    const status_t status = made.SetTo(this, path, B_READ_WRITE | B_CREATE_FILE | B_FAIL_IF_EXISTS);
    if (status != B_FILE_EXISTS || failIfExists)
        return status;
    return made.SetTo(this, path, B_READ_WRITE | B_CREATE_FILE | B_ERASE_FILE);
}

status_t create_directory(const char* path, mode_t mode) {
    if (path == nullptr || *path == '\0')
        return B_BAD_VALUE;
    const std::string whole = path;
    for (size_t at = 0; at < whole.size();) {
        const size_t end = std::min(whole.find('/', at + 1), whole.size());
        const std::string part = whole.substr(0, end);
        at = end;
        const AtPath place(part);
        if (place.Status() != B_OK)
            return place.Status();
        // The folders above must let this user make the next one.
        const mode_t partMode = end == whole.size() ? mode : mode | S_IWUSR | S_IXUSR;
        if (mkdirat(place.Folder(), place.Rest(), partMode) == 0)
            continue;
        // Whatever the system minds first: a folder that is there is good.
        const int error = errno;
        struct stat st;
        if (fstatat(place.Folder(), place.Rest(), &st, 0) != 0)
            return StatusFromErrno(error == EEXIST ? ENOTDIR : error);
        if (!S_ISDIR(st.st_mode))
            return B_NOT_A_DIRECTORY;
    }
    return B_OK;
}
