#include "kits/storage/Posix.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace BPrivate {

status_t StatusFromErrno(int error) {
    switch (error) {
    case 0: return B_OK;
    case ENOENT: return B_ENTRY_NOT_FOUND;
    case EACCES:
    case EPERM: return B_PERMISSION_DENIED;
    case EEXIST: return B_FILE_EXISTS;
    case ENOTDIR: return B_NOT_A_DIRECTORY;
    case EISDIR: return B_IS_A_DIRECTORY;
    case ENOTEMPTY: return B_DIRECTORY_NOT_EMPTY;
    case ENAMETOOLONG: return B_NAME_TOO_LONG;
    case ELOOP: return B_LINK_LIMIT;
    case ENOSPC:
    case EDQUOT: return B_DEVICE_FULL;
    case EROFS: return B_READ_ONLY_DEVICE;
    case EMFILE:
    case ENFILE: return B_NO_MORE_FDS;
    case EXDEV: return B_CROSS_DEVICE_LINK;
    case EPIPE: return B_BUSTED_PIPE;
    case ENOMEM: return B_NO_MEMORY;
    case EINVAL:
    case ENXIO:
    case ENODEV: return B_BAD_VALUE;
    case EBUSY:
    case ETXTBSY: return B_BUSY;
    case EINTR: return B_INTERRUPTED;
    case EAGAIN: return B_WOULD_BLOCK;
    case ETIMEDOUT: return B_TIMED_OUT;
    case ENOTSUP: return B_NOT_SUPPORTED;
    case EBADF: return B_NOT_ALLOWED;
    case EIO: return B_IO_ERROR;
    default: return B_FILE_ERROR;
    }
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
    std::swap(fDescriptor, other.fDescriptor);
    return *this;
}

Descriptor::~Descriptor() {
    if (fDescriptor >= 0)
        close(fDescriptor);
}

AtPath::AtPath(const std::string& path) : fRest(path.c_str()) {
    size_t left = path.size();
    while (left >= PATH_MAX) {
        const void* slash = memrchr(fRest, '/', PATH_MAX - 1);
        if (slash == nullptr) {
            fStatus = B_NAME_TOO_LONG;
            return;
        }
        const size_t length = size_t(static_cast<const char*>(slash) - fRest);
        const std::string part(fRest, length == 0 ? 1 : length);
        Descriptor folder(openat(Folder(), part.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!folder) {
            fStatus = StatusFromErrno(errno);
            return;
        }
        fFolder = std::move(folder);
        const size_t skip = length + strspn(fRest + length, "/");
        fRest += skip;
        left -= skip;
    }
}

int AtPath::Folder() const {
    return fFolder ? fFolder.Get() : AT_FDCWD;
}

status_t MakeAbsolute(std::string* path) {
    if (!path->empty() && path->front() == '/')
        return B_OK;
    const std::unique_ptr<char, decltype(&free)> folder(getcwd(nullptr, 0), free);
    if (!folder)
        return StatusFromErrno(errno);
    // A working folder that cannot be reached from the root is reported as "(unreachable)/...".
    if (folder.get()[0] != '/')
        return B_ENTRY_NOT_FOUND;
    *path = path->empty() ? std::string(folder.get()) : Join(folder.get(), path->c_str());
    return B_OK;
}

static bool HasDots(const std::string& path) {
    for (size_t at = 0; at < path.size();) {
        const size_t end = std::min(path.find('/', at), path.size());
        const std::string_view part = std::string_view(path).substr(at, end - at);
        if (part == "." || part == "..")
            return true;
        at = end + 1;
    }
    return false;
}

static std::string WithoutDoubledSlashes(const std::string& path) {
    std::string clean;
    clean.reserve(path.size());
    for (char c : path) {
        if (c != '/' || clean.empty() || clean.back() != '/')
            clean += c;
    }
    while (clean.size() > 1 && clean.back() == '/')
        clean.pop_back();
    return clean;
}

status_t ResolveFolder(std::string* path) {
    const std::unique_ptr<char, decltype(&free)> real(realpath(path->c_str(), nullptr), free);
    int error = errno;
    if (real) {
        *path = real.get();
        struct stat st;
        if (stat(real.get(), &st) != 0)
            return StatusFromErrno(errno);
        return S_ISDIR(st.st_mode) ? B_OK : B_NOT_A_DIRECTORY;
    }
    // The system resolves no path above its limit. One without dots is good as it is.
    if (error != ENAMETOOLONG || HasDots(*path))
        return StatusFromErrno(error);
    std::string clean = WithoutDoubledSlashes(*path);
    const AtPath at(clean);
    if (at.Status() != B_OK)
        return at.Status();
    struct stat st;
    if (fstatat(at.Folder(), at.Rest(), &st, 0) != 0)
        return StatusFromErrno(errno);
    if (!S_ISDIR(st.st_mode))
        return B_NOT_A_DIRECTORY;
    *path = std::move(clean);
    return B_OK;
}

status_t ReadLink(const std::string& path, std::string* target) {
    const AtPath at(path);
    if (at.Status() != B_OK)
        return at.Status();
    char buffer[PATH_MAX];
    const ssize_t length = readlinkat(at.Folder(), at.Rest(), buffer, sizeof(buffer));
    if (length < 0)
        return StatusFromErrno(errno);
    target->assign(buffer, size_t(length));
    return B_OK;
}

std::string Join(const std::string& folder, const char* name) {
    std::string path = folder;
    if (path.empty() || path.back() != '/')
        path += '/';
    return path += name;
}

status_t CopyExtendedAttributes(int from, int to) {
    const ssize_t namesSize = flistxattr(from, nullptr, 0);
    if (namesSize < 0)
        return errno == ENOTSUP ? B_OK : StatusFromErrno(errno);
    std::vector<char> names(size_t(namesSize) + 1);
    const ssize_t got = flistxattr(from, names.data(), size_t(namesSize));
    if (got < 0)
        return StatusFromErrno(errno);
    std::vector<char> value;
    for (const char* name = names.data(); name < names.data() + got; name += strlen(name) + 1) {
        const ssize_t size = fgetxattr(from, name, nullptr, 0);
        int error = size < 0 ? errno : 0;
        if (error == 0) {
            value.resize(size_t(size));
            const ssize_t read = fgetxattr(from, name, value.data(), value.size());
            if (read < 0 || fsetxattr(to, name, value.data(), size_t(read), 0) != 0)
                error = errno;
        }
        if (error != 0 && error != ENODATA && strncmp(name, "user.", 5) == 0)
            return StatusFromErrno(error);
    }
    return B_OK;
}

}  // namespace BPrivate
