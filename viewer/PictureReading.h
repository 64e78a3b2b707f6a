#pragma once

// What those hear of a picture who do not see it.

#include <interface/Rect.h>
#include <string>

/// Its format, its size, and its comment as far as it is heard out: "PNG image, 640 x 480. Sunset".
/// What is empty is left out.
std::string picture_description(const std::string& kind, BRect bounds, const std::string& comment);
