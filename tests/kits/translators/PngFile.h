#pragma once

#include "tests/kits/translators/CodecHarness.h"

/// How a test's PNG file is made.
struct PngOptions {
    int colorType = 6;  ///< as the format numbers them; 6 is red, green, blue, alpha
    int depth = 8;
    bool interlaced = false;
    bool transparency = false;  ///< a tRNS chunk
    double gamma = 0;
    bool srgb = false;
    Bytes exif = {};
    Bytes profile = {};
};

/// Encodes with libpng. Gray types take the blue byte of a pixel, indexed ones map it to a palette
/// of PngPalette() colours, by its lowest bits. With `transparency` the gray or colour of the first
/// pixel, or the first entry of the palette, is transparent.
Bytes MakePng(const Picture& picture, const PngOptions& options = {});
/// What such a file shows.
Picture PngPicture(const Picture& picture, const PngOptions& options);

/// Appends a chunk before the one named `before`.
Bytes InsertChunk(const Bytes& png, const char* before, const char* name, const Bytes& data);
