#include <interface/PopUpMenu.h>

#include <app/Message.h>

namespace {

// An archive tells its class by name; the class has to be known before one is met.
[[maybe_unused]] const bool kRegistered = [] {
    register_instantiation_func("BPopUpMenu", BPopUpMenu::Instantiate);
    return true;
}();

}  // namespace

BPopUpMenu::BPopUpMenu(const char* title, bool radioMode, bool labelFromMarked, menu_layout layout)
    : BMenu(title, layout) {
    BMenu::SetRadioMode(radioMode);
    // The label follows one mark; without radio mode there may be several.
    if (radioMode)
        BMenu::SetLabelFromMarked(labelFromMarked);
}

BPopUpMenu::BPopUpMenu(BMessage* archive) : BMenu(archive) {}

BArchivable* BPopUpMenu::Instantiate(BMessage* archive) {
    return validate_instantiation(archive, "BPopUpMenu") ? new BPopUpMenu(archive) : nullptr;
}
