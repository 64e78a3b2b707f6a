#include "kits/translators/Orientation.h"
#include <algorithm>
#include <cstring>

namespace BPrivate::AddOn {

static constexpr uint32 kStripRows = 16;

Orientation OrientationFromExif(const uint8* exif, size_t length) {
    if (length >= 6 && memcmp(exif, "Exif\0", 5) == 0) {
        exif += 6;
        length -= 6;
    }
    if (length < 8)
        return 1;
    // TIFF 6.0, section 2: the byte order, 42, and where the first directory is.
    const bool little = exif[0] == 'I' && exif[1] == 'I';
    if (!little && !(exif[0] == 'M' && exif[1] == 'M'))
        return 1;
    const auto get16 = [&](size_t at) -> uint32 {
        return little ? uint32(exif[at] | exif[at + 1] << 8) : uint32(exif[at] << 8 | exif[at + 1]);
    };
    const auto get32 = [&](size_t at) -> uint32 {
        return little ? get16(at) | get16(at + 2) << 16 : get16(at) << 16 | get16(at + 2);
    };
    if (get16(2) != 42)
        return 1;
    const size_t directory = get32(4);
    if (directory > length - 2)
        return 1;
    const size_t count = get16(directory);
    for (size_t i = 0; i < count; i++) {
        const size_t entry = directory + 2 + i * 12;
        if (entry + 12 > length)
            return 1;
        constexpr uint32 kOrientationTag = 0x0112;
        constexpr uint32 kShort = 3;
        if (get16(entry) == kOrientationTag && get16(entry + 2) == kShort) {
            const uint32 value = get16(entry + 8);
            return value >= 1 && value <= 8 ? Orientation(value) : 1;
        }
    }
    return 1;
}

UprightRows::UprightRows(uint8* bits, size_t bytesPerRow, uint32 storedWidth, uint32 storedHeight,
    Orientation orientation)
    : fBits(bits), fBytesPerRow(bytesPerRow), fWidth(storedWidth), fHeight(storedHeight),
      fOrientation(orientation) {
    if (ExchangesSides())
        fStrip.resize(size_t(kStripRows) * fWidth);
}

uint8* UprightRows::Row(uint32 y) {
    if (ExchangesSides())
        return reinterpret_cast<uint8*>(fStrip.data() + size_t(y % kStripRows) * fWidth);
    const bool upsideDown = fOrientation == 3 || fOrientation == 4;
    return fBits + size_t(upsideDown ? fHeight - 1 - y : y) * fBytesPerRow;
}

void UprightRows::Done(uint32 y) {
    if (ExchangesSides()) {
        if (y % kStripRows == kStripRows - 1 || y == fHeight - 1)
            PutStrip(y);
    } else if (fOrientation == 2 || fOrientation == 3) {
        auto* pixels = reinterpret_cast<uint32*>(Row(y));
        std::reverse(pixels, pixels + fWidth);
    }
}

void UprightRows::PutStrip(uint32 lastRow) {
    const uint32 firstRow = lastRow - lastRow % kStripRows;
    const uint32 rows = lastRow - firstRow + 1;
    // 6 and 7 put the first row at the right, 7 and 8 the first column at the bottom.
    const bool fromRight = fOrientation == 6 || fOrientation == 7;
    const bool fromBottom = fOrientation == 7 || fOrientation == 8;
    for (uint32 x = 0; x < fWidth; x++) {
        const size_t row = fromBottom ? fWidth - 1 - x : x;
        auto* out = reinterpret_cast<uint32*>(fBits + row * fBytesPerRow);
        for (uint32 i = 0; i < rows; i++) {
            const uint32 y = firstRow + i;
            out[fromRight ? fHeight - 1 - y : y] = fStrip[size_t(i) * fWidth + x];
        }
    }
}

}  // namespace BPrivate::AddOn
