#include "kits/interface/MenuAccess.h"

#include "kits/interface/MenuTriggers.h"

namespace BPrivate {

std::vector<MenuItemState> MenuAccess::StatesOf(const BMenu& menu) {
    std::vector<TriggerWish> wishes;
    for (const auto& item : menu.fItems)
        wishes.push_back({item->Label(), item->Trigger()});
    const std::vector<int32> triggers = FindTriggers(wishes);

    std::vector<MenuItemState> states;
    for (std::size_t i = 0; i < menu.fItems.size(); i++) {
        const BMenuItem& item = *menu.fItems[i];
        MenuItemState state;
        state.id = item.fId;
        state.label = item.fLabel;
        state.separator = dynamic_cast<const BSeparatorItem*>(&item) != nullptr;
        state.enabled = item.IsEnabled();
        state.marked = item.fMarked;
        state.radio = menu.fRadio;
        state.hasSubmenu = item.fSubmenu != nullptr;
        state.command = !state.separator && (!state.hasSubmenu || item.Message() != nullptr);
        state.shortcut = item.fShortcut >= 'a' && item.fShortcut <= 'z'
            ? static_cast<char>(item.fShortcut - 'a' + 'A')
            : item.fShortcut;
        state.modifiers = item.fModifiers;
        state.trigger = triggers[i];
        if (state.hasSubmenu)
            state.items = StatesOf(*item.fSubmenu);
        states.push_back(std::move(state));
    }
    return states;
}

BMenuItem* MenuAccess::ItemOfId(const BMenu& menu, int32 id) {
    return FindItemIf(menu, [id](const BMenuItem& item) { return item.fId == id; });
}

BMenuItem* MenuAccess::ItemOfShortcut(const BMenu& menu, const KeyStroke& stroke) {
    return FindItemIf(menu, [&stroke](const BMenuItem& item) {
        const auto key = static_cast<unsigned char>(item.fShortcut);
        return key != 0 && KeyStroke(key, item.fModifiers) == stroke && item.IsEnabled();
    });
}

MenuPeer* MenuAccess::ShownBy(const BMenu& menu) {
    const BMenu* outer = &menu;
    while (outer->fShownBy == nullptr && outer->Supermenu() != nullptr)
        outer = outer->Supermenu();
    return outer->fShownBy;
}

}  // namespace BPrivate
