#pragma once

// What the fuzz targets of the decoders share: a file in memory, decoded as the kit does it.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "kits/translation/AddOn.h"

/// The target's own translator, linked into it.
extern "C" BPrivate::AddOn::Translator* lorivane_translator(uint32 version);

namespace Fuzz {

class MemorySource final : public BPrivate::AddOn::Source {
public:
    MemorySource(const uint8* bytes, size_t size) : fBytes(bytes), fSize(size) {}

    int64 ReadAt(int64 offset, void* buffer, size_t size) override {
        if (offset < 0)
            return B_BAD_VALUE;
        if (size_t(offset) >= fSize)
            return 0;
        size = std::min(size, fSize - size_t(offset));
        memcpy(buffer, fBytes + offset, size);
        return int64(size);
    }

    int64 Size() override { return int64(fSize); }

private:
    const uint8* fBytes;
    size_t fSize;
};

/// Decodes the bytes, if they are of the format and not too large a picture to try many of.
inline void DecodeImage(const uint8* bytes, size_t size) {
    using namespace BPrivate::AddOn;
    MemorySource source(bytes, size);
    Format format{};
    BPrivate::AddOn::Translator& translator = *lorivane_translator(kInterfaceVersion);
    if (translator.Identify(source, &format) != B_OK)
        return;
    constexpr uint64 kBudget = 64 * 1024 * 1024;
    constexpr uint64 kMaxPixels = 1024 * 1024;
    Problem problem;
    const std::unique_ptr<Decoder> decoder = translator.Open(source, kBudget, &problem);
    if (!decoder) {
        if (problem.status == B_OK)
            std::abort();
        return;
    }
    const Size picture = decoder->PictureSize();
    if (uint64(picture.width) * picture.height > kMaxPixels)
        return;
    // Exactly the picture's memory, so that a write beyond it is noticed.
    const size_t rowSize = size_t(picture.width) * 4;
    const auto bits = std::make_unique<uint8[]>(rowSize * picture.height);
    if (decoder->Decode(bits.get(), rowSize, &problem) != problem.status)
        std::abort();
}

}  // namespace Fuzz
