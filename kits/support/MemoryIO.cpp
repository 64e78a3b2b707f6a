#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include <support/DataIO.h>

// The two objects that read and write memory.

namespace {

constexpr auto kLargest = static_cast<std::size_t>(std::numeric_limits<off_t>::max());

/// Copies what there is at `position` of `length` bytes of `data`.
ssize_t read_memory(
    const char* data, std::size_t length, off_t position, void* buffer, std::size_t size) {
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    const auto from = static_cast<std::size_t>(position);
    if (size == 0 || from >= length)
        return 0;
    const std::size_t bytes = std::min(size, length - from);
    std::memcpy(buffer, data + from, bytes);
    return static_cast<ssize_t>(bytes);
}

/// Moves `current` and returns it, or `B_BAD_VALUE` for a place before the start.
off_t seek_memory(off_t& current, std::size_t length, off_t position, uint32 seekMode) {
    off_t base = 0;
    switch (seekMode) {
    case SEEK_SET: break;
    case SEEK_CUR: base = current; break;
    case SEEK_END: base = static_cast<off_t>(length); break;
    default: return B_BAD_VALUE;
    }
    off_t target = 0;
    if (__builtin_add_overflow(base, position, &target) || target < 0)
        return B_BAD_VALUE;
    current = target;
    return target;
}

}  // namespace

// #pragma mark - BMallocIO

BMallocIO::BMallocIO() = default;

BMallocIO::~BMallocIO() {
    std::free(fData);
}

ssize_t BMallocIO::ReadAt(off_t position, void* buffer, std::size_t size) {
    return read_memory(fData, fLength, position, buffer, size);
}

ssize_t BMallocIO::WriteAt(off_t position, const void* buffer, std::size_t size) {
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    if (size == 0)
        return 0;
    const auto from = static_cast<std::size_t>(position);
    if (size > kLargest - from)
        return B_NO_MEMORY;
    if (const status_t status = Reserve(from + size); status != B_OK)
        return status;
    if (from > fLength)
        std::memset(fData + fLength, 0, from - fLength);
    std::memcpy(fData + from, buffer, size);
    fLength = std::max(fLength, from + size);
    return static_cast<ssize_t>(size);
}

off_t BMallocIO::Seek(off_t position, uint32 seekMode) {
    return seek_memory(fPosition, fLength, position, seekMode);
}

off_t BMallocIO::Position() const {
    return fPosition;
}

status_t BMallocIO::SetSize(off_t size) {
    if (size < 0)
        return B_BAD_VALUE;
    const auto length = static_cast<std::size_t>(size);
    if (length == 0) {
        std::free(fData);
        fData = nullptr;
        fAllocated = 0;
    } else if (const status_t status = Reserve(length); status != B_OK) {
        return status;
    }
    if (length > fLength)
        std::memset(fData + fLength, 0, length - fLength);
    fLength = length;
    return B_OK;
}

status_t BMallocIO::GetSize(off_t* size) const {
    if (size == nullptr)
        return B_BAD_VALUE;
    *size = static_cast<off_t>(fLength);
    return B_OK;
}

void BMallocIO::SetBlockSize(std::size_t blockSize) {
    fBlockSize = std::clamp<std::size_t>(blockSize, 1, std::size_t{1} << 30);
}

status_t BMallocIO::Reserve(std::size_t size) {
    if (size <= fAllocated)
        return B_OK;
    // Growing by half keeps many small writes from copying everything each time.
    std::size_t wanted = std::max(size, std::min(fAllocated + fAllocated / 2, kLargest));
    const std::size_t rest = wanted % fBlockSize;
    if (rest != 0 && wanted <= kLargest - (fBlockSize - rest))
        wanted += fBlockSize - rest;
    void* const data = std::realloc(fData, wanted);
    if (data == nullptr)
        return B_NO_MEMORY;
    fData = static_cast<char*>(data);
    fAllocated = wanted;
    return B_OK;
}

// #pragma mark - BMemoryIO

BMemoryIO::BMemoryIO(void* data, std::size_t length)
    : fReadOnly(false), fData(static_cast<char*>(data)), fLength(data != nullptr ? length : 0),
      fCapacity(fLength) {}

BMemoryIO::BMemoryIO(const void* data, std::size_t length)
    : fReadOnly(true), fData(static_cast<char*>(const_cast<void*>(data))),
      fLength(data != nullptr ? length : 0), fCapacity(fLength) {}

BMemoryIO::~BMemoryIO() = default;

ssize_t BMemoryIO::ReadAt(off_t position, void* buffer, std::size_t size) {
    return read_memory(fData, fLength, position, buffer, size);
}

ssize_t BMemoryIO::WriteAt(off_t position, const void* buffer, std::size_t size) {
    if (fReadOnly)
        return B_NOT_ALLOWED;
    if (position < 0 || (buffer == nullptr && size > 0))
        return B_BAD_VALUE;
    const auto from = static_cast<std::size_t>(position);
    if (size == 0 || from >= fCapacity)
        return 0;
    const std::size_t bytes = std::min(size, fCapacity - from);
    if (from > fLength)
        std::memset(fData + fLength, 0, from - fLength);
    std::memcpy(fData + from, buffer, bytes);
    fLength = std::max(fLength, from + bytes);
    return static_cast<ssize_t>(bytes);
}

off_t BMemoryIO::Seek(off_t position, uint32 seekMode) {
    return seek_memory(fPosition, fLength, position, seekMode);
}

off_t BMemoryIO::Position() const {
    return fPosition;
}

status_t BMemoryIO::SetSize(off_t size) {
    if (fReadOnly)
        return B_NOT_ALLOWED;
    if (size < 0)
        return B_BAD_VALUE;
    const auto length = static_cast<std::size_t>(size);
    if (length > fCapacity)
        return B_ERROR;
    if (length > fLength)
        std::memset(fData + fLength, 0, length - fLength);
    fLength = length;
    return B_OK;
}

status_t BMemoryIO::GetSize(off_t* size) const {
    if (size == nullptr)
        return B_BAD_VALUE;
    *size = static_cast<off_t>(fLength);
    return B_OK;
}
