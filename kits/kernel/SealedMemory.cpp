#include "kits/kernel/SealedMemory.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace BPrivate {

namespace {

constexpr int kSeals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE;

bool write_all(int descriptor, const char* data, size_t size) {
    // More than that is not written by one call.
    constexpr size_t kPiece = size_t{1} << 30;
    while (size > 0) {
        const ssize_t written = write(descriptor, data, std::min(size, kPiece));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        size -= size_t(written);
    }
    return true;
}

}  // namespace

std::optional<SealedMemory> SealedMemory::Make(const void* data, size_t size) {
    const int descriptor = memfd_create("message", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (descriptor < 0)
        return {};
    SealedMemory memory(descriptor, size);
    if (!write_all(descriptor, static_cast<const char*>(data), size) ||
        fcntl(descriptor, F_ADD_SEALS, kSeals | F_SEAL_SEAL) != 0)
        return {};
    return memory;
}

std::optional<SealedMemory> SealedMemory::Adopt(int descriptor, size_t maxSize) {
    // Only memory can have seals; asking anything else for them fails and touches nothing.
    const int seals = fcntl(descriptor, F_GET_SEALS);
    struct stat status;
    if (seals < 0 || (seals & kSeals) != kSeals || fstat(descriptor, &status) != 0 ||
        status.st_size < 0 || size_t(status.st_size) > maxSize)
        return {};
    const int own = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (own < 0)
        return {};
    return SealedMemory(own, size_t(status.st_size));
}

SealedMemory::SealedMemory(SealedMemory&& other) noexcept
    : fDescriptor(std::exchange(other.fDescriptor, -1)), fSize(std::exchange(other.fSize, 0)) {}

SealedMemory& SealedMemory::operator=(SealedMemory&& other) noexcept {
    std::swap(fDescriptor, other.fDescriptor);
    std::swap(fSize, other.fSize);
    return *this;
}

SealedMemory::~SealedMemory() {
    if (fDescriptor >= 0)
        close(fDescriptor);
}

bool SealedMemory::Read(void* buffer, size_t size) const {
    // Not mapped: pages that a sparse file lacks would be allocated, or fail with a signal.
    auto* to = static_cast<char*>(buffer);
    off_t offset = 0;
    while (size > 0) {
        const ssize_t got = pread(fDescriptor, to, size, offset);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        to += got;
        offset += got;
        size -= size_t(got);
    }
    return true;
}

}  // namespace BPrivate
