#include "kits/translators/ByteReader.h"
#include "kits/translators/Completeness.h"
#include <array>

namespace BPrivate::AddOn {

namespace {

// The bits of a picture's data, which lies in blocks of up to 255 bytes, the last of none.
class Codes {
public:
    explicit Codes(ByteReader& in) : fIn(in) {}

    // The next code of so many bits, -1 at the end of the data.
    int Next(int bits) {
        while (fCount < bits) {
            if (fLeft == 0) {
                fLeft = fIn.Next();
                if (fLeft <= 0)
                    return -1;
            }
            const int byte = fIn.Next();
            if (byte < 0)
                return -1;
            fLeft--;
            fBits |= uint32(byte) << fCount;
            fCount += 8;
        }
        const int code = int(fBits & ((1u << bits) - 1));
        fBits >>= bits;
        fCount -= bits;
        return code;
    }

private:
    ByteReader& fIn;
    int fLeft = 0;
    uint32 fBits = 0;
    int fCount = 0;
};

// Whether the compressed data (GIF89a, appendix F) stands for so many pixels. Only the lengths of
// the codes' strings are followed.
bool HasPixels(ByteReader& in, int64 pixels) {
    const int minimum = in.Next();
    if (minimum < 1 || minimum > 8)
        return false;
    constexpr int kCodes = 4096;
    std::array<int64, kCodes> length;
    length.fill(1);
    const int clear = 1 << minimum;
    const int end = clear + 1;
    int next = clear + 2;
    int bits = minimum + 1;
    int previous = -1;
    Codes codes(in);
    while (pixels > 0) {
        const int code = codes.Next(bits);
        if (code < 0 || code == end)
            return false;
        if (code == clear) {
            next = clear + 2;
            bits = minimum + 1;
            previous = -1;
            continue;
        }
        if (code > next || (previous < 0 && code >= clear) || (code == next && next >= kCodes))
            return false;
        if (previous >= 0 && next < kCodes) {
            length[size_t(next)] = length[size_t(previous)] + 1;
            next++;
            if (next == 1 << bits && bits < 12)
                bits++;
        }
        pixels -= length[size_t(code)];
        previous = code;
    }
    return true;
}

bool SkipBlocks(ByteReader& in) {
    for (;;) {
        const int size = in.Next();
        if (size <= 0)
            return size == 0;
        if (!in.Skip(size))
            return false;
    }
}

int64 ColorTableSize(int flags) {
    return (flags & 0x80) != 0 ? 3 * (2 << (flags & 7)) : 0;
}

}  // namespace

bool IsCompleteGif(Source& source) {
    ByteReader in(source, 10);
    const int flags = in.Next();
    if (flags < 0 || !in.Skip(2 + ColorTableSize(flags)))
        return false;
    for (;;) {
        const int block = in.Next();
        if (block == 0x21) {
            if (in.Next() < 0 || !SkipBlocks(in))
                return false;
        } else if (block == 0x2c) {
            in.Skip(4);
            const int64 width = in.NextNumber(2);
            const int64 height = in.NextNumber(2);
            const int imageFlags = in.Next();
            return imageFlags >= 0 && width > 0 && height > 0 &&
                in.Skip(ColorTableSize(imageFlags)) && HasPixels(in, width * height);
        } else {
            return false;
        }
    }
}

}  // namespace BPrivate::AddOn
