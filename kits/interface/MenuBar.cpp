#include <interface/MenuBar.h>

#include <app/Message.h>
#include <interface/Window.h>

#include "kits/interface/MenuAccess.h"
#include "kits/interface/MenuPeer.h"

using namespace BPrivate;

class BMenuBar::Peer : public MenuPeer {
public:
    explicit Peer(BMenuBar& bar) : fBar(bar) { MenuAccess::SetShownBy(bar, this); }

    ControlState State() const override { return MenuBarState{MenuAccess::StatesOf(fBar)}; }
    bool IsEnabled() const override { return fBar.IsEnabled(); }

protected:
    const BMenu* ShownMenu() const override { return &fBar; }

private:
    BMenuBar& fBar;
};

BMenuBar::BMenuBar(
    BRect frame, const char* name, uint32 resizingMode, menu_layout layout, bool resizeToFit)
    : BMenu(frame, name, resizingMode, B_WILL_DRAW | B_FRAME_EVENTS, layout, resizeToFit) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BMenuBar::BMenuBar(BMessage* archive) : BMenu(archive) {
    ControlPeer::Install(*this, std::make_unique<Peer>(*this));
}

BMenuBar::~BMenuBar() = default;

BArchivable* BMenuBar::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BMenuBar") ? new BMenuBar(archive) : nullptr;
}

void BMenuBar::AttachedToWindow() {
    BMenu::AttachedToWindow();
    if (Window()->KeyMenuBar() == nullptr)
        Window()->SetKeyMenuBar(this);
    if (!fResizeToFit)
        return;
    float height = 0;
    GetPreferredSize(nullptr, &height);
    const BRect room = Parent() != nullptr ? Parent()->Bounds() : Window()->Bounds();
    ResizeTo(room.right - Frame().left, height);
}

void BMenuBar::GetPreferredSize(float* width, float* height) {
    MenuBarState state{MenuAccess::StatesOf(*this)};
    // An empty bar is as high as it will be once it has menus.
    if (state.items.empty()) {
        MenuItemState title;
        title.label = "M";
        title.hasSubmenu = true;
        state.items.push_back(title);
    }
    const BPoint size = TheDisplay().PreferredSize(state);
    if (width != nullptr)
        *width = size.x;
    if (height != nullptr)
        *height = size.y;
}
