#include "framework/Color.h"

bool is_same_rgb_color(const rgb_color& a, const rgb_color& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue && a.alpha == b.alpha;
}
