#include "kits/storage/Replacement.h"
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <unistd.h>

namespace BPrivate {

static std::string RandomName() {
    std::random_device random;
    char name[32];
    snprintf(name, sizeof(name), ".%08x%08x.tmp", random(), random());
    return name;
}

// Tries random names until `make` (which returns like a system call) finds one that is free.
template <typename Make>
static int WithRandomName(std::string* name, Make make) {
    for (int attempt = 0; attempt < 100; attempt++) {
        *name = RandomName();
        const int result = make(name->c_str());
        if (result >= 0 || errno != EEXIST)
            return result;
    }
    return -1;
}

Replacement::~Replacement() {
    if (!fTemporaryName.empty())
        unlinkat(fFolder.Get(), fTemporaryName.c_str(), 0);
}

status_t Replacement::Create(const std::string& path, const struct stat* old) {
    const size_t slash = path.rfind('/');
    const std::string folder = path.substr(0, slash == 0 ? 1 : slash);
    fLeaf = path.substr(slash + 1);
    const AtPath at(folder);
    if (at.Status() != B_OK)
        return at.Status();
    fFolder = Descriptor(openat(at.Folder(), at.Rest(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!fFolder)
        return StatusFromErrno(errno);

    // Nobody else may read a private file before it has its own permissions.
    const mode_t mode = old == nullptr ? 0666 : 0600;
    fFile = Descriptor(openat(fFolder.Get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
    // What a file system that has no nameless files says, and a kernel that does not know them.
    if (!fFile && (errno == EOPNOTSUPP || errno == EISDIR || errno == ENOENT || errno == EINVAL)) {
        std::string name;
        fFile = Descriptor(WithRandomName(&name, [&](const char* candidate) {
            return openat(fFolder.Get(), candidate, O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode);
        }));
        if (fFile)
            fTemporaryName = name;
    }
    if (!fFile) {
        const bool refused = errno == EACCES || errno == EPERM || errno == EROFS;
        return refused && old != nullptr ? B_NOT_SUPPORTED : StatusFromErrno(errno);
    }
    return old != nullptr ? TakeOver(*old) : B_OK;
}

status_t Replacement::TakeOver(const struct stat& old) {
    struct stat own;
    if (fstat(fFile.Get(), &own) != 0)
        return StatusFromErrno(errno);
    if ((own.st_uid != old.st_uid || own.st_gid != old.st_gid) &&
        fchown(fFile.Get(), old.st_uid, old.st_gid) != 0)
        return B_NOT_SUPPORTED;
    const Descriptor file(
        openat(fFolder.Get(), fLeaf.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file)
        return B_NOT_SUPPORTED;
    if (status_t status = CopyExtendedAttributes(file.Get(), fFile.Get()); status != B_OK)
        return status;
    if (fchmod(fFile.Get(), old.st_mode & 0777) != 0)
        return StatusFromErrno(errno);
    return B_OK;
}

status_t Replacement::GiveName(int file) {
    if (!fTemporaryName.empty())
        return B_OK;
    char source[40];
    snprintf(source, sizeof(source), "/proc/self/fd/%d", file);
    std::string name;
    if (WithRandomName(&name, [&](const char* candidate) {
            return linkat(AT_FDCWD, source, fFolder.Get(), candidate, AT_SYMLINK_FOLLOW);
        }) != 0)
        return StatusFromErrno(errno);
    fTemporaryName = name;
    return B_OK;
}

status_t Replacement::Commit(int file) {
    // The data must be on the disk before the name leads to it, or a crash of the machine could
    // leave an empty file under the name.
    if (fsync(file) != 0)
        return StatusFromErrno(errno);
    if (status_t status = GiveName(file); status != B_OK)
        return status;
    if (renameat(fFolder.Get(), fTemporaryName.c_str(), fFolder.Get(), fLeaf.c_str()) != 0)
        return StatusFromErrno(errno);
    fTemporaryName.clear();
    return B_OK;
}

status_t Replacement::SyncFolder() {
    const Descriptor folder(openat(fFolder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder)
        return StatusFromErrno(errno);
    return fsync(folder.Get()) == 0 ? B_OK : StatusFromErrno(errno);
}

}  // namespace BPrivate
