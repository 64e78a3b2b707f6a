#pragma once

#include "tests/kits/translators/CodecHarness.h"

/// How a test's JPEG file is made.
struct JpegOptions {
    enum Colors { kColor, kGray, kRgb, kCmyk, kYcck };

    Colors colors = kColor;
    bool progressive = false;
    bool manyScans = false;  ///< progressive, with a scan for every coefficient
    bool arithmetic = false;
    bool adobeMarker = true;
    int restartInterval = 0;
    int quality = 95;
    Bytes exif = {};
    Bytes profile = {};
};

/// Encodes with libjpeg. Of CMYK pictures the pixel's B, G, R and A bytes are C, M, Y and K as they
/// are stored.
Bytes MakeJpeg(const Picture& picture, const JpegOptions& options = {});

/// Decodes with libjpeg alone, straight to B, G, R, A (or C, M, Y, K).
Picture PlainJpegDecode(const Bytes& file, bool cmyk = false);
