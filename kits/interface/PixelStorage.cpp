#include "kits/interface/PixelStorage.h"

#include <new>
#include <sys/mman.h>

namespace BPrivate {

namespace {

// Fewer, larger pages make the first touch of a big picture several times cheaper.
constexpr std::size_t kHugePage = std::size_t{2} << 20;

}  // namespace

struct PixelStorage::Block {
    std::atomic<int32> users{1};
    uint8* bits = nullptr;
    std::function<void()> release;
};

PixelStorage::PixelStorage(const PixelStorage& other) : fBlock(other.fBlock) {
    if (fBlock != nullptr)
        fBlock->users.fetch_add(1, std::memory_order_relaxed);
}

PixelStorage::~PixelStorage() {
    // The last user to leave must see everything the others did with the memory.
    if (fBlock == nullptr || fBlock->users.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    if (fBlock->release)
        fBlock->release();
    delete fBlock;
}

PixelStorage PixelStorage::Allocate(std::size_t size) {
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        return {};
    if (size >= 2 * kHugePage)
        madvise(memory, size, MADV_HUGEPAGE);
    return Adopt(static_cast<uint8*>(memory), [memory, size] { munmap(memory, size); });
}

PixelStorage PixelStorage::Adopt(uint8* bits, std::function<void()> release) {
    auto* block = new Block;
    block->bits = bits;
    block->release = std::move(release);
    return PixelStorage(block);
}

uint8* PixelStorage::Bits() const {
    return fBlock != nullptr ? fBlock->bits : nullptr;
}

bool PixelStorage::IsUnique() const {
    // Acquire: what the last other user read of the memory happened before it is written now.
    return fBlock != nullptr && fBlock->users.load(std::memory_order_acquire) == 1;
}

}  // namespace BPrivate
