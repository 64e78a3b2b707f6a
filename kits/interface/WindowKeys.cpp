// What a window does with keys before its views have them, and after.

#include <app/Message.h>
#include <interface/MenuBar.h>
#include <kernel/OS.h>

#include "kits/interface/ControlPeer.h"
#include "kits/interface/MenuAccess.h"
#include "kits/interface/WindowData.h"

namespace BPrivate {

namespace {

/// The item whose trigger the letter is; null for none.
BMenuItem* ItemOfTrigger(const BMenu& menu, int32 letter) {
    if (letter <= 0 || letter >= 128)
        return nullptr;
    for (const MenuItemState& item : MenuAccess::StatesOf(menu)) {
        if (item.trigger < 0 || !item.enabled)
            continue;
        const char own = item.label[static_cast<std::size_t>(item.trigger)];
        if (std::tolower(own) == std::tolower(letter))
            return MenuAccess::ItemOfId(menu, item.id);
    }
    return nullptr;
}

}  // namespace

std::vector<WindowData::Shortcut>::iterator WindowData::FindShortcut(uint32 key, uint32 held) {
    return std::ranges::find(shortcuts, KeyStroke(key, held), &Shortcut::stroke);
}

void WindowData::AddShortcut(
    uint32 key, uint32 held, std::unique_ptr<BMessage> message, const BMessenger& target) {
    shortcuts.push_back({KeyStroke(key, held), std::move(message), target});
}

bool WindowData::InvokeShortcut(const BMessage& keyDown) {
    const auto key = static_cast<uint32>(keyDown.GetInt32("raw_char", 0));
    const auto held = static_cast<uint32>(keyDown.GetInt32("modifiers", 0));
    if (key == 0 || (held & B_COMMAND_KEY) == 0)
        return false;
    // What a menu shows beside its item goes before what the window has without a word.
    if (keyMenuBar != nullptr) {
        BMenuItem* item = MenuAccess::ItemOfShortcut(*keyMenuBar, KeyStroke(key, held));
        if (item != nullptr) {
            (void)item->Invoke();
            return true;
        }
    }
    const auto shortcut = FindShortcut(key, held);
    if (shortcut == shortcuts.end())
        return false;
    BMessage message(*shortcut->message);
    (void)message.AddInt64("when", system_time());
    (void)shortcut->target.SendMessage(&message);
    return true;
}

bool WindowData::TakeFocusBy(const BMessage& keyDown) {
    const auto held = static_cast<uint32>(keyDown.GetInt32("modifiers", 0));
    const bool isOther = (held & (B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY)) != 0;
    return focus == nullptr && !isOther && keyDown.GetInt32("raw_char", 0) == B_TAB &&
        MoveFocus((held & B_SHIFT_KEY) != 0);
}

void WindowData::OpenMenuBy(const BMessage& keyDown) {
    if (keyMenuBar == nullptr || keyMenuBar->IsHidden() || !keyMenuBar->IsEnabled())
        return;
    const ControlPeer* peer = ControlPeer::Of(keyMenuBar);
    const auto held = static_cast<uint32>(keyDown.GetInt32("modifiers", 0)) &
        (B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY);
    const int32 key = keyDown.GetInt32("raw_char", 0);
    if (held == 0 && key == B_FUNCTION_KEY && keyDown.GetInt32("key", 0) == B_F10_KEY) {
        Screen()->OpenMenu(peer->Id(), 0);
        return;
    }
    if ((held & ~B_SHIFT_KEY) != B_CONTROL_KEY)
        return;
    BMenuItem* item = ItemOfTrigger(*keyMenuBar, key);
    if (item == nullptr)
        return;
    if (item->Submenu() != nullptr)
        Screen()->OpenMenu(peer->Id(), MenuAccess::IdOf(*item));
    else
        (void)item->Invoke();
}

void WindowData::MenusAre(bool open) {
    if (open == std::exchange(fMenusOpen, open))
        return;
    if (open)
        window.MenusBeginning();
    else
        window.MenusEnded();
}

}  // namespace BPrivate
