#pragma once

#include <interface/Point.h>
#include <memory>
#include <vector>

#include "viewer/Addition.h"

class BView;

/// The picture's context menu with the additions that are found in it. It belongs to the view, and
/// lives on the window's thread.
class TContextMenu {
public:
    explicit TContextMenu(TAdditionHost* host);
    ~TContextMenu();

    /// Whether the key message asks for the menu: the Menu key, or Shift and F10.
    static bool IsAskedFor(const BMessage& key);

    /// Opens the menu, whose items send their messages to the view.
    /// @param where      in the view, the menu's left top
    /// @param byKeyboard the first item is highlighted
    void Open(BView* view, BPoint where, bool byKeyboard);

    /// Whether the message was an addition's.
    bool MessageReceived(BMessage* message);

private:
    std::vector<std::unique_ptr<TAddition>> fAdditions;
};
