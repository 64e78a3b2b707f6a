#pragma once

#include <interface/Menu.h>
#include <vector>

#include "kits/interface/Display.h"
#include "kits/interface/KeyStroke.h"

namespace BPrivate {

/// What the kits ask of menus and their users may not. All of it looks into submenus, too.
class MenuAccess {
public:
    /// What the screen shows of the menu's items.
    static std::vector<MenuItemState> StatesOf(const BMenu& menu);
    /// The item that MenuItemState::id named; null when it is not there any more.
    static BMenuItem* ItemOfId(const BMenu& menu, int32 id);
    /// The first enabled item of that shortcut; null for none.
    static BMenuItem* ItemOfShortcut(const BMenu& menu, const KeyStroke& stroke);

    /// The first item of which the condition holds, depth first; null for none.
    template <typename Condition>
    static BMenuItem* FindItemIf(const BMenu& menu, const Condition& condition) {
        for (const auto& item : menu.fItems) {
            if (condition(*item))
                return item.get();
            if (item->fSubmenu == nullptr)
                continue;
            if (BMenuItem* below = FindItemIf(*item->fSubmenu, condition); below != nullptr)
                return below;
        }
        return nullptr;
    }

    static int32 IdOf(const BMenuItem& item) { return item.fId; }
    /// The peer is told of changes in the menu from then on; null ends that.
    static void SetShownBy(BMenu& menu, MenuPeer* peer) { menu.fShownBy = peer; }
    /// What shows the menu, itself or as a part of another; null for nothing.
    static MenuPeer* ShownBy(const BMenu& menu);
};

}  // namespace BPrivate
