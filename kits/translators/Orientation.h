#pragma once

// Pictures are stored as the camera's sensor was read and carry, as Exif data, how to turn them.

#include <cstddef>
#include <support/SupportDefs.h>
#include <vector>

namespace BPrivate::AddOn {

/// Exif's orientation, 1 to 8: where the stored first row and first column belong. 1 is upright as
/// it is, 5 to 8 exchange width and height.
using Orientation = int;

/// The orientation of the Exif data `exif` (a TIFF header and what follows, with or without
/// "Exif\0\0" before it); 1 if there is none or it makes no sense.
Orientation OrientationFromExif(const uint8* exif, size_t length);

/// Takes a picture's stored rows from top to bottom and puts them, turned upright, where they
/// belong. Pixels are 4 bytes.
class UprightRows {
public:
    /// `bits` is the upright picture; the sizes are those of the stored one.
    UprightRows(uint8* bits, size_t bytesPerRow, uint32 storedWidth, uint32 storedHeight,
        Orientation orientation);

    /// Where to write the stored row `y`, the picture's own memory where that is possible.
    uint8* Row(uint32 y);
    /// The row is written. Rows are finished in order.
    void Done(uint32 y);

private:
    bool ExchangesSides() const { return fOrientation >= 5; }
    void PutStrip(uint32 lastRow);

    uint8* const fBits;
    const size_t fBytesPerRow;
    const uint32 fWidth;
    const uint32 fHeight;
    const Orientation fOrientation;
    // Rows that become columns are collected, so that what is written to one row of the picture
    // fills a cache line.
    std::vector<uint32> fStrip;
};

}  // namespace BPrivate::AddOn
