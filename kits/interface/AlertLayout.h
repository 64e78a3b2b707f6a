#pragma once

#include <interface/Alert.h>
#include <interface/Point.h>
#include <interface/Rect.h>
#include <vector>

namespace BPrivate {

// Where the parts of an alert are. Sizes are kit units: pixels less one.

/// The sizes the parts want, and how large the whole may be.
struct AlertParts {
    BPoint text;
    std::vector<BPoint> buttons;
    button_width width = B_WIDTH_AS_USUAL;
    button_spacing spacing = B_EVEN_SPACING;
    BPoint largest;
};

struct AlertLayout {
    BPoint size;
    BRect text;
    bool textIsCut = false;  ///< the text has less height than it wants
    std::vector<BRect> buttons;
};

// What a window manager puts around a window, which is not known before the window is shown.
constexpr float kLikelyTitleBar = 32;
constexpr float kLikelyBorder = 5;

/// The text on top, and below it the buttons in a row at the right. Buttons that have no room side
/// by side stand one below the other. What is too large even so is cut, the text first.
AlertLayout LayOutAlert(const AlertParts& parts);

/// The left top corner that centres something of that size over `over`, but leaves it on the
/// screen with a title bar and borders; its left top corner wins when it is larger than the screen.
BPoint PlaceOfAlert(BPoint size, BRect over, BRect screen);

}  // namespace BPrivate
