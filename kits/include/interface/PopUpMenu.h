#pragma once

#include <interface/Menu.h>

/// A menu from which one thing is chosen, as a BMenuField shows it: in radio mode, and titled by
/// the item that is marked, unless told otherwise. Or one that is opened anywhere by Go().
class BPopUpMenu : public BMenu {
public:
    explicit BPopUpMenu(const char* title, bool radioMode = true, bool labelFromMarked = true,
        menu_layout layout = B_ITEMS_IN_COLUMN);
    explicit BPopUpMenu(BMessage* archive);
    ~BPopUpMenu() override;

    static BArchivable* Instantiate(BMessage* archive);

    /// Opens the menu with its left top at a place on the screen, or beside it where there is no
    /// room. Called by the thread of a window that is shown, in which the menu stands as a view of
    /// no size until it is closed: a window that ends deletes it. Opening it anew moves it.
    ///
    /// Only the asynchronous form is known, since a window that waits for its user draws nothing:
    /// without `async` nothing happens. Nor does anything for a menu without items, or one that is
    /// shown by something else.
    ///
    /// \param deliversMessage what is chosen sends its message; a choice without only marks its
    ///                        item, in radio mode
    /// \param openAnyway      no mouse asks for it: the first item is highlighted
    /// \return null, always
    BMenuItem* Go(
        BPoint where, bool deliversMessage = false, bool openAnyway = false, bool async = false);

    /// Whether a menu that Go() has opened deletes itself when it is closed.
    void SetAsyncAutoDestruct(bool on) { fAutoDestruct = on; }
    bool AsyncAutoDestruct() const { return fAutoDestruct; }

private:
    class Peer;

    Peer* fPeer = nullptr;  // belongs to the view; null before the first Go()
    bool fAutoDestruct = false;
};
