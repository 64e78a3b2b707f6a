#include "kits/interface/AlertLayout.h"

#include <algorithm>
#include <cmath>

namespace BPrivate {

namespace {

// In pixels.
constexpr float kMargin = 12;
constexpr float kTextGap = 16;  // between text and buttons
constexpr float kButtonGap = 8;
constexpr float kOffsetGap = 24;   // more, behind the first button
constexpr float kUsualWidth = 80;  // of a button, at least
constexpr float kLeastText = 48;   // of the text's height, however little room there is

struct Size {
    float width;
    float height;
};

Size PixelsOf(BPoint units) {
    return {std::ceil(units.x) + 1, std::ceil(units.y) + 1};
}

BRect RectOf(float left, float top, Size pixels) {
    return {left, top, left + pixels.width - 1, top + pixels.height - 1};
}

std::vector<Size> ButtonSizes(const AlertParts& parts, float most) {
    std::vector<Size> sizes;
    float widest = 0;
    for (const BPoint& wanted : parts.buttons) {
        Size size = PixelsOf(wanted);
        if (parts.width == B_WIDTH_AS_USUAL)
            size.width = std::max(size.width, kUsualWidth);
        widest = std::max(widest, size.width);
        sizes.push_back(size);
    }
    for (Size& size : sizes) {
        if (parts.width == B_WIDTH_FROM_WIDEST)
            size.width = widest;
        size.width = std::min(size.width, most);
    }
    return sizes;
}

float GapBehind(std::size_t index, const AlertParts& parts) {
    if (index + 1 >= parts.buttons.size())
        return 0;
    const bool apart = parts.spacing == B_OFFSET_SPACING && index == 0;
    return kButtonGap + (apart ? kOffsetGap : 0);
}

}  // namespace

AlertLayout LayOutAlert(const AlertParts& parts) {
    const Size largest = PixelsOf(parts.largest);
    const float most = std::max(1.0F, largest.width - 2 * kMargin);
    const std::vector<Size> buttons = ButtonSizes(parts, most);

    float rowWidth = 0;
    float rowHeight = 0;
    float columnWidth = 0;
    float columnHeight = 0;
    for (std::size_t i = 0; i < buttons.size(); i++) {
        rowWidth += buttons[i].width + GapBehind(i, parts);
        rowHeight = std::max(rowHeight, buttons[i].height);
        columnWidth = std::max(columnWidth, buttons[i].width);
        columnHeight += buttons[i].height + GapBehind(i, parts);
    }
    const bool inRow = rowWidth <= most;
    const Size block = inRow ? Size{rowWidth, rowHeight} : Size{columnWidth, columnHeight};

    const Size wanted = PixelsOf(parts.text);
    const float width = std::min(most, std::max(wanted.width, block.width));
    const float around = 2 * kMargin + kTextGap + block.height;
    const float height = std::min(wanted.height, std::max(kLeastText, largest.height - around));

    AlertLayout layout;
    layout.size = {width + 2 * kMargin - 1, height + around - 1};
    layout.text = RectOf(kMargin, kMargin, {width, height});
    layout.textIsCut = height < wanted.height || width < wanted.width;
    float left = kMargin + width - block.width;
    float top = kMargin + height + kTextGap;
    for (std::size_t i = 0; i < buttons.size(); i++) {
        if (inRow) {
            layout.buttons.push_back(RectOf(left, top, {buttons[i].width, rowHeight}));
            left += buttons[i].width + GapBehind(i, parts);
        } else {
            layout.buttons.push_back(RectOf(left, top, {columnWidth, buttons[i].height}));
            top += buttons[i].height + GapBehind(i, parts);
        }
    }
    return layout;
}

BPoint PlaceOfAlert(BPoint size, BRect over, BRect screen) {
    const auto place = [](float middle, float extent, float low, float high) {
        const float wanted = std::floor(middle - extent / 2);
        return std::max(low, std::min(wanted, high - kLikelyBorder - extent));
    };
    return {place((over.left + over.right) / 2, size.x, screen.left + kLikelyBorder, screen.right),
        place((over.top + over.bottom) / 2, size.y, screen.top + kLikelyTitleBar, screen.bottom)};
}

}  // namespace BPrivate
