#include <interface/PopUpMenu.h>

#include <app/Message.h>
#include <interface/Window.h>
#include <kernel/OS.h>
#include <memory>

#include "kits/interface/MenuAccess.h"
#include "kits/interface/MenuPeer.h"

using namespace BPrivate;

/// What shows an open menu.
class BPopUpMenu::Peer : public MenuPeer {
public:
    explicit Peer(BPopUpMenu& menu) : fMenu(menu) {}

    ControlState State() const override {
        return PopUpMenuState{where, byKeyboard, MenuAccess::StatesOf(fMenu)};
    }
    bool IsEnabled() const override { return fMenu.IsEnabled(); }

    void UserChanged(const BMessage& event) override {
        if (event.HasBool("closed")) {
            Close();  // the last thing: it may delete this
            return;
        }
        if (deliversMessage) {
            MenuPeer::UserChanged(event);
            return;
        }
        BMenuItem* item = MenuAccess::ItemOfId(fMenu, event.GetInt32("item", 0));
        if (item != nullptr && item->IsEnabled() && item->Menu()->IsRadioMode())
            item->SetMarked(true);
    }

    void Detached() override { MenuAccess::SetShownBy(fMenu, nullptr); }

    BPoint where;
    bool byKeyboard = false;
    bool deliversMessage = false;
    int32 timesOpened = 0;

protected:
    const BMenu* ShownMenu() const override { return &fMenu; }

private:
    void Close() {
        // It may have been opened anew meanwhile.
        if (--timesOpened > 0)
            return;
        fMenu.RemoveSelf();
        if (fMenu.fAutoDestruct)
            delete &fMenu;
    }

    BPopUpMenu& fMenu;
};

BPopUpMenu::BPopUpMenu(const char* title, bool radioMode, bool labelFromMarked, menu_layout layout)
    : BMenu(title, layout) {
    BMenu::SetRadioMode(radioMode);
    // The label follows one mark; without radio mode there may be several.
    if (radioMode)
        BMenu::SetLabelFromMarked(labelFromMarked);
}

BPopUpMenu::BPopUpMenu(BMessage* archive) : BMenu(archive) {}

BPopUpMenu::~BPopUpMenu() {
    // While this is still a menu, which its peer looks into.
    RemoveSelf();
}

BArchivable* BPopUpMenu::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BPopUpMenu") ? new BPopUpMenu(archive) : nullptr;
}

BMenuItem* BPopUpMenu::Go(BPoint where, bool deliversMessage, bool openAnyway, bool async) {
    auto* window = dynamic_cast<BWindow*>(BLooper::LooperForThread(find_thread(nullptr)));
    const bool isOpen = Window() != nullptr;
    if (!async || window == nullptr || window->IsHidden() || CountItems() == 0 ||
        (isOpen ? Window() != window : !_IsFree() || Parent() != nullptr))
        return nullptr;
    if (fPeer == nullptr) {
        auto peer = std::make_unique<Peer>(*this);
        fPeer = peer.get();
        ControlPeer::Install(*this, std::move(peer));
    }
    fPeer->where = window->ConvertFromScreen(where);
    fPeer->byKeyboard = openAnyway;
    fPeer->deliversMessage = deliversMessage;
    fPeer->timesOpened++;
    if (isOpen) {
        fPeer->StateChanged();
    } else {
        MenuAccess::SetShownBy(*this, fPeer);
        window->AddChild(this);
    }
    fPeer->Screen()->OpenMenu(fPeer->Id(), 0);
    return nullptr;
}
