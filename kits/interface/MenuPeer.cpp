#include "kits/interface/MenuPeer.h"

#include <app/Message.h>

#include "kits/interface/MenuAccess.h"

namespace BPrivate {

void MenuPeer::UserChanged(const BMessage& event) {
    int32 id = 0;
    const BMenu* menu = ShownMenu();
    if (menu == nullptr || !IsEnabled() || event.FindInt32("item", &id) != B_OK)
        return;
    if (BMenuItem* item = MenuAccess::ItemOfId(*menu, id); item != nullptr)
        (void)item->Invoke();
}

}  // namespace BPrivate
