#include <storage/File.h>

#include "kits/storage/Posix.h"
#include "kits/storage/Replacement.h"
#include <cerrno>
#include <fcntl.h>
#include <storage/Entry.h>
#include <storage/Path.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace BPrivate;

static constexpr uint32 kAccessMask = 3;

// What is going to take the file's place, and why it will not if a write has failed.
struct BFile::Replacement {
    BPrivate::Replacement file;
    status_t failure = B_OK;
};

BFile::BFile() = default;
BFile::BFile(const char* path, uint32 openMode) {
    SetTo(path, openMode);
}
BFile::BFile(const entry_ref* ref, uint32 openMode) {
    SetTo(ref, openMode);
}
BFile::BFile(const BEntry* entry, uint32 openMode) {
    SetTo(entry, openMode);
}

BFile::BFile(const BDirectory* folder, const char* path, uint32 openMode) {
    SetTo(folder, path, openMode);
}

BFile::~BFile() {
    (void)Commit();
}

void BFile::Unset() {
    (void)Commit();
    fReplacement.reset();
    fPosition = 0;
    fOpenMode = 0;
    BNode::Unset();
}

status_t BFile::SetTo(const char* path, uint32 openMode) {
    const BEntry entry(path, true);
    return SetTo(&entry, openMode);
}

status_t BFile::SetTo(const entry_ref* ref, uint32 openMode) {
    const BEntry entry(ref, true);
    return SetTo(&entry, openMode);
}

status_t BFile::SetTo(const BDirectory* folder, const char* path, uint32 openMode) {
    const BEntry entry(folder, path, true);
    return SetTo(&entry, openMode);
}

status_t BFile::SetTo(const BEntry* entry, uint32 openMode) {
    // First of all the file that is open until now gets its place: it may be the same one.
    Unset();
    if (entry == nullptr || (openMode & kAccessMask) > B_READ_WRITE)
        return fStatus = B_BAD_VALUE;
    BPath path;
    if (entry->GetPath(&path) != B_OK)
        return fStatus = entry->InitCheck();
    std::string target;
    if (ReadLink(path.Path(), &target) == B_OK) {
        const BEntry followed(path.Path(), true);
        if (followed.GetPath(&path) != B_OK)
            return fStatus = followed.InitCheck();
    }
    const bool replaces = (openMode & B_ERASE_FILE) != 0 &&
        (openMode & kAccessMask) != B_READ_ONLY && (openMode & B_FAIL_IF_EXISTS) == 0;
    status_t status = B_NOT_SUPPORTED;
    if (replaces)
        status = OpenReplacement(path.Path(), openMode);
    if (!replaces || status == B_NOT_SUPPORTED) {
        fReplacement.reset();
        status = OpenInPlace(path.Path(), openMode);
    }
    if (status != B_OK) {
        fReplacement.reset();
        return fStatus = status;
    }
    fOpenMode = openMode;
    if ((openMode & B_OPEN_AT_END) != 0 && GetSize(&fPosition) != B_OK)
        fPosition = 0;
    return fStatus;
}

static status_t CheckKind(mode_t mode, uint32 openMode) {
    if (S_ISDIR(mode))
        return (openMode & kAccessMask) == B_READ_ONLY ? B_OK : B_IS_A_DIRECTORY;
    return S_ISREG(mode) ? B_OK : B_BAD_VALUE;
}

status_t BFile::OpenReplacement(const std::string& path, uint32 openMode) {
    const AtPath at(path);
    if (at.Status() != B_OK)
        return at.Status();
    struct stat st;
    const bool exists = fstatat(at.Folder(), at.Rest(), &st, AT_SYMLINK_NOFOLLOW) == 0;
    if (exists) {
        if (status_t status = CheckKind(st.st_mode, openMode); status != B_OK)
            return status;
        const int access = (openMode & kAccessMask) == B_READ_WRITE ? R_OK | W_OK : W_OK;
        if (faccessat(at.Folder(), at.Rest(), access, AT_EACCESS) != 0)
            return StatusFromErrno(errno);
    } else if (errno != ENOENT || (openMode & B_CREATE_FILE) == 0) {
        return StatusFromErrno(errno);
    }
    fReplacement = std::make_unique<Replacement>();
    if (status_t status = fReplacement->file.Create(path, exists ? &st : nullptr); status != B_OK)
        return status;
    return Adopt(fReplacement->file.File().Detach());
}

status_t BFile::OpenInPlace(const std::string& path, uint32 openMode) {
    const AtPath at(path);
    if (at.Status() != B_OK)
        return at.Status();
    // A device may act on being opened, so it is not.
    struct stat st;
    if (fstatat(at.Folder(), at.Rest(), &st, AT_SYMLINK_NOFOLLOW) == 0) {
        if ((openMode & B_CREATE_FILE) != 0 && (openMode & B_FAIL_IF_EXISTS) != 0)
            return B_FILE_EXISTS;
        if (status_t status = CheckKind(st.st_mode, openMode); status != B_OK)
            return status;
    }
    static constexpr int kAccess[] = {O_RDONLY, O_WRONLY, O_RDWR};
    int flags = kAccess[openMode & kAccessMask] | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW | O_CLOEXEC;
    if ((openMode & B_CREATE_FILE) != 0)
        flags |= (openMode & B_FAIL_IF_EXISTS) != 0 ? O_CREAT | O_EXCL : O_CREAT;
    Descriptor file(openat(at.Folder(), at.Rest(), flags, 0666));
    if (!file)
        return StatusFromErrno(errno);
    // What is there may have been exchanged since.
    if (fstat(file.Get(), &st) != 0)
        return StatusFromErrno(errno);
    if (status_t status = CheckKind(st.st_mode, openMode); status != B_OK)
        return status;
    if ((openMode & B_ERASE_FILE) != 0 && (openMode & kAccessMask) != B_READ_ONLY &&
        ftruncate(file.Get(), 0) != 0)
        return StatusFromErrno(errno);
    return Adopt(file.Detach());
}

status_t BFile::Commit() {
    if (!fReplacement)
        return B_OK;
    if (fReplacement->failure != B_OK)
        return fReplacement->failure;
    return fReplacement->file.Commit(fDescriptor);
}

status_t BFile::Sync() {
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (!fReplacement)
        return BNode::Sync();
    if (status_t status = Commit(); status != B_OK)
        return fReplacement->failure = status;
    const status_t status = fReplacement->file.SyncFolder();
    fReplacement.reset();
    return status;
}

bool BFile::IsReadable() const {
    return fStatus == B_OK && (fOpenMode & kAccessMask) != B_WRITE_ONLY;
}

bool BFile::IsWritable() const {
    return fStatus == B_OK && (fOpenMode & kAccessMask) != B_READ_ONLY;
}

ssize_t BFile::Read(void* buffer, size_t size) {
    const ssize_t done = ReadAt(fPosition, buffer, size);
    if (done > 0)
        fPosition += done;
    return done;
}

ssize_t BFile::ReadAt(off_t position, void* buffer, size_t size) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (!IsReadable())
        return B_NOT_ALLOWED;
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    ssize_t done;
    do {
        done = pread(fDescriptor, buffer, size, position);
    } while (done < 0 && errno == EINTR);
    return done >= 0 ? done : StatusFromErrno(errno);
}

ssize_t BFile::Write(const void* buffer, size_t size) {
    const ssize_t done = WriteAt(fPosition, buffer, size);
    if (done > 0)
        fPosition += done;
    return done;
}

ssize_t BFile::WriteAt(off_t position, const void* buffer, size_t size) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (!IsWritable())
        return B_NOT_ALLOWED;
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    const char* bytes = static_cast<const char*>(buffer);
    for (size_t done = 0; done < size;) {
        const ssize_t step = pwrite(fDescriptor, bytes + done, size - done, position + off_t(done));
        if (step > 0) {
            done += size_t(step);
            continue;
        }
        if (step < 0 && errno == EINTR)
            continue;
        const status_t status = step == 0 ? B_DEVICE_FULL : StatusFromErrno(errno);
        if (fReplacement && fReplacement->failure == B_OK)
            fReplacement->failure = status;
        return status;
    }
    return ssize_t(size);
}

off_t BFile::Seek(off_t position, uint32 seekMode) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    off_t base = 0;
    if (seekMode == SEEK_CUR)
        base = fPosition;
    else if (seekMode == SEEK_END) {
        if (status_t status = GetSize(&base); status != B_OK)
            return status;
    } else if (seekMode != SEEK_SET)
        return B_BAD_VALUE;
    off_t target;
    if (__builtin_add_overflow(base, position, &target) || target < 0)
        return B_BAD_VALUE;
    return fPosition = target;
}

off_t BFile::Position() const {
    return fStatus == B_OK ? fPosition : off_t(B_NO_INIT);
}

status_t BFile::SetSize(off_t size) {
    if (fStatus != B_OK)
        return B_NO_INIT;
    if (size < 0)
        return B_BAD_VALUE;
    if (!IsWritable())
        return B_NOT_ALLOWED;
    if (ftruncate(fDescriptor, size) == 0)
        return B_OK;
    const status_t status = StatusFromErrno(errno);
    if (fReplacement)
        fReplacement->failure = status;
    return status;
}

status_t BFile::GetSize(off_t* size) const {
    return BStatable::GetSize(size);
}
