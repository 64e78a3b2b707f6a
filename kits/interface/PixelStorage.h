#pragma once

#include <atomic>
#include <functional>
#include <support/SupportDefs.h>
#include <utility>

namespace BPrivate {

/// A block of memory that several bitmaps may use while none of them writes.
///
/// Handles (PixelStorage) are values of one thread each; any number of threads may hold handles of
/// one block. Who wants to write asks IsUnique() first and writes to a copy when it says no.
class PixelStorage {
public:
    /// Nothing.
    PixelStorage() = default;
    PixelStorage(const PixelStorage& other);
    PixelStorage(PixelStorage&& other) noexcept : fBlock(std::exchange(other.fBlock, nullptr)) {}
    PixelStorage& operator=(PixelStorage other) noexcept {
        std::swap(fBlock, other.fBlock);
        return *this;
    }
    ~PixelStorage();

    /// Zeroed memory, given by the system as it is touched. Nothing when there is not enough.
    static PixelStorage Allocate(std::size_t size);
    /// Memory of somebody else's; `release` is called, by any thread, when nobody uses it.
    static PixelStorage Adopt(uint8* bits, std::function<void()> release);

    explicit operator bool() const { return fBlock != nullptr; }
    uint8* Bits() const;
    /// Whether no other handle has the block. True stays true while no other thread can copy this
    /// handle.
    bool IsUnique() const;
    bool IsSame(const PixelStorage& other) const { return fBlock == other.fBlock; }

private:
    struct Block;

    explicit PixelStorage(Block* block) : fBlock(block) {}

    Block* fBlock = nullptr;
};

}  // namespace BPrivate
