#pragma once

#include <app/Invoker.h>
#include <memory>
#include <string>
#include <support/Archivable.h>

class BMenu;

namespace BPrivate {
class MenuAccess;
}

/// One entry of a menu: a command, or the title of a submenu, which may be a command as well when
/// it has a message.
///
/// Invoking it sends its message, with "when" (int64), "source" (pointer to the item), "index"
/// (int32, within its menu) and the "be:sender" messenger added, to its target: the explicit one
/// (SetTarget, BMenu::SetTargetForItems), or else the preferred handler of the window that the menu
/// stands in.
///
/// Lifetime. A menu owns its items, an item its submenu. Threads: under the lock of the window the
/// menu stands in, from any thread while in none.
class BMenuItem : public BArchivable, public BInvoker {
public:
    /// `shortcut` together with Command (always added) and `modifiers` invokes the item while its
    /// menu stands in a window's menu bar; 0 for none. Owns the message.
    BMenuItem(const char* label, BMessage* message, char shortcut = 0, uint32 modifiers = 0);
    /// The title of a submenu, labelled with the menu's name. Owns both. A menu that is shown
    /// somewhere already is not taken.
    explicit BMenuItem(BMenu* submenu, BMessage* message = nullptr);
    /// From an archive: "_label" string, "_disable" and "_marked" bool, "_trig" int32, "_shortcut"
    /// and "_mods" int32, "_msg" message, "_submenu" message. All are optional.
    explicit BMenuItem(BMessage* archive);
    /// Takes the item out of its menu.
    ~BMenuItem() override;

    static BArchivable* Instantiate(BMessage* archive);
    status_t Archive(BMessage* archive, bool deep = true) const override;

    virtual void SetLabel(const char* label);
    const char* Label() const { return fLabel.c_str(); }

    status_t SetMessage(BMessage* message) override;

    /// An item in a disabled menu is disabled, too, as is the title of one.
    virtual void SetEnabled(bool enabled);
    bool IsEnabled() const;

    /// In a menu in radio mode, marking one takes the mark from the others.
    virtual void SetMarked(bool marked);
    bool IsMarked() const { return fMarked; }

    /// The letter that chooses the item while its menu is open; 0 lets the menu find one.
    virtual void SetTrigger(char trigger);
    char Trigger() const { return fTrigger; }

    virtual void SetShortcut(char shortcut, uint32 modifiers);
    /// The modifiers include Command; 0 without a shortcut.
    char Shortcut(uint32* modifiers = nullptr) const;

    /// Null for a plain command. Belongs to the item.
    BMenu* Submenu() const { return fSubmenu.get(); }
    /// The menu it stands in; null for none.
    BMenu* Menu() const { return fMenu; }

    /// What the user chose: marks it where its menu is in radio mode, and sends the message.
    /// `B_NOT_ALLOWED`, and nothing happens, when the item is disabled; `B_BAD_VALUE` without a
    /// message, or without a target and a window.
    status_t Invoke(BMessage* message = nullptr) override;

private:
    friend class BMenu;
    friend class BPrivate::MenuAccess;

    /// Something that the screen shows of the item has changed.
    void _Changed();

    std::string fLabel;
    std::unique_ptr<BMenu> fSubmenu;
    BMenu* fMenu = nullptr;
    char fTrigger = 0;
    char fShortcut = 0;
    uint32 fModifiers = 0;
    bool fEnabled = true;
    bool fMarked = false;
    int32 fId;  // names it to the display; never used again
};

/// A line between items.
class BSeparatorItem : public BMenuItem {
public:
    BSeparatorItem();
    explicit BSeparatorItem(BMessage* archive);

    static BArchivable* Instantiate(BMessage* archive);
    /// It cannot be chosen.
    void SetEnabled(bool) override {}
};
