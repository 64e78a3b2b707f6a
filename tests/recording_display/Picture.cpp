#include "kits/interface/PixelOps.h"
#include "tests/recording_display/RecordingDisplay.h"

namespace recording {

rgb_color Picture::At(int32 x, int32 y) const {
    if (x < 0 || y < 0 || x >= width || y >= height)
        return {0, 0, 0, 0};
    const std::size_t offset = 4 *
        (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
            static_cast<std::size_t>(x));
    return {bits[offset + 2], bits[offset + 1], bits[offset], bits[offset + 3]};
}

bool Picture::IsAll(BRect area, rgb_color color) const {
    for (auto y = static_cast<int32>(area.top); y <= static_cast<int32>(area.bottom); y++) {
        for (auto x = static_cast<int32>(area.left); x <= static_cast<int32>(area.right); x++) {
            rgb_color found = At(x, y);
            const bool presented = found.alpha != 0;
            found.alpha = color.alpha;
            if (!presented || found != color)
                return false;
        }
    }
    return true;
}

}  // namespace recording
