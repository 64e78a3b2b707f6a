#pragma once

// A window with a menu bar, and what the screen has of it.

#include <interface/MenuBar.h>

#include "tests/kits/controls/Receiver.h"

inline BMenuItem* Item(const char* label, uint32 what, char shortcut = 0, uint32 modifiers = 0) {
    return new BMenuItem(label, new BMessage(what), shortcut, modifiers);
}

/// The bar is named "bar"; it has a menu "File" with "Open" ('open', Command+O) and "Quit"
/// (B_QUIT_REQUESTED), and a menu "View" with nothing.
class MenuWindowTest : public ControlTest {
protected:
    MenuWindowTest() : fBar(new BMenuBar(BRect(), "bar")), fFile(new BMenu("File")) {
        fFile->AddItem(Item("Open", 'open', 'O'));
        fFile->AddItem(Item("Quit", B_QUIT_REQUESTED));
        fBar->AddItem(fFile);
        fBar->AddItem(new BMenu("View"));
        Add(fBar);
    }

    std::vector<BPrivate::MenuItemState> Shown() const {
        return StateOf<BPrivate::MenuBarState>("bar").items;
    }
    /// How often the bar was handed down so far.
    int32 CountShown() const { return OnScreen("bar").serial; }
    bool Choose(const std::vector<std::string>& labels) const {
        return fWindow.Screen().ChooseItem(OnScreen("bar").id, labels);
    }

    BMenuBar* fBar;
    BMenu* fFile;
};

/// A view that keeps the codes of its messages, and may take keys and messages for itself.
class TakingView : public BView {
public:
    TakingView() : BView(BRect(0, 100, 99, 199), "taking", B_FOLLOW_NONE, B_WILL_DRAW) {}

    void KeyDown(const char* bytes, int32 numBytes) override {
        if (!takesKeys)
            BView::KeyDown(bytes, numBytes);
    }
    void MessageReceived(BMessage* message) override {
        if (message->what == taken)
            last = *message;
        else
            BView::MessageReceived(message);
    }

    bool takesKeys = false;
    uint32 taken = 0;
    BMessage last;
};
