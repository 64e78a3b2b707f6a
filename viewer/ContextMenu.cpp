#include "viewer/ContextMenu.h"

#include <app/AppDefs.h>
#include <app/Message.h>
#include <interface/InterfaceDefs.h>
#include <interface/PopUpMenu.h>
#include <interface/View.h>
#include <locale/Locale.h>

#include "framework/HintedLabels.h"
#include "viewer/SmoothScaling.h"

namespace {

/// The number of the Menu key, which types nothing.
constexpr int32 kMenuKey = 0x68;
constexpr uint32 kModifiers = B_SHIFT_KEY | B_COMMAND_KEY | B_CONTROL_KEY | B_OPTION_KEY;

}  // namespace

// One line for each addition, in the menu's order.
TContextMenu::TContextMenu(TAdditionHost* host) {
    fAdditions.push_back(std::make_unique<TSmoothScaling>(host));
}

TContextMenu::~TContextMenu() = default;

bool TContextMenu::IsAskedFor(const BMessage& key) {
    const int32 number = key.GetInt32("key", 0);
    const uint32 held = static_cast<uint32>(key.GetInt32("modifiers", 0)) & kModifiers;
    if (key.what == B_UNMAPPED_KEY_DOWN)
        return number == kMenuKey && held == 0;
    return key.what == B_KEY_DOWN && key.GetInt32("raw_char", 0) == B_FUNCTION_KEY &&
        number == B_F10_KEY && held == B_SHIFT_KEY;
}

void TContextMenu::Open(BView* view, BPoint where, bool byKeyboard) {
    const THintedLabels labels;
    auto menu = std::make_unique<BPopUpMenu>(be_locale->GetString("Picture"), false, false);
    for (const auto& addition : fAdditions)
        addition->AddItems(menu.get(), labels);
    (void)menu->SetTargetForItems(view);
    menu->SetAsyncAutoDestruct(true);
    BPopUpMenu* open = menu.get();
    open->Go(view->ConvertToScreen(where), true, byKeyboard, true);
    // Where it could not be opened it is still this one's.
    if (open->Window() != nullptr)
        (void)menu.release();
}

bool TContextMenu::MessageReceived(BMessage* message) {
    for (const auto& addition : fAdditions) {
        if (addition->MessageReceived(message))
            return true;
    }
    return false;
}
