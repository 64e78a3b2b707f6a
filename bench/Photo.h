#pragma once

#include <string>

namespace bench {

constexpr int kPhotoWidth = 4000;
constexpr int kPhotoHeight = 3000;

/// Writes a JPEG file, of 12 megapixels unless told otherwise, that costs as much to decode as a
/// photograph: soft shapes with fine noise, 4:2:0, quality 90. Its middle has a colour that the
/// number decides.
bool WritePhoto(
    const std::string& path, int number, int width = kPhotoWidth, int height = kPhotoHeight);

/// Decodes the file into B, G, R, A pixels as plainly as the codec library allows.
/// @return milliseconds, negative when it failed
double DecodeAlone(const std::string& path);

}  // namespace bench
