#include "kits/interface/PixelStorage.h"

#include <cstdint>
#include <cstdlib>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace BPrivate {

namespace {

// Fewer, larger pages make the first touch of a big picture several times cheaper.
constexpr std::size_t kHugePage = std::size_t{2} << 20;

void* Map(std::size_t size) {
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory != MAP_FAILED ? memory : nullptr;
}

/// Memory that starts at a large page: before the first and after the last whole one it is made of
/// small ones.
void* MapLargePages(std::size_t size) {
    const std::size_t page = kHugePage;
    const auto smallPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t rounded = (size + smallPage - 1) / smallPage * smallPage;
    auto* memory = static_cast<uint8*>(Map(rounded + page));
    if (memory == nullptr)
        return nullptr;
    const std::size_t before = (page - reinterpret_cast<std::uintptr_t>(memory) % page) % page;
    if (before > 0)
        munmap(memory, before);
    munmap(memory + before + rounded, page - before);
    madvise(memory + before, size, MADV_HUGEPAGE);
    return memory + before;
}

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
    // The C library gives small memory again that was used before; pages of the kernel's are cleared
    // one by one at their first touch, which takes longer than to fill them.
    const bool isLarge = size >= 2 * kHugePage;
    void* memory = isLarge ? MapLargePages(size) : std::calloc(size, 1);
    if (memory == nullptr)
        return {};
    return Adopt(static_cast<uint8*>(memory), [=] {
        if (isLarge)
            munmap(memory, size);
        else
            std::free(memory);
    });
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
