#pragma once

#include <interface/MenuItem.h>
#include <interface/View.h>
#include <memory>
#include <vector>

namespace BPrivate {
class MenuAccess;
class MenuPeer;
}  // namespace BPrivate

enum menu_layout { B_ITEMS_IN_ROW = 0, B_ITEMS_IN_COLUMN, B_ITEMS_IN_MATRIX };

/// A list of items to choose from. It is shown by the desktop's own menus: as a submenu of another
/// menu, or in a BMenuBar or BMenuField.
///
/// Lifetime. Owns its items and, through them, its submenus. Threads: under the lock of the window
/// it stands in, from any thread while in none.
class BMenu : public BView {
public:
    explicit BMenu(const char* name, menu_layout layout = B_ITEMS_IN_COLUMN);
    /// From an archive: BView's fields and "_layout" int32, "_rsize_to_fit", "_disable", "_radio",
    /// "_dyn_label" bool, "_items" messages.
    explicit BMenu(BMessage* archive);
    ~BMenu() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    /// Takes ownership. False when the item stands in a menu already, leads to this menu or the
    /// index is none; the caller keeps it then. An index beyond the end is refused, the count
    /// itself appends.
    virtual bool AddItem(BMenuItem* item);
    virtual bool AddItem(BMenuItem* item, int32 index);
    /// The same with an item made for the submenu, which is refused when it is shown somewhere
    /// already.
    virtual bool AddItem(BMenu* submenu);
    virtual bool AddItem(BMenu* submenu, int32 index);
    bool AddSeparatorItem();

    /// The item (for a submenu: its superitem) belongs to the caller again. With a submenu, its
    /// superitem is deleted and the submenu alone is the caller's.
    virtual bool RemoveItem(BMenuItem* item);
    virtual BMenuItem* RemoveItem(int32 index);
    virtual bool RemoveItem(BMenu* submenu);
    /// False, and nothing happens, when the range is none.
    virtual bool RemoveItems(int32 index, int32 count, bool deleteItems = false);

    BMenuItem* ItemAt(int32 index) const;  ///< null for none
    BMenu* SubmenuAt(int32 index) const;   ///< null for none
    int32 CountItems() const;
    int32 IndexOf(const BMenuItem* item) const;  ///< -1 for none
    int32 IndexOf(const BMenu* submenu) const;   ///< -1 for none
    /// The first of that message code or label, in submenus too, depth first; null for none.
    BMenuItem* FindItem(uint32 command) const;
    BMenuItem* FindItem(const char* label) const;
    BMenuItem* FindMarked() const;  ///< of this menu alone; null for none

    /// The target of every item that is here now, not of those in submenus. `B_OK`, or the first
    /// error of an item's SetTarget.
    virtual status_t SetTargetForItems(BHandler* target);
    virtual status_t SetTargetForItems(BMessenger target);

    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const;

    /// At most one item is marked, and choosing one marks it. Turning it off also ends
    /// SetLabelFromMarked().
    virtual void SetRadioMode(bool on);
    bool IsRadioMode() const { return fRadio; }

    /// The superitem takes the label of the item that is marked. Turning it on also turns on
    /// radio mode.
    virtual void SetLabelFromMarked(bool on);
    bool IsLabelFromMarked() const { return fDynamicLabel; }

    menu_layout Layout() const { return fLayout; }
    /// The item whose submenu this is, and the menu that stands in; null for none.
    BMenuItem* Superitem() const { return fSuperitem; }
    BMenu* Supermenu() const { return fSuperitem != nullptr ? fSuperitem->Menu() : nullptr; }

protected:
    BMenu(BRect frame, const char* name, uint32 resizingMode, uint32 flags, menu_layout layout,
        bool resizeToFit);

private:
    friend class BMenuBar;
    friend class BMenuItem;
    friend class BPopUpMenu;
    friend class BPrivate::MenuAccess;

    /// Whether nothing shows it, so that something may take it.
    bool _IsFree() const { return fSuperitem == nullptr && fShownBy == nullptr; }
    void _Insert(BMenuItem& item, int32 index);
    std::unique_ptr<BMenuItem> _Take(int32 index);
    /// Brings the other items, and the superitem, in step with an item that is marked.
    void _Marked(const BMenuItem& item);
    /// Something that the screen shows of the menu has changed.
    void _Changed();

    std::vector<std::unique_ptr<BMenuItem>> fItems;
    BMenuItem* fSuperitem = nullptr;
    BPrivate::MenuPeer* fShownBy = nullptr;  // of the outermost menu alone
    menu_layout fLayout = B_ITEMS_IN_COLUMN;
    bool fEnabled = true;
    bool fRadio = false;
    bool fDynamicLabel = false;
    bool fResizeToFit = true;
};
