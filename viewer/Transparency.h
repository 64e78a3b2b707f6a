#pragma once

class BBitmap;

/// Whether any pixel is not opaque. Leaves it to other bitmaps to share the pixels, which asking
/// the bitmap for its bits would end.
bool has_transparency(const BBitmap& bitmap);
