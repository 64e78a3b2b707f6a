#include "kits/translators/Completeness.h"

#include "kits/translators/ByteReader.h"
#include <cctype>
#include <cstdlib>
#include <cstring>

namespace BPrivate::AddOn {

bool IsComplete(std::string_view format, Source& source) {
    if (format == "bmp")
        return IsCompleteBmp(source);
    if (format == "gif")
        return IsCompleteGif(source);
    if (format == "xbm")
        return IsCompleteXbm(source);
    if (format == "pbm" || format == "pgm" || format == "ppm")
        return IsCompleteAnyMap(source);
    return true;
}

// A run-length encoded bitmap goes on to its end marker.
static bool HasBmpRuns(Source& source, int64 offset, bool fourBits) {
    ByteReader in(source, offset);
    for (;;) {
        const int count = in.Next();
        const int value = in.Next();
        if (value < 0)
            return false;
        if (count != 0 || value == 0)
            continue;
        if (value == 1)
            return true;
        // 2 moves by two more bytes; more are so many pixels, padded to an even number of bytes.
        const int bytes = value == 2 ? 2 : fourBits ? (value + 3) / 4 * 2 : (value + 1) / 2 * 2;
        if (!in.Skip(bytes))
            return false;
    }
}

bool IsCompleteBmp(Source& source) {
    ByteReader in(source, 10);
    const int64 offset = in.NextNumber(4);
    const int64 headerSize = in.NextNumber(4);
    int64 width;
    int64 height;
    int64 bits;
    int64 compression = 0;
    if (headerSize == 12) {
        width = in.NextNumber(2);
        height = in.NextNumber(2);
        in.Skip(2);
        bits = in.NextNumber(2);
    } else {
        width = int32(in.NextNumber(4));
        height = std::abs(int64(int32(in.NextNumber(4))));
        in.Skip(2);
        bits = in.NextNumber(2);
        compression = in.NextNumber(4);
    }
    if (width <= 0 || height <= 0 || bits <= 0 || compression < 0)
        return false;
    constexpr int64 kRle8 = 1;
    constexpr int64 kRle4 = 2;
    if (compression == kRle8 || compression == kRle4)
        return HasBmpRuns(source, offset, compression == kRle4);
    const int64 row = (width * bits + 31) / 32 * 4;
    int64 pixels;
    return !__builtin_mul_overflow(row, height, &pixels) && pixels <= source.Size() - offset;
}

// Reads the next word of a text and what follows it, skipping comments from '#' to the line's end.
static bool NextWord(ByteReader& in, std::string* word, int* follows) {
    word->clear();
    int c = in.Next();
    while (c == '#' || (c >= 0 && isspace(c))) {
        if (c == '#') {
            while (c >= 0 && c != '\n')
                c = in.Next();
        }
        if (c >= 0)
            c = in.Next();
    }
    for (; c >= 0 && !isspace(c) && c != '#'; c = in.Next()) {
        if (word->size() < 32)
            word->push_back(char(c));
    }
    *follows = c;
    return !word->empty();
}

bool IsCompleteAnyMap(Source& source) {
    ByteReader in(source);
    std::string word;
    int follows;
    int64 header[3] = {};
    if (!NextWord(in, &word, &follows) || word.size() != 2)
        return false;
    const int kind = word[1] - '0';
    const bool bitmap = kind == 1 || kind == 4;
    for (int i = 0; i < (bitmap ? 2 : 3); i++) {
        if (!NextWord(in, &word, &follows))
            return false;
        header[i] = atoll(word.c_str());
        if (header[i] <= 0 || header[i] > INT32_MAX)
            return false;
    }
    const int64 samples = header[0] * (kind == 3 || kind == 6 ? 3 : 1);
    // The reader counts the bytes of the other kinds itself.
    if (kind >= 4)
        return true;
    // Numbers, or for a bitmap digits that need no space between them.
    int64 left;
    if (__builtin_mul_overflow(samples, header[1], &left) || left > source.Size())
        return false;
    if (bitmap) {
        for (int c = in.Next(); c >= 0 && left > 0; c = in.Next())
            left -= c == '0' || c == '1' ? 1 : 0;
        return left == 0;
    }
    while (left > 0 && NextWord(in, &word, &follows))
        left--;
    // A number at the very end of the file may have lost its last digits.
    return left == 0 && follows >= 0;
}

bool IsCompleteXbm(Source& source) {
    ByteReader in(source);
    int64 size[2] = {};
    for (int i = 0; i < 2;) {
        // "#define name_width 13"; here '#' begins no comment, so it is read by character.
        int c = in.Next();
        std::string line;
        for (; c >= 0 && c != '\n' && line.size() < 300; c = in.Next())
            line.push_back(char(c));
        if (c < 0)
            return false;
        char name[256];
        int value;
        if (sscanf(line.c_str(), "#define %255s %d", name, &value) == 2)
            size[i++] = value;
    }
    if (size[0] <= 0 || size[1] <= 0)
        return false;
    int64 left = (size[0] + 7) / 8 * size[1];
    int before = 0;
    int digits = -1;
    for (int c = in.Next(); c >= 0; c = in.Next()) {
        if (digits >= 0 && isxdigit(c)) {
            digits++;
        } else {
            // A number is whole when something follows it.
            if (digits > 0)
                left--;
            digits = before == '0' && (c == 'x' || c == 'X') ? 0 : -1;
        }
        before = c;
    }
    return left <= 0;
}

bool IsSoundWbmp(Source& source) {
    ByteReader in(source);
    if (in.Next() != 0 || in.Next() != 0)
        return false;
    int64 header = 2;
    int64 size[2] = {};
    for (int64& number : size) {
        int byte;
        do {
            byte = in.Next();
            header++;
            number = number << 7 | (byte & 0x7f);
            if (byte < 0 || number > INT16_MAX)
                return false;
        } while ((byte & 0x80) != 0);
    }
    return size[0] > 0 && size[1] > 0 && source.Size() == header + (size[0] + 7) / 8 * size[1];
}

bool IsSoundTga(Source& source) {
    ByteReader in(source);
    const int64 idLength = in.Next();
    const int mapType = in.Next();
    const int type = in.Next();
    const int64 mapBegin = in.NextNumber(2);
    const int64 mapLength = in.NextNumber(2);
    const int mapBits = in.Next();
    in.Skip(4);
    const int64 width = in.NextNumber(2);
    const int64 height = in.NextNumber(2);
    const int64 bits = in.Next();
    const int descriptor = in.Next();
    constexpr int kTrueColor = 2;
    if (descriptor < 0 || type != kTrueColor || mapType != 0 || mapBegin != 0 || mapLength != 0 ||
        mapBits != 0 || width == 0 || height == 0 || (descriptor & 0xc0) != 0)
        return false;
    if (bits != 16 && bits != 24 && bits != 32)
        return false;
    const int64 end = 18 + idLength + width * height * (bits / 8);
    // The first version of the format, without a footer, has no mark at all and is not read.
    const int64 size = source.Size();
    char footer[18];
    return size >= end + 26 && source.ReadAt(size - 18, footer, sizeof(footer)) == sizeof(footer) &&
        memcmp(footer, "TRUEVISION-XFILE.", 18) == 0;
}

bool IsSoundIcon(Source& source) {
    ByteReader in(source);
    if (in.NextNumber(2) != 0)
        return false;
    const int64 type = in.NextNumber(2);
    const int64 count = in.NextNumber(2);
    if ((type != 1 && type != 2) || count <= 0)
        return false;
    for (int64 i = 0; i < count; i++) {
        if (!in.Skip(8))
            return false;
        const int64 bytes = in.NextNumber(4);
        const int64 offset = in.NextNumber(4);
        if (offset < 6 + 16 * count || bytes <= 0 || offset + bytes > source.Size())
            return false;
    }
    return true;
}

}  // namespace BPrivate::AddOn
