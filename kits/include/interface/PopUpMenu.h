#pragma once

#include <interface/Menu.h>

/// A menu from which one thing is chosen, as a BMenuField shows it: in radio mode, and titled by
/// the item that is marked, unless told otherwise.
class BPopUpMenu : public BMenu {
public:
    explicit BPopUpMenu(const char* title, bool radioMode = true, bool labelFromMarked = true,
        menu_layout layout = B_ITEMS_IN_COLUMN);
    explicit BPopUpMenu(BMessage* archive);

    static BArchivable* Instantiate(BMessage* archive);
};
