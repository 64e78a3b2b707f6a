#include "iap/IAPItemFlatToolBar.h"

#include "framework/MessageCodes.h"
#include "iap/ConfigurationView.h"
#include "iap/ItemNames.h"

#include <interface/CheckBox.h>

TIAPItemFlatToolBar::TIAPItemFlatToolBar() : TIAPItem(kFlatToolBarItem) {
    bool isFlat = true;
    (void)LoadBool(&isFlat);
    fIsFlat = isFlat;
}

status_t TIAPItemFlatToolBar::MakeConfigurationView(BView** view, bool defaults) {
    auto* message = new BMessage(kMsgSharedControlChanged);
    AddDefaultInfo(message);
    auto* box = new BCheckBox(kConfigurationControlFrame, "FFlat Tool Bar", "", message);
    bool isFlat = true;
    (void)GetBool(&isFlat, defaults);
    box->SetValue(isFlat ? B_CONTROL_ON : B_CONTROL_OFF);
    *view = make_configuration_view(Name(), box);
    return B_OK;
}

status_t TIAPItemFlatToolBar::GetValue(BMessage* message, bool defaults) const {
    AddDefaultInfo(message);
    message->what = kMsgSharedItemChanged;
    bool isFlat = true;
    (void)GetBool(&isFlat, defaults);
    return message->AddBool(Name().c_str(), isFlat);
}

status_t TIAPItemFlatToolBar::SetValue(const BMessage& change) {
    bool isFlat = fIsFlat;
    if (change.FindBool(Name().c_str(), &isFlat) != B_OK) {
        BMessage box;
        // A box that is off is archived without its value.
        if (change.FindMessage("_views", &box) == B_OK)
            isFlat = box.GetInt32("_val", B_CONTROL_OFF) != B_CONTROL_OFF;
    }
    fIsFlat = isFlat;
    (void)SaveBool(isFlat);
    return B_OK;
}

status_t TIAPItemFlatToolBar::GetBool(bool* value, bool defaults) const {
    *value = defaults || fIsFlat;
    return B_OK;
}

status_t TIAPItemFlatToolBar::SetBool(bool value) {
    fIsFlat = value;
    return B_OK;
}
