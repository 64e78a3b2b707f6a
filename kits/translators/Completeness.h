#pragma once

// Some readers show what they have of a truncated file as if it were all. These functions look
// whether the data that the header announces is there.

#include "kits/translation/AddOn.h"
#include <string_view>

namespace BPrivate::AddOn {

/// True if the file is complete, or is of a format whose own reader finds out. `format` is the name
/// the reader has for it: "bmp", "gif", "xbm", "pbm", "pgm", "ppm" are looked into.
bool IsComplete(std::string_view format, Source& source);

bool IsCompleteBmp(Source& source);
/// The first picture of a GIF file: all its pixels are in the compressed data.
bool IsCompleteGif(Source& source);
bool IsCompleteXbm(Source& source);
/// A PBM, PGM or PPM file of either kind.
bool IsCompleteAnyMap(Source& source);

/// Formats that have next to no mark: a file is of theirs if its size is what its fields say.
bool IsSoundWbmp(Source& source);
bool IsSoundTga(Source& source);
bool IsSoundIcon(Source& source);

}  // namespace BPrivate::AddOn
