#pragma once

#include <interface/ScrollBar.h>

/// A scroll bar of the viewer. It does not move the target's coordinates: the target is told that
/// a value has changed and draws by the values itself.
class TScrollBar : public BScrollBar {
public:
    /// Follows the edges of its parent that it lies along. Its range is 0 to 1 at first.
    TScrollBar(BRect frame, const char* name, BView* target, orientation direction);

    void ValueChanged(float newValue) override;
};
