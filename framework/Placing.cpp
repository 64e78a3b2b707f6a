#include "framework/Placing.h"

#include <cmath>
#include <interface/View.h>

BPoint preferred_size(BView* view) {
    float width = 0;
    float height = 0;
    view->GetPreferredSize(&width, &height);
    return BPoint(std::ceil(width), std::ceil(height));
}

void place(BView* view, float left, float top, float width, float height) {
    view->MoveTo(left, top);
    view->ResizeTo(width, height);
}
