#pragma once

#include <interface/GraphicsDefs.h>

/// True if red, green, blue and alpha are all equal.
bool is_same_rgb_color(const rgb_color& a, const rgb_color& b);
