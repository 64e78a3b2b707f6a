#include "viewer/ScrollBar.h"

TScrollBar::TScrollBar(BRect frame, const char* name, BView* target, orientation direction)
    : BScrollBar(frame, name, target, 0, 1, direction) {
    SetResizingMode(direction == B_HORIZONTAL ? B_FOLLOW_LEFT_RIGHT | B_FOLLOW_BOTTOM
                                              : B_FOLLOW_TOP_BOTTOM | B_FOLLOW_RIGHT);
}

void TScrollBar::ValueChanged(float) {
    if (BView* target = Target())
        target->ScrollTo(B_ORIGIN);
}
