#pragma once

#include <optional>

#include <support/SupportDefs.h>

namespace BPrivate {

/// Bytes that nobody can change or take away any more, behind a file descriptor that can be given
/// to another process. Owns the descriptor.
class SealedMemory {
public:
    /// A copy of the bytes; nothing when there is no memory or no descriptor left.
    static std::optional<SealedMemory> Make(const void* data, size_t size);

    /// What another process gave, which stays the caller's. Nothing when it is not such memory,
    /// or larger than `maxSize`: a pipe, a file, memory that its sender could still shrink.
    static std::optional<SealedMemory> Adopt(int descriptor, size_t maxSize);

    SealedMemory(SealedMemory&& other) noexcept;
    SealedMemory& operator=(SealedMemory&& other) noexcept;
    ~SealedMemory();

    size_t Size() const { return fSize; }
    int Descriptor() const { return fDescriptor; }

    /// Copies the first `size` bytes; false when they cannot be read.
    bool Read(void* buffer, size_t size) const;

private:
    SealedMemory(int descriptor, size_t size) : fDescriptor(descriptor), fSize(size) {}

    int fDescriptor = -1;
    size_t fSize = 0;
};

}  // namespace BPrivate
