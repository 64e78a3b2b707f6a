#pragma once

#include "kits/translation/AddOn.h"
#include <string>
#include <vector>

namespace BPrivate::AddOn {

/// Reads a file from front to back, a block at a time.
class ByteReader {
public:
    explicit ByteReader(Source& source, int64 offset = 0) : fSource(source), fOffset(offset) {}

    /// The next byte, or -1 at the end or when the file cannot be read.
    int Next() {
        if (fAt == fEnd) {
            const int64 got = fSource.ReadAt(fOffset, fBuffer, sizeof(fBuffer));
            if (got <= 0)
                return -1;
            fOffset += got;
            fAt = 0;
            fEnd = size_t(got);
        }
        return fBuffer[fAt++];
    }

    /// A little-endian number of `bytes` bytes, or -1 if the file ends within it.
    int64 NextNumber(int bytes) {
        int64 number = 0;
        for (int i = 0; i < bytes; i++) {
            const int byte = Next();
            if (byte < 0)
                return -1;
            number |= int64(byte) << (8 * i);
        }
        return number;
    }

    /// False if the file ends within the bytes skipped.
    bool Skip(int64 bytes) {
        for (; bytes > 0; bytes--) {
            if (Next() < 0)
                return false;
        }
        return true;
    }

private:
    Source& fSource;
    int64 fOffset;
    size_t fAt = 0;
    size_t fEnd = 0;
    uint8 fBuffer[4096];
};

}  // namespace BPrivate::AddOn
