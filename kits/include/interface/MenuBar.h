#pragma once

#include <interface/Menu.h>

/// The row of menus at the top of a window. The first one attached to a window becomes its key menu
/// bar, and is it until it is detached. With `resizeToFit` it takes the width of its parent and
/// the height that the desktop's menus need when it is attached, and keeps the width with the
/// resizing mode.
class BMenuBar : public BMenu {
public:
    BMenuBar(BRect frame, const char* name,
        uint32 resizingMode = B_FOLLOW_LEFT_RIGHT | B_FOLLOW_TOP,
        menu_layout layout = B_ITEMS_IN_ROW, bool resizeToFit = true);
    explicit BMenuBar(BMessage* archive);
    ~BMenuBar() override;

    static BArchivable* Instantiate(BMessage* archive);

    void AttachedToWindow() override;
    /// Waits for the display.
    void GetPreferredSize(float* width, float* height) override;

private:
    class Peer;
};
