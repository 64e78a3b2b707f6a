// The preferences dialog's colours tab: one set of controls for whichever colour is chosen.

#include <algorithm>
#include <interface/Box.h>
#include <interface/ColorControl.h>
#include <interface/MenuField.h>
#include <interface/PopUpMenu.h>
#include <interface/Slider.h>

#include "framework/MessageCodes.h"
#include "settings/PrefView.h"

void TPrefView::PopMItemColTargetClicked() {
    UpdateColorCompos();
}

void TPrefView::ColCtrlColChanged() {
    SetColor();
}

void TPrefView::SliderColAlphaChanged() {
    SetColor();
}

pref_color TPrefView::ColorTarget() const {
    const BMenu* menu = fMFieldColTarget->Menu();
    return static_cast<pref_color>(
        std::max<int32>(menu->IndexOf(menu->FindMarked()), kColorBackground));
}

void TPrefView::SetColor() {
    rgb_color color = fColCtrlCol->ValueAsColor();
    color.alpha = static_cast<uint8>(fSliderColAlpha->Value());
    gPrefs.fColors[ColorTarget()] = color;
    fBoxColSample->SetViewColor(color);
    fBoxColSample->Invalidate();
    NotifyPrefChange(kPrefColors);
}

void TPrefView::UpdateColorCompos() {
    const pref_color target = ColorTarget();
    const rgb_color color = gPrefs.fColors[target];
    MarkItem(fMFieldColTarget, target);
    fColCtrlCol->SetValue(color);
    fBoxColSample->SetViewColor(color);
    fBoxColSample->Invalidate();
    fSliderColAlpha->SetValue(color.alpha);
    fSliderColAlpha->SetEnabled(target != kColorBackground);  // nothing shows through from behind
}
